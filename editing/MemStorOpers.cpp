#include "diagnostics/Guarded.h"
#include "editing/CommentUnits.h"
#include "editing/Deletion.h"
#include "editing/HeldText.h"
#include "editing/Insertion.h"
#include "editing/ReplacedText.h"
#include "editing/SelectionExtend.h"
#include "store/MemStor.h"

#include <algorithm>
#include <utility>

// The primitives that change text. Operations are their only callers for that; they keep no record for undo.

void xTMemStorage::insert_text(const xTPos& pos, std::int32_t& count, CString& text, bool rejoin)
{
    if (pos.line < 0 || (pos.line == 0 && pos.col < 0) || pos > end_pos())
        return;
    set_caret_raw(pos);
    insert_at_caret(count, text, rejoin);
}

void xTMemStorage::insert_at_caret(std::int32_t& count, CString& text, bool rejoin)
{
    Guarded([&] {
        if (count == 0 || !wnd || !wnd->Handle())
            return;
        insert_pieces(count, text);
        if (rejoin)
            join_next_line();
        rescan_comments();
    });
}

bool xTMemStorage::put_back(const xTPos& pos, std::int32_t& count, xTHeldText& text)
{
    return Guarded(true, [&] {
        if (!wnd || !wnd->Handle() || !text.FitsAt(*this, pos))
            return false;
        const std::int32_t present = line_count();
        xTExtString line = lines[pos.line];
        set_caret_raw(pos);
        const bool isIn = Guarded(false, [&] { return text.PutBack(*this); });
        if (!isIn) {  // a part of it could not be told from what stood there, so none stays
            lines.RemoveAt(pos.line + 1, line_count() - present);
            lines[pos.line] = std::move(line);
            note_change(pos.line, pos.line);
            set_caret_raw(pos);
            count = 0;
        }
        rescan_comments();
        return true;
    });
}

void xTMemStorage::insert_pieces(std::int32_t& count, CString& text)
{
    xTInsertion insertion(*this, text, count);
    try {
        insertion.Run();
    } catch (...) {
        // The count is what has come in, so that undo takes out that and nothing else. The folds made so far are part
        // of it, so the text has to hold them too.
        count = insertion.Put();
        Guarded([&] { insertion.WriteFolds(text); });
        throw;
    }
    insertion.WriteFolds(text);
}

// Appends the line behind the caret's to it, whatever its length: a join that stopped at the limit is taken back.
void xTMemStorage::join_next_line()
{
    xTExtString line = lines[caret.line];
    line.Append(lines[caret.line + 1]);
    lines[caret.line].copy_data(line);
    remove_line(caret.line + 1);
    note_change(caret.line, caret.line);
}

void xTMemStorage::insert_piece(std::int32_t& count, const xTPos& pos, xTExtString& piece)
{
    if (pos.line < 0 || pos.line > line_count())
        return;
    count += ExpandTabs(piece, attribs);
    if (pos.line == line_count()) {
        lines.Add(piece);
    } else {
        xTExtString line = lines[pos.line];
        line.InsertSubString(pos.col, piece);
        lines[pos.line].copy_data(line);
    }
    note_change(pos.line, pos.line);
    if (HoldsCommentUnit(lines[pos.line].m_text))
        comments_valid = false;
}

void xTMemStorage::split_line(const xTPos& pos)
{
    if (!is_valid_pos(pos))
        return;
    const std::int32_t at = pos.line;
    xTExtString head = lines[at].LeftPart(pos.col);
    xTExtString tail = lines[at].RightPart(pos.col);
    head.m_snapshotLine = lines[at].m_snapshotLine;  // the line that was there lives on in its first part
    *lines.InsertAt(std::int64_t{at} + 1) = std::move(tail);
    lines[at] = std::move(head);
    note_change(at, at + 1);
}

void xTMemStorage::remove_line(std::int32_t index)
{
    lines.RemoveAt(index);
    note_change(index, index);
}

bool xTMemStorage::delete_text(const xTPos& pos, std::int32_t count, bool* split, xTHeldText* held)
{
    bool changed = true;
    Guarded([&] {
        if (pos.line < 0 || (pos.line == 0 && pos.col < 0) || pos >= end_pos())
            return;
        if (split)
            *split = false;
        const xTPos start = pos;
        const std::int32_t before = line_count();
        xTDeletion deletion(*this, start, count, split, held);
        changed = false;
        deletion.Run(changed);
        changed = true;
        if (wnd)
            wnd->InvalidateCaretLine();
        if (has_selection() && start < first())
            shift_selection(start, line_count() - before, deletion.Shift());
    });
    return changed;
}

// Text ahead of the selection has gone: `lineDelta` lines (0 or below 0) and, where it ended, `shift` characters. The
// line test comes behind the first correction, on what that leaves: required.
void xTMemStorage::shift_selection(const xTPos& start, std::int32_t lineDelta, std::int32_t shift)
{
    xTPos from = selection.first;
    xTPos to = selection.last;
    if (start.line < from.line) {
        from.line += lineDelta;
        to.line += lineDelta;
    }
    if (start.line == from.line)
        from.col += shift;
    if (start.line == to.line)
        to.col += shift;
    selection.first = from;
    selection.last = to;
    set_caret({last().line, last().col + 1});
}

void xTMemStorage::delete_at_caret(CString& text, xTPos& pos, std::int32_t& count, bool& split,
                                   std::shared_ptr<xTHeldText>* held)
{
    Guarded([&] {
        if (has_selection())
            delete_selection(text, pos, count, split, held);
        else if (caret < end_pos())
            delete_one(text, pos, count, split);
    });
}

void xTMemStorage::delete_selection(CString& text, xTPos& pos, std::int32_t& count, bool& split,
                                    std::shared_ptr<xTHeldText>* held)
{
    pos = first();
    std::shared_ptr<xTHeldText> lines = held ? xTHeldText::Plan(*this, first(), last()) : nullptr;
    CString gone;
    const std::int32_t length = lines ? lines->CountedLength() : selected_text(gone);
    set_caret_raw(first());
    text = std::move(gone);
    text.AppendChar(0);
    count = delete_text(pos, length, &split, lines.get()) ? length : 0;
    if (lines && lines->IsTaken())
        *held = std::move(lines);
    selection.first = selection.last = xTPos::none;
    if (wnd)
        wnd->Invalidate();
}

void xTMemStorage::delete_one(CString& text, const xTPos& pos, std::int32_t& count, bool& split)
{
    const WCHAR ch = char_at(caret);
    // At the end of a line a join will move the lines below.
    if (caret.col == line_length(caret.line) && wnd)
        wnd->Invalidate();
    text = CString(ch, 1);
    text.AppendChar(0);
    count = delete_text(pos, 1, &split) ? 1 : 0;
}

void xTMemStorage::overwrite_char(const xTPos& pos, WCHAR ch)
{
    // The last line is never overwritten: required behaviour, not an off-by-one.
    if (pos.line < 0 || pos.line >= line_count() - 1)
        return;
    xTExtString line = lines[pos.line];
    if (ch != _T('\n'))
        line.SetAt(pos.col, ch);
    lines[pos.line].copy_data(line);
    note_change(pos.line, pos.line);
}

void xTMemStorage::overwrite_at_caret(WCHAR ch)
{
    Guarded([&] {
        overwrite_char(caret, ch);
        xTPos next = caret;
        next_pos(next, true);
        set_caret_raw(next);
        // Only the new character is asked: overwriting a `*` with a letter leaves the marks as they are. Required.
        if (IsCommentUnit(ch))
            comments_valid = false;
        rescan_comments();
    });
}

bool xTMemStorage::replace_at(const xTPos& pos, WStrView old, WStrView replacement)
{
    return replace_at(pos, old, replacement, {});
}

bool xTMemStorage::replace_at(const xTPos& pos, WStrView old, WStrView replacement, const xTReplacedText& texts)
{
    return Guarded(false, [&] {
        const xTPos at = pos;
        if (at.col < 0 || at.col >= line_length(at.line))
            return false;
        xTExtString& line = lines[at.line];
        CString text = texts.Of(line.m_text, static_cast<std::size_t>(at.col), old.size(), replacement);
        line.ReplaceRun(at.col, static_cast<std::int32_t>(old.size()), text);
        if (texts.before)
            *texts.before = std::move(text);
        note_change(at.line, at.line);
        if (wnd)
            wnd->NotifyHost(true, 0);
        return true;
    });
}

void xTMemStorage::extend_selection(int direction)
{
    Guarded([&] {
        if (!wnd)
            return;
        wnd->InvalidateCaretLine();
        ExtendSelection(*this, direction);
        wnd->InvalidateCaretLine();
    });
}

void xTMemStorage::note_change(std::int32_t first, std::int32_t last) noexcept
{
    for (std::int32_t line = first; line <= last; ++line)
        m_hadLongLine = m_hadLongLine || (has_line(line) && lines[line].GetLength() > joinLimit);
    stale.Note(first, last, line_count());
}
