#include "store/MemStor.h"

#include "diagnostics/Guarded.h"

// Steps by one character, and the setting and clearing of one break point.

xTPos xTMemStorage::end_pos() const
{
    const std::int32_t count = line_count();
    return count == 0 ? xTPos(0, 0) : xTPos(count - 1, line_length(count - 1));
}

bool xTMemStorage::next_pos(xTPos& pos, bool edge) const
{
    if (!has_line(pos.line))
        return false;
    if (pos.col < line_length(pos.line)) {
        ++pos.col;
        return true;
    }
    if (pos.line + 1 == line_count())
        return false;
    pos = {pos.line + 1, edge ? -1 : 0};
    return true;
}

bool xTMemStorage::prev_pos(xTPos& pos, bool edge) const
{
    if (!has_line(pos.line))
        return false;
    if (pos.col > (edge ? -1 : 0)) {
        --pos.col;
        return true;
    }
    if (pos.line == 0)
        return false;
    pos = {pos.line - 1, line_length(pos.line - 1)};
    return true;
}

WCHAR xTMemStorage::char_at(const xTPos& pos) const
{
    return Guarded(WCHAR{0}, [&]() -> WCHAR {
        if (!has_line(pos.line))
            return 0;
        return pos.col == line_length(pos.line) ? _T('\n') : lines[pos.line].GetAt(pos.col);
    });
}

int xTMemStorage::set_break_point(std::int32_t line)
{
    return Guarded(0, [&] {
        if (line_length(line) == 0)  // an empty line cannot carry a break point
            return 0;
        lines[line].m_flags |= xTExtString::flagBreakPoint;
        return 1;
    });
}

int xTMemStorage::remove_break_point(std::int32_t line)
{
    return Guarded(0, [&] {
        if (line >= line_count())
            return 0;
        // A line that editing has emptied keeps its flag, and a negative line reads as an empty one: both answer 1.
        xTExtString copy;
        get_line(line, copy);
        if (copy.GetLength() != 0) {
            copy.m_flags = static_cast<std::uint16_t>(copy.m_flags & ~xTExtString::flagBreakPoint);
            lines[line].copy_data(copy);
        }
        return 1;
    });
}
