#pragma once

#include <windows.h>

#include <string>

/// What happens to a control in its life, a step each, as its user and its host do it: through exports, keys and the
/// buttons of the dialogs. Every step leaves the control as ready for the next as it found it.
namespace life {

/// A text of `lines` lines, with words, numbers, tabs, comments and Cyrillic letters.
[[nodiscard]] std::wstring Text(int lines);

/// Types, deletes, breaks lines, pastes, indents, changes letters, marks; undoes all of it and redoes some.
void Edit(HWND control);
/// Looks for a word with the system's dialog, forth and back, and closes the dialog.
void Search(HWND control);
/// Opens the find dialog and leaves it open. @return its window
HWND OpenFind(HWND control);
/// Prints the first two pages into a metafile.
void Print(HWND control);

/// The two pages in a host, open for as long as this lives.
class Tuning {
public:
    explicit Tuning(HWND host);
    Tuning(const Tuning&) = delete;
    Tuning& operator=(const Tuning&) = delete;
    ~Tuning();

    /// Presses and chooses on both pages. @param theme 1 to 5
    void Choose(int theme);
    /// Gives a control what has been chosen.
    void ApplyTo(HWND control) const;

private:
    HWND m_font;
    HWND m_colours;
};

}  // namespace life
