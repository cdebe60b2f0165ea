#include "DroppedFiles.h"

#include <shellapi.h>

namespace scrivpad {

namespace {

/// What the shell has made for one drop, freed at the end of the scope.
class Drop {
public:
    explicit Drop(HDROP drop) noexcept : m_drop(drop) {}
    ~Drop() { ::DragFinish(m_drop); }
    Drop(const Drop&) = delete;
    Drop& operator=(const Drop&) = delete;

    [[nodiscard]] UINT Count() const noexcept { return ::DragQueryFileW(m_drop, 0xFFFFFFFF, nullptr, 0); }
    [[nodiscard]] std::wstring Path(UINT index) const
    {
        std::wstring path(::DragQueryFileW(m_drop, index, nullptr, 0) + 1, L'\0');
        path.resize(::DragQueryFileW(m_drop, index, path.data(), static_cast<UINT>(path.size())));
        return path;
    }

private:
    HDROP m_drop;
};

}  // namespace

std::vector<std::wstring> TakeDroppedFiles(HDROP dropped)
{
    const Drop drop(dropped);
    std::vector<std::wstring> paths;
    const UINT count = drop.Count();
    for (UINT i = 0; i < count; ++i)
        paths.push_back(drop.Path(i));
    return paths;
}

}  // namespace scrivpad
