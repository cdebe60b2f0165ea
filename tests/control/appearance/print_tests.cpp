// How a text is split into pages and drawn on one.

#include "appearance/Printing.h"
#include "tests/control/appearance/Canvas.h"
#include "tests/control/appearance/FailingNew.h"
#include "tests/support/win/HostLog.h"
#include "tests/support/win/MessageBoxes.h"
#include "tests/support/win/Metafile.h"

#include <limits>

namespace {

using Words = std::vector<std::wstring>;
using Texts = std::vector<Metafile::Text>;

class Printing : public AppearanceTest {
protected:
    Printing()
    {
        table->MakePrintFont(font);
        const xTSelect selected(measures.Context(), font.font.get());
        TEXTMETRICW metrics{};
        ::GetTextMetricsW(measures.Context(), &metrics);
        lineHeight = metrics.tmHeight;
        width = metrics.tmAveCharWidth;
        page = {10, 20, 10 + 40 * width, 20 + 5 * lineHeight};  // holds four lines: one that ends with it does not fit
    }

    void given(const std::wstring& text) { store.load_text(text.c_str(), 1); }
    void givenLines(int count)
    {
        std::wstring text;
        for (int i = 0; i < count; ++i)
            text += L"line " + std::to_wstring(i) + L"\n";
        given(text);
    }
    void select(xTPos first, xTPos last) { store.selection = {xTPos::none, first, last}; }

    [[nodiscard]] RECT lines(int count) const
    {
        return {page.left, page.top, page.right, page.top + count * lineHeight + 1};
    }
    [[nodiscard]] xTPrintSetup setup(bool wholeText = true) const
    {
        return {measures.Context(), page, page, page, page, wholeText};
    }
    std::int32_t prepare(bool wholeText = true) { return store.prepare_printing(setup(wholeText), *table); }
    [[nodiscard]] const std::vector<xTPrintPage>& pages() const { return store.print_job->pages; }

    /// How many lines stand on each page; every page begins where the one before it has ended.
    [[nodiscard]] std::vector<int> linesOfPages() const
    {
        std::vector<int> counts;
        std::int32_t next = pages().empty() ? 0 : pages()[0].first.line;
        for (const xTPrintPage& each : pages()) {
            EXPECT_EQ(each.first.line, next);
            next = each.last.line + 1;
            counts.push_back(next - each.first.line);
        }
        return counts;
    }
    Metafile::Drawn drawn(std::uint32_t number)
    {
        Metafile file;
        EXPECT_TRUE(store.print_page(file.Context(), number));
        return file.End();
    }
    Texts textsOf(std::uint32_t number) { return drawn(number).texts; }

    Metafile measures;
    xTPrintFont font;
    int lineHeight = 0;
    int width = 0;
    RECT page{};
};

LOGFONTW DescriptionOf(const xTPrintFont& font)
{
    LOGFONTW lf{};
    ::GetObjectW(font.font.get(), sizeof lf, &lf);
    return lf;
}

// ---- The font and the guard

TEST_F(Printing, TheFontIsThatOfTextAsHighAsAt96DotsPerInch)
{
    const LOGFONTW lf = DescriptionOf(font);
    EXPECT_EQ(lf.lfHeight, -13);
    EXPECT_STREQ(lf.lfFaceName, L"Courier New");
    EXPECT_EQ(lf.lfCharSet, DEFAULT_CHARSET);
    EXPECT_NE(lf.lfWeight, 700);
    EXPECT_EQ(font.tabSize, 4);
}

TEST_F(Printing, TheFontHasTheStyleOfTheTextEntry)
{
    const auto entry = static_cast<std::size_t>(table->FindEntry(ATTR_TEXT));
    table->m_bold[entry] = table->m_italic[entry] = table->m_underline[entry] = true;
    table->m_tabSize = 7;
    table->MakePrintFont(font);
    const LOGFONTW lf = DescriptionOf(font);
    EXPECT_EQ(lf.lfWeight, 700);
    EXPECT_TRUE(lf.lfItalic);
    EXPECT_TRUE(lf.lfUnderline);
    EXPECT_EQ(font.tabSize, 7);
}

TEST_F(Printing, ATableWithoutFontsStillHasAPrintFont)
{
    table->DeleteFonts();
    table->MakePrintFont(font);
    EXPECT_STREQ(DescriptionOf(font).lfFaceName, L"Courier New");
}

TEST_F(Printing, TheGuardPutsFontAndColoursBack)
{
    const HDC dc = measures.Context();
    const xTSelect before(dc, ::GetStockObject(SYSTEM_FONT));
    ::SetTextColor(dc, RGB(1, 2, 3));
    ::SetBkColor(dc, RGB(4, 5, 6));
    {
        const xTMemStorage::xTPrintAttr attr(dc, font.font.get());
        EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), font.font.get());
        EXPECT_EQ(::GetTextColor(dc), RGB(0, 0, 0));
        EXPECT_EQ(::GetBkColor(dc), RGB(255, 255, 255));
    }
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), ::GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(::GetTextColor(dc), RGB(1, 2, 3));
    EXPECT_EQ(::GetBkColor(dc), RGB(4, 5, 6));
}

TEST_F(Printing, AFontThatCannotBeSelectedIsToldAndPrintingGoesOn)
{
    std::wstring caption(40, L'\0');
    MessageBoxes boxes;
    boxes.onBox = [&](HWND box) {
        caption.resize(static_cast<std::size_t>(::GetWindowTextW(box, caption.data(), 40)));
    };
    const HDC dc = measures.Context();
    ::SelectObject(dc, ::GetStockObject(SYSTEM_FONT));
    {
        const xTMemStorage::xTPrintAttr attr(dc, nullptr);
        EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), ::GetStockObject(SYSTEM_FONT));
    }
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), ::GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(boxes.texts, Words{L"Испорчен шрифт редактора!"});
    EXPECT_EQ(caption, L"xTPrintAttr::xTPrintAttr(...)");
}

// ---- Splitting

TEST_F(Printing, AShortTextIsOnePage)
{
    givenLines(3);
    EXPECT_EQ(prepare(), 1);
    EXPECT_EQ(pages()[0].first, xTPos(0, 0));
    EXPECT_EQ(pages()[0].last, xTPos(2, 5));
}

TEST_F(Printing, ALongTextIsSplitAtTheEndsOfLines)
{
    givenLines(11);
    EXPECT_EQ(prepare(), 3);
    EXPECT_EQ(linesOfPages(), (std::vector{4, 4, 3}));
    EXPECT_EQ(pages()[1].first, xTPos(4, 0));
    EXPECT_EQ(pages()[1].last, xTPos(7, 5));
}

TEST_F(Printing, ALineThatEndsWithTheRectangleDoesNotFit)
{
    givenLines(5);
    EXPECT_EQ(prepare(), 2);
    page.bottom += 1;
    EXPECT_EQ(prepare(), 1);
}

TEST_F(Printing, EachKindOfPageHasItsRectangle)
{
    givenLines(10);
    xTPrintSetup four = setup();
    four.firstPage = lines(1);
    four.middlePage = lines(3);
    four.lastPage = lines(6);
    four.onlyPage = lines(20);
    EXPECT_EQ(store.prepare_printing(four, *table), 4);
    EXPECT_EQ(linesOfPages(), (std::vector{1, 3, 3, 3}));
    const RECT wanted[] = {four.firstPage, four.middlePage, four.middlePage, four.lastPage};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_TRUE(::EqualRect(&pages()[i].rect, &wanted[i])) << i;
}

TEST_F(Printing, TheOnlyPageHasARectangleOfItsOwn)
{
    givenLines(2);
    xTPrintSetup four = setup();
    four.onlyPage = lines(9);
    EXPECT_EQ(store.prepare_printing(four, *table), 1);
    EXPECT_TRUE(::EqualRect(&pages()[0].rect, &four.onlyPage));
}

TEST_F(Printing, ALastPageThatHoldsLessThanAMiddleOneLeavesTheRestToTheNextPage)
{
    givenLines(9);
    xTPrintSetup four = setup();
    four.firstPage = lines(2);
    four.middlePage = lines(8);  // would take all the rest
    four.lastPage = lines(3);
    EXPECT_EQ(store.prepare_printing(four, *table), 4);
    EXPECT_EQ(linesOfPages(), (std::vector{2, 3, 3, 1}));
    for (std::size_t i = 1; i < 4; ++i)
        EXPECT_TRUE(::EqualRect(&pages()[i].rect, &four.lastPage)) << i;
}

TEST_F(Printing, AnOnlyPageThatHoldsLessThanAFirstOneLeavesTheRestToTheLastPage)
{
    givenLines(4);
    xTPrintSetup four = setup();
    four.onlyPage = lines(1);
    EXPECT_EQ(store.prepare_printing(four, *table), 2);
    EXPECT_EQ(linesOfPages(), (std::vector{1, 3}));
    EXPECT_TRUE(::EqualRect(&pages()[0].rect, &four.onlyPage));
}

TEST_F(Printing, SplittingIsLinearWhenTheLastPageHoldsOneLineOfMany)
{
    givenLines(20000);
    xTPrintSetup four = setup();
    four.middlePage.bottom = std::numeric_limits<LONG>::max();
    four.lastPage = lines(1);
    const ULONGLONG start = ::GetTickCount64();
    EXPECT_EQ(store.prepare_printing(four, *table), 19997);
    EXPECT_LT(::GetTickCount64() - start, 30000u);  // square, it would take hours
}

TEST_F(Printing, AnEmptyLineHasTheHeightOfALine)
{
    given(L"a\n\n\n\nb");
    EXPECT_EQ(prepare(), 2);
    EXPECT_EQ(linesOfPages(), (std::vector{4, 1}));
    EXPECT_EQ(pages()[0].last, xTPos(3, -1));
    EXPECT_EQ(textsOf(1), (Texts{{L"a", 10, 20}}));
}

TEST_F(Printing, ALongLineIsWrappedAndNeverSplitOverTwoPages)
{
    std::wstring text = L"a\nb\n";
    for (int i = 0; i < 12; ++i)
        text += L"wordwords ";  // three rows of four words
    given(text);
    EXPECT_EQ(prepare(), 2);
    EXPECT_EQ(linesOfPages(), (std::vector{2, 1}));
    EXPECT_EQ(textsOf(2).size(), 3u);
}

TEST_F(Printing, ALineTallerThanItsPageIsPrintedAloneAndCutOff)
{
    std::wstring tall;
    for (int i = 0; i < 50; ++i)
        tall += L"wordwords ";
    given(tall + L"\nsecond\n" + tall + L"\nlast");
    EXPECT_EQ(prepare(), 4);
    EXPECT_EQ(linesOfPages(), (std::vector{1, 1, 1, 1}));
    EXPECT_FALSE(textsOf(1).empty());
    EXPECT_EQ(textsOf(2), (Texts{{L"second", 10, 20}}));
    EXPECT_FALSE(textsOf(3).empty());
    EXPECT_EQ(textsOf(4), (Texts{{L"last", 10, 20}}));
}

struct HostileRect {
    const char* name;
    RECT rect;
    std::size_t pages;  // of the four lines
};

constexpr LONG least = std::numeric_limits<LONG>::min();
constexpr LONG most = std::numeric_limits<LONG>::max();

class HostileRects : public Printing, public testing::WithParamInterface<HostileRect> {};

TEST_P(HostileRects, GiveAPageToEachLineOrToAllAndEnd)
{
    givenLines(4);
    page = GetParam().rect;
    EXPECT_EQ(prepare(), static_cast<std::int32_t>(GetParam().pages));
    for (std::uint32_t i = 1; i <= GetParam().pages; ++i)
        drawn(i);
}

INSTANTIATE_TEST_SUITE_P(Each, HostileRects, testing::Values(
    HostileRect{"Null", {0, 0, 0, 0}, 4}, HostileRect{"WithoutHeight", {0, 0, 500, 0}, 4},
    HostileRect{"WithoutWidth", {0, 0, 0, 100000}, 1}, HostileRect{"UpsideDown", {0, 500, 500, 0}, 4},
    HostileRect{"LeftRight", {500, 0, 0, 100000}, 1}, HostileRect{"Inverted", {500, 500, -500, -500}, 4},
    HostileRect{"Huge", {least, least, most, most}, 1}, HostileRect{"HugeInverted", {most, most, least, least}, 4},
    HostileRect{"AtTheEdge", {most - 1, most - 1, most, most}, 4},
    HostileRect{"LowerRightHalf", {0, 0, most, most}, 1}),
    [](const auto& info) { return info.param.name; });

// ---- The range

TEST_F(Printing, ASelectionIsPrintedFromItsFirstToItsLastCharacter)
{
    given(L"one two\nthree\nfour five");
    select({0, 4}, {2, 3});
    EXPECT_EQ(prepare(false), 1);
    EXPECT_EQ(drawn(1).Words(), (Words{L"two", L"three", L"four"}));
    EXPECT_EQ(textsOf(1)[0], (Metafile::Text{L"two", 10, 20}));  // at the left edge, not where it stands in its line
}

TEST_F(Printing, ASelectionWithinOneLineIsPrinted)
{
    given(L"one two three");
    select({0, 4}, {0, 6});
    EXPECT_EQ(prepare(false), 1);
    EXPECT_EQ(drawn(1).Words(), (Words{L"two"}));
}

TEST_F(Printing, ASelectionThatEndsWithALineBreakHasAnEmptyLastLine)
{
    given(L"one\ntwo");
    select({0, 0}, {1, -1});
    EXPECT_EQ(prepare(false), 1);
    EXPECT_EQ(linesOfPages(), (std::vector{2}));
    EXPECT_EQ(drawn(1).Words(), (Words{L"one"}));
}

TEST_F(Printing, ASelectionOverPagesIsPrintedToItsLastCharacter)
{
    givenLines(20);
    select({2, 5}, {9, 3});
    EXPECT_EQ(prepare(false), 2);
    EXPECT_EQ(linesOfPages(), (std::vector{4, 4}));
    EXPECT_EQ(drawn(1).Words(), (Words{L"2", L"line 3", L"line 4", L"line 5"}));
    EXPECT_EQ(drawn(2).Words(), (Words{L"line 6", L"line 7", L"line 8", L"line"}));
}

TEST_F(Printing, ASelectionThatReachesPastTheTextEndsWithIt)
{
    givenLines(2);
    select({0, 0}, {2, -1});
    EXPECT_EQ(prepare(false), 1);
    EXPECT_EQ(linesOfPages(), (std::vector{2}));
}

TEST_F(Printing, WithoutASelectionThereAreNoPagesButAJobRuns)
{
    givenLines(3);
    EXPECT_EQ(prepare(false), 0);
    select({0, 0}, xTPos::none);
    EXPECT_EQ(prepare(false), 0);
    EXPECT_TRUE(store.printing_over());
}

TEST_F(Printing, TheFirstCharacterAloneAndALoneEmptyLineHaveAPage)
{
    given(L"text");
    select({0, 0}, {0, 0});
    EXPECT_EQ(prepare(false), 1);
    EXPECT_EQ(drawn(1).Words(), (Words{L"t"}));
    given(L"\n");
    EXPECT_EQ(prepare(), 1);
}

TEST_F(Printing, ATextWithoutLinesHasNoPage)
{
    EXPECT_EQ(prepare(), 0);
}

// ---- Drawing

TEST_F(Printing, APageIsDrawnLineByLine)
{
    givenLines(6);
    prepare();
    EXPECT_EQ(textsOf(1), (Texts{{L"line 0", 10, 20}, {L"line 1", 10, 20 + lineHeight},
                                 {L"line 2", 10, 20 + 2 * lineHeight}, {L"line 3", 10, 20 + 3 * lineHeight}}));
    EXPECT_EQ(textsOf(2), (Texts{{L"line 4", 10, 20}, {L"line 5", 10, 20 + lineHeight}}));
    EXPECT_EQ(textsOf(1).size(), 4u);  // any page, any number of times, in any order
}

TEST_F(Printing, TheColoursOfTheTextNeverReachThePaper)
{
    SetTheme(3);
    store.load_text(L"/* comment */ text", 1);
    store.rescan_comments();
    store.set_break_point(0);
    prepare();
    const Metafile::Drawn page1 = drawn(1);
    ASSERT_EQ(page1.Words(), (Words{L"/* comment */ text"}));
    for (const COLORREF color : page1.textColors)
        EXPECT_EQ(color, RGB(0, 0, 0));
    for (const COLORREF color : page1.backColors)
        EXPECT_EQ(color, RGB(255, 255, 255));
    ASSERT_FALSE(page1.fonts.empty());
    EXPECT_STREQ(page1.fonts[0].lfFaceName, L"Courier New");
    EXPECT_EQ(page1.fonts[0].lfHeight, -13);
}

TEST_F(Printing, TabsAreDrawnWithTheTabSizeOfTheTable)
{
    given(L"a\tb");
    for (const int size : {1, 4, 8, 20}) {
        table->m_tabSize = size;
        prepare();
        const Texts texts = textsOf(1);
        ASSERT_EQ(texts.size(), 2u);
        const int stop = size == 1 ? 2 : size;  // the next stop behind the first character
        EXPECT_EQ(texts[1], (Metafile::Text{L"b", 10 + stop * width, 20})) << size;
    }
}

// Measured with the system's stops of eight, drawn with the table's: the second row of the first line comes to stand
// on the second line. Kept on purpose.
TEST_F(Printing, ALineThatWrapsOnlyInDrawingRunsIntoTheNext)
{
    given(L"a\tb word\nnext");
    table->m_tabSize = 37;
    EXPECT_EQ(prepare(), 1);
    EXPECT_EQ(textsOf(1), (Texts{{L"a", 10, 20}, {L"b ", 10 + 37 * width, 20}, {L"word", 10, 20 + lineHeight},
                                 {L"next", 10, 20 + lineHeight}}));
}

TEST_F(Printing, AnyTabSizeOfASettingsBlockCanBePrinted)
{
    given(L"a\tb\t\tc");
    for (const int size : {0, -1, 256, 512, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        table->m_tabSize = size;
        EXPECT_EQ(prepare(), 1);
        EXPECT_FALSE(drawn(1).texts.empty()) << size;
    }
}

// The text is not handed over as free of prefixes: one ampersand underlines, two are one. Kept on purpose.
TEST_F(Printing, AnAmpersandUnderlinesWhatIsBehindItAndTwoPrintOne)
{
    given(L"if (a && b)");
    prepare();
    EXPECT_EQ(drawn(1).Words(), (Words{L"if (a & b)"}));
    given(L"&x");
    prepare();
    const Metafile::Drawn page1 = drawn(1);
    EXPECT_EQ(page1.Words(), (Words{L"x"}));
    EXPECT_EQ(page1.lines, 1);
}

TEST_F(Printing, APageAboveTheCountDrawsNothing)
{
    givenLines(3);
    prepare();
    for (const std::uint32_t number : {2u, 3u, 0x7FFFFFFFu, 0xFFFFFFFFu})
        EXPECT_TRUE(textsOf(number).empty());
}

TEST_F(Printing, PageZeroIsAnIndexErrorInTheLog)
{
    givenLines(3);
    for (const bool job : {true, false}) {
        if (job)
            prepare();
        const HostLog log;
        Metafile file;
        EXPECT_FALSE(store.print_page(file.Context(), 0));
        EXPECT_TRUE(file.End().texts.empty());
        EXPECT_NE(log.News().find("Printing.cpp("), std::string::npos);
        EXPECT_NE(log.News().find(" error: invalid vector<T> subscript."), std::string::npos);
        store.printing_over();
    }
}

// ---- The job

TEST_F(Printing, AJobRunsFromItsPreparingToItsEnd)
{
    givenLines(3);
    EXPECT_FALSE(store.printing_over());
    prepare();
    EXPECT_TRUE(store.printing_over());
    EXPECT_FALSE(store.printing_over());
    EXPECT_TRUE(textsOf(1).empty());
}

TEST_F(Printing, ASecondJobTakesThePlaceOfTheFirst)
{
    givenLines(9);
    EXPECT_EQ(prepare(), 3);
    select({8, 0}, {8, 5});
    EXPECT_EQ(prepare(false), 1);
    EXPECT_EQ(drawn(1).Words(), (Words{L"line 8"}));
    EXPECT_TRUE(textsOf(2).empty());
    EXPECT_TRUE(store.printing_over());
    EXPECT_FALSE(store.printing_over());
}

TEST_F(Printing, ChangesOfTheTextDuringAJobAreNotFollowed)
{
    givenLines(6);
    prepare();
    given(L"new\ntext\nof\nfive\nlines");
    EXPECT_EQ(drawn(1).Words(), (Words{L"new", L"text", L"of", L"five"}));
    EXPECT_EQ(drawn(2).Words(), (Words{L"lines"}));
    store.load_text(nullptr, 0);
    EXPECT_TRUE(textsOf(1).empty());
    EXPECT_TRUE(textsOf(2).empty());
}

TEST_F(Printing, ALackOfMemoryIsReportedAndNoJobRuns)
{
    givenLines(300);
    page = lines(1);
    const HostLog log;
    failAbove = 2000;
    EXPECT_EQ(prepare(), 0);
    EXPECT_EQ(failAbove, 0u);
    EXPECT_NE(log.News().find("Printing.cpp("), std::string::npos);
    EXPECT_FALSE(store.printing_over());
    EXPECT_EQ(prepare(), 300);
}

}  // namespace
