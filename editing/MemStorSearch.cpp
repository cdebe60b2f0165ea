#include "diagnostics/Guarded.h"
#include "editing/SearchMessages.h"
#include "editing/TextFinder.h"
#include "store/FoldCase.h"
#include "store/MemStor.h"

// Find and replace, the store's side. Both go through the text from the caret.

xTPos xTMemStorage::find_text(const CString& what, bool down, bool whole_word, bool match_case, bool from_caret,
                              bool* wrapped) const
{
    return Guarded(xTPos::none, [&] {
        return xTTextFinder(what, whole_word, match_case).Search(*this, down, from_caret, wrapped);
    });
}

void xTMemStorage::replace_and_next(xTPos& pos, CString& find, const CString& replacement, bool whole_word,
                                    bool match_case)
{
    Guarded([&] {
        xTPos replaced{0, 0};
        xTPos behind{0, 0};
        replace_selected(pos, find, replacement, match_case, replaced, behind);
        bool wrapped = false;
        const xTPos next = find_text(find, true, whole_word, match_case, true, &wrapped);
        if (wrapped && !(wnd && wnd->ConfirmWrap()))
            return;
        if (wnd && !wnd->Handle())
            return;  // the host destroyed the control when it was asked
        if (next == xTPos::none)
            show_replaced(replaced, behind);
        else
            show_match(next, find.GetLength());
    });
}

// Replaces the selection if it is a match; then `replaced` and `behind` tell where the new text stands.
void xTMemStorage::replace_selected(xTPos& pos, CString& find, const CString& replacement, bool match_case,
                                    xTPos& replaced, xTPos& behind)
{
    CString selected;
    selected_text(selected);
    const bool matches = match_case ? selected == find : FoldCase(selected) == FoldCase(find);
    if (selected.IsEmpty() || !matches)
        return;
    find = selected;  // as it was spelt, so that undo can bring that back
    pos = first();
    replaced = first();
    behind = {replaced.line, replaced.col + replacement.GetLength()};
    if (replace_at(replaced, find, replacement))
        set_caret(behind);
    else
        pos = xTPos::none;  // it stands as it stood: there is no step to undo
}

void xTMemStorage::show_match(const xTPos& match, std::int32_t length)
{
    const xTPos end{match.line, match.col + length};
    if (wnd)
        wnd->MoveCaretTo(match.line, match.col, false, true, true);
    select_range(match, end);
    set_caret(end);
}

// Without a replacement both places are (0, 0), and that is where the caret goes: required.
void xTMemStorage::show_replaced(const xTPos& replaced, const xTPos& behind)
{
    select_range(replaced, behind);
    set_caret(behind);
    if (wnd) {
        wnd->Invalidate();
        wnd->UpdateNow();
    }
    ShowNothingFound(wnd);
}
