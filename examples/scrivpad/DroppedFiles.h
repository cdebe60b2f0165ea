#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace scrivpad {

/// @param drop  of a WM_DROPFILES message; freed here @return the whole paths
[[nodiscard]] std::vector<std::wstring> TakeDroppedFiles(HDROP drop);

}  // namespace scrivpad
