#include "tests/control/appearance/Canvas.h"

#include <random>

namespace {

constexpr std::uint32_t allFlags[] = {2, 4, 8, 256, 512, 1024, 2048, 4096, 8192, 16, 65536, 131072, 262144, 524288,
                                      1048576, 64, 128, 32};

class Apply : public AppearanceTest {
protected:
    void Forget()
    {
        ::SetBkColor(canvas.dc.m_hDC, 0x111111);
        ::SetTextColor(canvas.dc.m_hDC, 0x222222);
    }
    [[nodiscard]] COLORREF Back() const { return ::GetBkColor(canvas.dc.m_hDC); }
    [[nodiscard]] COLORREF Text() const { return ::GetTextColor(canvas.dc.m_hDC); }
};

TEST_F(Apply, TheBackgroundSetsItsColourAndTheBrush)
{
    SetTheme(3);
    Forget();
    table->ApplyAttr(ATTR_BACKGROUND, &wnd, &canvas.dc);
    EXPECT_EQ(Back(), 0x800000u);
    EXPECT_EQ(Text(), 0x222222u);
    ::PatBlt(canvas.dc.m_hDC, 0, 0, 10, 10, PATCOPY);
    EXPECT_EQ(canvas.At(5, 5), 0x800000u);
}

TEST_F(Apply, AWindowWithoutAHandleGetsNoBrush)
{
    const HGDIOBJ before = ::GetCurrentObject(canvas.dc.m_hDC, OBJ_BRUSH);
    wnd.m_hWnd = nullptr;
    SetTheme(3);
    table->ApplyAttr(ATTR_BACKGROUND, &wnd, &canvas.dc);
    EXPECT_EQ(Back(), 0x800000u);
    EXPECT_EQ(::GetCurrentObject(canvas.dc.m_hDC, OBJ_BRUSH), before);
    EXPECT_EQ(table->m_savedBrush, nullptr);
}

TEST_F(Apply, TheFirstBrushThatWasDisplacedComesBackWithTheEndOfTheTable)
{
    const HGDIOBJ before = ::GetCurrentObject(canvas.dc.m_hDC, OBJ_BRUSH);
    for (const std::uint32_t theme : {1u, 3u, 3u, 4u}) {
        SetTheme(theme);
        table->ApplyAttr(ATTR_BACKGROUND, &wnd, &canvas.dc);
        EXPECT_EQ(table->m_savedBrush, before);
        LOGBRUSH brush{};
        ::GetObjectW(::GetCurrentObject(canvas.dc.m_hDC, OBJ_BRUSH), sizeof brush, &brush);
        EXPECT_EQ(brush.lbColor, ColorOf(ATTR_BACKGROUND));
    }
    table.reset();
    EXPECT_EQ(::GetCurrentObject(canvas.dc.m_hDC, OBJ_BRUSH), before);
}

TEST_F(Apply, AFontOrBrushThatSomebodyElseSelectedIsReplacedAgain)
{
    SetTheme(2);
    table->ApplyAttrWord(ATTR_BACKGROUND | ATTR_KEYWORD, &wnd, &canvas.dc);
    const HFONT font = CurrentFont();
    const HGDIOBJ brush = ::GetCurrentObject(canvas.dc.m_hDC, OBJ_BRUSH);
    ::SelectObject(canvas.dc.m_hDC, ::GetStockObject(SYSTEM_FONT));
    ::SelectObject(canvas.dc.m_hDC, ::GetStockObject(BLACK_BRUSH));
    table->ApplyAttrWord(ATTR_BACKGROUND | ATTR_KEYWORD, &wnd, &canvas.dc);
    EXPECT_EQ(CurrentFont(), font);
    EXPECT_EQ(::GetCurrentObject(canvas.dc.m_hDC, OBJ_BRUSH), brush);
}

TEST_F(Apply, AClassSetsFontAndTextColourAndLeavesTheBackground)
{
    SetTheme(2);
    Forget();
    table->ApplyAttr(ATTR_STRING_KEYWORD, &wnd, &canvas.dc);
    EXPECT_EQ(Back(), 0x111111u);
    EXPECT_EQ(Text(), 0x0000FFu);
    EXPECT_EQ(CurrentFont(), table->FindFont(xTAttribTable::FONT_BOLD | xTAttribTable::FONT_UNDERLINE));
}

TEST_F(Apply, AMarkInvertsTheColoursAndKeepsTheFont)
{
    for (const std::uint32_t flag : {ATTR_SELECTION, ATTR_BREAKPOINT, ATTR_EXECPOINT}) {
        SetTheme(3);
        table->ApplyAttr(ATTR_STRING_KEYWORD, &wnd, &canvas.dc);
        const HFONT font = CurrentFont();
        table->ApplyAttr(flag, &wnd, &canvas.dc);
        EXPECT_EQ(Back(), ColorOf(flag));
        EXPECT_EQ(Text(), ColorOf(ATTR_BACKGROUND));
        EXPECT_EQ(CurrentFont(), font);
    }
}

TEST_F(Apply, AMarkWithoutABackgroundEntryLeavesTheTextColour)
{
    table->m_count = 0;
    table->AddEntry(ATTR_SELECTION, 0x123456, false, false, false);
    Forget();
    table->ApplyAttr(ATTR_SELECTION, &wnd, &canvas.dc);
    EXPECT_EQ(Back(), 0x123456u);
    EXPECT_EQ(Text(), 0x222222u);
}

TEST_F(Apply, WhatIsMissingMakesItDoNothing)
{
    Forget();
    const HFONT font = CurrentFont();
    table->ApplyAttr(ATTR_KEYWORD, nullptr, &canvas.dc);
    table->ApplyAttr(ATTR_KEYWORD, &wnd, nullptr);
    CDC empty;
    table->ApplyAttr(ATTR_KEYWORD, &wnd, &empty);
    table->ApplyAttr(1, &wnd, &canvas.dc);
    table->ApplyAttr(16384, &wnd, &canvas.dc);
    EXPECT_EQ(Back(), 0x111111u);
    EXPECT_EQ(Text(), 0x222222u);
    EXPECT_EQ(CurrentFont(), font);
}

TEST_F(Apply, AnEntryOfAnUnknownFlagIsIgnored)
{
    table->m_count = 0;
    for (const std::uint32_t flag : {0u, 1u, 6u, 16384u, 32768u, 2097152u, 0x80000000u})
        table->AddEntry(flag, 0x123456, true, true, true);
    Forget();
    for (std::int32_t i = 0; i < table->m_count; ++i)
        table->ApplyAttr(table->m_flags[i], &wnd, &canvas.dc);
    table->ApplyAttrWord(0xFFFFFFFF, &wnd, &canvas.dc);
    EXPECT_EQ(Back(), 0x111111u);
    EXPECT_EQ(Text(), 0x222222u);
}

TEST_F(Apply, SelectionOverAKeywordKeepsTheBoldFontAndTakesTheSelectionsColours)
{
    SetTheme(2);
    table->ApplyAttrWord(6 | ATTR_KEYWORD | ATTR_SELECTION, &wnd, &canvas.dc);
    EXPECT_EQ(CurrentFont(), table->FindFont(xTAttribTable::FONT_BOLD));
    EXPECT_EQ(Back(), 0xC0C0C0u);
    EXPECT_EQ(Text(), 0xFFFFFFu);
}

// Each word against the rule told flag by flag, with entries that differ in everything.
TEST_F(Apply, LaterFlagsOfTheFixedOrderOverrideEarlierOnes)
{
    table->m_count = 0;
    for (std::uint32_t i = 0; i < 18; ++i)
        table->AddEntry(allFlags[i], 0x010101 * (i + 1), i & 1, i & 2, i & 4);
    std::mt19937 random(1);
    for (int round = 0; round < 3000; ++round) {
        const std::uint32_t word = round < 18 ? allFlags[round] : random() & random();
        Forget();
        ::SelectObject(canvas.dc.m_hDC, table->FindFont(0));
        COLORREF back = 0x111111;
        COLORREF text = 0x222222;
        DWORD key = 0;
        for (std::uint32_t i = 0; i < 18; ++i) {
            const COLORREF color = 0x010101 * (i + 1);
            if (!(word & allFlags[i]))
                continue;
            if (allFlags[i] == 2) {
                back = color;
            } else if (allFlags[i] == 32 || allFlags[i] == 64 || allFlags[i] == 128) {
                back = color;
                text = 0x010101;
            } else {
                text = color;
                key = i & 7;
            }
        }
        table->ApplyAttrWord(word, &wnd, &canvas.dc);
        ASSERT_EQ(Back(), back) << word;
        ASSERT_EQ(Text(), text) << word;
        ASSERT_EQ(CurrentFont(), table->FindFont(key)) << word;
    }
}

TEST_F(Apply, AnAttributeContextOfItsOwnGetsTheSame)
{
    Canvas measures;
    SetTheme(2);
    canvas.dc.m_hAttribDC = measures.dc.m_hDC;
    table->ApplyAttrWord(6 | ATTR_KEYWORD, &wnd, &canvas.dc);
    EXPECT_EQ(::GetCurrentObject(measures.dc.m_hDC, OBJ_FONT), table->FindFont(xTAttribTable::FONT_BOLD));
    EXPECT_EQ(::GetTextColor(measures.dc.m_hDC), 0u);
    ::SelectObject(measures.dc.m_hDC, ::GetStockObject(SYSTEM_FONT));
    canvas.dc.m_hAttribDC = canvas.dc.m_hDC;
}

}  // namespace
