#include "framework/base/CString.h"

#include "framework/base/Platform.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr std::size_t slabBytes = xTStringSlabs::blockBytes;

// What a block that is being filled counts on top of its strings, so that no string's end can free it and no string's
// birth need be counted: the births are put in its place, all at once, when the block is finished.
constexpr std::uint32_t fillingBias = 1u << 31;

std::atomic<std::size_t> liveSlabs{0};

constexpr std::size_t stepUnits = 64;
constexpr std::size_t stepBytes = stepUnits * sizeof(WCHAR);

}  // namespace

// The head of a block; the buffers follow it.
struct xTStringSlabs::xTSlab {
    std::atomic<std::uint32_t> live;  // strings that live, in a block that is finished
};

xTStringSlabs::xTSlab* xTStringSlabs::SlabOf(const void* place) noexcept
{
    return reinterpret_cast<xTSlab*>(reinterpret_cast<std::uintptr_t>(place) & ~(slabBytes - 1));
}

xTStringSlabs::~xTStringSlabs()
{
    FinishSlab();
}

void xTStringSlabs::DropFrom(xTSlab* slab, std::uint32_t count) noexcept
{
    if (slab->live.fetch_sub(count, std::memory_order_acq_rel) != count)
        return;
    liveSlabs.fetch_sub(1, std::memory_order_relaxed);
    PlatformFreePages(slab, slabBytes);
}

void xTStringSlabs::FinishSlab() noexcept
{
    if (m_slab)
        DropFrom(m_slab, fillingBias - m_carved);
    m_slab = nullptr;
}

void xTStringSlabs::StartSlab()
{
    void* pages = PlatformAllocPages(slabBytes);
    FinishSlab();
    liveSlabs.fetch_add(1, std::memory_order_relaxed);
    m_slab = new (pages) xTSlab{{fillingBias}};
    m_used = sizeof(xTSlab);
    m_carved = 0;
}

// A string of `length` characters, which are for the caller to write; null for a text that is too long for a block.
inline WCHAR* xTStringSlabs::Room(std::size_t length)
{
    constexpr std::size_t longest = slabBytes / 8 / sizeof(WCHAR);  // a longer text would leave too much of a block unused
    if (length > longest)
        return nullptr;
    constexpr std::size_t alignment = alignof(CString::xTHeader);
    const std::size_t wanted = sizeof(CString::xTHeader) + (length + 1) * sizeof(WCHAR);
    const std::size_t bytes = (wanted + alignment - 1) / alignment * alignment;
    if (!m_slab || bytes > slabBytes - m_used)
        StartSlab();
    void* place = reinterpret_cast<std::byte*>(m_slab) + m_used;
    m_used += bytes;
    ++m_carved;
    auto* header = new (place) CString::xTHeader{{1}, static_cast<std::int32_t>(length), CString::inSlab};
    auto* characters = reinterpret_cast<WCHAR*>(header + 1);
    characters[length] = 0;
    return characters;
}

CString xTStringSlabs::Carve(WStrView text, std::size_t readable)
{
    if (text.empty())
        return {};
    WCHAR* const characters = Room(text.size());
    if (!characters)
        return text;
    // Nearly every line is copied whole by one step, whatever its length: cheaper than to tell the lengths apart.
    if (text.size() <= stepUnits && readable >= stepUnits && slabBytes - m_used >= stepBytes) {
        std::memcpy(characters, text.data(), stepBytes);
        characters[text.size()] = 0;
    } else {
        std::copy(text.begin(), text.end(), characters);
    }
    return {characters, CString::xTAdopt{}};
}

CString xTStringSlabs::Carve(WStrView head, WStrView middle, WStrView tail)
{
    const std::size_t length = head.size() + middle.size() + tail.size();
    if (length == 0)
        return {};
    WCHAR* const characters = Room(length);
    if (!characters)
        return CString(head).Append(middle).Append(tail);
    WCHAR* place = std::copy(head.begin(), head.end(), characters);
    place = std::copy(middle.begin(), middle.end(), place);
    std::copy(tail.begin(), tail.end(), place);
    return {characters, CString::xTAdopt{}};
}

std::size_t xTStringSlabs::LiveBytes() noexcept
{
    return liveSlabs.load(std::memory_order_relaxed) * slabBytes;
}
