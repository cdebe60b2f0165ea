#include "editing/CaretSteps.h"

#include "store/MemStor.h"

#include <algorithm>

namespace {

[[nodiscard]] xTPos Before(const xTPos& pos) { return {pos.line, pos.col - 1}; }
/// Past the last selected character.
[[nodiscard]] xTPos Behind(const xTPos& last) { return {last.line, last.col + 1}; }

[[nodiscard]] std::int32_t WordStop(const xTMemStorage& store, const xTPos& from, bool forward)
{
    xTExtString line;
    store.get_line(from.line, line);
    return line.NextWordStop(from.col, forward);
}

// Before a line stands the last character of the line above, not its end: required.
[[nodiscard]] xTPos WordLeftOf(const xTMemStorage& store, const xTPos& caret)
{
    const std::int32_t stop = WordStop(store, caret, false);
    if (stop != 0 || caret.col != 0 || caret.line < 1)
        return {caret.line, stop};
    return {caret.line - 1, std::max(store.line_length(caret.line - 1) - 1, 0)};
}

[[nodiscard]] xTPos WordRightOf(const xTMemStorage& store, const xTPos& caret)
{
    const std::int32_t stop = WordStop(store, caret, true);
    if (stop != store.line_length(caret.line) || caret.col != stop || caret.line >= store.line_count() - 1)
        return {caret.line, stop};
    return {caret.line + 1, 0};
}

}  // namespace

void WordLeft(xTMemStorage& store, bool shift)
{
    const xTPos old = store.caret;
    xTPos target = WordLeftOf(store, old);
    const bool selected = store.has_selection();
    if (shift) {
        if (!selected)
            store.select_range(target, old);
        else if (old <= store.first())
            store.select_range(target, Behind(store.last()));
        else
            store.select_range(store.first(), target);
    } else {
        if (selected)
            target = store.first();
        store.clear_selection();
    }
    store.set_caret(target);
}

void WordRight(xTMemStorage& store, bool shift)
{
    const xTPos old = store.caret;
    xTPos target = WordRightOf(store, old);
    const bool selected = store.has_selection();
    if (shift) {
        if (selected && old <= store.last())
            store.select_range(target, Behind(store.last()));
        else
            store.select_range(store.first() == xTPos::none ? old : store.first(), target);
    } else {
        // The last selected character, not the place behind it, unlike the plain right arrow: required.
        if (selected)
            target = store.last();
        store.clear_selection();
    }
    store.set_caret(target);
}

void HomeStep(xTMemStorage& store, bool shift)
{
    const xTPos old = store.caret;
    store.home_caret(old);
    xTSelection& selection = store.selection;
    if (shift && !store.has_selection()) {
        selection.first = store.caret;
        selection.last = Before(old);
    } else if (shift && old == selection.first) {
        selection.first = store.caret;
    } else if (shift && old == Behind(selection.last)) {
        if (selection.first.line == selection.last.line) {
            selection.last = Before(selection.first);
            selection.first = store.caret;
        } else {
            selection.last = Before(store.caret);
        }
    } else {
        store.clear_selection();
    }
}

void EndStep(xTMemStorage& store, bool shift)
{
    const xTPos old = store.caret;
    xTPos end = old;
    store.to_line_end(end);
    store.set_caret_raw(end);
    xTSelection& selection = store.selection;
    if (shift && !store.has_selection()) {
        selection.first = old;
        selection.last = Before(end);
    } else if (shift && old >= selection.last) {
        selection.last = Before(end);
    } else if (shift && old == selection.first) {
        selection.first = end;
    } else {
        store.clear_selection();
    }
}

void SelectRestOfLine(xTMemStorage& store)
{
    const xTPos caret = store.caret;
    const std::int32_t length = store.line_length(caret.line);
    if (caret.col < length) {
        store.selection.first = caret;
        store.selection.last = {caret.line, length - 1};
    } else {
        store.selection.last = Before(caret);
        store.selection.first = {caret.line, length};
    }
}

namespace {

void PlacePaged(xTMemStorage& store, bool down, std::int32_t moved, const xTPos& old)
{
    if (moved == 0) {
        store.set_caret(down ? store.end_pos() : xTPos(0, 0));
        return;
    }
    xTPos target = old;
    store.move_lines(target, moved);
    store.set_caret(target);
}

}  // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): a copy, for it may be the caret itself, which moves.
void PageStep(xTMemStorage& store, bool down, std::int32_t moved, xTPos old, bool shift)
{
    PlacePaged(store, down, moved, old);
    const bool selected = store.has_selection();
    const xTPos first = store.first();
    const xTPos last = store.last();
    store.clear_selection();
    if (!shift)
        return;
    const xTPos& caret = store.caret;
    if (!selected)
        store.select_range(caret, old);
    else if (down ? old > first || old >= last : old >= last && old > first)
        store.select_range(first, caret);
    else if (down && caret < last)
        store.select_range(caret, last);  // the selection loses its last character, unlike the way up: required
    else
        store.select_range(caret, Behind(last));
}
