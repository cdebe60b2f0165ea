#include "tests/control/appearance/Canvas.h"

#include <algorithm>
#include <cwchar>

namespace {

class MeasureTest : public AppearanceTest {
protected:
    MeasureTest() { table->ApplyAttr(ATTR_TEXT, &wnd, &canvas.dc); }

    void Text(WStrView text)
    {
        store.reset();
        const std::wstring copy(text);
        store.load_text(copy.c_str(), static_cast<std::int32_t>(copy.size()));
    }
    int Width(std::int32_t line, std::int32_t col, const xTHighlightHook& hook = {})
    {
        return table->MeasureLine(hook, {line, col}, &canvas.dc, &wnd, &store);
    }
    std::int32_t Column(int x, std::int32_t limit = 1000)
    {
        std::int32_t column = -77;
        table->MeasureLine({}, {0, limit}, &canvas.dc, &wnd, &store, &column, &x);
        return column;
    }
    xTPos CaretAt(std::int32_t topLine, std::int32_t row, int x)
    {
        store.caret_to_point({}, topLine, &wnd, &canvas.dc, table.get(), row, x);
        return store.caret;
    }
    [[nodiscard]] int W() const { return table->m_charWidth; }
    [[nodiscard]] int H() const { return table->m_charHeight; }

    TestHook letters{ClassByLetter};
};

TEST_F(MeasureTest, WidthGrowsByTheCharacterAndTheTab)
{
    Text(L"ab\tc");
    EXPECT_EQ(Width(0, 0), 0);
    EXPECT_EQ(Width(0, 1), W());
    EXPECT_EQ(Width(0, 2), 2 * W());
    EXPECT_EQ(Width(0, 3), 6 * W());
    EXPECT_EQ(Width(0, 4), 7 * W());
}

TEST_F(MeasureTest, APositionPastTheEndMeasuresTheWholeLine)
{
    Text(L"abc");
    EXPECT_EQ(Width(0, 4), 3 * W());
    EXPECT_EQ(Width(0, 2147483647), 3 * W());
}

TEST_F(MeasureTest, WhatIsNotThereMeasuresNull)
{
    Text(L"abc\n");
    EXPECT_EQ(Width(1, 5), 0);
    EXPECT_EQ(Width(2, 5), 0);
    EXPECT_EQ(Width(-1, 5), 0);
    EXPECT_EQ(Width(0, -1), 0);
    EXPECT_EQ(table->MeasureLine({}, {0, 3}, nullptr, &wnd, &store), 0);
    CDC empty;
    EXPECT_EQ(table->MeasureLine({}, {0, 3}, &empty, &wnd, &store), 0);
    EXPECT_EQ(table->MeasureLine({}, {0, 3}, &canvas.dc, nullptr, &store), 0);
    EXPECT_EQ(table->MeasureLine({}, {0, 3}, &canvas.dc, &wnd, nullptr), 0);
}

TEST_F(MeasureTest, EarlyReturnsLeaveTheColumnAsItWas)
{
    Text(L"");
    EXPECT_EQ(Column(5), -77);
    Text(L"abc");
    EXPECT_EQ(Column(5, 0), -77);
}

TEST_F(MeasureTest, OneCharacterAndATargetBeyondItGiveColumnOne)
{
    Text(L"a");
    EXPECT_EQ(Column(W() + 1), 1);
    EXPECT_EQ(Column(10000), 1);
}

TEST_F(MeasureTest, EveryPixelOfAFixedPitchLineIsHitExactly)
{
    Text(L"abcdef");
    for (int x = 0; x < 6 * W(); ++x)
        ASSERT_EQ(Column(x), x / W()) << x;
    EXPECT_EQ(Column(6 * W()), 6);  // on the run's end: the position behind it
    EXPECT_EQ(Column(6 * W() + 1), 6);
}

TEST_F(MeasureTest, ATargetLeftOfTheLineLandsBelowColumnNull)
{
    Text(L"abc");
    EXPECT_EQ(Column(-1), -1);
    EXPECT_EQ(Column(-W()), -1);
    EXPECT_EQ(Column(-W() - 1), -2);
}

TEST_F(MeasureTest, AHitInATabRunIsInterpolatedOverItsTabs)
{
    Text(L"a\t\tb");
    EXPECT_EQ(Column(W()), 1);
    EXPECT_EQ(Column(W() + 4 * W() - 1), 1);
    EXPECT_EQ(Column(W() + 4 * W()), 2);
    EXPECT_EQ(Column(W() + 8 * W() - 1), 2);
    EXPECT_EQ(Column(W() + 8 * W()), 3);
}

TEST_F(MeasureTest, AProportionalRunIsHitByItsMeanWidth)
{
    LOGFONTW lf = table->m_logFont;
    ::lstrcpynW(lf.lfFaceName, L"Liberation Sans", LF_FACESIZE);
    ASSERT_TRUE(table->create_fonts(&lf, &canvas.dc));
    table->ApplyAttr(ATTR_TEXT, &wnd, &canvas.dc);
    Text(L"iiiiiWWWWW");
    const int width = Width(0, 10);
    const int per = width / 10;
    ASSERT_NE(Width(0, 1), per);
    for (int x = 0; x <= width; ++x)
        ASSERT_EQ(Column(x), x / per) << x;  // past the line's length for a mean width that was cut: the caller's matter
}

TEST_F(MeasureTest, OnlyBothOutputsTogetherAskForTheColumn)
{
    Text(L"abc");
    std::int32_t column = -77;
    const int x = 3;
    EXPECT_EQ(table->MeasureLine({}, {0, 3}, &canvas.dc, &wnd, &store, &column, nullptr), 3 * W());
    EXPECT_EQ(table->MeasureLine({}, {0, 3}, &canvas.dc, &wnd, &store, nullptr, &x), 3 * W());
    EXPECT_EQ(column, -77);
}

TEST_F(MeasureTest, WordsStartAsNullSoTheFontThatTheContextHoldsStays)
{
    Text(L"abc");
    table->m_highlight = false;
    const xTSelect other(canvas.dc.m_hDC, ::GetStockObject(SYSTEM_FONT));
    SIZE size{};
    ::GetTextExtentPoint32W(canvas.dc.m_hDC, L"abc", 3, &size);
    EXPECT_EQ(Width(0, 3), size.cx);
    EXPECT_EQ(CurrentFont(), ::GetStockObject(SYSTEM_FONT));
}

TEST_F(MeasureTest, ABreakPointSetsItsColoursThoughNothingIsDrawn)
{
    Text(L"abc");
    store.set_break_point(0);
    canvas.Fill(0xABCDEF);
    Width(0, 3);
    EXPECT_EQ(::GetBkColor(canvas.dc.m_hDC), 0x0000FFu);
    EXPECT_EQ(canvas.Colors(0, 0, 50, 50), std::set<COLORREF>{0xABCDEF});
}

TEST_F(MeasureTest, DrawingAndMeasuringAgreeAtEveryColumn)
{
    const std::wstring text = L"\tk n\t\tss  qq\tu\tpp";
    Text(text);
    SetTheme(5);
    const xTExtString line = Line(text);
    DrawnTexts texts(canvas.dc);
    Show(line, {0, 0}, letters.hook());
    std::size_t col = 0;
    for (const auto& call : texts.End()) {
        if (call.text.find_first_not_of(L' ') == std::wstring::npos)
            continue;
        col = text.find(call.text, col);
        EXPECT_EQ(call.x, Width(0, static_cast<std::int32_t>(col), letters.hook())) << col;
    }
}

TEST_F(MeasureTest, AHookThatTakesTheContextAwayMeasuresNull)
{
    Text(L"abc");
    const HDC dc = canvas.dc.m_hDC;
    TestHook host{[&](wchar_t*, int) { canvas.dc.m_hDC = nullptr; }};
    EXPECT_EQ(Width(0, 3, host.hook()), 0);
    canvas.dc.m_hDC = dc;
}

TEST_F(MeasureTest, WidthsAreThoseThatTheSystemTellsInEveryStyleAndFace)
{
    const std::wstring samples[] = {L"plain ASCII fi ffl AVAWA 0123 ~}|{", L"Щедрый №5 \x00E9\x00DF", L"mixed \x0416 text", L"W", L"\x0001\x007F"};
    for (const wchar_t* face : {L"Courier New", L"Liberation Sans", L"Liberation Serif"}) {
        LOGFONTW lf = table->m_logFont;
        ::lstrcpynW(lf.lfFaceName, face, LF_FACESIZE);
        ASSERT_TRUE(table->create_fonts(&lf, &canvas.dc));
        const std::int32_t entry = table->FindEntry(ATTR_TEXT);
        for (DWORD key = 0; key < 8; ++key) {
            table->m_bold[entry] = key & 1;
            table->m_italic[entry] = key & 2;
            table->m_underline[entry] = key & 4;
            TestHook plain{[](wchar_t* text, int) { std::fill(text, text + std::wcslen(text), L'\1'); }};
            for (const std::wstring& sample : samples) {
                Text(sample);
                const xTSelect selected(canvas.dc.m_hDC, table->FindFont(key));
                SIZE size{};
                ::GetTextExtentPoint32W(canvas.dc.m_hDC, sample.data(), static_cast<int>(sample.size()), &size);
                EXPECT_EQ(Width(0, 1000, plain.hook()), size.cx) << key;
            }
        }
    }
}

// The store's two operations on it

TEST_F(MeasureTest, TheCaretGoesToTheColumnUnderThePoint)
{
    Text(L"abc\ndefgh\ni");
    EXPECT_EQ(CaretAt(0, 1, 2 * W() + 1), xTPos(1, 2));
    EXPECT_EQ(CaretAt(1, 0, 0), xTPos(1, 0));
    EXPECT_EQ(CaretAt(0, 1, 10000), xTPos(1, 5));  // right of the text: the line's end
}

TEST_F(MeasureTest, APointOutsideTheTextIsPulledIn)
{
    Text(L"abc\ndefgh");
    EXPECT_EQ(CaretAt(0, 7, W()), xTPos(1, 1));
    EXPECT_EQ(CaretAt(2147483647, 2147483647, W()), xTPos(1, 1));
    EXPECT_EQ(CaretAt(0, -3, W()), xTPos(0, 1));
    EXPECT_EQ(CaretAt(-2147483647 - 1, -2147483647 - 1, W()), xTPos(0, 1));
    EXPECT_EQ(CaretAt(0, 0, -100), xTPos(0, 0));
}

TEST_F(MeasureTest, AnEmptyStoreTakesTheCaretToItsStart)
{
    store.reset();
    store.caret = {3, 3};
    EXPECT_EQ(CaretAt(0, 4, 50), xTPos(0, 0));
}

TEST_F(MeasureTest, WithoutATableOrAWindowTheColumnIsNull)
{
    Text(L"abc\ndef");
    store.caret_to_point({}, 0, &wnd, &canvas.dc, nullptr, 1, 2 * W());
    EXPECT_EQ(store.caret, xTPos(1, 0));
    store.caret_to_point({}, 0, nullptr, &canvas.dc, table.get(), 0, 2 * W());
    EXPECT_EQ(store.caret, xTPos(0, 0));
}

TEST_F(MeasureTest, AHookThatReplacesTheTextLeavesTheCaretWithinIt)
{
    Text(L"abcdef\nabcdef\nabcdef");
    TestHook host{[&](wchar_t*, int) { Text(L"x"); }};
    store.caret_to_point(host.hook(), 0, &wnd, &canvas.dc, table.get(), 2, 5 * W());
    EXPECT_TRUE(store.is_valid_pos(store.caret));
}

TEST_F(MeasureTest, ThePixelOfTheCaretCountsFromTheTopLine)
{
    Text(L"abc\n\tdef\nx");
    store.caret = {1, 2};
    const POINT point = store.caret_pixel({}, 0, &wnd, &canvas.dc, table.get(), -11);
    EXPECT_EQ(point.x, 5 * W() - 11);
    EXPECT_EQ(point.y, H());
    EXPECT_EQ(store.caret_pixel({}, 3, &wnd, &canvas.dc, table.get(), 0).y, -2 * H());
}

TEST_F(MeasureTest, ThePixelOfTheCaretIsNullWithoutWindowContextOrTable)
{
    Text(L"abc\nabc");
    store.caret = {1, 2};
    const auto isNull = [](POINT point) { return point.x == 0 && point.y == 0; };
    EXPECT_TRUE(isNull(store.caret_pixel({}, 0, nullptr, &canvas.dc, table.get(), 9)));
    EXPECT_TRUE(isNull(store.caret_pixel({}, 0, &wnd, nullptr, table.get(), 9)));
    EXPECT_TRUE(isNull(store.caret_pixel({}, 0, &wnd, &canvas.dc, nullptr, 9)));
    wnd.m_hWnd = nullptr;
    EXPECT_TRUE(isNull(store.caret_pixel({}, 0, &wnd, &canvas.dc, table.get(), 9)));
    EXPECT_TRUE(isNull(store.caret_pixel({}, 0, &wnd, table.get(), 9, true)));
}

TEST_F(MeasureTest, TheWindowsOwnContextGivesTheSamePixel)
{
    Text(L"abc\n\tdef\nx");
    store.caret = {1, 3};
    wnd.m_hWnd = ::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 200, 200, nullptr, nullptr, nullptr, nullptr);
    const POINT expected = store.caret_pixel({}, 0, &wnd, &canvas.dc, table.get(), 4);
    const POINT top = store.caret_pixel({}, 0, &wnd, table.get(), 4, false);
    const POINT bottom = store.caret_pixel({}, 0, &wnd, table.get(), 4, true);
    EXPECT_EQ(top.x, expected.x);
    EXPECT_EQ(top.y, expected.y);
    EXPECT_EQ(bottom.x, expected.x);
    EXPECT_EQ(bottom.y, expected.y + H());
    ::DestroyWindow(wnd.m_hWnd);
}

}  // namespace
