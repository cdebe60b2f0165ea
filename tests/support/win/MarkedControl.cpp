#include "tests/support/win/MarkedControl.h"

#include "tests/support/win/ControlHost.h"

#include <optional>

namespace {

struct Places {
    std::optional<edPoint> caret;
    std::optional<edPoint> first;
    std::optional<edPoint> behind;  // the last selected character
};

bool Same(const std::optional<edPoint>& a, const std::optional<edPoint>& b)
{
    return a && b && a->x == b->x && a->y == b->y;
}

edPoint Step(edPoint at, wchar_t ch)
{
    return ch == L'\n' ? edPoint{0, at.y + 1} : edPoint{at.x + 1, at.y};
}

/// Takes the marks out of a text.
Places Take(std::wstring_view marked, std::wstring& text)
{
    Places at;
    edPoint here{0, 0};
    for (const wchar_t ch : marked) {
        switch (ch) {
        case L'|': at.caret = here; break;
        case L'[': at.first = here; break;
        case L']': at.behind = here; break;
        default:
            text += ch;
            here = Step(here, ch);
        }
    }
    return at;
}

Places PlacesOf(HWND control)
{
    Places at;
    edPoint caret{0, 0};
    edPoint first{};
    edPoint last{};
    edGetPosition(control, ED_POSITION_CARET, &caret);
    at.caret = caret;
    if (!edGetPosition(control, ED_POSITION_SELECTION_FIRST, &first) ||
        !edGetPosition(control, ED_POSITION_SELECTION_LAST, &last))
        return at;
    UINT32 room = 0;
    edGetLine(control, static_cast<UINT32>(last.y), 0, nullptr, &room);
    const bool isBreak = last.x >= static_cast<int>(room) - 1;
    at.first = first;
    at.behind = isBreak && !(first.y == last.y && first.x > last.x) ? edPoint{0, last.y + 1} : edPoint{last.x + 1, last.y};
    return at;
}

std::wstring MarksAt(const Places& at, const edPoint& here)
{
    if (Same(at.first, at.behind))
        return (Same(here, at.first) ? L"[]" : L"") + std::wstring(Same(here, at.caret) ? L"|" : L"");
    std::wstring marks;
    if (Same(here, at.behind))
        marks += L']';
    if (Same(here, at.caret))
        marks += L'|';
    if (Same(here, at.first))
        marks += L'[';
    return marks;
}

}  // namespace

void GivenMarked(HWND control, std::wstring_view marked)
{
    std::wstring text;
    const Places at = Take(marked, text);
    // A last line break makes no line of its own when text is loaded, and no text at all loads nothing.
    if (text.empty() || text.back() == L'\n')
        text += L'\n';
    edLoadText(control, text.c_str(), 0xFFFFFFFF);
    const edPoint caret = at.caret.value_or(at.behind.value_or(edPoint{0, 0}));
    if (at.first) {
        const edPoint anchor = Same(caret, at.first) ? *at.behind : *at.first;
        edSetCaretPositionAdv(control, anchor.y, anchor.x, 0);
    }
    edSetCaretPositionAdv(control, caret.y, caret.x, at.first ? ED_CARET_REDRAW | ED_CARET_SELECT : ED_CARET_REDRAW);
    Pump();
}

std::wstring Marked(HWND control)
{
    const Places at = PlacesOf(control);
    // A text of one empty line is told as a line break.
    const std::wstring all = TextOf(control);
    const std::wstring text = edGetLineCount(control) == 1 && all == L"\n" ? L"" : all;
    std::wstring marked;
    edPoint here{0, 0};
    for (const wchar_t ch : text) {
        marked += MarksAt(at, here) + ch;
        here = Step(here, ch);
    }
    return marked + MarksAt(at, here);
}
