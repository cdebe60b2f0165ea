#include "appearance/LastBlock.h"

#include <algorithm>
#include <memory>
#include <mutex>

namespace {

std::mutex guard;  // hosts may keep controls on several threads
std::unique_ptr<std::byte[]> bytes;
std::size_t byteCount = 0;

}  // namespace

void KeepLastBlock(const xTSettingsBlock& block)
{
    if (!block.data || block.size == 0)
        return;
    const std::size_t size = std::size_t{block.size} + 1;
    auto copy = std::make_unique<std::byte[]>(size);
    std::copy_n(static_cast<const std::byte*>(block.data), block.size, copy.get());
    const std::scoped_lock lock(guard);
    bytes = std::move(copy);
    byteCount = size;
}

void ReleaseLastBlock() noexcept
{
    const std::scoped_lock lock(guard);
    bytes.reset();
    byteCount = 0;
}

std::size_t LastBlockBytes() noexcept
{
    const std::scoped_lock lock(guard);
    return byteCount;
}
