#include "diagnostics/Guarded.h"
#include "store/MemStor.h"
#include "store/WideScan.h"

#include <algorithm>

// The block comments of the text. Between lines a scan carries nothing but whether a line begins inside a comment: what
// becomes of a line depends on its characters and on that alone. Each line keeps how it began, so that a scan goes from
// the first changed line only as far as lines begin otherwise than they did.

namespace {

// The column of the block comment that opens in a line at or behind a column, -1 when there is none.
std::int32_t OpeningIn(const xTExtString& line, std::int32_t from)
{
    const std::int32_t open = line.FindInCode(_T("/*"), from);
    if (open < 0)
        return -1;
    // Only the first `//` of the line is asked, from column 0 on: when it lies in a comment, a second one behind that
    // comment hides nothing. Required.
    const std::int32_t slashes = line.FindInCode(_T("//"), 0);
    const bool hidden = slashes >= 0 && slashes <= open && !line.IsCommentAt(slashes);
    return hidden ? -1 : open;
}

// The column behind the mark that closes a comment, -1 when none does. Strings are not looked at: a mark in one closes.
std::int32_t BehindClosing(const xTExtString& line, std::int32_t from)
{
    const std::int32_t hit = FindPair(line.m_text, _T('*'), _T('/'), from);
    return hit < 0 ? -1 : hit + 2;
}

// Marks one line anew. Returns whether the next one begins inside a comment.
bool ScanLine(xTExtString& line, bool inside)
{
    std::int32_t behind = inside ? BehindClosing(line, 0) : 0;
    if (behind < 0) {
        line.MarkAllComment();
        return true;
    }
    line.UnmarkAllComment();
    if (inside)
        line.MarkCommentRun(0, behind, true);
    for (std::int32_t open = OpeningIn(line, behind); open >= 0; open = OpeningIn(line, behind)) {
        behind = BehindClosing(line, open + 2);
        // A comment behind another on one line takes from the line that it begins inside the earlier one. Required.
        line.MarkCommentRun(open, behind < 0 ? line.GetLength() : behind, false);
        if (behind < 0)
            return true;
    }
    return false;
}

// What a scan may change of a line, shared with it and not copied.
class xTMarksOfLine {
public:
    explicit xTMarksOfLine(const xTExtString& line) : m_words(line.m_attrs), m_flags(line.m_flags) {}
    [[nodiscard]] bool AreThoseOf(const xTExtString& line) const
    {
        return m_flags == line.m_flags && (m_words.SharesBufferWith(line.m_attrs) || m_words.view() == line.m_attrs.view());
    }

private:
    CString m_words;
    std::uint16_t m_flags;
};

}  // namespace

void xTMemStorage::rescan_comments()
{
    Guarded([&] {
        if (comments_valid)
            return;
        bool othersChanged = true;
        try {
            if (stale.IsWholeText(line_count()))
                scan_from_top();
            else
                othersChanged = scan_changed(stale.Ranges());
        } catch (...) {
            stale = {};  // lines behind the changed ones may have been marked: the next scan is one of the whole text
            throw;
        }
        finish_rescan(othersChanged);
    });
}

// Not through the guarded operations: a failure has to end the scan.
void xTMemStorage::scan_from_top()
{
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
}

// Gives the marks of a scan from the top, but looks at the changed lines alone and at those behind them that begin
// otherwise than they did. Returns whether another line than the one changed last has got other marks: that one is shown by
// who changes it, and so were those that changed before it, with the marks that they had.
bool xTMemStorage::scan_changed(std::span<const xTLineRange> changed)
{
    const std::int32_t shown = stale.Latest();
    bool othersChanged = false;
    std::int32_t line = -1;  // the lines before it match the text
    bool inside = false;
    const auto scan = [&] {
        if (othersChanged || line == shown) {
            inside = ScanLine(lines[line], inside);
        } else {
            const xTMarksOfLine before(lines[line]);
            inside = ScanLine(lines[line], inside);
            othersChanged = !before.AreThoseOf(lines[line]);
        }
    };
    for (const xTLineRange& range : changed) {
        if (range.first > line) {
            line = range.first;
            inside = false;
            // Behind a line without a comment the next one begins outside; any other is looked at once more.
            if (line > 0 && line <= line_count() && (lines[line - 1].m_flags & xTExtString::flagHasComment) != 0)
                inside = lines[--line].m_beganInside;
        }
        for (; line < line_count() && (line <= range.last || lines[line].m_beganInside != inside); ++line)
            scan();
    }
    return othersChanged;
}

// The marks match the text: the window shows them now. The line that changed is shown by who changed it, as one without
// any comment is. Nothing of the store is touched behind the call, which may run a handler of the host.
void xTMemStorage::finish_rescan(bool show)
{
    comments_valid = true;
    stale.Clear(line_count());
    if (xTStoreWindow* const window = show ? wnd : nullptr) {
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
            open = OpeningIn(lines[at.line], at.col);
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

// The place behind the next closing mark; without one the start of the line that would follow the text.
xTPos xTMemStorage::closing_behind(xTPos at) const
{
    for (; at.line < line_count(); at = {at.line + 1, 0}) {
        if (const std::int32_t behind = BehindClosing(lines[at.line], at.col); behind >= 0)
            return {at.line, behind};
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
