#include "store/FoldCase.h"

#include "framework/base/Platform.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace {

constexpr std::size_t unitCount = 0x10000;
constexpr std::size_t mostCapitals = 4096;  // systems of today have some 1400

struct xTFoldTable {
    xTFoldTable() noexcept
    {
        std::iota(lower.begin(), lower.end(), WCHAR{0});
        PlatformLowerCase(lower.data(), static_cast<std::int32_t>(unitCount));
        for (std::size_t unit = 0; unit < unitCount; ++unit) {
            if (lower[unit] != unit && capitalCount++ < mostCapitals)
                capitals[capitalCount - 1] = static_cast<WCHAR>(unit);
        }
    }

    std::array<WCHAR, unitCount> lower;
    std::array<WCHAR, mostCapitals> capitals;  // all units that are not their own lower case
    std::size_t capitalCount = 0;
};

const xTFoldTable& Table() noexcept
{
    static const xTFoldTable table;
    return table;
}

}  // namespace

WStrView FoldTable() noexcept
{
    return {Table().lower.data(), unitCount};
}

WCHAR BitsOfAllCases(WCHAR lower) noexcept
{
    const xTFoldTable& table = Table();
    if (table.capitalCount > mostCapitals)
        return 0;  // not all are known
    unsigned differing = 0;
    for (std::size_t i = 0; i < table.capitalCount; ++i) {
        const WCHAR unit = table.capitals[i];
        if (table.lower[static_cast<std::uint16_t>(unit)] == lower)
            differing |= static_cast<unsigned>(unit ^ lower);
    }
    return static_cast<WCHAR>(~differing);
}

WCHAR FoldCase(WCHAR ch) noexcept
{
    return FoldTable()[static_cast<std::uint16_t>(ch)];
}

CString FoldCase(const CString& text)
{
    const WStrView table = FoldTable();
    CString folded = text;
    WCHAR* units = folded.OwnBuffer();
    std::transform(units, units + folded.GetLength(), units,
                   [=](WCHAR ch) { return table[static_cast<std::uint16_t>(ch)]; });
    return folded;
}
