#include "editing/operations.h"

#include "diagnostics/Guarded.h"
#include "editing/ClipboardText.h"
#include "editing/SearchRequest.h"
#include "framework/base/Platform.h"
#include "store/MemStor.h"

// What an operation records of the store before anything changes, and the door to doing it.

namespace {

constexpr std::uint32_t keyBackspace = 8;
constexpr std::uint32_t keyEnter = 13;
constexpr std::uint32_t keyShift = 16;
constexpr std::uint32_t keyControl = 17;
constexpr std::uint32_t keyInsert = 45;
constexpr std::uint32_t keyDelete = 46;

// A character with the zero behind it that the texts of single keys have.
CString TextOfKey(WCHAR ch)
{
    CString text(ch, 1);
    text.AppendChar(0);
    return text;
}

}  // namespace

xTOperation::xTOperation(std::int32_t kind, xTStoreWindow* window, xTMemStorage* store) noexcept
    : kind(store ? kind : static_cast<std::int32_t>(none)), window(window), store(store)
{}

xTOperation::xTOperation(const xTTyped& typed, xTStoreWindow* window, xTMemStorage* store)
    : xTOperation(typed.overwrite ? overwrite : insert, window, store)
{
    Guarded([&] {
        if (!store)
            return;
        pos = store->caret;
        switch (typed.key) {
        case keyBackspace:
            read_character_before();
            break;
        case keyEnter:
            text = CString(_T('\n'), 1);
            kind = enter;
            break;
        case keyShift:  // Shift alone types nothing
            return;
        default:
            text = TextOfKey(static_cast<WCHAR>(typed.key));
        }
        // Last: a step that could not be recorded counts nothing, so it is not kept and undo takes nothing away for it.
        count = kind == none ? 0 : 1;
    });
}

void xTOperation::read_character_before()
{
    if (pos == xTPos(0, 0)) {
        kind = none;
        return;
    }
    store->prev_pos(pos, false);
    if (const WCHAR ch = store->char_at(pos); ch != 0)
        text = TextOfKey(ch);
    kind = backspace;
}

xTOperation::xTOperation(const xTKey& pressed, xTStoreWindow* window, xTMemStorage* store)
    : xTOperation(none, window, store)
{
    Guarded([&] {
        if (!store)
            return;
        pos = store->caret;
        const bool pastes = pressed.key == keyInsert && PlatformKeyDown(keyShift) && !PlatformKeyDown(keyControl);
        if (pressed.key == keyDelete) {
            kind = erase;
            if (store->first() != store->last())
                pos = store->first();
        } else if (pressed.key == pasteCode || pastes) {
            read_clipboard_text();
        }
    });
}

void xTOperation::read_clipboard_text()
{
    open_clipboard(window ? window->Handle() : nullptr);
    if (CString& read = text.String(); read_clipboard(read)) {
        count = read.GetLength();
        kind = paste;
    }
    PlatformCloseClipboard();  // on this path only: a fault in between leaves the clipboard open, as required
}

xTOperation::xTOperation(const xTBlock& block, xTStoreWindow* window, xTMemStorage* store)
    : xTOperation(insert_block, window, store)
{
    Guarded([&] {
        if (!store)
            return;
        move = block.move;
        from = block.first;
        to = block.last;
        count = block.text.GetLength();
        text = block.text;
        pos = store->caret;
        text2.Read(*store, from, to, count2);
        text.ShareWith(text2);  // a block dragged to another place of the same text
    });
}

xTOperation::xTOperation(const xTRange& range, xTStoreWindow* window, xTMemStorage* store)
    : xTOperation(delete_range, window, store)
{
    Guarded([&] {
        if (!store)
            return;
        xTPos last = range.last;
        text.Read(*store, range.first, last, count);
        pos = range.first;
    });
}

xTOperation::xTOperation(const xTCase& request, xTStoreWindow* window, xTMemStorage* store)
    : xTOperation(change_case, window, store)
{
    to_upper = request.upper;
}

xTOperation::xTOperation(const xTLayout&, xTStoreWindow* window, xTMemStorage* store)
    : xTOperation(switch_layout, window, store)
{}

xTOperation::xTOperation(const xTIndent& request, xTStoreWindow* window, xTMemStorage* store)
    : xTOperation(request.remove ? unindent : indent, window, store)
{
    count = store ? 10 : 0;  // any number above 0: applying sets it, and that without a store never happens
}

xTOperation::xTOperation(const xTComment& request, xTStoreWindow* window, xTMemStorage* store)
    : xTOperation(request.mode == 0 ? comment : request.mode == 1 ? uncomment : none, window, store)
{
    count = store ? 10 : 0;
}

xTOperation::xTOperation(const xTSearchRequest& request, xTStoreWindow* window, xTMemStorage* store)
    : xTOperation(request.Has(xTSearchRequest::replace)      ? replace
                  : request.Has(xTSearchRequest::replaceAll) ? replace_all
                                                             : none,
                  window, store)
{
    pos = xTPos::none;
    count = store ? 1 : 0;
    find_text = request.find_text;
    replace_text = request.replace_text;
    whole_word = request.Has(xTSearchRequest::wholeWord);
    match_case = request.Has(xTSearchRequest::matchCase);
}

xTOperation::xTOperation(const xTOperation& other)
    : pos(other.pos), count(other.count), text(other.text), kind(other.kind), window(other.window), store(other.store),
      split(other.split)
{}

bool xTOperation::apply()
{
    // After a failure the step is kept as it stands, though the edit may be half done.
    return Guarded(true, [&] { return apply_kind(); });
}

bool xTOperation::apply_kind()
{
    if (!store)
        return false;
    switch (kind) {
    case overwrite: apply_overwrite(); return true;
    case insert: text.Insert(*store, pos, count); return true;
    case backspace: apply_backspace(); return true;
    case enter: apply_enter(); return true;
    case erase: text.DeleteAtCaret(*store, pos, count, split); return true;
    case delete_range: apply_delete_range(); return true;
    case paste: insert_and_show(); return true;
    case insert_block: apply_block(); return true;
    case replace: return apply_replace();
    case replace_all: apply_replace_all(); return true;
    case change_case:
    case switch_layout: apply_to_selection(); return true;
    case unindent:
    case indent:
    case comment:
    case uncomment: apply_to_lines(); return true;
    default: return false;
    }
}
