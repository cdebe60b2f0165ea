#include "diagnostics/Guarded.h"
#include "editing/ReplacedText.h"
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
    case backspace:
    case erase: text.Insert(*store, pos, count, split); break;
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
    case switch_layout:
        store->delete_text(from, count);
        text.Insert(*store, from, count);
        break;
    case unindent:
    case indent:
    case comment:
    case uncomment: swap_texts(text2, count2, text, count); break;
    default: break;
    }
    invalidate();
}

void xTOperation::redo_kind()
{
    switch (kind) {
    case enter: text.Insert(*store, pos, count); break;  // with the indent that was found the first time
    case erase: text.Delete(*store, pos, count, &split); break;
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
    case uncomment: redo_lines(); break;
    default: apply(); break;
    }
}

void xTOperation::undo_overwrite()
{
    const WCHAR old = store->char_at(pos);
    store->overwrite_char(pos, text.FirstCharacter());
    // Behind the character that it starts with: a redo takes that first one, so it writes back what is there already
    // and only moves the caret. The typed character does not return. Required.
    text.String().AppendChar(old);
    if (window)
        window->InvalidateCaretLine();
}

void xTOperation::undo_paste()
{
    text.Delete(*store, pos, count);
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
        text.Delete(*store, pos, count);
    if (move) {
        text2.Insert(*store, from, count2);
        store->select_range(from, {to.line, to.col + 1});
        ensure_caret_visible();
        invalidate();
    }
    if (after_source)
        text.Delete(*store, pos, count);
    ensure_caret_visible();
}

// Without the new text, for which there was no memory, the lines are changed once more.
void xTOperation::redo_lines()
{
    if (!text2.IsEmpty() || count2 == 0) {
        swap_texts(text, count, text2, count2);
        return;
    }
    store->selection = changed;
    apply_to_lines();
    clear_selection();
}

void xTOperation::swap_texts(xTStepText& present, std::int32_t& removed, xTStepText& wanted, std::int32_t& added)
{
    clear_selection();
    if (present.Delete(*store, pos, removed))
        wanted.Insert(*store, pos, added);
    else
        added = 0;  // nothing has come in that the next time has to take out
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
    xTStringSlabs slabs;
    const bool carves = replacements.size() > xTReplacedText::slabWorth;
    const CString* whole = nullptr;
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
        const bool isFirst = !record.line.IsEmpty();
        if (isFirst)
            whole = &record.line;
        if (back)
            store->replace_at(record.pos, replace_text, record.old_text, {nullptr, whole, nullptr});
        else
            store->replace_at(record.pos, record.old_text, replace_text,
                              {carves && isFirst ? &slabs : nullptr, nullptr, nullptr});
    }
    invalidate();
    update_now();
}
