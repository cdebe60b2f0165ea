#pragma once

#include "Appearance.h"
#include "Highlight.h"
#include "scrivctl3.h"

#include <optional>
#include <string>
#include <vector>

namespace scrivpad {

/// What the user sees and has marked in a text, apart from the text itself.
struct EditorView {
    struct Selection {
        edPoint first;
        edPoint last;  ///< inclusive
    };
    edPoint caret{};
    edPoint viewport{};
    std::optional<Selection> selection;
    std::vector<UINT32> breakPoints;  ///< lines
    std::optional<UINT32> execPoint;  ///< line
};

/// Owns one control of the library.
class Editor {
public:
    Editor() noexcept = default;
    /// Makes a hidden control without a text. Throws a Failure.
    Editor(HWND parent, Highlighter highlighter, Appearance& appearance, bool readOnly);
    ~Editor() { Destroy(); }
    Editor(Editor&& other) noexcept;
    Editor& operator=(Editor&& other) noexcept;

    void Destroy() noexcept;
    [[nodiscard]] HWND Handle() const noexcept { return m_control; }

    [[nodiscard]] bool Mode(UINT32 code) const noexcept { return edGetMode(m_control, code) != 0; }
    [[nodiscard]] edPoint Position(int code) const noexcept;
    [[nodiscard]] UINT32 LineCount() const noexcept { return edGetLineCount(m_control); }

    /// @return the text in the form that SetText turns into the same lines again
    [[nodiscard]] std::wstring Text() const;
    void SetText(const std::wstring& text) noexcept;

    /// @param encoding  the code to try; afterwards the code found. Throws a Failure; the text is then as it was
    void LoadFile(const std::wstring& path, UINT32& encoding);
    /// Throws a Failure; the file is then as it was.
    void SaveFile(const std::wstring& path, UINT32 encoding) const;

    /// Takes over the text of another control that was loaded in `encoding`, with what that one knows of its file's
    /// line ends and byte order mark, as far as the library allows.
    void CopyText(const Editor& from, UINT32 encoding);

    [[nodiscard]] bool HasBreakPoint(UINT32 line) const noexcept;
    /// @return false when the line can have none, being empty
    bool ToggleBreakPoint(UINT32 line) noexcept;
    void SetExecPoint(UINT32 line) noexcept;
    void ClearExecPoint() noexcept;
    /// The line of the execution point, wherever edits have moved it; none without one.
    [[nodiscard]] std::optional<UINT32> ExecPoint() const noexcept;

    [[nodiscard]] EditorView View() const;
    void SetView(const EditorView& view) noexcept;

private:
    HWND m_control = nullptr;
    int m_execLine = -1;  // as it was numbered when the execution point was set, which is when the snapshot was taken
};

}  // namespace scrivpad
