#include "tests/support/NaiveComments.h"
#include "tests/support/model/NaiveStore.h"

#include <algorithm>

int xTNaiveStore::SetBreakPoint(int line)
{
    if (!HasLine(line) || Length(line) == 0)
        return 0;
    LineAt(line).flags |= xTNaiveLine::breakPoint;
    return 1;
}

int xTNaiveStore::RemoveBreakPoint(int line)
{
    if (line >= Count())
        return 0;
    // An empty line keeps its mark; a line before the first counts as an empty one.
    if (Length(line) > 0)
        LineAt(line).flags &= ~xTNaiveLine::breakPoint;
    return 1;
}

void xTNaiveStore::RemoveAllBreakPoints()
{
    for (xTNaiveLine& line : lines)
        line.flags &= ~xTNaiveLine::breakPoint;
}

int xTNaiveStore::BreakPointCount() const
{
    return static_cast<int>(std::count_if(lines.begin(), lines.end(),
                                          [](const xTNaiveLine& line) { return (line.flags & xTNaiveLine::breakPoint) != 0; }));
}

int xTNaiveStore::BreakPointLine(int index) const
{
    int passed = 0;
    for (int line = 0; line < Count(); ++line) {
        passed += (lines[static_cast<std::size_t>(line)].flags & xTNaiveLine::breakPoint) != 0 ? 1 : 0;
        if (passed > index)
            return line;
    }
    return -1;
}

bool xTNaiveStore::SetExecPoint(int line)
{
    if (line >= Count())
        return false;
    ClearExecPoint();
    if (line < 0)
        return false;  // the old point has gone all the same
    LineAt(line).flags |= xTNaiveLine::execPoint;
    execLine = line;
    return true;
}

void xTNaiveStore::ClearExecPoint()
{
    if (execLine == -1)
        return;
    if (HasLine(execLine) && (LineAt(execLine).flags & xTNaiveLine::execPoint) != 0) {
        LineAt(execLine).flags &= ~xTNaiveLine::execPoint;
    } else {
        for (xTNaiveLine& line : lines)
            line.flags &= ~xTNaiveLine::execPoint;
    }
    execLine = -1;
}

void xTNaiveStore::TakeSnapshot()
{
    for (int line = 0; line < Count(); ++line)
        LineAt(line).snapshot = line;
}

void xTNaiveStore::RescanComments()
{
    if (commentsValid)
        return;
    std::vector<WString> texts;
    for (const xTNaiveLine& line : lines)
        texts.push_back(line.text);
    const xTNaiveComments scan(texts);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        xTNaiveLine& line = lines[i];
        const xTNaiveComments::xTLine& found = scan.lines[i];
        line.flags &= ~(xTNaiveLine::holdsComment | xTNaiveLine::startsInside);
        line.flags |= found.holdsComment ? xTNaiveLine::holdsComment : 0;
        line.flags |= found.startsInside ? xTNaiveLine::startsInside : 0;
        for (std::size_t col = 0; col < line.text.size(); ++col)
            line.attrs[col] = static_cast<WCHAR>((line.attrs[col] & ~xTNaiveLine::commentMark) |
                                                 (found.inComment[col] ? xTNaiveLine::commentMark : 0));
    }
    commentsValid = true;
}
