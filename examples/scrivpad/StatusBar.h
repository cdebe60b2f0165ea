#pragma once

#include <windows.h>

#include <array>
#include <string>

namespace scrivpad {

/// The bar at the bottom of the window: line and column, insert or overwrite, changed or not, encoding, read-only.
class StatusBar {
public:
    enum Part { place, mode, change, encoding, access, partCount };

    /// @return false when the bar could not be made
    [[nodiscard]] bool Create(HWND parent);
    /// Puts the bar at the bottom of the parent and sizes its parts to the font. @return its height in pixels
    int Layout();
    /// Shows `text`; the same text again costs nothing.
    void Show(Part part, std::wstring text);

private:
    HWND m_bar = nullptr;
    std::array<std::wstring, partCount> m_shown;
};

}  // namespace scrivpad
