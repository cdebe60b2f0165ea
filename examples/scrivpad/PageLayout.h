#pragma once

#include <windows.h>

namespace scrivpad {

/// Paper and margins, in hundredths of a millimetre.
struct PageSettings {
    SIZE paper = {21000, 29700};
    RECT margins = {2000, 1500, 1500, 1500};
};

/// Where things stand on a sheet, in 1/96 inch from its upper left corner: the unit in which the control's print font
/// has its size.
struct PageLayout {
    SIZE paper;
    RECT title;       ///< on the first page only
    RECT titledText;  ///< the text under the title
    RECT text;        ///< the text of every other page
    RECT number;
};

constexpr int unitsPerInch = 96;

[[nodiscard]] PageLayout LayOut(const PageSettings& settings) noexcept;

/// Gives a context those units, with (0, 0) in the corner of the sheet.
/// @param resolution  dots per inch across and down
/// @param printable   where the part begins that the device can print on, in dots from that corner
void MapToPaper(HDC dc, const SIZE& resolution, const POINT& printable) noexcept;
/// The same as the device itself tells.
void MapToPaper(HDC dc) noexcept;

/// @return the settings with the paper that the context prints on; those of a screen as they are
[[nodiscard]] PageSettings OnPaperOf(HDC dc, PageSettings settings) noexcept;

}  // namespace scrivpad
