#pragma once

#include "CommandLine.h"
#include "Pane.h"
#include "PrintPreview.h"
#include "SettingsDialog.h"
#include "Splitter.h"
#include "StatusBar.h"
#include "WindowObject.h"

#include <windows.h>

#include <array>
#include <memory>

namespace scrivpad {

/// The program's window: menu, one text or two side by side, status bar. Commands go to the active text, which is the
/// one that had the focus last.
class MainWindow : private PaneHost {
public:
    /// Makes the window, hidden, with an empty text. Throws a Failure.
    /// @param theme         1 to 5, used in place of kept settings; 0: those that are kept, theme 1 for want of them
    /// @param settingsFile  where the settings are kept; empty: nowhere
    explicit MainWindow(UINT32 theme, const std::wstring& settingsFile = {});
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    [[nodiscard]] HWND Handle() const noexcept { return m_window; }
    void Show(int showCommand);

    [[nodiscard]] Pane& Active() const noexcept { return *m_panes[m_active]; }
    /// @return the other text, null when there is one only
    [[nodiscard]] Pane* Other() const noexcept { return m_panes[1 - m_active].get(); }
    /// Shows a second, empty text beside the present one and makes it the active one.
    void Split();
    /// Makes the other text the active one, if there is one.
    void NextPane();

    /// Shows a file in the active text, which may ask to be saved first, or tells the user why not.
    void OpenOrTell(const std::wstring& path) noexcept;
    /// The same in the other text, which becomes the active one and is made if there is none.
    void OpenBeside(const std::wstring& path) noexcept;
    /// Runs a command of the menu; a failure is told to the user.
    void Run(unsigned command) noexcept;
    /// @return the window that shows the printed sheets, null when it is not open
    [[nodiscard]] HWND PreviewHandle() const noexcept;
    /// @return the settings dialog, null when it is not open
    [[nodiscard]] HWND SettingsHandle() const noexcept { return m_settings ? m_settings->Handle() : nullptr; }
    void ShowSettings(SettingsDialog::Page page);
    /// Brings the status bar up to date: the control does not tell of its typing mode, nor of what the host does.
    void RefreshStatus();

private:
    friend struct WindowObject;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnCreate();
    void OnSize();
    void OnDpiChanged(const RECT& suggested);
    void OnDropFiles(HDROP drop);
    [[nodiscard]] bool OnSetCursor() const noexcept;
    void OnPaneFocused(Pane& pane) override;
    void OnPaneChanged(Pane& pane) override;
    void RunCommand(unsigned command);

    void CommandOpen() { Active().AskAndOpen(); }
    void CommandSave() { Active().Save(); }
    void CommandSaveAs() { Active().AskAndSave(); }
    void CommandPageSetup();
    void CommandPreview();
    void CommandPrint();
    void CommandSplit();
    void CommandBreakPoint();
    void CommandRemoveBreakPoints() { Active().RemoveBreakPoints(); }
    void CommandExecPoint() { Active().MoveExecPoint(); }
    void CommandClearExecPoint() { Active().ClearExecPoint(); }
    void CommandReopen(UINT32 encoding);
    void CommandSettings() { ShowSettings(SettingsDialog::coloursPage); }
    void CommandExit();
    void CommandAbout();

    [[nodiscard]] std::unique_ptr<Pane> MakePane();
    /// Ends the split with the left text staying, unless the user wants to keep a changed one.
    void Unsplit();
    void Activate(Pane& pane);
    void SetTheme(UINT32 theme);
    /// Gives all texts these settings and keeps them. Throws a Failure when they cannot be kept.
    void TakeSettings(std::vector<BYTE> block, UINT32 theme);
    [[nodiscard]] bool MayLeaveTexts();
    void RefreshTitle();

    Appearance m_appearance;  // outlives the texts
    HWND m_window = nullptr;
    StatusBar m_statusBar;
    Splitter m_splitter;
    std::array<std::unique_ptr<Pane>, 2> m_panes;  // the second only in a split
    std::size_t m_active = 0;
    std::wstring m_title;  // as it is shown
    PageSetup m_pageSetup;
    std::unique_ptr<PrintPreview> m_preview;  // shows the text of a pane
    std::unique_ptr<SettingsDialog> m_settings;
};

}  // namespace scrivpad
