#pragma once

#include "framework/win/CWnd.h"
#include "framework/win/Handles.h"

/// One colour of the grid. The grid holds the keyboard for all its cells; a cell shows where it stands. The object goes
/// with its window.
class CColorCell final : public CWnd {
public:
    /// @param number  of the palette, 1 to 16; also the window's id in the grid
    explicit CColorCell(int number) noexcept;

    bool Create(const RECT& place, HWND grid) noexcept;
    [[nodiscard]] int Number() const noexcept { return m_number; }
    [[nodiscard]] bool IsSelected() const noexcept { return m_selected; }
    [[nodiscard]] bool IsFocused() const noexcept { return m_focused; }
    void SetFlags(bool selected, bool focused) noexcept;

private:
    LRESULT WindowProc(const xTMessage& message) override;
    void OnFault() noexcept override;
    void Paint() const;
    [[nodiscard]] bool ShowsFocus() const noexcept;
    /// The colour in which marks are seen on the cell's own.
    [[nodiscard]] COLORREF Contrast() const noexcept;

    int m_number;
    xTBrush m_brush;
    bool m_selected = false;
    bool m_focused = false;  // where the grid's keyboard stands
};

/// The sixteen colours of the palette, four a row. Clicks and the space key choose one; the parent is told with a
/// WM_COMMAND of the code `chosen`. The object goes with its window.
class CColorSelectCtrl final : public CWnd {
public:
    static constexpr int rowLength = 4;
    static constexpr int cellCount = 16;
    static constexpr int chosen = 1;

    bool Create(const RECT& place, HWND parent, int id) noexcept;
    /// The grid of a window; null for any other window.
    [[nodiscard]] static CColorSelectCtrl* FromHandle(HWND wnd) noexcept;

    /// @return the palette number of the selected cell, 0 when none is
    [[nodiscard]] int Selected() const noexcept;
    /// Selects a cell and puts the keyboard there, telling nobody. Any number but 1 to 16 selects none.
    void Select(int number) noexcept;
    /// The user chose a cell.
    void Choose(int number);
    /// Puts the keyboard to another cell for an arrow key. @return false for any other key
    bool MoveFocus(WPARAM key) noexcept;

private:
    LRESULT WindowProc(const xTMessage& message) override;
    void OnFault() noexcept override;
    void MakeCells() noexcept;
    bool OnKey(WPARAM key);
    void OnFocus() noexcept;
    [[nodiscard]] CColorCell* Cell(int number) const noexcept;
    [[nodiscard]] int FocusedIndex() const noexcept;
};
