#include "tests/control/appearance/Canvas.h"

namespace {

// The fixed order in which flags override each other.
constexpr std::uint32_t precedence[] = {2, 4, 8, 256, 512, 1024, 2048, 4096, 8192, 16, 65536, 131072, 262144, 524288,
                                        1048576, 64, 128, 32};

class Paint : public AppearanceTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    Paint()
    {
        SetTheme(GetParam());
        table->ApplyAttr(ATTR_BACKGROUND, &wnd, &canvas.dc);
    }

    void Load(const wchar_t* text)
    {
        store.load_text(text, 1);
    }
    void PaintAll(const xTHighlightHook& hook, std::int32_t topLine = 0, int x = 0)
    {
        ::PatBlt(canvas.dc.m_hDC, 0, 0, Canvas::width, Canvas::height, PATCOPY);
        store.PaintLines(hook, topLine, x, 0, 15, &wnd, &canvas.dc, table.get());
    }
    // The two colours that a character of this word has.
    [[nodiscard]] std::set<COLORREF> Looks(std::uint32_t word) const
    {
        COLORREF back = 0xABCDEF;
        COLORREF text = 0xABCDEF;
        for (const std::uint32_t flag : precedence) {
            if (!(word & flag))
                continue;
            const bool mark = flag == 32 || flag == 64 || flag == 128;
            (mark || flag == 2 ? back : text) = ColorOf(flag);
            if (mark)
                text = ColorOf(ATTR_BACKGROUND);
        }
        return {back, text};
    }
    void ExpectCell(int column, int row, std::uint32_t word) const
    {
        EXPECT_EQ(Cell(column, row), Looks(word)) << "column " << column << " row " << row << " word " << word;
    }

    TestHook letters{ClassByLetter};
};

TEST_P(Paint, EachClassShowsItsColours)
{
    Load(L"kinspqyu#");
    PaintAll(letters.hook());
    constexpr std::uint32_t words[] = {8, 512, 256, 2048, 4096, 8192, 1024, 1048576, 0};
    for (int i = 0; i < 9; ++i)
        ExpectCell(i, 0, 6 | words[i]);
}

TEST_P(Paint, WhereNothingIsWrittenTheBackgroundShows)
{
    Load(L"ab");
    PaintAll(letters.hook());
    EXPECT_EQ(Cell(5), std::set<COLORREF>{ColorOf(ATTR_BACKGROUND)});
    EXPECT_EQ(Cell(0, 3), std::set<COLORREF>{ColorOf(ATTR_BACKGROUND)});
}

TEST_P(Paint, BlockCommentsShowOverTheHostsClassesAndUnderTheUserClasses)
{
    Load(L"k/*k#\nu k\n#*/k");
    PaintAll(letters.hook());
    ExpectCell(0, 0, 6 | 8);
    ExpectCell(3, 0, 6 | 8 | 16);
    ExpectCell(4, 0, 6 | 16);
    ExpectCell(0, 1, 6 | 16 | 1048576);
    ExpectCell(2, 1, 6 | 8 | 16);
    ExpectCell(0, 2, 6 | 16);
    ExpectCell(3, 2, 6 | 8);
}

TEST_P(Paint, WithoutAHookCommentsStillShow)
{
    Load(L"#/*#*/#");
    PaintAll({});
    ExpectCell(0, 0, 6);
    ExpectCell(3, 0, 6 | 16);
    ExpectCell(6, 0, 6);
}

TEST_P(Paint, WithHighlightingOffMarksStillShow)
{
    table->m_highlight = false;
    Load(L"#/*#*/\nab");
    store.set_break_point(1);
    store.select_range({1, 1}, {1, 2});
    PaintAll(letters.hook());
    ExpectCell(3, 0, 6);
    ExpectCell(0, 1, 6 | 64);
    ExpectCell(1, 1, 6 | 64 | 32);
}

TEST_P(Paint, ALineWithABreakPointShowsNoComment)
{
    Load(L"#/*k#*/");
    store.set_break_point(0);
    PaintAll(letters.hook());
    ExpectCell(3, 0, 6 | 8 | 64);
    ExpectCell(4, 0, 6 | 64);
    EXPECT_TRUE(store.lines[0].IsCommentAt(3));
    EXPECT_EQ(Cell(60), std::set<COLORREF>{ColorOf(ATTR_BREAKPOINT)});
}

TEST_P(Paint, TheExecutionPointShowsOverTheBreakPointAndTheSelectionOverBoth)
{
    Load(L"a\nkk\nb");
    store.set_break_point(1);
    store.set_exec_point(1);
    store.select_range({1, 1}, {1, 2});
    PaintAll(letters.hook());
    ExpectCell(0, 1, 6 | 8 | 64 | 128);
    ExpectCell(1, 1, 6 | 8 | 64 | 128 | 32);
    EXPECT_EQ(Cell(70, 1), std::set<COLORREF>{ColorOf(ATTR_EXECPOINT)});
    ExpectCell(0, 0, 6);
    ExpectCell(0, 2, 6);
}

TEST_P(Paint, ASelectionOverSeveralLinesMarksItsCharactersOnly)
{
    Load(L"abc\ndef\nghi\njkl");
    store.select_range({0, 2}, {2, 1});
    PaintAll({});
    ExpectCell(1, 0, 6);
    ExpectCell(2, 0, 6 | 32);
    for (int column = 0; column < 3; ++column)
        ExpectCell(column, 1, 6 | 32);
    ExpectCell(0, 2, 6 | 32);
    ExpectCell(1, 2, 6);
    ExpectCell(0, 3, 6);
    EXPECT_FALSE(store.lines[1].IsSelected(0));  // the marks are on copies
}

TEST_P(Paint, SelectionOverAKeywordKeepsItsFont)
{
    Load(L"qk");
    PaintAll(letters.hook());
    const auto pattern = [&](COLORREF text) {
        std::string bits;
        for (int y = 0; y < table->m_charHeight; ++y)
            for (int x = 0; x < table->m_charWidth; ++x)
                bits += canvas.At(x, y) == text ? '#' : '.';
        return bits;
    };
    const std::string plain = pattern(ColorOf(ATTR_STRING_KEYWORD));  // bold and underlined
    store.select_range({0, 0}, {0, 1});
    PaintAll(letters.hook());
    ExpectCell(0, 0, 6 | 8192 | 32);
    EXPECT_EQ(pattern(ColorOf(ATTR_BACKGROUND)), plain);
}

TEST_P(Paint, ScrollingMovesTheTextAndNotTheBand)
{
    Load(L"zero\nkki\nb");
    store.set_break_point(2);
    PaintAll(letters.hook(), 1, -table->m_charWidth);
    ExpectCell(0, 0, 6 | 8);
    ExpectCell(1, 0, 6 | 512);
    EXPECT_EQ(Cell(0, 1), std::set<COLORREF>{ColorOf(ATTR_BREAKPOINT)});  // "b" is scrolled out
}

TEST_P(Paint, RowsOutsideTheTextDrawNothing)
{
    Load(L"abc\ndef");
    ::PatBlt(canvas.dc.m_hDC, 0, 0, Canvas::width, Canvas::height, PATCOPY);
    store.PaintLines({}, 0, 0, -1, -1, &wnd, &canvas.dc, table.get());
    store.PaintLines({}, 0, 0, 2, 9, &wnd, &canvas.dc, table.get());
    store.PaintLines({}, 2147483647, 0, 0, 2147483647, &wnd, &canvas.dc, table.get());
    store.PaintLines({}, 0, 0, 0, 9, &wnd, nullptr, table.get());
    store.PaintLines({}, 0, 0, 0, 9, nullptr, &canvas.dc, table.get());
    store.PaintLines({}, 0, 0, 0, 9, &wnd, &canvas.dc, nullptr);
    EXPECT_EQ(canvas.Colors(0, 0, 100, 100), std::set<COLORREF>{ColorOf(ATTR_BACKGROUND)});
    store.PaintLines({}, 0, 0, 1, 1, &wnd, &canvas.dc, table.get());
    EXPECT_EQ(Cell(0, 0), std::set<COLORREF>{ColorOf(ATTR_BACKGROUND)});
    ExpectCell(0, 1, 6);
}

TEST_P(Paint, AHookMayReplaceTheTextInTheMiddleOfThePage)
{
    Load(L"aaa\nbbb\nccc\nddd");
    int calls = 0;
    TestHook host{[&](wchar_t* text, int) {
        ClassByLetter(text, 0);
        if (++calls == 2)
            store.load_text(L"k\nk\nk", 1);
    }};
    PaintAll(host.hook());
    EXPECT_EQ(calls, 3);
    ExpectCell(2, 1, 6);      // the line that was being drawn, whole
    ExpectCell(0, 2, 6 | 8);  // of the new text
    EXPECT_EQ(Cell(0, 3), std::set<COLORREF>{ColorOf(ATTR_BACKGROUND)});
}

TEST_P(Paint, AHookMayEmptyTheStoreOrKillTheWindow)
{
    Load(L"aaa\nbbb\nccc");
    TestHook emptier{[&](wchar_t*, int) { store.reset(); }};
    PaintAll(emptier.hook());
    ExpectCell(0, 0, 6);
    Load(L"aaa\nbbb\nccc");
    TestHook killer{[&](wchar_t*, int) { wnd.m_hWnd = nullptr; }};
    PaintAll(killer.hook());
    EXPECT_EQ(canvas.Colors(0, 0, 100, 100), std::set<COLORREF>{ColorOf(ATTR_BACKGROUND)});
}

INSTANTIATE_TEST_SUITE_P(Themes, Paint, testing::Range(1u, 6u));

}  // namespace
