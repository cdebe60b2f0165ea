#include "PageLayout.h"

namespace scrivpad {

namespace {

constexpr int hundredthsPerInch = 2540;
constexpr int titleHeight = 36;   // with the room below it
constexpr int numberHeight = 24;  // with the room above it

[[nodiscard]] LONG Units(LONG hundredths) noexcept
{
    return ::MulDiv(hundredths, unitsPerInch, hundredthsPerInch);
}

}  // namespace

PageLayout LayOut(const PageSettings& settings) noexcept
{
    const SIZE paper = {Units(settings.paper.cx), Units(settings.paper.cy)};
    const RECT& margins = settings.margins;
    const RECT all = {Units(margins.left), Units(margins.top), paper.cx - Units(margins.right),
                      paper.cy - Units(margins.bottom)};
    PageLayout layout = {paper, all, all, all, all};
    layout.title.bottom = all.top + titleHeight;
    layout.titledText.top = layout.title.bottom;
    layout.number.top = all.bottom - numberHeight;
    layout.text.bottom = layout.titledText.bottom = layout.number.top;
    return layout;
}

void MapToPaper(HDC dc, const SIZE& resolution, const POINT& printable) noexcept
{
    ::SetMapMode(dc, MM_ANISOTROPIC);
    ::SetWindowExtEx(dc, unitsPerInch, unitsPerInch, nullptr);
    ::SetViewportExtEx(dc, resolution.cx, resolution.cy, nullptr);
    ::SetViewportOrgEx(dc, -printable.x, -printable.y, nullptr);
}

void MapToPaper(HDC dc) noexcept
{
    MapToPaper(dc, {::GetDeviceCaps(dc, LOGPIXELSX), ::GetDeviceCaps(dc, LOGPIXELSY)},
               {::GetDeviceCaps(dc, PHYSICALOFFSETX), ::GetDeviceCaps(dc, PHYSICALOFFSETY)});
}

PageSettings OnPaperOf(HDC dc, PageSettings settings) noexcept
{
    const int width = ::GetDeviceCaps(dc, PHYSICALWIDTH);
    const int height = ::GetDeviceCaps(dc, PHYSICALHEIGHT);
    if (::GetDeviceCaps(dc, TECHNOLOGY) == DT_RASPRINTER && width > 0 && height > 0)
        settings.paper = {::MulDiv(width, hundredthsPerInch, ::GetDeviceCaps(dc, LOGPIXELSX)),
                          ::MulDiv(height, hundredthsPerInch, ::GetDeviceCaps(dc, LOGPIXELSY))};
    return settings;
}

}  // namespace scrivpad
