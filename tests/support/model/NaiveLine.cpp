#include "tests/support/model/NaiveLine.h"

#include <algorithm>

WCHAR xTNaiveLine::At(int col) const
{
    return col < 0 || col >= Length() ? WCHAR{0} : text[static_cast<std::size_t>(col)];
}

bool xTNaiveLine::IsMarked(int col) const
{
    return col >= 0 && col < Length() && (attrs[static_cast<std::size_t>(col)] & commentMark) != 0;
}

bool xTNaiveLine::TakesComment(int col) const
{
    const int n = Length();
    if ((flags & holdsComment) == 0 || col < 0 || col > n)
        return false;
    if (n == 0)
        return true;
    if (col == 0)
        return n > 1 && IsMarked(0) && text.compare(0, 2, _T("/*")) != 0;
    if (col == n - 1)
        return IsMarked(col - 1);
    if (col == n) {
        // The closing pair is looked at only from column 3 on; up to there a marked neighbour is enough.
        return IsMarked(col - 1) && (col <= 2 || text.substr(text.size() - 2) != _T("*/"));
    }
    return IsMarked(col - 1) && IsMarked(col + 1);
}

void xTNaiveLine::InsertChar(int col, WCHAR ch)
{
    if (ch == 0 || ch == _T('\n'))
        return;
    const int at = std::max(col, 0);
    const auto place = static_cast<std::size_t>(std::min(at, Length()));
    const bool marked = TakesComment(at);
    text.insert(place, 1, ch);
    attrs.insert(place, 1, marked ? commentMark : WCHAR{1});
}

void xTNaiveLine::Insert(int col, const xTNaiveLine& sub)
{
    const bool marked = TakesComment(col);
    const auto place = static_cast<std::size_t>(std::clamp(col, 0, Length()));
    text.insert(place, sub.text);
    attrs.insert(place, sub.attrs);
    if (!marked)
        return;
    for (int i = 0; i < sub.Length(); ++i)
        attrs[place + static_cast<std::size_t>(i)] |= commentMark;
    // An insertion inside a comment takes away that the line begins inside one, even when nothing is inserted.
    flags = (flags | holdsComment) & ~startsInside;
}

void xTNaiveLine::Delete(int col, int count)
{
    const int at = col < 0 || col >= Length() ? 0 : col;
    const int upTo = count == -1 ? Length() - at : std::max(count, 0);
    text.erase(static_cast<std::size_t>(at), static_cast<std::size_t>(upTo));
    attrs.erase(static_cast<std::size_t>(at), static_cast<std::size_t>(upTo));
}

int xTNaiveLine::ReplaceTabs(int spaces)
{
    const int before = Length();
    const xTNaiveLine blanks(WString(static_cast<std::size_t>(std::max(spaces, 0)), _T(' ')));
    for (auto at = text.find(_T('\t')); at != WString::npos; at = text.find(_T('\t'))) {
        Delete(static_cast<int>(at), 1);
        Insert(static_cast<int>(at), blanks);
    }
    return Length() - before;
}

void xTNaiveLine::Append(const xTNaiveLine& other)
{
    text += other.text;
    attrs += other.attrs;
}

xTNaiveLine xTNaiveLine::Head(int count) const
{
    const auto n = static_cast<std::size_t>(std::clamp(count, 0, Length()));
    xTNaiveLine head;
    head.text = text.substr(0, n);
    head.attrs = attrs.substr(0, n);
    head.flags = flags;
    head.snapshot = snapshot;
    return head;
}

xTNaiveLine xTNaiveLine::Tail(int from) const
{
    const auto at = static_cast<std::size_t>(std::clamp(from, 0, Length()));
    xTNaiveLine tail;
    tail.text = text.substr(at);
    tail.attrs = attrs.substr(at);
    tail.flags = flags & holdsComment;
    return tail;
}
