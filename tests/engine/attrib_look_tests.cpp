#include "appearance/AttribData.h"

#include <gtest/gtest.h>

namespace {

constexpr DWORD bold = xTAttribData::FONT_BOLD;
constexpr DWORD italic = xTAttribData::FONT_ITALIC;

class AttribLook : public testing::Test {
protected:
    AttribLook()
    {
        table.AddEntry(ATTR_BACKGROUND, 0xFFFFFF, false, false, false);
        table.AddEntry(ATTR_TEXT, 0x111111, false, false, false);
        table.AddEntry(ATTR_KEYWORD, 0x222222, true, false, false);
        table.AddEntry(ATTR_COMMENT, 0x333333, false, true, false);
        table.AddEntry(ATTR_SELECTION, 0xC0C0C0, true, true, true);
    }

    xTAttribData table;
};

TEST_F(AttribLook, TheLaterFlagOverridesTheEarlierOne)
{
    const xTLook look = table.LookOf(ATTR_COMMENT | ATTR_KEYWORD | xTAttribData::plainWord);
    EXPECT_EQ(look.text, 0x333333u);
    EXPECT_EQ(look.style, italic);
    EXPECT_EQ(look.back, 0xFFFFFFu);
    EXPECT_EQ(look.brush, 0xFFFFFFu);
}

TEST_F(AttribLook, TellsEachFontThatIsSelectedOnTheWay)
{
    EXPECT_EQ(table.LookOf(ATTR_COMMENT | ATTR_KEYWORD | ATTR_TEXT).styles, 1u << 0 | 1u << bold | 1u << italic);
    EXPECT_EQ(table.LookOf(ATTR_BACKGROUND).styles, 0u);
}

TEST_F(AttribLook, AMarkTakesTheColorsAndLeavesTheFontOfTheClassBeneath)
{
    const xTLook look = table.LookOf(ATTR_SELECTION | ATTR_KEYWORD | xTAttribData::plainWord);
    EXPECT_EQ(look.text, 0xFFFFFFu);
    EXPECT_EQ(look.back, 0xC0C0C0u);
    EXPECT_EQ(look.brush, 0xFFFFFFu);  // which is the background's alone
    EXPECT_EQ(look.style, bold);
}

TEST_F(AttribLook, AMarkWithoutABackgroundEntryLeavesTheTextColor)
{
    xTAttribData bare;
    bare.AddEntry(ATTR_SELECTION, 0xC0C0C0, false, false, false);
    EXPECT_EQ(bare.LookOf(ATTR_SELECTION).back, 0xC0C0C0u);
    EXPECT_FALSE(bare.LookOf(ATTR_SELECTION).text);
}

TEST_F(AttribLook, AFlagWithoutAnEntryChangesNothing)
{
    for (const std::uint32_t flag : {1u, std::uint32_t{ATTR_NUMBER}, 16384u, 0x80000000u}) {
        const xTLook look = table.LookOf(flag);
        EXPECT_FALSE(look.text || look.back || look.brush || look.style) << flag;
        EXPECT_EQ(look.styles, 0u);
    }
}

TEST_F(AttribLook, AnEntryWithAFlagThatNoClassHasIsIgnored)
{
    table.AddEntry(16384, 0x444444, true, false, false);
    EXPECT_FALSE(table.LookOf(16384).text);
    EXPECT_FALSE(table.LookOfFlag(16384).text);
}

TEST_F(AttribLook, OneFlagGivesWhatItsWordGives)
{
    EXPECT_EQ(table.LookOfFlag(ATTR_KEYWORD).text, 0x222222u);
    EXPECT_EQ(table.LookOfFlag(ATTR_KEYWORD).style, bold);
    EXPECT_FALSE(table.LookOfFlag(ATTR_KEYWORD).back);
}

}  // namespace
