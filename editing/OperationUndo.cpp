#include "diagnostics/Guarded.h"
#include "editing/HeldText.h"
#include "editing/operations.h"
#include "store/MemStor.h"

#include <algorithm>

// How an operation is undone and done again.

void xTOperation::undo()
{
    Guarded([&] {
        if (!store)
            return;
        show_place();
        undo_kind();
    });
}

void xTOperation::redo()
{
    Guarded([&] {
        if (!store)
            return;
        show_place();
        redo_kind();
    });
}

// The view and the caret are at the step's place before anything changes.
void xTOperation::show_place()
{
    if (pos.line >= 0 && window)
        window->MoveCaretTo(pos.line, std::max(pos.col, 0), false, false, true);
}

void xTOperation::undo_kind()
{
    switch (kind) {
    case overwrite: undo_overwrite(); break;
    case insert: store->delete_text(pos, count); break;
    case backspace: store->insert_text(pos, count, text, split); break;
    case erase: insert_text(); break;
    case enter: undo_enter(); break;
    case delete_range: insert_and_show(); break;
    case paste: undo_paste(); break;
    case insert_block: undo_block(); break;
    case replace:
        if (pos == xTPos::none)
            break;
        swap_match(replace_text, find_text);
        break;
    case replace_all: swap_matches(true); break;
    case change_case:
    case switch_layout: swap_text(from, count, count, text); break;
    case unindent:
    case indent:
    case comment:
    case uncomment: clear_selection(); swap_text(pos, count2, count, text); break;
    default: break;
    }
    invalidate();
}

void xTOperation::redo_kind()
{
    switch (kind) {
    case enter: store->insert_text(pos, count, text, false); break;  // with the indent that was found the first time
    case erase: store->delete_text(pos, count, &split); break;
    case replace:
        if (pos != xTPos::none)
            swap_match(find_text, replace_text);
        break;
    case replace_all: swap_matches(false); break;
    case change_case:
    case switch_layout:
        transform_selection();
        invalidate();
        break;
    case unindent:
    case indent:
    case comment:
    case uncomment: clear_selection(); swap_text(pos, count, count2, text2); break;
    default: apply(); break;
    }
}

void xTOperation::undo_overwrite()
{
    const WCHAR old = store->char_at(pos);
    store->overwrite_char(pos, text.IsEmpty() ? WCHAR{0} : text[0]);
    // Behind the character that it starts with: a redo takes that first one, so it writes back what is there already
    // and only moves the caret. The typed character does not return. Required.
    text.AppendChar(old);
    if (window)
        window->InvalidateCaretLine();
}

// What was pasted goes as lines if it stands there as it came: the string is not needed any more then.
void xTOperation::undo_paste()
{
    std::unique_ptr<xTHeldText> lines = held ? nullptr : xTHeldText::Plan(*store, pos, count, text);
    store->delete_text(pos, count, nullptr, lines.get());
    if (lines && lines->IsTaken()) {  // not where there was no memory for the deletion
        held = std::move(lines);
        text.Empty();
    }
    clear_selection();
}

void xTOperation::undo_enter()
{
    store->delete_text(pos, count);
    store->set_caret(pos);
}

// The order mirrors that of the first time.
void xTOperation::undo_block()
{
    if (!after_source)
        store->delete_text(pos, count);
    if (move) {
        store->insert_text(from, count2, text2, false);
        store->select_range(from, {to.line, to.col + 1});
        ensure_caret_visible();
        invalidate();
    }
    if (after_source)
        store->delete_text(pos, count);
    ensure_caret_visible();
}

void xTOperation::swap_text(const xTPos& at, std::int32_t removed, std::int32_t& added, CString& by)
{
    store->delete_text(at, removed);
    store->insert_text(at, added, by, false);
}

void xTOperation::swap_match(const CString& present, const CString& wanted)
{
    clear_selection();
    store->replace_at(pos, present, wanted);
    ensure_caret_visible();
    invalidate();
    update_now();
}

// Puts the matches of a replace-all back, or the replacements in again. The columns of the records are those of the text
// as it stood while earlier replacements on their line had been made already; the walk turns them into columns of the
// text that it brings about, in place, and the next walk turns them back.
void xTOperation::swap_matches(bool back)
{
    if (back)
        clear_selection();
    const std::int32_t grown = replace_text.GetLength() - find_text.GetLength();
    const std::int32_t step = back ? -grown : grown;
    std::int32_t line = 0;
    std::int32_t shift = 0;
    for (xTReplaceRecord& record : replacements) {
        if (record.pos.line == line) {
            record.pos.col += shift;
        } else {
            line = record.pos.line;
            shift = 0;
        }
        shift += step;
        if (back)
            store->replace_at(record.pos, replace_text, record.old_text);
        else
            store->replace_at(record.pos, record.old_text, replace_text);
    }
    invalidate();
    update_now();
}
