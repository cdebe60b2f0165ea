#include "framework/base/Platform.h"
#include "tests/support/model/NaiveStore.h"

namespace {

constexpr unsigned nothingFound = 119;

WString Folded(WString text, bool matchCase)
{
    if (!matchCase)
        PlatformLowerCase(text.data(), static_cast<std::int32_t>(text.size()));
    return text;
}

bool IsDelimiter(WCHAR ch)
{
    static const WString delimiters = _T("~\b\f\n\r\t\v'\"\\ `/!@#$%^&*+\x2116;:-=|?<>,.{}[]()");
    return delimiters.find(ch) != WString::npos;
}

bool IsWholeWord(const WString& line, std::size_t at, std::size_t length)
{
    const std::size_t behind = at + length;
    return (at == 0 || IsDelimiter(line[at - 1])) && (behind >= line.size() || IsDelimiter(line[behind]));
}

}  // namespace

xTPos xTNaiveStore::FindText(const xTSearch& search, bool* wrapped) const
{
    const WString what = Folded(search.what, search.matchCase);
    const xTPos start = caret;
    int line = start.line;
    auto col = static_cast<std::size_t>(search.fromCaret ? start.col : start.col + 1);
    bool passed = false;
    for (;;) {
        const WString text = HasLine(line) ? Folded(lines[static_cast<std::size_t>(line)].text, search.matchCase) : WString();
        // Within a line the first hit behind the column counts, even when the search goes up.
        // An empty text is found nowhere, though it is looked for all the way round.
        const std::size_t hit = col > text.size() || what.empty() ? WString::npos : text.find(what, col);
        if (hit == WString::npos) {
            col = 0;
            line += search.down ? 1 : -1;
        } else if (!search.wholeWord || IsWholeWord(text, hit, what.size())) {
            return {line, static_cast<int>(hit)};
        } else {
            col = hit + what.size();
        }
        const bool outside = line < 0 || line >= Count();
        // The second half is for a caret below the text: no place of the text lies behind it, so one round ends the search.
        if (passed && ((xTPos(line, static_cast<int>(col)) > start) == search.down || (outside && search.down)))
            return xTPos::none;
        if (!outside)
            continue;
        passed = true;
        line = line < 0 ? Count() - 1 : 0;
        if (wrapped)
            *wrapped = true;
    }
}

void xTNaiveStore::ReplaceAndNext(xTPos& pos, WString& find, const WString& replacement, bool wholeWord, bool matchCase)
{
    const WString selected = SelectedText();
    xTPos start(0, 0);
    xTPos end(0, 0);
    if (!selected.empty() && Folded(selected, matchCase) == Folded(find, matchCase)) {
        find = selected;  // the spelling as it stood, for the way back
        pos = first;
        if (ReplaceAt(first, find, replacement)) {
            start = first;
            end = xTPos(start.line, start.col + static_cast<int>(replacement.size()));
            SetCaret(end);
        }
    }
    bool wrapped = false;
    const xTPos next = FindText({find, true, wholeWord, matchCase, true}, &wrapped);
    if (wrapped && !goRound)
        return;
    if (next != xTPos::none) {
        const xTPos behind(next.line, next.col + static_cast<int>(find.size()));
        SetCaret(next);
        SelectRange(next, behind);
        SetCaret(behind);
        return;
    }
    // With nothing replaced this selects nothing at the start of the text and puts the caret there.
    SelectRange(start, end);
    SetCaret(end);
    boxes.push_back({nothingFound, 0});
}
