#include "zsl/memory_stream.h"

#include <algorithm>
#include <cstring>

namespace zsl {

memory_stream::memory_stream(const void* data, std::size_t size) noexcept
    : m_ok(data != nullptr), m_block(static_cast<const std::byte*>(data)), m_blockSize(data ? size : 0)
{
}

bool memory_stream::read(void* to, std::size_t size, std::size_t* got)
{
    const std::size_t count = to ? std::min(size, this->size() - m_readPlace) : 0;
    if (count != 0)
        std::memcpy(to, begin() + m_readPlace, count);
    m_readPlace += count;
    if (got)
        *got = count;
    return m_ok && count == size;
}

bool memory_stream::write(const void* from, std::size_t size)
{
    if (!m_ok || m_block || (!from && size != 0))
        return false;
    const auto* bytes = static_cast<const std::byte*>(from);
    m_own.insert(m_own.end(), bytes, bytes + size);
    return true;
}

std::size_t memory_stream::size() const
{
    return m_block ? m_blockSize : m_own.size();
}

}  // namespace zsl
