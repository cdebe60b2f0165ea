#include "diagnostics/Guarded.h"
#include "store/MemStor.h"
#include "store/WideScan.h"

#include <algorithm>

// The block comments of the text, found from the top. Between lines the scan carries nothing but whether a line begins
// inside a comment, and each line keeps that in its flags.

void xTMemStorage::rescan_comments()
{
    Guarded([&] {
        if (comments_valid)
            return;
        // Not through the guarded operations: a failure leaves the flag down, and the next paint tries again.
        for (std::int32_t line = 0; line < line_count(); ++line)
            lines[line].UnmarkAllComment();
        xTPos from{0, 0};
        xTPos start;
        xTPos end;
        while (FindBlockComment(from, start, end)) {
            mark_range(start, end);
            from = end;
            next_pos(from, false);
        }
        finish_rescan();
    });
}

// The marks match the text: the window shows them now. Nothing of the store is touched behind the call, which may run
// a handler of the host.
void xTMemStorage::finish_rescan()
{
    comments_valid = true;
    stale = {xTStaleLines::nowhere, xTStaleLines::nowhere};
    if (xTStoreWindow* const window = wnd) {
        window->Invalidate();
        window->UpdateNow();
    }
}

bool xTMemStorage::FindBlockComment(const xTPos& from, xTPos& start, xTPos& end) const
{
    return Guarded(false, [&] {
        const xTPos textEnd = end_pos();
        if (textEnd == xTPos(0, 0))
            return false;
        xTPos at{from.line, std::max(from.col - 1, 0)};
        start = end = xTPos::none;
        std::int32_t open = -1;
        for (; at.line < line_count(); at = {at.line + 1, 0}) {
            open = opening_in_line(at);
            if (open >= 0)
                break;
        }
        start = {at.line, std::max(open, 0)};
        end = textEnd;
        if (open < 0)
            return false;
        end = closing_behind({at.line, open + 2});
        return true;
    });
}

// The column of the block comment that opens in a line at or behind a position, -1 when there is none.
std::int32_t xTMemStorage::opening_in_line(const xTPos& at) const
{
    const xTExtString& line = lines[at.line];
    const std::int32_t open = line.FindInCode(_T("/*"), at.col);
    if (open < 0)
        return -1;
    // Only the first `//` of the line is asked, from column 0 on: when it lies in a comment, a second one behind that
    // comment hides nothing. Required.
    const std::int32_t slashes = line.FindInCode(_T("//"), 0);
    const bool hidden = slashes >= 0 && slashes <= open && !line.IsCommentAt(slashes);
    return hidden ? -1 : open;
}

// The place behind the next closing mark; without one the start of the line that would follow the text. Strings are
// not looked at: a closing mark in one closes.
xTPos xTMemStorage::closing_behind(xTPos at) const
{
    for (; at.line < line_count(); at = {at.line + 1, 0}) {
        const std::int32_t hit = FindPair(lines[at.line].m_text, _T('*'), _T('/'), at.col);
        if (hit >= 0)
            return {at.line, hit + 2};
    }
    return {line_count(), 0};
}

void xTMemStorage::MarkCommentRange(const xTPos& start, xTPos end)
{
    Guarded([&] { mark_range(start, end); });
}

void xTMemStorage::mark_range(const xTPos& start, const xTPos& behind)
{
    const xTPos end = std::min(behind, end_pos());
    if (!has_line(start.line) || !has_line(end.line))
        return;
    const bool oneLine = start.line == end.line;
    // A comment behind another on one line takes from the line that it begins inside the earlier one. Required.
    lines[start.line].MarkCommentRun(start.col, oneLine ? end.col : line_length(start.line), false);
    for (std::int32_t line = start.line + 1; line < end.line; ++line)
        lines[line].MarkAllComment();
    if (!oneLine)
        lines[end.line].MarkCommentRun(0, end.col, true);
}

void xTMemStorage::MarkCommentLine(std::int32_t line, bool on)
{
    Guarded([&] {
        if (on)
            lines[line].MarkAllComment();
        else
            lines[line].UnmarkAllComment();
    });
}
