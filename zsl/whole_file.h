#pragma once

#include "framework/base/File.h"

#include <limits>
#include <memory>
#include <string_view>

namespace zsl {

/// All bytes of a file in memory.
struct whole_file {
    bool read = false;  ///< false when the system refused or the file was too long
    std::unique_ptr<char[]> data;
    std::size_t size = 0;

    [[nodiscard]] std::string_view bytes() const noexcept { return {data.get(), size}; }
};

/// @param file open and at its beginning  @param longest in bytes; a longer file is not read
[[nodiscard]] whole_file read_whole(xTFile& file, std::int64_t longest = std::numeric_limits<std::int64_t>::max());

}  // namespace zsl
