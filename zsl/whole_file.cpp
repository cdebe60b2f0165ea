#include "zsl/whole_file.h"

namespace zsl {

whole_file read_whole(xTFile& file, std::int64_t longest)
{
    const std::int64_t size = file.Size();
    if (size < 0 || size > longest)
        return {};
    whole_file result;
    // Not filled with zeros first: that would take as long as the reading.
    result.data.reset(new char[static_cast<std::size_t>(size)]);
    const std::int64_t got = file.Read(result.data.get(), static_cast<std::size_t>(size));
    result.read = got >= 0;
    result.size = result.read ? static_cast<std::size_t>(got) : 0;
    return result;
}

}  // namespace zsl
