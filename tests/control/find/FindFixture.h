#pragma once

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/MessageBoxes.h"

#include <commdlg.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

// Find and replace through the system's own dialog, its buttons pressed.

enum Command {
    undo = ED_COMMAND_UNDO,
    redo = ED_COMMAND_REDO,
    openFind = ED_COMMAND_FIND,
    openReplace = ED_COMMAND_REPLACE,
    findNext = ED_COMMAND_FIND_NEXT
};
enum Button { pressFind = IDOK, pressReplace = psh1, pressReplaceAll = psh2, pressCancel = IDCANCEL };
inline constexpr const wchar_t* nothingFound = L"Соответствий не найдено";

struct Flags {
    bool down = true;
    bool wholeWord = false;
    bool matchCase = false;
    friend bool operator==(const Flags&, const Flags&) = default;
};

inline std::ostream& operator<<(std::ostream& out, const Flags& flags)
{
    return out << (flags.down ? "down" : "up") << (flags.wholeWord ? " word" : "") << (flags.matchCase ? " case" : "");
}

inline void Check(HWND dialog, int id, bool on)
{
    ::SendDlgItemMessageW(dialog, id, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}

inline bool IsChecked(HWND dialog, int id)
{
    return ::IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

inline std::wstring ItemText(HWND dialog, int id)
{
    std::wstring text(2000, L'\0');
    text.resize(::GetDlgItemTextW(dialog, id, text.data(), static_cast<int>(text.size())));
    return text;
}

class Find : public testing::Test {
protected:
    Find() { forgetLastSearch(); }
    ~Find() override
    {
        edDestroyCtrl(control);
        Pump();
    }

    void given(const wchar_t* text, int line = 0, int col = 0)
    {
        if (control)
            edDestroyCtrl(control);
        control = host.Show(text);
        edSetCaretPosition(control, line, col);
        host.Forget();
    }

    /// The open find or replace dialog of this thread, null without a visible one.
    static HWND dialog()
    {
        HWND found = nullptr;
        ::EnumThreadWindows(
            ::GetCurrentThreadId(),
            [](HWND window, LPARAM result) -> BOOL {
                if (!::GetDlgItem(window, edt1) || !::IsWindowVisible(window))
                    return TRUE;
                *reinterpret_cast<HWND*>(result) = window;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }
    static bool isReplaceDialog(HWND window) { return ::GetDlgItem(window, edt2) != nullptr; }

    HWND open(Command which) { return open(which, control); }
    static HWND open(Command which, HWND of)
    {
        edExecCommand(of, which);
        Pump();
        return dialog();
    }
    static void press(Button button)
    {
        ::SendDlgItemMessageW(dialog(), button, BM_CLICK, 0, 0);
        Pump();
    }
    static void set(const Flags& flags)
    {
        Check(dialog(), chx1, flags.wholeWord);
        Check(dialog(), chx2, flags.matchCase);
        Check(dialog(), rad1, !flags.down);
        Check(dialog(), rad2, flags.down);
    }
    /// Opens a dialog if there is none and presses its button.
    void find(const wchar_t* what, const Flags& flags = {})
    {
        if (!dialog())
            open(openFind);
        ::SetDlgItemTextW(dialog(), edt1, what);
        set(flags);
        press(pressFind);
    }
    void replace(Button button, const wchar_t* what, const wchar_t* with, const Flags& flags = {})
    {
        if (!dialog())
            open(openReplace);
        ::SetDlgItemTextW(dialog(), edt1, what);
        ::SetDlgItemTextW(dialog(), edt2, with);
        set(flags);
        press(button);
    }
    /// From now on the messages of the dialog come to the control with another text to find.
    void rewriteMessages(const wchar_t* text)
    {
        static WNDPROC ofTheControl = nullptr;
        static std::wstring rewritten;
        rewritten = text;
        ofTheControl = reinterpret_cast<WNDPROC>(::SetWindowLongPtrW(
            control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(
                [](HWND window, UINT id, WPARAM wParam, LPARAM lParam) -> LRESULT {
                    if (id == ::RegisterWindowMessageW(FINDMSGSTRINGW))
                        ::lstrcpyW(reinterpret_cast<FINDREPLACEW*>(lParam)->lpstrFindWhat, rewritten.c_str());
                    return ::CallWindowProcW(ofTheControl, window, id, wParam, lParam);
                }))));
    }
    /// Every test begins without a remembered search. No dialog searches for nothing, so it is made to.
    void forgetLastSearch()
    {
        given(L"x");
        rewriteMessages(L"");
        find(L"x");
        press(pressCancel);
    }

    /// The selected text; empty without a selection.
    std::wstring selected() const
    {
        if (!edGetMode(control, ED_MODE_SELECTION))
            return {};
        UINT32 length = 0;
        edGetLine(control, 0, 1, nullptr, &length);
        std::wstring text(length, L'\0');
        edGetLine(control, 0, 1, text.data(), &length);
        text.pop_back();
        return text;
    }
    [[nodiscard]] std::string at(int code) const
    {
        edPoint point{-7, -7};
        edGetPosition(control, code, &point);
        return std::to_string(point.y) + "," + std::to_string(point.x);
    }
    [[nodiscard]] std::string caret() const { return at(ED_POSITION_CARET); }
    bool canUndo() const
    {
        ::SetFocus(control);
        return edCanExecCommand(control, undo) != 0;
    }

    ControlHost host;
    HWND control = nullptr;
    MessageBoxes boxes;
};
