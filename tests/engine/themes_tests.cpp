#include "appearance/Themes.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

struct xTExpected {
    std::uint32_t flag;
    const char* cells[themeCount];
};

// As the themes are described: colour, B for bold, U for underlined.
constexpr xTExpected expected[] = {
    {2, {"FFFFFF", "FFFFFF", "800000", "000000", "000000"}},
    {4, {"000000", "FF0000", "FF00FF", "00FF00", "00FF00"}},
    {8, {"FF0000", "000000B", "FFFFFF", "FFFFFF", "FFFFFF"}},
    {16, {"808080", "008000", "C0C0C0", "C0C0C0", "FF00FF"}},
    {32, {"C0C0C0", "C0C0C0", "C0C0C0", "C0C0C0", "C0C0C0"}},
    {64, {"0000FF", "0000FF", "0000FF", "000080", "000080"}},
    {128, {"00FF00", "00FF00", "00FF00", "00FF00", "00FF00"}},
    {256, {"0000FF", "0000FF", "00FF00", "FFFF00", "FFFF00"}},
    {512, {"008000", "000000", "00FFFF", "00FFFF", "00FFFF"}},
    {1024, {"FF00FF", "808080", "00FF00", "00FF00", "00FF00"}},
    {2048, {"808000", "000080", "FFFF00", "FFFF00", "0000FF"}},
    {4096, {"808000B", "0000FF", "FFFF00B", "FFFF00B", "0000FFB"}},
    {8192, {"808000BU", "0000FFBU", "FFFF00BU", "FFFF00BU", "0000FFBU"}},
    {65536, {"008000", "000000", "00FFFF", "00FFFF", "00FFFF"}},
    {131072, {"008000", "000000", "00FFFF", "00FFFF", "00FFFF"}},
    {262144, {"008000", "000000", "00FFFF", "00FFFF", "00FFFF"}},
    {524288, {"008000", "000000", "00FFFF", "00FFFF", "00FFFF"}},
    {1048576, {"008000", "000000", "00FFFF", "00FFFF", "00FFFF"}},
};

class Themes : public testing::TestWithParam<std::uint32_t> {};

TEST_P(Themes, FillTheEntriesInOrderWithTheirColoursAndStyles)
{
    xTAttribData table;
    table.FillTheme(GetParam());
    ASSERT_EQ(table.m_count, 18);
    for (std::int32_t i = 0; i < table.m_count; ++i) {
        const std::string_view cell = expected[i].cells[GetParam() - 1];
        EXPECT_EQ(table.m_flags[i], expected[i].flag);
        EXPECT_EQ(table.m_colors[i], std::stoul(std::string(cell.substr(0, 6)), nullptr, 16)) << expected[i].flag;
        EXPECT_EQ(table.m_bold[i], cell.find('B', 6) != cell.npos) << expected[i].flag;
        EXPECT_FALSE(table.m_italic[i]) << expected[i].flag;
        EXPECT_EQ(table.m_underline[i], cell.find('U', 6) != cell.npos) << expected[i].flag;
    }
}

TEST_P(Themes, UseOnlyColoursOfThePalette)
{
    for (const xTThemeEntry& entry : ThemeEntries(GetParam()))
        EXPECT_NE(xTAttribData::ColorRefToIndex(entry.color), 0) << entry.flag;
}

TEST_P(Themes, LeaveNothingOfWhatWasThereBefore)
{
    xTAttribData table;
    for (std::uint32_t i = 0; i < 30; ++i)
        table.AddEntry(i, 0x123456, true, true, true);
    table.FillTheme(GetParam());
    EXPECT_EQ(table.m_count, 18);
    for (std::int32_t i = 0; i < table.m_count; ++i)
        EXPECT_FALSE(table.m_italic[i]);
}

TEST_P(Themes, LeaveFontTabsAndHighlightingAlone)
{
    xTAttribData table;
    table.m_highlight = false;
    table.m_keepTabs = false;
    table.m_tabSize = 7;
    table.m_logFont.lfHeight = -31;
    table.FillTheme(GetParam());
    EXPECT_FALSE(table.m_highlight);
    EXPECT_FALSE(table.m_keepTabs);
    EXPECT_EQ(table.m_tabSize, 7);
    EXPECT_EQ(table.m_logFont.lfHeight, -31);
}

INSTANTIATE_TEST_SUITE_P(All, Themes, testing::Range(1u, themeCount + 1));

TEST(Theme, AnUnknownNumberGivesAnEmptyTable)
{
    for (const std::uint32_t theme : {0u, 6u, 9u, 0xFFFFFFFFu}) {
        xTAttribData table;
        table.FillTheme(1);
        table.FillTheme(theme);
        EXPECT_EQ(table.m_count, 0) << theme;
        EXPECT_EQ(ThemeNameId(theme), 0u);
    }
}

TEST(Theme, OnlyTheSecondHasSpecialCharactersInStringsThatAreNotBold)
{
    for (std::uint32_t theme = 1; theme <= themeCount; ++theme) {
        xTAttribData table;
        table.FillTheme(theme);
        EXPECT_EQ(table.m_bold[table.FindEntry(ATTR_STRING_SPECIAL)], theme != 2);
    }
}

TEST(Theme, NamesStandInTheStringTable)
{
    constexpr unsigned ids[themeCount] = {116, 122, 117, 120, 121};
    for (std::uint32_t theme = 1; theme <= themeCount; ++theme)
        EXPECT_EQ(ThemeNameId(theme), ids[theme - 1]);
}

}  // namespace
