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

}  // namespace keys
