#include "appearance/HookBuffer.h"

#include "framework/base/Platform.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t pageBytes = 64 * 1024;         // what PlatformAllocPages deals in
constexpr std::size_t slackBefore = 2 * 1024;        // characters
constexpr std::size_t slackBehind = 16 * 1024;       // characters

}  // namespace

xTHookBuffer::xTHookBuffer(xTHookBuffer&& other) noexcept
    : m_pages(std::exchange(other.m_pages, nullptr)), m_bytes(std::exchange(other.m_bytes, 0))
{
}

xTHookBuffer& xTHookBuffer::operator=(xTHookBuffer&& other) noexcept
{
    std::swap(m_pages, other.m_pages);
    std::swap(m_bytes, other.m_bytes);
    return *this;
}

xTHookBuffer::~xTHookBuffer()
{
    if (m_pages)
        PlatformFreePages(m_pages, m_bytes);
}

WCHAR* xTHookBuffer::Fill(WStrView text)
{
    const std::size_t wanted = (slackBefore + text.size() + 1 + slackBehind) * sizeof(WCHAR);
    if (wanted > m_bytes) {
        const std::size_t bytes = (wanted + pageBytes - 1) / pageBytes * pageBytes;
        void* pages = PlatformAllocPages(bytes);
        if (m_pages)
            PlatformFreePages(m_pages, m_bytes);
        m_pages = pages;
        m_bytes = bytes;
    }
    WCHAR* place = static_cast<WCHAR*>(m_pages) + slackBefore;
    *std::copy(text.begin(), text.end(), place) = 0;
    return place;
}
