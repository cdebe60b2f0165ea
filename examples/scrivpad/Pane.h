#pragma once

#include "CommandLine.h"
#include "Document.h"
#include "Editor.h"
#include "PaneHost.h"
#include "WindowObject.h"

#include <windows.h>

namespace scrivpad {

/// A text, its file and the editor that shows it. Each editor has a window of its own around it: its messages go to its
/// parent and do not say which editor sent them.
class Pane {
public:
    /// Makes a visible child window with an empty text. Throws a Failure.
    Pane(HWND parent, PaneHost& host, Appearance& appearance);
    ~Pane();
    Pane(const Pane&) = delete;
    Pane& operator=(const Pane&) = delete;

    [[nodiscard]] HWND Handle() const noexcept { return m_window; }
    [[nodiscard]] HWND Control() const noexcept { return m_editor.Handle(); }
    [[nodiscard]] const Editor& TextEditor() const noexcept { return m_editor; }
    [[nodiscard]] const Document& CurrentDocument() const noexcept { return m_document; }

    /// Shows a file in place of the present text. Throws a Failure; the present text then stays.
    /// @param encoding  ED_ENCODING_ code to try when the bytes do not tell
    void Open(const std::wstring& path, UINT32 encoding);
    /// Writes the text and goes on with that file. Throws a Failure; nothing has changed then.
    void SaveAs(const std::wstring& path, UINT32 encoding);
    /// The encoding of the next save.
    void SetEncoding(UINT32 encoding);
    /// The appearance has changed.
    void TakeAppearance() noexcept;

    // All ask the user where the file is not known; they throw a Failure and return false when the user gave up.
    bool AskAndOpen();
    bool Save();
    bool AskAndSave();
    /// @return false when the user wants to keep the changed text and go on
    [[nodiscard]] bool MayLeaveText();

    /// Throws a Failure when the text has no such place; the caret is then at the nearest one.
    void GoTo(TextPlace place);
    /// Selects from the caret to that place. Throws as GoTo does.
    void SelectTo(TextPlace place);
    // Lines from 1; these throw when the text has no such line, or one that can have no such mark.
    void SetBreakPoint(int line);
    void SetExecPoint(int line);
    /// @return false when the caret's line can have none, being empty
    bool ToggleBreakPoint();
    void RemoveBreakPoints();
    /// Moves the execution point to the caret's line.
    void MoveExecPoint();
    void ClearExecPoint();

private:
    friend struct WindowObject;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnSize() const noexcept;
    void OnEditorChanged(bool textChanged, bool focusLost);
    [[nodiscard]] bool OnWrapQuestion(HWND dialog, const wchar_t* text) const;

    [[nodiscard]] Editor MakeEditor(const Document& document) const;
    /// Moves text, caret and view to a new control, such as the document's path and access ask for.
    void RenewEditor();
    void Replace(Editor editor, Document document);
    void RequireCaretAt(TextPlace place);

    PaneHost& m_host;
    HWND m_window = nullptr;
    Appearance& m_appearance;
    Editor m_editor;
    Document m_document;
};

}  // namespace scrivpad
