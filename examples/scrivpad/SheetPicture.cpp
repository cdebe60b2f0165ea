#include "SheetPicture.h"

#include "Failure.h"
#include "PageLayout.h"

#include <algorithm>
#include <vector>

namespace scrivpad {

namespace {

struct TwoColours {
    BITMAPINFOHEADER header;
    RGBQUAD colours[2];
};

[[nodiscard]] HBITMAP MakePicture(const SIZE& dots, void** bits) noexcept
{
    TwoColours info = {};
    info.header = {sizeof(info.header), dots.cx, -dots.cy, 1, 1, BI_RGB, 0, 0, 0, 2, 2};  // minus: the top row is first
    info.colours[1] = {255, 255, 255, 0};
    return ::CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, bits, nullptr, 0);
}

/// The dots that make up one pixel of a picture that is shown smaller: from the first to the one behind the last.
[[nodiscard]] int DotOf(int pixel, int pixels, LONG dots) noexcept
{
    return static_cast<int>(static_cast<long long>(pixel) * dots / pixels);
}

}  // namespace

SheetPicture::SheetPicture(const SIZE& paper, const SIZE& resolution)
    : m_dots{std::max<LONG>(1, ::MulDiv(paper.cx, resolution.cx, unitsPerInch)),
             std::max<LONG>(1, ::MulDiv(paper.cy, resolution.cy, unitsPerInch))},
      m_rowBytes((m_dots.cx + 31) / 32 * 4)
{
    void* bits = nullptr;
    m_bitmap = MakePicture(m_dots, &bits);
    m_dc = ::CreateCompatibleDC(nullptr);
    if (m_bitmap == nullptr || m_dc == nullptr) {
        ::DeleteObject(m_bitmap);
        ::DeleteDC(m_dc);
        throw Failure(L"не хватает памяти для изображения страницы");
    }
    m_rows = static_cast<const std::uint8_t*>(bits);
    m_before = ::SelectObject(m_dc, m_bitmap);
    Clear();
    MapToPaper(m_dc, resolution, {0, 0});
}

SheetPicture::~SheetPicture()
{
    ::SelectObject(m_dc, m_before);
    ::DeleteObject(m_bitmap);
    ::DeleteDC(m_dc);
}

void SheetPicture::Clear() noexcept
{
    const int saved = ::SaveDC(m_dc);
    ::SetMapMode(m_dc, MM_TEXT);
    ::SetViewportOrgEx(m_dc, 0, 0, nullptr);
    ::PatBlt(m_dc, 0, 0, m_dots.cx, m_dots.cy, WHITENESS);
    ::RestoreDC(m_dc, saved);
}

void SheetPicture::Show(HDC dc, const RECT& place) const
{
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    if (width <= 0 || height <= 0)
        return;
    ::GdiFlush();  // the system may still be drawing what is read here
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        const int top = DotOf(y, height, m_dots.cy);
        const int bottom = std::max(top + 1, DotOf(y + 1, height, m_dots.cy));
        for (int x = 0; x < width; ++x) {
            const int left = DotOf(x, width, m_dots.cx);
            pixels.push_back(Shade(left, top, std::max(left + 1, DotOf(x + 1, width, m_dots.cx)), bottom));
        }
    }
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(info.bmiHeader), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    ::SetDIBitsToDevice(dc, place.left, place.top, static_cast<DWORD>(width), static_cast<DWORD>(height), 0, 0, 0,
                        static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
}

std::uint32_t SheetPicture::Shade(int left, int top, int right, int bottom) const noexcept
{
    int white = 0;
    for (int y = top; y < bottom; ++y) {
        const std::uint8_t* const row = m_rows + static_cast<std::ptrdiff_t>(y) * m_rowBytes;
        for (int x = left; x < right; ++x)
            white += row[x / 8] >> (7 - x % 8) & 1;
    }
    const auto shade = static_cast<std::uint32_t>(white * 255 / ((right - left) * (bottom - top)));
    return shade * 0x010101;
}

}  // namespace scrivpad
