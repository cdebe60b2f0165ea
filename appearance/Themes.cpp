#include "appearance/Themes.h"

#include <array>

namespace {

// One column a theme. B marks a bold entry, BU a bold and underlined one; no theme uses italics.
enum class xTStyle : std::uint8_t { plain, bold, boldUnderline };

struct xTCell {
    COLORREF color;
    xTStyle style = xTStyle::plain;
};

struct xTRow {
    std::uint32_t flag;
    xTCell cells[themeCount];
};

constexpr auto B = xTStyle::bold;
constexpr auto BU = xTStyle::boldUnderline;

// The order of the rows is the order of the entries, of a settings block and of every search in a table.
// Theme 2 has its special characters in strings not bold, unlike every other theme: kept on purpose.
constexpr xTRow rows[] = {
    {ATTR_BACKGROUND, {{0xFFFFFF}, {0xFFFFFF}, {0x800000}, {0x000000}, {0x000000}}},
    {ATTR_TEXT, {{0x000000}, {0xFF0000}, {0xFF00FF}, {0x00FF00}, {0x00FF00}}},
    {ATTR_KEYWORD, {{0xFF0000}, {0x000000, B}, {0xFFFFFF}, {0xFFFFFF}, {0xFFFFFF}}},
    {ATTR_COMMENT, {{0x808080}, {0x008000}, {0xC0C0C0}, {0xC0C0C0}, {0xFF00FF}}},
    {ATTR_SELECTION, {{0xC0C0C0}, {0xC0C0C0}, {0xC0C0C0}, {0xC0C0C0}, {0xC0C0C0}}},
    {ATTR_BREAKPOINT, {{0x0000FF}, {0x0000FF}, {0x0000FF}, {0x000080}, {0x000080}}},
    {ATTR_EXECPOINT, {{0x00FF00}, {0x00FF00}, {0x00FF00}, {0x00FF00}, {0x00FF00}}},
    {ATTR_NUMBER, {{0x0000FF}, {0x0000FF}, {0x00FF00}, {0xFFFF00}, {0xFFFF00}}},
    {ATTR_IDENTIFIER, {{0x008000}, {0x000000}, {0x00FFFF}, {0x00FFFF}, {0x00FFFF}}},
    {ATTR_SYMBOL, {{0xFF00FF}, {0x808080}, {0x00FF00}, {0x00FF00}, {0x00FF00}}},
    {ATTR_STRING, {{0x808000}, {0x000080}, {0xFFFF00}, {0xFFFF00}, {0x0000FF}}},
    {ATTR_STRING_SPECIAL, {{0x808000, B}, {0x0000FF}, {0xFFFF00, B}, {0xFFFF00, B}, {0x0000FF, B}}},
    {ATTR_STRING_KEYWORD, {{0x808000, BU}, {0x0000FF, BU}, {0xFFFF00, BU}, {0xFFFF00, BU}, {0x0000FF, BU}}},
    {ATTR_USER1, {{0x008000}, {0x000000}, {0x00FFFF}, {0x00FFFF}, {0x00FFFF}}},
    {ATTR_USER2, {{0x008000}, {0x000000}, {0x00FFFF}, {0x00FFFF}, {0x00FFFF}}},
    {ATTR_USER3, {{0x008000}, {0x000000}, {0x00FFFF}, {0x00FFFF}, {0x00FFFF}}},
    {ATTR_USER4, {{0x008000}, {0x000000}, {0x00FFFF}, {0x00FFFF}, {0x00FFFF}}},
    {ATTR_USER5, {{0x008000}, {0x000000}, {0x00FFFF}, {0x00FFFF}, {0x00FFFF}}},
};
constexpr std::size_t rowCount = std::size(rows);
static_assert(rowCount <= xTAttribData::maxEntries);

constexpr bool FlagsRise()
{
    for (std::size_t i = 1; i < rowCount; ++i)
        if (rows[i].flag <= rows[i - 1].flag)
            return false;
    return true;
}
static_assert(FlagsRise());

using xTTheme = std::array<xTThemeEntry, rowCount>;

constexpr xTTheme ColumnOf(std::uint32_t column)
{
    xTTheme theme{};
    for (std::size_t i = 0; i < rowCount; ++i) {
        const xTCell cell = rows[i].cells[column];
        theme[i] = {rows[i].flag, cell.color, cell.style != xTStyle::plain, false, cell.style == xTStyle::boldUnderline};
    }
    return theme;
}

constexpr xTTheme themes[themeCount] = {ColumnOf(0), ColumnOf(1), ColumnOf(2), ColumnOf(3), ColumnOf(4)};
constexpr unsigned nameIds[themeCount] = {116, 122, 117, 120, 121};

constexpr bool IsTheme(std::uint32_t theme)
{
    return theme >= 1 && theme <= themeCount;
}

}  // namespace

std::span<const xTThemeEntry> ThemeEntries(std::uint32_t theme) noexcept
{
    if (!IsTheme(theme))
        return {};
    return themes[theme - 1];
}

unsigned ThemeNameId(std::uint32_t theme) noexcept
{
    return IsTheme(theme) ? nameIds[theme - 1] : 0;
}
