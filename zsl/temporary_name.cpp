#include "zsl/temporary_name.h"

#include <atomic>
#include <chrono>

namespace zsl {
namespace {

// Another process may draw the same number: then the file exists and the next number is tried.
std::uint32_t next_number() noexcept
{
    static std::atomic<std::uint32_t> drawn{
        static_cast<std::uint32_t>(std::chrono::steady_clock::now().time_since_epoch().count())};
    return drawn.fetch_add(0x9e3779b9u, std::memory_order_relaxed);
}

WString name_of(std::uint32_t number)
{
    WString name = _T("~ed");
    for (int shift = 28; shift >= 0; shift -= 4)
        name.push_back(_T("0123456789abcdef")[number >> shift & 15]);
    return name + _T(".tmp");
}

}  // namespace

WString create_temporary(const WString& folder, xTFile& file)
{
    constexpr int attempts = 4;
    for (int i = 0; i < attempts; ++i) {
        WString path = folder + name_of(next_number());
        if (file.CreateNew(path))
            return path;
    }
    return {};
}

}  // namespace zsl
