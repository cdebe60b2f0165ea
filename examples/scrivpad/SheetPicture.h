#pragma once

#include <windows.h>

#include <cstdint>

namespace scrivpad {

/// A sheet of paper as a picture: black and white in the resolution of a printer, so that text stands as it does on
/// paper, and shown smaller in shades of grey.
class SheetPicture {
public:
    /// Throws a Failure when there is no room for the picture.
    /// @param paper       in units of PageLayout
    /// @param resolution  dots per inch across and down
    SheetPicture(const SIZE& paper, const SIZE& resolution);
    ~SheetPicture();
    SheetPicture(const SheetPicture&) = delete;
    SheetPicture& operator=(const SheetPicture&) = delete;

    /// @return what the sheet is drawn on, in units of PageLayout
    [[nodiscard]] HDC Context() const noexcept { return m_dc; }
    void Clear() noexcept;
    /// Draws the whole sheet into a rectangle in pixels.
    void Show(HDC dc, const RECT& place) const;

private:
    [[nodiscard]] std::uint32_t Shade(int left, int top, int right, int bottom) const noexcept;

    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_before = nullptr;
    SIZE m_dots{};
    const std::uint8_t* m_rows = nullptr;  // the picture, a bit a dot, 1 is white; the first row on top
    int m_rowBytes = 0;
};

}  // namespace scrivpad
