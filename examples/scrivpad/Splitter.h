#pragma once

#include <windows.h>

namespace scrivpad {

/// Shares an area between two windows that stand side by side, with a bar between them that the mouse can move.
class Splitter {
public:
    /// Places the windows. @param right  null: the left one takes the whole area
    void Layout(const RECT& area, HWND left, HWND right);

    /// Begins to move the bar when the point, in the area's coordinates, lies on it. @return false when it does not
    bool Grip(POINT point);
    /// Moves the gripped bar. @return true when the windows have to be laid out anew
    bool Drag(POINT point);
    void LetGo() noexcept { m_gripped = false; }
    [[nodiscard]] bool Hit(POINT point) const noexcept;

private:
    [[nodiscard]] int BarLeft() const noexcept;

    RECT m_area{};
    int m_barWidth = 0;   // 0: there is one window only
    double m_share = 0.5; // of the left window
    bool m_gripped = false;
    int m_gripOffset = 0; // from the bar's left edge to where it was gripped
};

}  // namespace scrivpad
