#include "tests/support/model/NaiveControl.h"

#include <algorithm>

namespace {

constexpr unsigned insertKey = 45;
constexpr unsigned deleteKey = 46;
constexpr unsigned pasteCode = 0x1001;
constexpr WCHAR backspace = 8;
constexpr WCHAR tab = 9;
constexpr WCHAR escape = 27;

bool IsBlank(WCHAR ch)
{
    return ch == _T(' ') || ch == _T('\t');
}

bool IsDelimiter(WCHAR ch)
{
    static const WString others = _T("~\b\f\n\r\t\v'\"\\ `/!@#$%^&*+№;:-=|?<>,.{}[]()");
    return others.find(ch) != WString::npos;
}

int StopForward(const WString& line, int pos)
{
    const int n = static_cast<int>(line.size());
    const auto at = [&](int i) { return line[static_cast<std::size_t>(i)]; };
    if (pos >= n)
        return n;
    int i = pos;
    if (!IsBlank(at(i))) {
        const bool delimiters = IsDelimiter(at(i));
        while (i < n && !IsBlank(at(i)) && IsDelimiter(at(i)) == delimiters)
            ++i;
    }
    while (i < n && IsBlank(at(i)))
        ++i;
    return i;
}

int StopBackward(const WString& line, int pos)
{
    const auto at = [&](int i) { return line[static_cast<std::size_t>(i)]; };
    if (pos < 1 || line.empty())
        return 0;
    int i = pos - 1;
    if (pos != 1)
        while (i > 0 && IsBlank(at(i)))
            --i;
    // What is asked first is whether it is a delimiter, and a blank is one.
    const bool delimiters = IsDelimiter(at(i));
    while (i > 0 && !IsBlank(at(i - 1)) && IsDelimiter(at(i - 1)) == delimiters)
        --i;
    return i;
}

}  // namespace

void xTNaiveControl::Press(unsigned key, bool shift, bool control, bool insert, bool del)
{
    editor.shiftDown = shift;
    editor.controlDown = control;
    editor.insertDown = insert;
    editor.deleteDown = del;
    editor.AddKey(key);
    editor.shiftDown = editor.controlDown = editor.insertDown = editor.deleteDown = false;
}

void xTNaiveControl::DeleteSelection()
{
    if (editor.store.HasSelection())
        Press(deleteKey, false, false, false, false);
}

void xTNaiveControl::Char(WCHAR ch, bool shift)
{
    const xTNaiveStore& store = editor.store;
    if (ch == tab && (store.last.line > store.first.line || shift))
        return;
    if (ch == escape)
        return;
    if (store.HasSelection()) {
        DeleteSelection();
        if (ch == backspace)
            return;
    }
    editor.AddChar(ch, overwrite);
}

void xTNaiveControl::Arrow(int direction, bool shift)
{
    xTNaiveStore& store = editor.store;
    if (shift)
        return store.ExtendSelection(direction);
    const bool vertical = direction >= 2;
    if (vertical || !store.HasSelection())
        store.MoveCaret(direction);
    else
        store.SetCaret(direction == 0 ? store.first : PastLast());
    store.ClearSelection();
}

void xTNaiveControl::WordLeft(bool shift)
{
    xTNaiveStore& store = editor.store;
    const xTPos old = store.caret;
    const WString text = store.Tail(xTPos(old.line, 0));
    xTPos target{old.line, StopBackward(text, old.col)};
    if (target.col == 0 && old.col == 0 && old.line >= 1)
        target = xTPos(old.line - 1, std::max(store.Length(old.line - 1) - 1, 0));
    if (shift) {
        const xTPos end = store.HasSelection() ? PastLast() : old;
        if (!store.HasSelection() || old <= store.first)
            store.SelectRange(target, end);
        else
            store.SelectRange(store.first, target);
    } else {
        if (store.HasSelection())
            target = store.first;
        store.ClearSelection();
    }
    store.SetCaret(target);
}

void xTNaiveControl::WordRight(bool shift)
{
    xTNaiveStore& store = editor.store;
    const xTPos old = store.caret;
    const WString text = store.Tail(xTPos(old.line, 0));
    xTPos target{old.line, StopForward(text, old.col)};
    if (target.col == static_cast<int>(text.size()) && old.col == target.col && old.line < store.Count() - 1)
        target = xTPos(old.line + 1, 0);
    if (shift) {
        const xTPos start = store.first == xTPos::none ? old : store.first;
        if (store.HasSelection() && old <= store.last)
            store.SelectRange(target, PastLast());
        else
            store.SelectRange(start, target);
    } else {
        if (store.HasSelection())
            target = store.last;
        store.ClearSelection();
    }
    store.SetCaret(target);
}

xTPos xTNaiveControl::HomePosition() const
{
    const xTNaiveStore& store = editor.store;
    const WString before = store.Tail(xTPos(store.caret.line, 0)).substr(0, static_cast<std::size_t>(store.caret.col));
    const auto filled = std::find_if(before.begin(), before.end(), [](WCHAR ch) { return !IsBlank(ch); });
    return {store.caret.line, filled == before.end() ? 0 : static_cast<int>(filled - before.begin())};
}

void xTNaiveControl::Home(bool shift)
{
    xTNaiveStore& store = editor.store;
    const xTPos old = store.caret;
    store.SetCaret(HomePosition());
    if (!shift) {
        store.ClearSelection();
    } else if (!store.HasSelection()) {
        store.first = store.caret;
        store.last = xTPos(old.line, old.col - 1);
    } else if (old == store.first) {
        store.first = store.caret;
    } else if (old == PastLast()) {
        if (store.first.line == store.last.line) {
            store.last = xTPos(store.first.line, store.first.col - 1);
            store.first = store.caret;
        } else {
            store.last = xTPos(store.caret.line, store.caret.col - 1);
        }
    } else {
        store.ClearSelection();
    }
}

void xTNaiveControl::End(bool shift)
{
    xTNaiveStore& store = editor.store;
    const xTPos old = store.caret;
    store.SetCaret(xTPos(old.line, store.Length(old.line)));
    const xTPos before{store.caret.line, store.caret.col - 1};
    if (!shift) {
        store.ClearSelection();
    } else if (!store.HasSelection()) {
        store.first = old;
        store.last = before;
    } else if (old >= store.last) {
        store.last = before;
    } else if (old == store.first) {
        store.first = store.caret;
    } else {
        store.ClearSelection();
    }
}

void xTNaiveControl::DocumentStart(bool shift)
{
    xTNaiveStore& store = editor.store;
    if (shift)
        store.SelectRange(store.caret, xTPos(0, 0));
    else
        store.ClearSelection();
    store.SetCaret(xTPos(0, 0));
}

void xTNaiveControl::DocumentEnd(bool shift)
{
    xTNaiveStore& store = editor.store;
    if (shift)
        store.SelectRange(store.caret, store.EndPos());
    else
        store.ClearSelection();
    store.SetCaret(store.EndPos());
}

void xTNaiveControl::SelectRestOfLine()
{
    xTNaiveStore& store = editor.store;
    const auto [line, col] = store.caret;
    const int length = store.Length(line);
    if (col < length) {
        store.first = xTPos(line, col);
        store.last = xTPos(line, length - 1);
    } else {
        store.last = xTPos(line, col - 1);
        store.first = xTPos(line, length);
    }
}

void xTNaiveControl::SelectRestFromHome()
{
    const xTPos home = HomePosition();
    SelectRestOfLine();
    editor.store.SetCaret(home);
}

void xTNaiveControl::Tab(bool shift)
{
    const xTNaiveStore& store = editor.store;
    if (shift || store.HasSelection()) {
        if (store.first.line == store.last.line)
            SelectRestFromHome();
        editor.AddIndent(shift);
    }
    Char(tab, shift);
}

void xTNaiveControl::Comment(bool remove)
{
    if (editor.store.first.line == editor.store.last.line)
        SelectRestFromHome();
    editor.AddComment(remove ? 1 : 0);
}

void xTNaiveControl::Case(bool upper)
{
    if (editor.store.HasSelection())
        editor.AddCase(upper);
}

void xTNaiveControl::Insert()
{
    overwrite = !overwrite;
    DeleteSelection();
}

void xTNaiveControl::CopyKey()
{
    Press(insertKey, false, true, true, false);
}

void xTNaiveControl::PasteKey()
{
    if (editor.store.HasSelection())
        Press(deleteKey, true, false, true, false);
    Press(insertKey, true, false, true, false);
}

void xTNaiveControl::CutKey()
{
    Press(deleteKey, true, false, false, true);
}

void xTNaiveControl::Delete()
{
    Press(deleteKey, false, false, false, true);
}

void xTNaiveControl::Paste()
{
    if (!editor.clipboardHoldsText)
        return;
    DeleteSelection();
    Press(pasteCode, false, false, false, false);
    editor.store.ClearSelection();
}

void xTNaiveControl::SelectAll()
{
    editor.store.SelectRange(xTPos(0, 0), editor.store.EndPos());
    editor.store.SetCaret(xTPos(0, 0));
}

void xTNaiveControl::InsertText(const WString& text)
{
    if (text.empty())
        return;
    DeleteSelection();
    editor.AddBlock(text, xTPos::none, xTPos::none, false);
    editor.store.ClearSelection();
}

void xTNaiveControl::SetCaretPosition(const xTPos& pos)
{
    editor.store.SetCaret(pos);
    editor.store.ClearSelection();
}

void xTNaiveControl::SelectTo(const xTPos& pos, bool keep)
{
    xTNaiveStore& store = editor.store;
    const xTPos oldFirst = store.first;
    const xTPos oldLast = store.last;
    const bool had = store.HasSelection();
    const xTPos old = store.caret;
    store.SetCaret(pos);
    xTPos a = old;
    xTPos b = store.caret;
    if (keep && had) {
        if (old > store.caret) {
            std::swap(a, b);
            if (oldLast > old)
                b = xTPos(oldLast.line, oldLast.col + 1);
        } else if (oldFirst < old) {
            a = oldFirst;
        }
    }
    store.DropSelection();
    store.SelectRange(a, b);
}
