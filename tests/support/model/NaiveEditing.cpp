#include "tests/support/model/NaiveStore.h"

#include <algorithm>

void xTNaiveStore::InsertText(const xTPos& pos, int& count, WString& text, bool rejoin)
{
    if (pos.line < 0 || (pos.line == 0 && pos.col < 0) || pos > EndPos())
        return;
    SetCaretRaw(pos);
    InsertAtCaret(count, text, rejoin);
}

void xTNaiveStore::InsertAtCaret(int& count, WString& text, bool rejoin)
{
    if (count == 0)
        return;
    try {
        InsertPieces(count, text);
        if (rejoin)
            RejoinLines();
        RescanComments();
    } catch (const xTNaiveFailure&) {
        return;  // told to no one; the text stays as far as it had come
    }
}

void xTNaiveStore::InsertPieces(int& count, WString& text)
{
    int offset = 0;
    for (xTPiece piece; ReadPiece(text, count, offset, piece);) {
        const xTPos pos = caret;
        const int excess = piece.line.Length() + Length(pos.line) - insertLimit;
        // A break alone has nothing that could be too long: it divides even a line past the limit.
        if (excess > 0 && piece.line.Length() > 0) {
            Fold(piece, excess, insertLimit - Length(pos.line), count, text, offset);
            if (piece.line.Length() == 0)
                return;
        }
        InsertPiece(count, pos, piece.line);
        caret = xTPos(pos.line, pos.col + piece.line.Length());
        if (!piece.broken)
            return;
        SplitLine(caret);
        xTPos next = caret;
        NextPos(next, true);
        SetCaretRaw(next);
    }
}

// The look at the character ends the piece, so the offset stands one past it, even past the count.
bool xTNaiveStore::ReadPiece(const WString& text, int count, int& offset, xTPiece& piece)
{
    piece = xTPiece();
    if (offset >= count)
        return false;
    WString characters;
    for (;;) {
        const int at = offset++;
        const WCHAR ch = static_cast<std::size_t>(at) < text.size() ? text[static_cast<std::size_t>(at)] : WCHAR{0};
        piece.broken = ch == _T('\n');
        if (piece.broken || ch == 0 || at >= count)
            break;
        characters += ch;
    }
    piece.line = xTNaiveLine(characters);
    return true;
}

// What does not fit is cut off and comes back as the next piece, a line feed being put into the text before it.
void xTNaiveStore::Fold(xTPiece& piece, int excess, int keep, int& count, WString& text, int& offset)
{
    piece.line.Delete(std::max(keep, 0), excess);
    if (piece.line.Length() == 0)
        return;
    const int at = offset - excess - 1;
    text.insert(static_cast<std::size_t>(at), 1, _T('\n'));
    offset = at + 1;
    ++count;
    piece.broken = true;
}

void xTNaiveStore::InsertPiece(int& count, const xTPos& pos, xTNaiveLine& piece)
{
    if (pos.line < 0 || pos.line > Count())
        return;
    if (!keepTabs)
        count += piece.ReplaceTabs(tabSize);
    if (pos.line == Count())
        lines.push_back(piece);
    else
        LineAt(pos.line).Insert(pos.col, piece);
    if (LineAt(pos.line).HoldsOneOf(_T("*/\\")))
        commentsValid = false;
}

void xTNaiveStore::SplitLine(const xTPos& pos)
{
    if (!HasLine(pos.line) || pos.col < 0 || pos.col > Length(pos.line))
        return;
    const xTNaiveLine whole = LineAt(pos.line);
    LineAt(pos.line) = whole.Head(pos.col);
    lines.insert(lines.begin() + pos.line + 1, whole.Tail(pos.col));
}

void xTNaiveStore::RejoinLines()
{
    const xTNaiveLine next = LineAt(caret.line + 1);
    LineAt(caret.line).Append(next);
    RemoveLine(caret.line + 1);
}

void xTNaiveStore::RemoveLine(int line)
{
    static_cast<void>(LineAt(line));
    lines.erase(lines.begin() + line);
}

void xTNaiveStore::DeleteText(const xTPos& pos, int count, bool* split)
{
    if (pos.line < 0 || (pos.line == 0 && pos.col < 0) || pos >= EndPos())
        return;
    if (split)
        *split = false;
    const xTPos start = pos;
    const int before = Count();
    xTPos cursor = start;
    int shift = 0;
    bool firstRound = true;
    try {
        while (count >= 1 && HasLine(cursor.line)) {
            DeleteRound(start, cursor, count, shift, firstRound, split);
            firstRound = false;
        }
    } catch (const xTNaiveFailure&) {
        return;
    }
    if (HasSelection() && start < first)
        ShiftSelection(start, Count() - before, shift);
}

// One round: a line break, the end of the deletion within a line, a whole line or the tail of one.
void xTNaiveStore::DeleteRound(const xTPos& start, xTPos& cursor, int& count, int& shift, bool firstRound, bool* split)
{
    const int rest = Length(cursor.line) - cursor.col;
    xTNaiveLine work = LineAt(cursor.line);
    if (work.HoldsOneOf(_T("/*")))
        commentsValid = false;  // a backslash does not count here
    if (rest == 0 && HasLine(cursor.line + 1)) {
        JoinNext(cursor, shift, split);
        count -= 1;
        return;
    }
    // A break at the end of the text is never removed, but what is left of the count then takes the last line from its start.
    if (rest != 0 && rest >= count) {
        const int length = work.Length();
        work.Delete(cursor.col, count);
        shift = work.Length() - length;
        if (!firstRound && cursor.line > start.line) {
            LineAt(start.line).Append(work);
            RemoveLine(cursor.line);
        } else {
            LineAt(cursor.line) = work;
        }
    } else if (rest != 0 && rest == work.Length()) {
        RemoveLine(cursor.line);
    } else if (rest != 0 && rest < work.Length()) {  // from before the first character neither holds
        if (rest > 0)
            work.Delete(cursor.col, rest);
        LineAt(cursor.line) = work;
        cursor = xTPos(cursor.line + 1, 0);
    }
    count -= 1 + rest;
    cursor = xTPos(cursor.line, 0);
}

void xTNaiveStore::JoinNext(xTPos& cursor, int& shift, bool* split)
{
    xTNaiveLine joined = LineAt(cursor.line);
    shift = joined.Length();
    joined.Append(LineAt(cursor.line + 1));
    if (joined.Length() <= joinLimit) {
        LineAt(cursor.line) = joined;
        RemoveLine(cursor.line + 1);
    } else {
        xTNaiveLine& next = LineAt(cursor.line + 1);
        next.text = joined.text.substr(joinLimit);
        next.attrs = joined.attrs.substr(joinLimit);
        joined.text.resize(joinLimit);
        joined.attrs.resize(joinLimit);
        LineAt(cursor.line) = joined;
        if (split)
            *split = true;
    }
    cursor = xTPos(cursor.line, shift);
}

// The fields are stepped in place, and one below -1 stays so for the comparisons here; then the bounds are assigned, and
// it becomes 0.
void xTNaiveStore::ShiftSelection(const xTPos& start, int delta, int shift)
{
    xTPos from = first;
    xTPos to = last;
    if (start.line < from.line) {
        from.line += delta;
        to.line += delta;
    }
    if (start.line == from.line)
        from.col += shift;
    if (start.line == to.line)
        to.col += shift;
    first = from;
    last = to;
    SetCaret(xTPos(last.line, last.col + 1));
}

void xTNaiveStore::DeleteAtCaret(WString& text, xTPos& pos, int& count, bool& split)
{
    if (HasSelection()) {
        pos = first;
        const WString selected = GetText(first, last);
        SetCaretRaw(first);
        text = selected;
        text.push_back(0);
        DeleteText(pos, static_cast<int>(selected.size()), &split);
        count = static_cast<int>(selected.size());
        first = last = xTPos::none;
    } else if (caret < EndPos()) {
        text = WString{CharAt(caret), WCHAR{0}};
        DeleteText(pos, 1, &split);
        count = 1;
    }
}

void xTNaiveStore::OverwriteChar(const xTPos& pos, WCHAR ch)
{
    // The last line is never overwritten.
    if (pos.line < 0 || pos.line >= Count() - 1)
        return;
    xTNaiveLine& line = LineAt(pos.line);
    if (ch == 0 || ch == _T('\n') || pos.col < 0 || pos.col > line.Length())
        return;
    if (pos.col == line.Length())
        line.Append(xTNaiveLine(WString(1, ch)));
    else
        line.text[static_cast<std::size_t>(pos.col)] = ch;
}

void xTNaiveStore::OverwriteAtCaret(WCHAR ch)
{
    OverwriteChar(caret, ch);
    xTPos next = caret;
    NextPos(next, true);
    SetCaretRaw(next);
    if (ch == _T('*') || ch == _T('/') || ch == _T('\\'))
        commentsValid = false;
    RescanComments();
}

bool xTNaiveStore::ReplaceAt(const xTPos& place, const WString& old, const WString& replacement)
{
    const xTPos pos = place;  // a column that the log of a replace-all stepped below -1 counts as 0
    if (!HasLine(pos.line) || pos.col < 0 || pos.col >= Length(pos.line))
        return false;
    xTNaiveLine& line = LineAt(pos.line);
    if (!old.empty())
        line.Delete(pos.col, static_cast<int>(old.size()));
    // Fresh marks, whatever stood there: no comment here.
    const auto at = static_cast<std::size_t>(std::min(pos.col, line.Length()));
    line.text.insert(at, replacement);
    line.attrs.insert(at, replacement.size(), WCHAR{1});
    return true;
}
