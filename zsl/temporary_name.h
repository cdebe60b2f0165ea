#pragma once

#include "framework/base/File.h"

namespace zsl {

/// Makes a new file of a name that nobody else uses and leaves it open for writing.
/// @param folder with its separator at the end, or empty for the current one
/// @return its path; empty when the folder refuses new files
[[nodiscard]] WString create_temporary(const WString& folder, xTFile& file);

}  // namespace zsl
