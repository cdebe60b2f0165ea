#pragma once

#include <windows.h>

#include <commdlg.h>

#include <array>

/// The system's modeless find or replace dialog. The object lives as long as its window, and no shorter than the
/// dialog's own code is at work: a search that it asked for may end in its own destruction.
class CFindDialog {
public:
    enum class xTKind { find, replace };

    /// Opens a dialog.
    /// @param slot   the owner's pointer to the dialog: set here, null when there is no dialog to be had, and null
    ///               again when the window goes. It has to live until then, or until `Forget`
    /// @param owner  the window that gets the dialog's messages
    /// @param find   the text to start with, cut to what the dialog has room for
    /// @param flags  any of FR_DOWN, FR_WHOLEWORD and FR_MATCHCASE
    static void Open(CFindDialog*& slot, xTKind kind, HWND owner, const WCHAR* find, DWORD flags);

    /// The dialog that a find message comes from.
    /// @param lParam  of the message, whoever sent it @return null when no living dialog of this thread sent it
    [[nodiscard]] static CFindDialog* GetNotifier(LPARAM lParam) noexcept;

    CFindDialog(const CFindDialog&) = delete;
    CFindDialog& operator=(const CFindDialog&) = delete;

    /// The owner's pointer is null from now on; the window stays.
    void Forget() noexcept;
    /// Forgets and destroys the window: at once, or hidden until the dialog's own code has ended.
    void Destroy() noexcept;

    [[nodiscard]] HWND GetSafeHwnd() const noexcept { return m_hWnd; }
    [[nodiscard]] const WCHAR* FindString() const noexcept { return m_find.data(); }
    [[nodiscard]] const WCHAR* ReplaceString() const noexcept { return m_replacement.data(); }
    [[nodiscard]] DWORD Flags() const noexcept { return m_request.Flags; }  ///< FR_ flags

private:
    using xTText = std::array<WCHAR, 1024>;  // a line has at most 512 characters

    CFindDialog(CFindDialog*& slot, HWND owner, const WCHAR* find, DWORD flags) noexcept;
    ~CFindDialog();

    [[nodiscard]] static CFindDialog* FromWindow(HWND wnd) noexcept;
    static LRESULT CALLBACK Procedure(HWND wnd, UINT id, WPARAM wParam, LPARAM lParam) noexcept;
    void CreateSystemDialog(xTKind kind) noexcept;
    void Unwound() noexcept;

    xTText m_find{};
    xTText m_replacement{};
    FINDREPLACEW m_request{};  // the dialog keeps its address for as long as it lives
    CFindDialog** m_slot;
    CFindDialog* m_next;  // of the living dialogs of this thread
    HWND m_hWnd = nullptr;
    WNDPROC m_systemProcedure = nullptr;
    int m_depth = 0;  // of the dialog's messages that are being handled
    bool m_destroyWhenUnwound = false;
};
