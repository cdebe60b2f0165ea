#pragma once

#include "framework/base/CString.h"

/// What is thrown, by value, when a font of the control fails. It is the only failure that the user gets to see. The
/// attribute table knows it as `xTAttribTable::xTExceptSettings`; it stands here so that the reporter can show it.
struct xTExceptSettings {
    CString message;
    CString place;
};
