#include "tests/support/model/NaiveStore.h"

// Where a rule compares the caret with the bounds, both are read at that moment: each step changes what the next sees.

void xTNaiveStore::SelectRange(const xTPos& a, const xTPos& b)
{
    const xTPos from = a;
    const xTPos to = b;
    if (from < to) {
        first = from;
        last = xTPos(to.line, to.col - 1);
    } else {
        last = xTPos(from.line, from.col - 1);
        first = to;
    }
}

void xTNaiveStore::ClearSelection()
{
    if (HasSelection())
        first = last = xTPos::none;
}

void xTNaiveStore::DropSelection()
{
    first = last = anchor = xTPos::none;
}

void xTNaiveStore::DropAnchor()
{
    DropSelection();
    anchor = caret;
}

xTPos xTNaiveStore::BeforeCaret() const
{
    xTPos pos = caret;
    PrevPos(pos, true);
    return pos;
}

void xTNaiveStore::ExtendSelection(int direction)
{
    switch (direction) {
    case 0:
        return ExtendLeft();
    case 1:
        return ExtendRight();
    case 2:
        return ExtendUp();
    case 3:
        return ExtendDown();
    default:
        return;
    }
}

void xTNaiveStore::ExtendLeft()
{
    if (!HasSelection()) {
        last = BeforeCaret();
        MoveCaret(0);
        first = caret;
    } else if (first < caret) {
        const bool wasInside = caret < last;
        MoveCaret(0);
        if (!wasInside && caret >= last)
            last = BeforeCaret();
        if (first < caret && caret < last)
            last = BeforeCaret();
        if (!(first < caret))
            first = last = xTPos::none;
    } else {
        MoveCaret(0);
        first = caret;
    }
}

void xTNaiveStore::ExtendRight()
{
    if (!HasSelection()) {
        first = caret;
        MoveCaret(1);
        last = BeforeCaret();
    } else if (caret <= first) {
        MoveCaret(1);
        if (caret >= last)
            first = last = xTPos::none;
        else
            first = caret;
    } else if (caret < last) {
        MoveCaret(1);
        if (caret >= last)
            first = last = xTPos::none;
        else if (first < caret)
            first = caret;
    } else {
        MoveCaret(1);
        if (caret >= last)
            last = BeforeCaret();
    }
}

void xTNaiveStore::ExtendUp()
{
    if (!HasSelection()) {
        last = BeforeCaret();
        MoveCaret(2);
        first = caret;
    } else if (caret >= last) {
        MoveCaret(2);
        if (caret >= last)
            last = BeforeCaret();
        if (first < caret && caret < last)
            last = BeforeCaret();
        if (!(first < caret)) {
            last = xTPos(first.line, first.col - 1);
            first = caret;
        }
    } else if (caret <= first) {
        MoveCaret(2);
        first = caret;
    } else {
        MoveCaret(2);
        if (first < caret && caret < last)
            last = BeforeCaret();
        if (!(first < caret))
            first = last = xTPos::none;
    }
}

void xTNaiveStore::MoveCaretDownToEnd()
{
    if (caret.line == Count() - 1)
        SetCaretRaw(EndPos());
    else
        MoveCaret(3);
}

void xTNaiveStore::ExtendDown()
{
    if (!HasSelection()) {
        first = caret;
        MoveCaretDownToEnd();
        last = BeforeCaret();
    } else if (caret >= last) {
        MoveCaretDownToEnd();
        if (caret >= last)
            last = BeforeCaret();
    } else if (first < caret) {
        MoveCaretDownToEnd();
        if (caret >= last)
            first = last = xTPos::none;
        else if (first < caret)
            first = BeforeCaret();  // not the caret itself, as a move right has it: the difference is kept
    } else {
        MoveCaretDownToEnd();
        if (caret < last) {
            first = caret;
        } else {
            first = xTPos(last.line, last.col + 1);
            last = xTPos(caret.line, caret.col - 1);
        }
    }
}
