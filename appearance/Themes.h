#pragma once

#include "appearance/AttribData.h"

#include <span>

constexpr std::uint32_t themeCount = 5;

/// One entry of a theme.
struct xTThemeEntry {
    std::uint32_t flag;
    COLORREF color;
    bool bold;
    bool italic;
    bool underline;
};

/// The entries of a theme in their fixed order.
/// @param theme 1 to themeCount; any other has no entries
[[nodiscard]] std::span<const xTThemeEntry> ThemeEntries(std::uint32_t theme) noexcept;

/// The number of a theme's name in the string table, 0 for a number that is no theme.
[[nodiscard]] unsigned ThemeNameId(std::uint32_t theme) noexcept;
