#include "appearance/FontScale.h"

#include "framework/base/Platform.h"

#include <cmath>
#include <limits>

namespace {

constexpr int standardDpi = 96;

// A screen that does not tell its resolution counts as a standard one.
bool IsStandard(const xTResolution& dpi) noexcept
{
    return dpi.y == standardDpi || dpi.x <= 0 || dpi.y <= 0;
}

// A block may hold any size, so the product may leave the range.
LONG RoundToLong(double value) noexcept
{
    constexpr double low = std::numeric_limits<std::int32_t>::min();
    constexpr double high = std::numeric_limits<std::int32_t>::max();
    if (value <= low)
        return std::numeric_limits<std::int32_t>::min();
    if (value >= high)
        return std::numeric_limits<std::int32_t>::max();
    return static_cast<LONG>(std::lround(value));
}

}  // namespace

void ScaleFontTo96(LOGFONTW& lf) noexcept
{
    const xTResolution dpi = PlatformScreenResolution();
    if (IsStandard(dpi))
        return;
    lf.lfHeight = RoundToLong(96.0 / dpi.y * lf.lfHeight);
    if (lf.lfWidth != 0)
        lf.lfWidth = RoundToLong(96.0 / dpi.x * lf.lfWidth);
}

void ScaleFontFrom96(LOGFONTW& lf) noexcept
{
    const xTResolution dpi = PlatformScreenResolution();
    if (IsStandard(dpi))
        return;
    lf.lfHeight = RoundToLong(dpi.y / 96.0 * lf.lfHeight);
    if (lf.lfWidth != 0)
        lf.lfWidth = RoundToLong(dpi.x / 96.0 * lf.lfWidth);
}
