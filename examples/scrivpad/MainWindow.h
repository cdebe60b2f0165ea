#pragma once

#include "CommandLine.h"
#include "Document.h"
#include "Editor.h"
#include "StatusBar.h"

#include <windows.h>

namespace scrivpad {

/// The program's window: menu, one editor, status bar.
class MainWindow {
public:
    /// Makes the window, hidden, with an empty text. Throws a Failure.
    explicit MainWindow(UINT32 theme);
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    [[nodiscard]] HWND Handle() const noexcept { return m_window; }
    void Show(int showCommand);

    /// Shows a file in place of the present text. Throws a Failure; the present text then stays.
    /// @param encoding  ED_ENCODING_ code to try when the bytes do not tell
    void Open(const std::wstring& path, UINT32 encoding);
    /// Writes the text and goes on with that file. Throws a Failure; nothing has changed then.
    void SaveAs(const std::wstring& path, UINT32 encoding);
    /// Shows a file, or tells the user why not.
    void OpenOrTell(const std::wstring& path) noexcept;
    /// Throws a Failure when the text has no such place; the caret is then at the nearest one.
    void GoTo(TextPlace place);
    [[nodiscard]] const Document& CurrentDocument() const noexcept { return m_document; }

    /// Brings the status bar up to date. The control tells of every move of its caret, but not of its typing mode.
    void RefreshStatus();

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnCreate();
    void OnSize();
    void OnDpiChanged(const RECT& suggested);
    void OnEditorChanged(bool textChanged);
    void OnCommand(unsigned command) noexcept;
    void RunCommand(unsigned command);

    // The menu's commands; a Failure in one is told to the user.
    void CommandOpen();
    void CommandReopen(UINT32 encoding);
    void CommandSave() { Save(); }
    void CommandSaveAs() { SaveUnderChosenName(); }
    void CommandEncoding(UINT32 encoding);
    void CommandExit();
    void CommandAbout();

    // Both throw a Failure, and return false when the user gave up.
    bool Save();
    bool SaveUnderChosenName();
    /// @return false when the user wants to keep the changed text and go on
    [[nodiscard]] bool MayLeaveText();
    /// Runs the body; a failure in it is told to the user. @return false for a failure
    template <class Body>
    bool OrTell(Body body) const noexcept;
    void Tell(const wchar_t* message) const noexcept;

    /// Moves text, caret and view to a new control: of that theme, and as the document's path and access ask for.
    void RenewEditor(UINT32 theme);
    [[nodiscard]] Editor MakeEditor(const Document& document, UINT32 theme) const;
    void Replace(Editor editor, Document document);
    void RefreshTitle();

    HWND m_window = nullptr;
    StatusBar m_statusBar;
    Editor m_editor;
    Document m_document;
    UINT32 m_theme;
};

}  // namespace scrivpad
