#include "appearance/AttribData.h"
#include "appearance/Themes.h"

#include <gtest/gtest.h>

namespace {

TEST(AttribData, StartsWithTheInitialValues)
{
    const xTAttribData table;
    EXPECT_TRUE(table.m_highlight);
    EXPECT_EQ(table.m_count, 0);
    EXPECT_TRUE(table.m_keepTabs);
    EXPECT_EQ(table.m_tabSize, 4);
    EXPECT_EQ(table.GetTabSize(), 4);
}

TEST(AttribData, ThePaletteIsFixed)
{
    constexpr COLORREF expected[16] = {0x000000, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
                                       0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0x808080, 0xC0C0C0};
    for (int number = 1; number <= 16; ++number) {
        EXPECT_EQ(xTAttribData::m_palette[number - 1], expected[number - 1]);
        EXPECT_EQ(xTAttribData::ColorIndexToRef(number), expected[number - 1]);
        EXPECT_EQ(xTAttribData::ColorRefToIndex(expected[number - 1]), number);
    }
}

TEST(AttribData, ANumberOutsideThePaletteIsWhite)
{
    for (const int number : {0, -1, 17, 8, 2147483647})
        EXPECT_EQ(xTAttribData::ColorIndexToRef(number), 0xFFFFFFu) << number;
}

TEST(AttribData, AColourOutsideThePaletteHasNumberNull)
{
    for (const COLORREF color : {0x010000u, 0xFF000000u, 0x00C0C0C1u})
        EXPECT_EQ(xTAttribData::ColorRefToIndex(color), 0) << color;
}

TEST(AttribData, AThirtyFirstEntryIsDroppedSilently)
{
    xTAttribData table;
    for (std::uint32_t i = 0; i < 31; ++i)
        table.AddEntry(1000 + i, i, false, false, false);
    EXPECT_EQ(table.m_count, 30);
    EXPECT_EQ(table.FindEntry(1029), 29);
    EXPECT_EQ(table.FindEntry(1030), -1);
}

TEST(AttribData, OfTwoEntriesOfOneFlagTheFirstCounts)
{
    xTAttribData table;
    table.AddEntry(ATTR_TEXT, 1, false, false, false);
    table.AddEntry(ATTR_TEXT, 2, true, true, true);
    EXPECT_EQ(table.FindEntry(ATTR_TEXT), 0);
}

TEST(AttribData, SetAttrColorWithNumberNullLeavesTheEntryAndOneSetsBlack)
{
    xTAttribData table;
    table.FillTheme(2);
    const std::int32_t text = table.FindEntry(ATTR_TEXT);
    table.SetAttrColor(ATTR_TEXT, 0);
    EXPECT_EQ(table.m_colors[text], 0xFF0000u);
    table.SetAttrColor(ATTR_TEXT, 1);
    EXPECT_EQ(table.m_colors[text], 0u);
    table.SetAttrColor(ATTR_TEXT, 16);
    EXPECT_EQ(table.m_colors[text], 0xC0C0C0u);
}

TEST(AttribData, SetAttrColorPassesOverWhatIsNotThere)
{
    xTAttribData table;
    table.FillTheme(1);
    const std::int32_t text = table.FindEntry(ATTR_TEXT);
    table.SetAttrColor(ATTR_TEXT, 17);
    table.SetAttrColor(ATTR_TEXT, -3);
    table.SetAttrColor(1, 5);
    EXPECT_EQ(table.m_colors[text], 0u);
    EXPECT_EQ(table.m_count, 18);
}

TEST(AttribData, TheFontOfAnEntryHasItsStylesAndTheBaseFontsRest)
{
    xTAttribData table;
    table.m_logFont.lfHeight = -17;
    table.m_logFont.lfWeight = 550;
    table.m_logFont.lfStrikeOut = 1;
    table.AddEntry(ATTR_KEYWORD, 0, true, false, true);
    LOGFONTW lf{};
    table.GetAttrFont(ATTR_KEYWORD, &lf);
    EXPECT_EQ(lf.lfHeight, -17);
    EXPECT_EQ(lf.lfWeight, 700);
    EXPECT_EQ(lf.lfItalic, 0);
    EXPECT_EQ(lf.lfUnderline, 1);
    EXPECT_EQ(lf.lfStrikeOut, 1);
}

TEST(AttribData, ABoldBaseFontStillYieldsANormalWeightForAnEntryThatIsNotBold)
{
    xTAttribData table;
    table.m_logFont.lfWeight = 700;
    table.m_logFont.lfItalic = 1;
    table.AddEntry(ATTR_TEXT, 0, false, false, false);
    LOGFONTW lf{};
    table.GetAttrFont(ATTR_TEXT, &lf);
    EXPECT_EQ(lf.lfWeight, 400);
    EXPECT_EQ(lf.lfItalic, 0);
}

TEST(AttribData, TheFontOfAFlagWithoutAnEntryIsThePlainCopy)
{
    xTAttribData table;
    table.m_logFont.lfWeight = 550;
    table.m_logFont.lfItalic = 1;
    LOGFONTW lf{};
    table.GetAttrFont(ATTR_TEXT, &lf);
    EXPECT_EQ(lf.lfWeight, 550);
    EXPECT_EQ(lf.lfItalic, 1);
    table.GetAttrFont(ATTR_TEXT, nullptr);  // does nothing
}

TEST(AttribData, TheFontKeyCountsItalicUnderlineAndAWeightOfExactlySevenHundred)
{
    LOGFONTW lf{};
    lf.lfStrikeOut = 1;
    EXPECT_EQ(xTAttribData::FontKey(lf), 0u);
    lf.lfWeight = 699;
    EXPECT_EQ(xTAttribData::FontKey(lf), 0u);
    lf.lfWeight = 900;
    EXPECT_EQ(xTAttribData::FontKey(lf), 0u);
    lf.lfWeight = 700;
    EXPECT_EQ(xTAttribData::FontKey(lf), 1u);
    lf.lfItalic = 255;
    EXPECT_EQ(xTAttribData::FontKey(lf), 3u);
    lf.lfUnderline = 2;
    EXPECT_EQ(xTAttribData::FontKey(lf), 7u);
}

TEST(AttribData, AUsableFontIsHeldToAThousandPixelsAndTerminated)
{
    LOGFONTW lf{};
    lf.lfHeight = -2147483647 - 1;
    lf.lfWidth = 2147483647;
    for (WCHAR& ch : lf.lfFaceName)
        ch = _T('x');
    const LOGFONTW usable = xTAttribData::UsableFont(lf);
    EXPECT_EQ(usable.lfHeight, -1000);
    EXPECT_EQ(usable.lfWidth, 1000);
    EXPECT_EQ(usable.lfFaceName[30], _T('x'));
    EXPECT_EQ(usable.lfFaceName[31], 0);
}

TEST(AttribData, TheTabWidthOfLayoutIsHeldToASaneRange)
{
    xTAttribData table;
    const auto held = [&](std::int32_t size) {
        table.m_tabSize = size;
        EXPECT_EQ(table.GetTabSize(), size);
        return table.LayoutTabSize();
    };
    EXPECT_EQ(held(8), 8);
    EXPECT_EQ(held(0), 1);
    EXPECT_EQ(held(-2147483647 - 1), 1);
    EXPECT_EQ(held(2147483647), 256);
}

TEST(AttribData, LivingTablesAreCounted)
{
    const int before = xTAttribData::LivingTables();
    {
        const xTAttribData one;
        const xTAttribData two;
        EXPECT_EQ(xTAttribData::LivingTables(), before + 2);
    }
    EXPECT_EQ(xTAttribData::LivingTables(), before);
}

}  // namespace
