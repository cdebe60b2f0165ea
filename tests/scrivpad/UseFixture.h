#pragma once

#include "MessageLoop.h"
#include "WindowFixture.h"
#include "tests/support/win/MessageBoxes.h"
#include "tests/support/win/Pointer.h"

#include <dlgs.h>
#include <shlobj.h>

#include <functional>
#include <initializer_list>

/// The sample host as a user sees it: real keys, the menu, the mouse, message boxes.
class Use : public WindowFixture {
protected:
    Use()
    {
        window.Show(SW_SHOW);
        ::SetForegroundWindow(window.Handle());
        Pump(50);
    }
    ~Use() override { ::DestroyAcceleratorTable(m_shortcuts); }

    void Pump(DWORD milliseconds)
    {
        const ULONGLONG end = ::GetTickCount64() + milliseconds;
        do {
            MSG message;
            while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
                Dispatch(window, m_shortcuts, message);
            ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
        } while (::GetTickCount64() < end);
    }
    static void Send(WORD key, bool down)
    {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
        ::SendInput(1, &input, sizeof(input));
    }
    /// Presses keys one after the other.
    void Type(std::initializer_list<int> keys)
    {
        for (const int key : keys) {
            Send(static_cast<WORD>(key), true);
            Send(static_cast<WORD>(key), false);
        }
        Pump(40);
    }
    /// Presses a key while others are held.
    void Press(std::initializer_list<int> held, int key)
    {
        for (const int hold : held)
            Send(static_cast<WORD>(hold), true);
        Send(static_cast<WORD>(key), true);
        Send(static_cast<WORD>(key), false);
        for (const int hold : held)
            Send(static_cast<WORD>(hold), false);
        Pump(40);
    }
    void PressCtrl(int key) { Press({VK_CONTROL}, key); }

    void Given(const char* text)
    {
        window.Active().Open(Write(L"use.txt", text), ED_ENCODING_DEFAULT);
        ::SetFocus(Control());
        Pump(20);
    }
    [[nodiscard]] static HWND FindDialog()
    {
        HWND found = nullptr;
        ::EnumThreadWindows(
            ::GetCurrentThreadId(),
            [](HWND top, LPARAM result) -> BOOL {
                if (::GetDlgItem(top, edt1) == nullptr)
                    return TRUE;
                *reinterpret_cast<HWND*>(result) = top;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }
    /// The state of a menu item as it is when its menu opens.
    [[nodiscard]] UINT MenuState(unsigned command) const
    {
        const HMENU menu = ::GetMenu(window.Handle());
        ::SendMessageW(window.Handle(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
        return ::GetMenuState(menu, command, MF_BYCOMMAND);
    }
    [[nodiscard]] bool Greyed(unsigned command) const { return (MenuState(command) & MF_GRAYED) != 0; }
    [[nodiscard]] bool Ticked(unsigned command) const { return (MenuState(command) & MF_CHECKED) != 0; }
    [[nodiscard]] std::vector<int> BreakPoints() const
    {
        std::vector<int> lines;
        for (int i = 0; i < edGetBreakPointCount(Control()); ++i)
            lines.push_back(edGetBreakPointLine(Control(), static_cast<UINT32>(i)));
        return lines;
    }
    [[nodiscard]] int ExecPoint() const
    {
        const std::optional<UINT32> line = window.Active().TextEditor().ExecPoint();
        return line ? static_cast<int>(*line) : -1;
    }
    /// Drops files on the window, as the shell does it.
    void Drop(const std::vector<std::wstring>& paths)
    {
        std::wstring names;
        for (const std::wstring& path : paths)
            names += path + L'\0';
        names += L'\0';
        const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + names.size() * sizeof(wchar_t));
        auto* const drop = static_cast<DROPFILES*>(::GlobalLock(memory));
        drop->pFiles = sizeof(DROPFILES);
        drop->fWide = TRUE;
        std::copy(names.begin(), names.end(), reinterpret_cast<wchar_t*>(drop + 1));
        ::GlobalUnlock(memory);
        ::SendMessageW(window.Handle(), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    }

    MessageBoxes boxes{IDNO};

private:
    HACCEL m_shortcuts = BuildShortcuts();
};
