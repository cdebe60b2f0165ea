#pragma once

#include "framework/base/File.h"

#include <string_view>

namespace zsl {

/// Gives a file that exists new content in its own place. What can fail for want of room comes first, and whatever
/// fails, the old content is put back. A copy of it is on the disk, in the folder for temporary files, as long as the
/// file is neither wholly old nor wholly new, and it stays there when the old content cannot be put back.
/// @return false when the file was left or made as it was before, or could not be
[[nodiscard]] bool overwrite_file(const WString& path, std::string_view bytes);

}  // namespace zsl
