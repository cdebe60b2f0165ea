#include "store/MemStor.h"

#include "diagnostics/Guarded.h"
#include "framework/base/Exceptions.h"
#include "store/LineJoin.h"

#include <algorithm>
#include <limits>
#include <new>

// Lines and pieces of lines by position, and the moves of a position and of the caret. All in characters: a tab is one.

std::int32_t xTMemStorage::line_length(std::int32_t line) const
{
    return has_line(line) ? lines[line].GetLength() : 0;
}

bool xTMemStorage::get_line(std::int32_t index, xTExtString& out) const
{
    return Guarded(true, [&] {
        // No caller can tell a line out of range from an empty one.
        if (has_line(index))
            out.copy_data(lines[index]);
        else
            out.Clear();
        return true;
    });
}

void xTMemStorage::line_tail(const xTPos& pos, xTExtString& out) const
{
    Guarded([&] {
        if (is_valid_pos(pos))
            out = lines[pos.line].RightPart(pos.col);
        else
            out.Clear();
    });
}

void xTMemStorage::line_head(const xTPos& pos, xTExtString& out) const
{
    Guarded([&] {
        out.Clear();
        // A line below 0 raises, and is reported, where one past the end reads as empty: required.
        if (pos.line < line_count())
            out = lines[pos.line].LeftPart(pos.col);
    });
}

bool xTMemStorage::is_valid_pos(const xTPos& pos) const
{
    return has_line(pos.line) && pos.col >= 0 && pos.col <= lines[pos.line].GetLength();
}

void xTMemStorage::set_caret(const xTPos& pos)
{
    Guarded([&] {
        if (!has_line(pos.line) || pos.col < 0)
            return;
        set_caret_raw({pos.line, std::min(pos.col, line_length(pos.line))});
        if (wnd)
            wnd->EnsureCaretVisible();
    });
}

void xTMemStorage::set_caret_raw(const xTPos& pos) noexcept
{
    caret = pos;
    caret.col = std::max(caret.col, 0);
    caret.line = std::max(caret.line, 0);
}

void xTMemStorage::move_caret(int direction)
{
    Guarded([&] {
        xTPos pos = caret;
        switch (direction) {
        case 0: prev_pos(pos, false); break;
        case 1: next_pos(pos, false); break;
        case 2: line_up(pos); break;
        case 3: line_down(pos); break;
        default: break;
        }
        set_caret_raw(pos);
        // The window hears of it also when no step was possible.
        if (xTStoreWindow* const window = wnd) {
            window->RequestPaint();
            window->EnsureCaretVisible();
        }
    });
}

void xTMemStorage::line_up(xTPos& pos) const
{
    if (pos.line >= 1 && pos.line < line_count())
        put_on_line(pos, pos.line - 1);
}

void xTMemStorage::line_down(xTPos& pos) const
{
    if (pos.line >= 0 && pos.line < line_count() - 1)
        put_on_line(pos, pos.line + 1);
}

void xTMemStorage::move_lines(xTPos& pos, std::int32_t count) const
{
    if (count == 0 || line_count() == 0)
        return;
    const std::int64_t wanted = std::int64_t{pos.line} + count;
    const std::int64_t line =
        count > 0 ? std::min<std::int64_t>(wanted, line_count() - 1) : std::max<std::int64_t>(wanted, 0);
    if (line != pos.line)
        put_on_line(pos, static_cast<std::int32_t>(line));
}

// No goal column is remembered: a column once cut stays cut.
void xTMemStorage::put_on_line(xTPos& pos, std::int32_t line) const
{
    pos = {line, std::min(pos.col, line_length(line))};
}

void xTMemStorage::to_line_end(xTPos& pos) const
{
    if (has_line(pos.line))
        pos.col = line_length(pos.line);
}

void xTMemStorage::home_caret(const xTPos& pos)
{
    if (!has_line(pos.line)) {
        set_caret_raw(pos);
        return;
    }
    const WStrView text = lines[pos.line].m_text;
    const auto reach = static_cast<std::size_t>(std::max(pos.col, 0));
    const std::size_t column = text.substr(0, reach).find_first_not_of(_T(" \t"));
    set_caret_raw({pos.line, column == WStrView::npos ? 0 : static_cast<std::int32_t>(column)});
}

std::int32_t xTMemStorage::get_text(const xTPos& from, xTPos& to, CString& text) const
{
    std::int32_t count = 0;
    take_text(from, to, text, count);
    return count;
}

bool xTMemStorage::take_text(const xTPos& from, xTPos& to, CString& text, std::int32_t& count) const
{
    count = 0;
    return Guarded(false, [&] {
        text.Empty();
        if (const xTPos end = end_pos(); to > end)
            to = end;
        text = from.line == to.line ? piece_of_line(from, to.col) : joined_lines(from, to);
        if (attribs && !attribs->m_keepTabs)
            text.Replace(_T("\t"), CString(_T(' '), attribs->TabSpaces()));
        count = text.GetLength();
        return true;
    });
}

// The characters of one line from a position up to a column, both inclusive; nothing from a position outside the text.
CString xTMemStorage::piece_of_line(const xTPos& from, std::int32_t last) const
{
    if (!is_valid_pos(from))
        return {};
    const CString& text = lines[from.line].m_text;
    const std::int32_t behind = std::min(last, text.GetLength()) + 1;  // `last` may be any number, the largest too
    return text.Mid(from.col, behind - from.col);
}

// From a position to one on a later line, inclusive, with a line feed behind each line but the last. The break of the
// last line is never taken, not even by a column on it.
CString xTMemStorage::joined_lines(const xTPos& from, const xTPos& to) const
{
    const auto part = [&](std::int32_t line) -> WStrView {
        const std::int32_t column = line == from.line ? from.col : 0;
        if (!has_line(line) || column < 0 || column > lines[line].GetLength())
            return {};
        const WStrView tail = lines[line].m_text.view().substr(static_cast<std::size_t>(column));
        return line == to.line ? tail.substr(0, static_cast<std::size_t>(to.col) + 1) : tail;
    };
    if (from.line > to.line)
        return {};
    const WStrView head = part(from.line);
    const WStrView tail = part(to.line);
    const std::int64_t length = static_cast<std::int64_t>(head.size() + 1 + tail.size()) +
                                JoinedLength(lines, from.line + 1, to.line);
    if (length > std::numeric_limits<std::int32_t>::max() / 4)
        throw std::bad_alloc();
    // With room behind it: a deletion puts a zero there, and a large text is better not copied for that.
    CString text = CString::Unwritten(static_cast<std::int32_t>(length), 1);
    WCHAR* place = std::ranges::copy(head, text.OwnBuffer()).out;
    *place++ = _T('\n');
    std::ranges::copy(tail, JoinLines(lines, from.line + 1, to.line, place));
    return text;
}
