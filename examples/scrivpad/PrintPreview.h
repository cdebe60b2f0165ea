#pragma once

#include "PageSetup.h"
#include "Printing.h"
#include "SheetPicture.h"
#include "WindowObject.h"

#include <optional>
#include <string>

namespace scrivpad {

/// Numbers of the buttons in the window of the preview.
enum PreviewCommand : unsigned {
    previewClose = IDCANCEL,  ///< what the Esc key sends too
    previewBack = 100,
    previewForward,
    previewPrint,  ///< closes the preview and gives the owner its print command
};

/// A window that shows the sheets of a text as pictures, one at a time. Its owner is disabled while it stands, so that
/// the text stays as it was split.
class PrintPreview {
public:
    /// Splits the text into sheets. Throws a Failure.
    /// @param printCommand  what `owner` gets as WM_COMMAND when the user wants to print
    PrintPreview(HWND owner, HWND control, PageSetup& setup, const std::wstring& title, unsigned printCommand);
    ~PrintPreview();
    PrintPreview(const PrintPreview&) = delete;
    PrintPreview& operator=(const PrintPreview&) = delete;

    /// Opens the window on the first sheet. Throws a Failure.
    void Open(const std::wstring& title);
    /// @return the window; null before it is open and once the user has closed it
    [[nodiscard]] HWND Handle() const noexcept { return m_window; }
    [[nodiscard]] int Page() const noexcept { return m_page; }
    [[nodiscard]] int PageCount() const noexcept { return m_run ? m_run->PageCount() : 0; }
    /// Shows a sheet. @param page  from 1; held to those there are
    void ShowPage(int page);

private:
    friend struct WindowObject;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(unsigned command);
    void OnKey(WPARAM key);
    void OnDestroy();
    void MakeButtons();
    void LayOutButtons();
    void RefreshButtons();
    void Paint();
    void DrawSheet(HDC dc, const RECT& room) const;

    HWND m_owner;
    unsigned m_printCommand;
    HWND m_window = nullptr;
    HWND m_label = nullptr;
    std::optional<SheetPicture> m_sheet;
    std::optional<PrintRun> m_run;
    int m_page = 0;
};

}  // namespace scrivpad
