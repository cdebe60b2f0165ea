#include "tests/support/model/NaiveStore.h"

#include <algorithm>

namespace {

WString TabsAsSpaces(const WString& text, int tabSize)
{
    WString spaced;
    for (const WCHAR ch : text) {
        if (ch == _T('\t'))
            spaced.append(static_cast<std::size_t>(std::max(tabSize, 0)), _T(' '));
        else
            spaced += ch;
    }
    return spaced;
}

}  // namespace

void xTNaiveStore::LoadText(const WString& text)
{
    lines.clear();
    first = last = anchor = xTPos::none;
    caret = xTPos(0, 0);
    if (text.empty())
        return;
    CutLines(keepTabs ? text : TabsAsSpaces(text, tabSize));
    commentsValid = false;
    RescanComments();
}

void xTNaiveStore::CutLines(const WString& text)
{
    for (std::size_t cursor = 0; cursor < text.size();) {
        const std::size_t end = std::min(text.find(_T('\n'), cursor), text.size());
        const bool tooLong = end - cursor > loadLimit;
        const std::size_t taken = tooLong ? loadLimit : end - cursor;
        lines.emplace_back(text.substr(cursor, taken));
        cursor += tooLong ? taken : taken + 1;
    }
}

xTNaiveLine& xTNaiveStore::LineAt(int line)
{
    if (!HasLine(line))
        throw xTNaiveFailure();
    return lines[static_cast<std::size_t>(line)];
}

WString xTNaiveStore::Tail(const xTPos& pos) const
{
    if (!HasLine(pos.line) || pos.col < 0 || pos.col > Length(pos.line))
        return {};
    return lines[static_cast<std::size_t>(pos.line)].text.substr(static_cast<std::size_t>(pos.col));
}

xTPos xTNaiveStore::EndPos() const
{
    return lines.empty() ? xTPos(0, 0) : xTPos(Count() - 1, Length(Count() - 1));
}

bool xTNaiveStore::NextPos(xTPos& pos, bool edge) const
{
    if (!HasLine(pos.line))
        return false;
    if (pos.col < Length(pos.line))
        pos = xTPos(pos.line, pos.col + 1);
    else if (HasLine(pos.line + 1))
        pos = xTPos(pos.line + 1, edge ? -1 : 0);
    else
        return false;
    return true;
}

bool xTNaiveStore::PrevPos(xTPos& pos, bool edge) const
{
    if (!HasLine(pos.line))
        return false;
    if (pos.col > (edge ? -1 : 0))
        pos = xTPos(pos.line, pos.col - 1);
    else if (pos.line > 0)
        pos = xTPos(pos.line - 1, Length(pos.line - 1));
    else
        return false;
    return true;
}

WCHAR xTNaiveStore::CharAt(const xTPos& pos) const
{
    if (!HasLine(pos.line))
        return 0;
    return pos.col == Length(pos.line) ? WCHAR{_T('\n')} : lines[static_cast<std::size_t>(pos.line)].At(pos.col);
}

WString xTNaiveStore::GetText(const xTPos& from, xTPos& to) const
{
    if (to > EndPos())
        to = EndPos();
    WString text;
    xTPos at = from;
    for (; at.line < to.line; at = xTPos(at.line + 1, 0))
        text += Tail(at) + _T('\n');
    // The last place counts: a range that ends before it begins has no characters of this line.
    if (at.line == to.line && to.col >= at.col)
        text += Tail(at).substr(0, static_cast<std::size_t>(to.col - at.col) + 1);
    return keepTabs ? text : TabsAsSpaces(text, tabSize);
}

void xTNaiveStore::SetCaretRaw(const xTPos& pos)
{
    caret = xTPos(std::max(pos.line, 0), std::max(pos.col, 0));
}

void xTNaiveStore::SetCaret(const xTPos& pos)
{
    if (HasLine(pos.line) && pos.col >= 0)
        caret = xTPos(pos.line, std::min(pos.col, Length(pos.line)));
}

void xTNaiveStore::MoveCaret(int direction)
{
    xTPos pos = caret;
    switch (direction) {
    case 0:
        PrevPos(pos, false);
        break;
    case 1:
        NextPos(pos, false);
        break;
    case 2:
        if (pos.line >= 1 && HasLine(pos.line))
            pos = xTPos(pos.line - 1, std::min(pos.col, Length(pos.line - 1)));
        break;
    case 3:
        if (pos.line >= 0 && HasLine(pos.line + 1))
            pos = xTPos(pos.line + 1, std::min(pos.col, Length(pos.line + 1)));
        break;
    default:
        break;
    }
    SetCaretRaw(pos);
}
