#include "tests/support/model/NaiveOperation.h"

#include <algorithm>

namespace {

constexpr unsigned backspaceKey = 8;
constexpr unsigned enterKey = 13;
constexpr unsigned shiftKey = 16;
constexpr unsigned deleteKey = 46;
constexpr unsigned nothingFound = 119;
constexpr unsigned searchDone = 118;

// An empty text reads as 0, so that a lone Shift in overwrite mode moves the caret on and changes nothing.
WCHAR FirstOf(const WString& text)
{
    return text.empty() ? WCHAR{0} : text.front();
}

int LengthOf(const WString& text)
{
    return static_cast<int>(text.size());
}

int LeadingBlanks(const WString& text)
{
    const auto at = text.find_first_not_of(_T(" \t"));
    return at == WString::npos ? 0 : static_cast<int>(at);
}

std::vector<WString> TextOf(const xTNaiveStore& store)
{
    std::vector<WString> text;
    for (const auto& line : store.lines)
        text.push_back(line.text);
    return text;
}

}  // namespace

xTNaiveOperation xTNaiveOperation::OfKind(int kind)
{
    xTNaiveOperation made;
    made.kind = kind;
    return made;
}

xTNaiveOperation xTNaiveOperation::Keystroke(const xTNaiveStore& store, unsigned key, bool overwrite)
{
    xTNaiveOperation made = OfKind(overwrite ? overwriteKind : insertKind);
    made.count = 1;
    made.pos = store.caret;
    if (key == backspaceKey && made.pos == xTPos(0, 0)) {
        made.count = 0;
        made.kind = noneKind;
    } else if (key == backspaceKey) {
        made.kind = backspaceKind;
        store.PrevPos(made.pos, false);
        if (const WCHAR ch = store.CharAt(made.pos); ch != 0)
            made.text = WString{ch, WCHAR{0}};
    } else if (key == enterKey) {
        made.kind = enterKind;
        made.text.assign(1, _T('\n'));
    } else if (key == shiftKey) {
        made.count = 0;
    } else {
        made.text = WString{static_cast<WCHAR>(key), WCHAR{0}};
    }
    return made;
}

xTNaiveOperation xTNaiveOperation::Key(const xTNaiveStore& store, unsigned key, const WString* clipboard)
{
    xTNaiveOperation made;
    made.pos = store.caret;
    if (key == deleteKey) {
        made.kind = deleteKind;
        if (store.first != store.last)
            made.pos = store.first;
    } else if (clipboard) {
        made.kind = pasteKind;
        made.text = *clipboard;
        made.count = LengthOf(made.text);
    }
    return made;
}

xTNaiveOperation xTNaiveOperation::Block(const xTNaiveStore& store, const WString& text, xTPos first, xTPos last, bool move)
{
    xTNaiveOperation made = OfKind(insertBlockKind);
    made.move = move;
    made.from = first;
    made.to = last;
    made.count = LengthOf(text);
    made.text = text;
    made.pos = store.caret;
    made.text2 = store.GetText(made.from, made.to);
    made.count2 = LengthOf(made.text2);
    return made;
}

xTNaiveOperation xTNaiveOperation::Range(const xTNaiveStore& store, xTPos first, xTPos last)
{
    xTNaiveOperation made = OfKind(deleteRangeKind);
    made.text = store.GetText(first, last);
    made.count = LengthOf(made.text);
    made.pos = first;
    return made;
}

xTNaiveOperation xTNaiveOperation::Replace(const WString& find, const WString& replacement, bool all, bool wholeWord,
                                           bool matchCase)
{
    xTNaiveOperation made = OfKind(all ? replaceAllKind : replaceKind);
    made.pos = xTPos::none;
    made.count = 1;
    made.findText = find;
    made.replaceText = replacement;
    made.wholeWord = wholeWord;
    made.matchCase = matchCase;
    return made;
}

bool xTNaiveOperation::Apply(xTNaiveStore& store)
{
    try {
        return ApplyKind(store);
    } catch (const xTNaiveFailure&) {
        return true;  // the step is kept as far as it came
    }
}

bool xTNaiveOperation::ApplyKind(xTNaiveStore& store)
{
    if (kind <= enterKind)
        return ApplyKeystroke(store);
    switch (kind) {
    case deleteKind:
        store.DeleteAtCaret(text, pos, count, split);
        return true;
    case deleteRangeKind:
        store.DeleteText(pos, count);
        return true;
    case pasteKind:
        store.InsertText(pos, count, text, false);
        return true;
    case insertBlockKind:
        ApplyBlock(store);
        return true;
    case replaceKind:
    case replaceAllKind:
        return ApplyReplace(store);
    case changeCaseKind:
    case switchLayoutKind:
        ApplySelection(store);
        return true;
    case unindentKind:
    case indentKind:
    case commentKind:
    case uncommentKind:
        ApplyLines(store);
        return true;
    default:
        return false;
    }
}

bool xTNaiveOperation::ApplyKeystroke(xTNaiveStore& store)
{
    switch (kind) {
    case overwriteKind:
        ApplyOverwrite(store);
        break;
    case insertKind:
        store.InsertText(pos, count, text, false);
        break;
    case backspaceKind:
        store.DeleteText(pos, count, &split);
        store.SetCaret(pos);
        break;
    default:
        AutoIndent(store);
        count = LengthOf(text);
        store.InsertText(pos, count, text, false);
        break;
    }
    return true;
}

void xTNaiveOperation::ApplyOverwrite(xTNaiveStore& store)
{
    const WCHAR ch = store.CharAt(pos);
    if (ch == _T('\n') || ch == _T('\r')) {
        store.InsertText(pos, count, text, false);
        kind = insertKind;
        return;
    }
    store.SetCaret(pos);
    store.OverwriteAtCaret(FirstOf(text));
    text = WString(1, ch);
}

// The blanks at the start of the tail stay on the old line, and the new line begins as the old one does.
void xTNaiveOperation::AutoIndent(xTNaiveStore& store)
{
    if (!store.HasLine(pos.line) || pos.col < 0 || pos.col > store.Length(pos.line))
        return;
    const WString head = store.LineAt(pos.line).text.substr(0, static_cast<std::size_t>(pos.col));
    const WString tail = store.Tail(pos);
    pos = xTPos(pos.line, pos.col + LeadingBlanks(tail));
    text += head.substr(0, static_cast<std::size_t>(LeadingBlanks(head)));
}

// The later of the two places is changed first, so that neither has to be put right by hand.
void xTNaiveOperation::ApplyBlock(xTNaiveStore& store)
{
    afterSource = pos >= from;
    if (afterSource) {
        store.InsertText(pos, count, text, false);
        store.SelectRange(pos, store.caret);
    }
    if (move && from != xTPos::none && to != xTPos::none)
        store.DeleteText(from, count2);
    if (!afterSource) {
        store.InsertText(pos, count, text, false);
        store.SelectRange(pos, store.caret);
    }
}

bool xTNaiveOperation::ApplyReplace(xTNaiveStore& store)
{
    if (kind == replaceKind) {
        store.ReplaceAndNext(pos, findText, replaceText, wholeWord, matchCase);
        return pos != xTPos::none;
    }
    store.ClearSelection();
    ReplaceEach(store);
    return true;
}

void xTNaiveOperation::ReplaceEach(xTNaiveStore& store)
{
    const xTNaiveStore::xTSearch search{findText, true, wholeWord, matchCase, true};
    const xTPos start = store.FindText(search);
    int replaced = 0;
    int rounds = 0;
    std::vector<WString> before;  // the text at the top of the round
    for (xTPos at = start; at != xTPos::none && (rounds == 0 || at < start);) {
        xTPos end(at.line, at.col + LengthOf(findText) - 1);
        replacements.push_back({at, store.GetText(at, end)});
        if (store.ReplaceAt(at, findText, replaceText))
            ++replaced;
        store.SetCaret(xTPos(at.line, at.col + LengthOf(replaceText)));
        bool wrapped = false;
        at = store.FindText(search, &wrapped);
        if (!wrapped)
            continue;
        // A further round that leaves the text alone, or in which it grows, would be followed by the next for ever.
        const std::vector<WString> now = TextOf(store);
        if (++rounds > 1 && (now == before || replaceText.size() > findText.size()))
            break;
        before = now;
    }
    store.boxes.push_back(replaced < 1 ? xTNaiveStore::xTBox{nothingFound, 0} : xTNaiveStore::xTBox{searchDone, replaced});
}

void xTNaiveOperation::ApplySelection(xTNaiveStore& store)
{
    from = store.first;
    to = store.last;
    pos = from;
    text = store.SelectedText();
    count = LengthOf(text);
    if (kind == changeCaseKind)
        store.ChangeCase(toUpper, from, to);
    else
        store.SwitchLayout(from, to);
}

// The end is clipped to the text as it stands before the change, and stays there while the last line grows.
void xTNaiveOperation::ApplyLines(xTNaiveStore& store)
{
    pos = xTPos(store.first.line, 0);
    xTPos end(store.last.line + 1, 0);
    text = store.GetText(pos, end);
    count = LengthOf(text);
    if (kind == unindentKind)
        store.UnindentBlock();
    else if (kind == indentKind)
        store.IndentBlock();
    else
        store.CommentBlock(kind == uncommentKind);
    text2 = store.GetText(pos, end);
    count2 = LengthOf(text2);
}

void xTNaiveOperation::GoToPos(xTNaiveStore& store) const
{
    if (pos.line >= 0)
        store.SetCaret(xTPos(pos.line, std::max(pos.col, 0)));
}

void xTNaiveOperation::Undo(xTNaiveStore& store)
{
    try {
        GoToPos(store);
        UndoKind(store);
    } catch (const xTNaiveFailure&) {
        return;
    }
}

void xTNaiveOperation::UndoKind(xTNaiveStore& store)
{
    if (kind <= pasteKind)
        return UndoTyping(store);
    if (kind == insertBlockKind)
        return UndoBlock(store);
    if (kind == replaceKind || kind == replaceAllKind)
        return UndoReplace(store);
    if (kind == changeCaseKind || kind == switchLayoutKind) {
        store.DeleteText(from, count);
        store.InsertText(from, count, text, false);
    } else if (kind != noneKind) {
        store.ClearSelection();
        store.DeleteText(pos, count2);
        store.InsertText(pos, count, text, false);
    }
}

void xTNaiveOperation::UndoTyping(xTNaiveStore& store)
{
    if (kind == overwriteKind) {
        const WCHAR old = store.CharAt(pos);
        store.OverwriteChar(pos, FirstOf(text));
        text += old;
    } else if (kind == backspaceKind || kind == deleteKind) {
        store.InsertText(pos, count, text, split);
    } else if (kind == deleteRangeKind) {
        store.InsertText(pos, count, text, false);
    } else {
        store.DeleteText(pos, count);
        if (kind == enterKind)
            store.SetCaret(pos);
        if (kind == pasteKind)
            store.ClearSelection();
    }
}

void xTNaiveOperation::UndoBlock(xTNaiveStore& store)
{
    if (!afterSource)
        store.DeleteText(pos, count);
    if (move) {
        store.InsertText(from, count2, text2, false);
        store.SelectRange(from, xTPos(to.line, to.col + 1));
    }
    if (afterSource)
        store.DeleteText(pos, count);
}

void xTNaiveOperation::UndoReplace(xTNaiveStore& store)
{
    if (kind == replaceAllKind) {
        store.ClearSelection();
        WalkReplacements(store, true);
    } else if (pos != xTPos::none) {
        store.ClearSelection();
        store.ReplaceAt(pos, replaceText, findText);
    }
}

// The columns of the log are shifted in place by what the records before them on the same line have added or taken.
void xTNaiveOperation::WalkReplacements(xTNaiveStore& store, bool back)
{
    const int growth = LengthOf(replaceText) - LengthOf(findText);
    int previousLine = 0;
    int shift = 0;
    for (xTRecord& record : replacements) {
        if (record.pos.line == previousLine) {
            record.pos.col += shift;
        } else {
            previousLine = record.pos.line;
            shift = 0;
        }
        shift += back ? -growth : growth;
        store.ReplaceAt(record.pos, back ? replaceText : record.oldText, back ? record.oldText : replaceText);
    }
}

void xTNaiveOperation::Redo(xTNaiveStore& store)
{
    try {
        GoToPos(store);
        RedoKind(store);
    } catch (const xTNaiveFailure&) {
        return;
    }
}

void xTNaiveOperation::RedoKind(xTNaiveStore& store)
{
    switch (kind) {
    case enterKind:
        return store.InsertText(pos, count, text, false);
    case deleteKind:
        return store.DeleteText(pos, count, &split);
    case replaceKind:
        if (pos == xTPos::none)
            return;
        store.ClearSelection();
        store.ReplaceAt(pos, findText, replaceText);
        return;
    case replaceAllKind:
        return WalkReplacements(store, false);
    case changeCaseKind:
        return store.ChangeCase(toUpper, from, to);
    case switchLayoutKind:
        return store.SwitchLayout(from, to);
    case unindentKind:
    case indentKind:
    case commentKind:
    case uncommentKind:
        store.ClearSelection();
        store.DeleteText(pos, count);
        store.InsertText(pos, count2, text2, false);
        return;
    default:
        Apply(store);  // which has a guard of its own
    }
}
