#include "tests/support/win/KeyDriver.h"

#include "tests/support/win/ControlHost.h"

#include <array>
#include <vector>

namespace keys {

namespace {

constexpr LPARAM altContext = 0x20000000;

void SetState(unsigned held, UINT key)
{
    std::array<BYTE, 256> state{};
    const auto down = [&](UINT vk) { state[vk] = 0x80; };
    if (held & shift) {
        down(VK_SHIFT);
        down(VK_LSHIFT);
    }
    if (held & ctrl) {
        down(VK_CONTROL);
        down(VK_LCONTROL);
    }
    if (held & alt) {
        down(VK_MENU);
        down(VK_LMENU);
    }
    if (key)
        down(key);
    ::SetKeyboardState(state.data());
}

}  // namespace

Holding::Holding(unsigned held, UINT key)
{
    SetState(held, key);
}

Holding::~Holding()
{
    SetState(none, 0);
}

void Press(HWND control, UINT key, unsigned held)
{
    {
        const Holding holding(held, key);
        ::SendMessageW(control, WM_KEYDOWN, key, 1);
    }
    const Holding holding(held);
    ::SendMessageW(control, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

LRESULT PressWithAlt(HWND control, UINT key, unsigned held)
{
    const Holding holding(held | alt, key);
    return ::SendMessageW(control, WM_SYSKEYDOWN, key, altContext | 1);
}

void Type(HWND control, wchar_t ch, unsigned held)
{
    const Holding holding(held);
    ::SendMessageW(control, WM_CHAR, ch, (held & alt ? altContext : 0) | 1);
}

void Type(HWND control, std::wstring_view text)
{
    for (const wchar_t ch : text)
        Type(control, ch);
}

void RealKey(UINT key, std::initializer_list<UINT> held)
{
    std::vector<INPUT> events;
    const auto add = [&](UINT vk, DWORD flags) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = static_cast<WORD>(vk);
        input.ki.dwFlags = flags;
        events.push_back(input);
    };
    for (const UINT vk : held)
        add(vk, 0);
    add(key, 0);
    add(key, KEYEVENTF_KEYUP);
    for (const UINT vk : held)
        add(vk, KEYEVENTF_KEYUP);
    ::SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT));
    Pump(20);
}

namespace {

struct Places {
    edPoint caret{0, 0};
    edPoint first{-1, -1};
    edPoint behind{-1, -1};
};

bool Same(const edPoint& a, const edPoint& b)
{
    return a.x == b.x && a.y == b.y;
}

}  // namespace

void GivenMarked(HWND control, std::string_view marked)
{
    Places at;
    edPoint here{0, 0};
    std::wstring text;
    for (const char ch : marked) {
        switch (ch) {
        case '|': at.caret = here; break;
        case '[': at.first = here; break;
        case ']': at.behind = here; break;
        default:
            text += static_cast<wchar_t>(ch);
            here = ch == '\n' ? edPoint{0, here.y + 1} : edPoint{here.x + 1, here.y};
        }
    }
    // A last line break makes no line of its own when text is loaded.
    if (!text.empty() && text.back() == L'\n')
        text += L'\n';
    if (text.empty())
        text = L"\n";
    edLoadText(control, text.c_str(), 0xFFFFFFFF);
    if (at.first.x < 0) {
        edSetCaretPosition(control, at.caret.y, at.caret.x);
        return;
    }
    const edPoint from = Same(at.caret, at.first) ? at.behind : at.first;
    const edPoint to = Same(at.caret, at.first) ? at.first : at.behind;
    edSetCaretPosition(control, from.y, from.x);
    edSetCaretPositionAdv(control, to.y, to.x, ED_CARET_REDRAW | ED_CARET_FOCUS | ED_CARET_SELECT);
}

std::string Marked(HWND control)
{
    Places at;
    edPoint last{-1, -1};
    // A text of one empty line is told as a line break.
    const std::wstring text = edGetLineCount(control) == 1 && TextOf(control) == L"\n" ? L"" : TextOf(control);
    edGetPosition(control, ED_POSITION_CARET, &at.caret);
    if (edGetPosition(control, ED_POSITION_SELECTION_FIRST, &at.first) &&
        edGetPosition(control, ED_POSITION_SELECTION_LAST, &last)) {
        UINT32 room = 0;
        edGetLine(control, static_cast<UINT32>(last.y), 0, nullptr, &room);
        at.behind = last.x >= static_cast<int>(room) - 1 ? edPoint{0, last.y + 1} : edPoint{last.x + 1, last.y};
    }
    std::string marked;
    edPoint here{0, 0};
    const auto addMarks = [&] {
        if (Same(here, at.behind))
            marked += ']';
        if (Same(here, at.caret))
            marked += '|';
        if (Same(here, at.first))
            marked += '[';
    };
    for (const wchar_t ch : text) {
        addMarks();
        marked += ch < 0x80 ? static_cast<char>(ch) : '?';
        here = ch == L'\n' ? edPoint{0, here.y + 1} : edPoint{here.x + 1, here.y};
    }
    addMarks();
    return marked;
}

}  // namespace keys
