#pragma once

#include <windows.h>

#include <initializer_list>
#include <string_view>

/// Keys as a control gets them: the keyboard state of this thread and the messages, with no need of the focus.
namespace keys {

enum Held : unsigned { none = 0, shift = 1, ctrl = 2, alt = 4 };

/// Holds keys down for as long as it lives.
class Holding {
public:
    explicit Holding(unsigned held, UINT key = 0);
    Holding(const Holding&) = delete;
    Holding& operator=(const Holding&) = delete;
    ~Holding();
};

/// WM_KEYDOWN and WM_KEYUP of one key, as a key press without its character sends them.
void Press(HWND control, UINT key, unsigned held = none);
/// WM_SYSKEYDOWN and WM_SYSKEYUP, Alt being held. @return what the first answered
LRESULT PressWithAlt(HWND control, UINT key, unsigned held = none);
/// WM_CHAR.
void Type(HWND control, wchar_t ch, unsigned held = none);
void Type(HWND control, std::wstring_view text);

/// Real input: the key goes down and up again in the focused window of the system.
void RealKey(UINT key, std::initializer_list<UINT> held = {});

}  // namespace keys
