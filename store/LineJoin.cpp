#include "store/LineJoin.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace {

// Copied at once, whatever the length of a line: nearly every line is copied by one step then, and that without a guess.
// What it copies beyond the line is overwritten by the lines that follow.
constexpr std::size_t stepUnits = 64;
constexpr std::size_t stepBytes = stepUnits * sizeof(WCHAR);

// May whole steps be read from the place of a line? In a block of carved strings, unless it ends before.
bool HasSteps(const CString& text) noexcept
{
    const std::uintptr_t block = xTStringSlabs::BlockOf(text);
    const std::size_t steps = (text.view().size() + stepUnits - 1) / stepUnits;
    return block != 0 &&
           reinterpret_cast<std::uintptr_t>(text.c_str()) - block + steps * stepBytes <= xTStringSlabs::blockBytes;
}

WCHAR* CopySteps(WStrView text, WCHAR* to) noexcept
{
    for (std::size_t i = 0; i < text.size(); i += stepUnits)
        std::memcpy(to + i, text.data() + i, stepBytes);
    return to + text.size();
}

// @param behind how many lines follow, of which each takes a unit at least
WCHAR* JoinLine(const CString& text, std::size_t behind, WCHAR* to) noexcept
{
    to = behind >= stepUnits && HasSteps(text) ? CopySteps(text, to) : std::copy_n(text.c_str(), text.GetLength(), to);
    *to = _T('\n');
    return to + 1;
}

}  // namespace

std::int64_t JoinedLength(const CArray<xTExtString>& lines, std::int32_t first, std::int32_t stop)
{
    std::int64_t length = 0;
    for (std::int64_t at = first; at < stop;) {
        const std::span<const xTExtString> block = lines.BlockFrom(at);
        const auto records = block.first(std::min(block.size(), static_cast<std::size_t>(stop - at)));
        for (const xTExtString& line : records)
            length += line.GetLength() + 1;
        at += static_cast<std::int64_t>(records.size());
    }
    return length;
}

WCHAR* JoinLines(const CArray<xTExtString>& lines, std::int32_t first, std::int32_t stop, WCHAR* to)
{
    for (std::int64_t at = first; at < stop;) {
        const std::span<const xTExtString> block = lines.BlockFrom(at);
        auto left = static_cast<std::size_t>(stop - at);
        const auto records = block.first(std::min(block.size(), left));
        for (const xTExtString& line : records)
            to = JoinLine(line.m_text, --left, to);
        at += static_cast<std::int64_t>(records.size());
    }
    return to;
}
