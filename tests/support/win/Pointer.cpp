#include "tests/support/win/Pointer.h"

#include "tests/support/win/ControlHost.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

namespace {

constexpr UINT stepMs = 30;
constexpr int patience = 20;  // steps

struct Play {
    std::vector<std::function<void()>> steps;
    std::size_t next = 0;
    int waited = 0;
};
Play* playing = nullptr;

void CALLBACK NextStep(HWND, UINT, UINT_PTR, DWORD)
{
    if (!playing)
        return;
    Play& play = *playing;
    if (play.next < play.steps.size()) {
        play.steps[play.next++]();
    } else if (++play.waited > patience) {
        PutKey(VK_ESCAPE, true);
        PutKey(VK_ESCAPE, false);
    }
}

/// Where a place of the text stands in it as one string, a line break being one character.
std::size_t OffsetOf(const std::wstring& text, edPoint at)
{
    std::size_t offset = 0;
    for (int line = 0; line < at.y; ++line)
        offset = text.find(L'\n', offset) + 1;
    return offset + static_cast<std::size_t>(at.x);
}

edPoint PlaceOf(const std::wstring& text, std::size_t offset)
{
    edPoint at{0, 0};
    for (std::size_t i = 0; i < offset; ++i) {
        at.x = text[i] == L'\n' ? 0 : at.x + 1;
        at.y += text[i] == L'\n';
    }
    return at;
}

/// Takes a mark out of the text. @return where it stood, npos when there is none
std::size_t Take(std::wstring& text, wchar_t mark)
{
    const std::size_t at = text.find(mark);
    if (at != text.npos)
        text.erase(at, 1);
    return at;
}

}  // namespace

POINT At(int row, int column)
{
    return {column * testCharWidth + 2, row * testLineHeight + testLineHeight / 2};
}

void MovePointer(HWND window, POINT point)
{
    PutPointer(window, point);
    Pump(40);
}

void PressButton()
{
    PutButton(true);
    Pump(40);
}

void ReleaseButton()
{
    PutButton(false);
    Pump(40);
}

void PutPointer(HWND window, POINT point)
{
    ::ClientToScreen(window, &point);
    ::SetCursorPos(point.x, point.y);
}

void PutButton(bool down)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
    ::SendInput(1, &input, sizeof input);
}

void PutKey(WORD key, bool down)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    ::SendInput(1, &input, sizeof input);
}

void LetDoubleClickTimePass()
{
    Pump(::GetDoubleClickTime() + 50);
}

LRESULT SendMouse(HWND window, UINT message, POINT point, WPARAM keys)
{
    return ::SendMessageW(window, message, keys, MAKELPARAM(point.x, point.y));
}

void SendClick(HWND window, POINT point)
{
    SendMouse(window, WM_LBUTTONDOWN, point);
    SendMouse(window, WM_LBUTTONUP, point, 0);
}

void Give(HWND control, const std::wstring& marked)
{
    std::wstring text = marked;
    std::wstring unselected = marked;
    std::erase_if(unselected, [](wchar_t ch) { return ch == L'[' || ch == L']'; });
    const std::size_t caret = Take(unselected, L'|');
    Take(text, L'|');
    const std::size_t first = Take(text, L'[');
    const std::size_t behind = Take(text, L']');
    edLoadText(control, text.c_str(), 0xFFFFFFFF);
    if (first != text.npos) {
        const edPoint anchor = PlaceOf(text, caret == first ? behind : first);
        edSetCaretPositionAdv(control, anchor.y, anchor.x, 0);
    }
    const edPoint at = PlaceOf(text, caret == text.npos ? (first == text.npos ? 0 : behind) : caret);
    const UINT32 flags = first == text.npos ? ED_CARET_REDRAW : ED_CARET_REDRAW | ED_CARET_SELECT;
    edSetCaretPositionAdv(control, at.y, at.x, flags);
    Pump();
}

std::wstring Marked(HWND control)
{
    std::wstring text = TextOf(control);
    edPoint caret{};
    edPoint first{};
    edPoint last{};
    edGetPosition(control, ED_POSITION_CARET, &caret);
    struct Mark {
        std::size_t offset;
        int order;  // from left to right where several stand at one place
        wchar_t sign;
    };
    std::vector<Mark> marks{{OffsetOf(text, caret), 2, L'|'}};
    if (edGetPosition(control, ED_POSITION_SELECTION_FIRST, &first) &&
        edGetPosition(control, ED_POSITION_SELECTION_LAST, &last)) {
        marks.push_back({OffsetOf(text, first), 0, L'['});
        marks.push_back({OffsetOf(text, {last.x + 1, last.y}), 1, L']'});
    }
    std::sort(marks.begin(), marks.end(), [](const Mark& a, const Mark& b) {
        return a.offset != b.offset ? a.offset > b.offset : a.order > b.order;
    });
    for (const Mark& mark : marks)
        text.insert(std::min(mark.offset, text.size()), 1, mark.sign);
    return text;
}

bool PlaySteps(std::vector<std::function<void()>> steps)
{
    Play play{std::move(steps)};
    playing = &play;
    const UINT_PTR timer = ::SetTimer(nullptr, 0, stepMs, &NextStep);
    while (play.next < play.steps.size())
        Pump(stepMs);
    Pump(3 * stepMs);
    ::KillTimer(nullptr, timer);
    playing = nullptr;
    return play.waited <= patience;
}
