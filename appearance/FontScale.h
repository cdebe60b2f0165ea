#pragma once

#include "framework/base/WinTypes.h"

/// Font sizes travel as at 96 dots per inch. Both convert height and width in place. The vertical resolution alone
/// decides whether anything changes, also for the width; a width of 0 stays 0.
void ScaleFontTo96(LOGFONTW& lf) noexcept;
void ScaleFontFrom96(LOGFONTW& lf) noexcept;
