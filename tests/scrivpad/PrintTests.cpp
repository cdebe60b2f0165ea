// Paper: how a sheet is laid out and printed.
#include "Failure.h"
#include "PageLayout.h"
#include "Printing.h"
#include "SheetPicture.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/Metafile.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace scrivpad;

namespace {

using Words = std::vector<std::wstring>;

bool Inside(const RECT& inner, const RECT& outer)
{
    RECT common{};
    return ::IntersectRect(&common, &inner, &outer) && ::EqualRect(&common, &inner);
}

TEST(Paper, IsLaidOutInNinetySixthsOfAnInch)
{
    const PageLayout layout = LayOut({{21000, 29700}, {2540, 1270, 0, 254}});
    EXPECT_EQ(layout.paper.cx, 794);
    EXPECT_EQ(layout.paper.cy, 1123);
    EXPECT_EQ(layout.text.left, 96);
    EXPECT_EQ(layout.text.top, 48);
    EXPECT_EQ(layout.text.right, 794);
    EXPECT_EQ(layout.number.bottom, 1123 - 10);
}

TEST(Paper, HasRoomForTitleTextAndNumberOneBelowTheOther)
{
    const PageLayout layout = LayOut({});
    EXPECT_EQ(layout.title.bottom, layout.titledText.top);
    EXPECT_EQ(layout.titledText.bottom, layout.number.top);
    EXPECT_EQ(layout.text.bottom, layout.number.top);
    EXPECT_TRUE(Inside(layout.titledText, layout.text));
    EXPECT_TRUE(Inside(layout.number, {0, 0, layout.paper.cx, layout.paper.cy}));
}

TEST(Paper, OfAScreenIsThatOfTheSettings)
{
    const HDC screen = ::GetDC(nullptr);
    EXPECT_EQ(OnPaperOf(screen, {{10000, 20000}, {}}).paper.cx, 10000);
    ::ReleaseDC(nullptr, screen);
}

// ---- A sheet as a picture

TEST(SheetPictures, AreWhiteUntilSomethingIsDrawnOnThem)
{
    const SheetPicture sheet({96, 192}, {300, 300});
    const HDC dc = ::CreateCompatibleDC(nullptr);
    const HDC screen = ::GetDC(nullptr);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, 10, 20);
    const HGDIOBJ before = ::SelectObject(dc, bitmap);
    sheet.Show(dc, {0, 0, 10, 20});
    EXPECT_EQ(::GetPixel(dc, 5, 10), RGB(255, 255, 255));
    // The right half black, and a column of pixels half black.
    const RECT half = {48, 0, 96, 192};
    ::FillRect(sheet.Context(), &half, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
    sheet.Show(dc, {0, 0, 9, 20});
    EXPECT_EQ(::GetPixel(dc, 3, 10), RGB(255, 255, 255));
    EXPECT_NEAR(GetRValue(::GetPixel(dc, 4, 10)), 127, 8);
    EXPECT_EQ(::GetPixel(dc, 5, 10), RGB(0, 0, 0));
    sheet.Show(dc, {0, 0, 0, 0});
    ::SelectObject(dc, before);
    ::DeleteObject(bitmap);
    ::ReleaseDC(nullptr, screen);
    ::DeleteDC(dc);
}

TEST(SheetPictures, CanBeShownLargerThanTheyAre)
{
    const SheetPicture sheet({1, 1}, {96, 96});
    const HDC dc = ::CreateCompatibleDC(nullptr);  // of one pixel
    sheet.Show(dc, {0, 0, 7, 9});
    EXPECT_EQ(::GetPixel(dc, 0, 0), RGB(255, 255, 255));
    ::DeleteDC(dc);
}

/// A control with numbered lines, and a metafile as the printer.
class PrintRuns : public testing::Test {
protected:
    void givenLines(int count)
    {
        std::wstring text;
        for (int i = 0; i < count; ++i)
            text += L"line " + std::to_wstring(i) + L"\n";
        edLoadText(control, text.c_str(), 1);
    }
    static Words Printed(const PrintRun& run, PageRange range)
    {
        Metafile paper;
        PrintPages(paper.Context(), run, range);
        return paper.End().Words();
    }

    ControlHost host;
    HWND control = host.Show(L"one");
    Metafile measures;
};

TEST_F(PrintRuns, PrintATitleOnTheFirstSheetAndANumberOnEach)
{
    givenLines(100);
    const PrintRun run(control, measures.Context(), {}, PrintRun::Range::wholeText, L"a & b.cpp");
    ASSERT_EQ(run.PageCount(), 2);
    const Words first = Printed(run, {1, 1});
    EXPECT_EQ(first[0], L"a & b.cpp");
    EXPECT_EQ(first[1], L"1 / 2");
    EXPECT_EQ(first[2], L"line 0");
    const Words second = Printed(run, {2, 2});
    EXPECT_EQ(second[0], L"2 / 2");
    EXPECT_EQ(second.back(), L"line 99");
    EXPECT_EQ(first.size() + second.size(), 100u + 3u);
}

TEST_F(PrintRuns, PrintTheSheetsOfARange)
{
    givenLines(300);
    const PrintRun run(control, measures.Context(), {}, PrintRun::Range::wholeText, L"title");
    ASSERT_GE(run.PageCount(), 4);
    const Words words = Printed(run, {2, 3});
    const std::wstring of = L" / " + std::to_wstring(run.PageCount());
    EXPECT_EQ(words[0], L"2" + of);
    EXPECT_EQ(std::count(words.begin(), words.end(), L"3" + of), 1);
    EXPECT_EQ(std::count(words.begin(), words.end(), L"line 0"), 0);
    EXPECT_TRUE(Printed(run, {3, 2}).empty());
}

TEST_F(PrintRuns, AreOfTheSheetsThatThereAre)
{
    const auto sheets = [](int first, int last, int count) {
        const PageRange range = SheetsOf({first, last}, count);
        return std::pair(range.first, range.last);
    };
    EXPECT_EQ(sheets(1, 3, 3), std::pair(1, 3));
    EXPECT_EQ(sheets(2, 2, 3), std::pair(2, 2));
    EXPECT_EQ(sheets(0, 65535, 3), std::pair(1, 3));
    EXPECT_EQ(sheets(3, 9, 3), std::pair(3, 3));
}

TEST_F(PrintRuns, OfNoSheetAreRefusedWithAReason)
{
    const auto refusal = [](int first, int last, int count) -> std::wstring {
        try {
            return std::to_wstring(SheetsOf({first, last}, count).first);
        } catch (const Failure& failure) {
            return failure.message;
        }
    };
    EXPECT_EQ(refusal(5, 9, 3), L"нет страниц с 5 по 9, всего страниц 3");
    EXPECT_EQ(refusal(4, 4, 3), L"нет страниц с 4 по 4, всего страниц 3");
    EXPECT_EQ(refusal(3, 2, 3), L"нет страниц с 3 по 2, всего страниц 3");
    EXPECT_EQ(refusal(0, 0, 3), L"нет страниц с 0 по 0, всего страниц 3");
    EXPECT_EQ(refusal(1, 0, 0), L"нет ни одной страницы для печати");
}

TEST_F(PrintRuns, PrintTheSelection)
{
    givenLines(9);
    edSetCaretPosition(control, 3, 0);
    edSetCaretPositionAdv(control, 5, 0, ED_CARET_SELECT);
    const PrintRun run(control, measures.Context(), {}, PrintRun::Range::selection, L"title");
    EXPECT_EQ(Printed(run, {1, 1}), (Words{L"title", L"1 / 1", L"line 3", L"line 4"}));
}

TEST_F(PrintRuns, EndTheJobOfTheControl)
{
    {
        const PrintRun run(control, measures.Context(), {}, PrintRun::Range::wholeText, L"title");
    }
    EXPECT_EQ(edPrintingOver(control), 0);
}

}  // namespace
