#include "store/LineScan.h"

#include <algorithm>
#include <span>

namespace {

// A search that has only just begun looks at few lines at once: it may end at the next one.
constexpr std::int32_t fewLines = 4;
constexpr std::int32_t mostLines = 1024;
// From the beginning of a line to that of the next: as far as a full line reaches, so that where lines have gone not much
// is looked through for nothing.
constexpr std::uintptr_t mostStep = 1100;

// So far ahead memory is asked for: the machine's own foresight ends with each page of 4 KB.
constexpr std::ptrdiff_t recordsAhead = 64;

std::uintptr_t PlaceOf(const xTExtString& line) noexcept
{
    return reinterpret_cast<std::uintptr_t>(line.m_text.c_str());
}

// Lines that stand one behind the other in one block of carved strings, with empty ones among them, which stand nowhere:
// together they are one text. It holds some units between line and line that belong to none.
class xTStretch {
public:
    /// As many of the records as there are; the first in any case.
    explicit xTStretch(std::span<const xTExtString> records) noexcept
    {
        const xTExtString* const first = records.data();
        const xTExtString* const end = first + records.size();
        const xTExtString* last = first;
        const xTExtString* record = first + 1;
        const std::uintptr_t block = xTStringSlabs::BlockOf(first->m_text);
        for (; block != 0 && record != end; ++record) {
            __builtin_prefetch(record + recordsAhead);
            const std::uintptr_t place = PlaceOf(*record);
            if (place - PlaceOf(*last) - 1 < mostStep && place - block < xTStringSlabs::blockBytes)
                last = record;
            else if (!record->m_text.IsEmpty())
                break;
        }
        const WCHAR* const begin = first->m_text.c_str();
        m_lines = {first, record};
        m_text = {begin, static_cast<std::size_t>(last->m_text.c_str() - begin + last->GetLength())};
    }

    [[nodiscard]] std::int32_t Count() const noexcept { return static_cast<std::int32_t>(m_lines.size()); }

    /// The first match, the lines counted from the first of the stretch; column -1 behind its last line for none.
    [[nodiscard]] xTPos FirstMatch(const xTNeedle& needle) const noexcept
    {
        std::size_t line = 0;
        for (std::size_t hit = needle.FindIn(m_text, 0); hit != xTNeedle::none; hit = needle.FindIn(m_text, hit + 1)) {
            const WCHAR* const place = m_text.data() + hit;
            line = LineAt(place, line);
            const WStrView text = m_lines[line].m_text;
            if (place + needle.Length() <= text.data() + text.size())
                return {static_cast<std::int32_t>(line), static_cast<std::int32_t>(place - text.data())};
        }
        return {Count(), -1};
    }

private:
    // The last line that begins at or before a place, knowing one that does.
    [[nodiscard]] std::size_t LineAt(const WCHAR* place, std::size_t line) const noexcept
    {
        for (std::size_t i = line + 1; i < m_lines.size(); ++i) {
            if (m_lines[i].m_text.IsEmpty())
                continue;
            if (m_lines[i].m_text.c_str() > place)
                break;
            line = i;
        }
        return line;
    }

    std::span<const xTExtString> m_lines;
    WStrView m_text;
};

xTPos NextBelow(const CArray<xTExtString>& lines, std::int32_t line, std::int32_t stop, const xTNeedle& needle)
{
    for (std::int32_t most = fewLines; line < stop; most = std::min(2 * most, mostLines)) {
        const auto wanted = static_cast<std::size_t>(std::min(most, stop - line));
        const std::span<const xTExtString> records = lines.BlockFrom(line);
        const xTStretch stretch(records.first(std::min(wanted, records.size())));
        const xTPos match = stretch.FirstMatch(needle);
        line += match.line;
        if (match.col >= 0)
            return {line, match.col};
    }
    return {stop, -1};
}

// Some lines after some others, each time the last that holds it.
xTPos NextAbove(const CArray<xTExtString>& lines, std::int32_t line, std::int32_t stop, const xTNeedle& needle)
{
    for (std::int32_t most = fewLines; line > stop; most = std::min(2 * most, mostLines)) {
        const std::int32_t end = line + 1;
        line = std::max(stop, line - most);
        xTPos last{line, -1};
        for (xTPos match = NextBelow(lines, line + 1, end, needle); match.col >= 0;
             match = NextBelow(lines, match.line + 1, end, needle))
            last = match;
        if (last.col >= 0)
            return last;
    }
    return {stop, -1};
}

}  // namespace

xTPos NextMatch(const CArray<xTExtString>& lines, std::int32_t line, std::int32_t stop, const xTNeedle& needle)
{
    return line < stop ? NextBelow(lines, line, stop, needle) : NextAbove(lines, line, stop, needle);
}
