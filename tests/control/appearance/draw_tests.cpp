#include "appearance/AsciiFace.h"
#include "tests/control/appearance/Canvas.h"
#include "tests/control/appearance/FailingNew.h"

#include <fstream>
#include <random>
#include <regex>
#include <stdexcept>

namespace {

using Calls = std::vector<DrawnTexts::Call>;

class Draw : public AppearanceTest {
protected:
    Calls Drawn(const xTExtString& line, POINT at = {0, 0}, const xTHighlightHook& hook = {})
    {
        DrawnTexts texts(canvas.dc);
        Show(line, at, hook);
        return texts.End();
    }
    [[nodiscard]] int W() const { return table->m_charWidth; }

    TestHook letters{ClassByLetter};
    const std::wstring band = std::wstring(197, L' ');
};

TEST_F(Draw, APlainLineIsOneCall)
{
    EXPECT_EQ(Drawn(Line(L"hello, world"), {-20, 30}), (Calls{{L"hello, world", -20, 30}}));
}

TEST_F(Draw, ALineIsSplitWhereTheWordChanges)
{
    EXPECT_EQ(Drawn(Line(L"kk nn"), {0, 15}, letters.hook()),
              (Calls{{L"kk", 0, 15}, {L" ", 2 * W(), 15}, {L"nn", 3 * W(), 15}}));
}

TEST_F(Draw, TwoWordsOfOneColourAreTwoRuns)
{
    SetTheme(3);  // numbers and symbols are both 0x00FF00
    EXPECT_EQ(Drawn(Line(L"ny"), {0, 0}, letters.hook()), (Calls{{L"n", 0, 0}, {L"y", W(), 0}}));
}

TEST_F(Draw, APartOfALineLooksAsItDoesInTheWholeLine)
{
    SetTheme(2);
    for (const std::uint32_t flag : {ATTR_KEYWORD, ATTR_NUMBER, ATTR_STRING})
        table->m_italic[table->FindEntry(flag)] = true;
    const xTExtString line = Line(L"kkk\tnn kq sss\t\tiii Жkk uuu nnkk");
    const auto paint = [&](int left, int right) {
        canvas.Fill(0xFFFFFF);
        const RECT part{left, 0, right, Canvas::height};
        const xTClip clip(canvas.dc.m_hDC, part);
        Show(line, {-30, 0}, letters.hook());
    };
    const auto pixels = [&] {
        std::vector<COLORREF> all;
        for (int y = 0; y < table->m_charHeight; ++y)
            for (int x = 0; x < Canvas::width; ++x)
                all.push_back(canvas.At(x, y));
        return all;
    };
    paint(0, Canvas::width);
    const std::vector<COLORREF> whole = pixels();
    for (int left = 0; left < 400; left += 7) {
        const int right = left + 1 + left % 50;
        paint(left, right);
        const std::vector<COLORREF> part = pixels();
        for (std::size_t i = 0; i < whole.size(); ++i) {
            const int x = static_cast<int>(i % Canvas::width);
            ASSERT_EQ(part[i], x >= left && x < right ? whole[i] : 0xFFFFFFu) << "from " << left << " at " << x;
        }
    }
}

// On the control's own context runs are drawn together. Measures from another context make them be drawn one by one.
class DrawnTogether : public Draw, public testing::WithParamInterface<std::uint32_t> {
protected:
    struct Drawing {
        std::vector<COLORREF> pixels;
        HGDIOBJ font;
        COLORREF text;
        COLORREF back;
        int mode;
        friend bool operator==(const Drawing&, const Drawing&) = default;
    };
    Drawing DrawingOf(const xTExtString& line, HDC measures)
    {
        canvas.Fill(0xABCDEF);
        canvas.dc.m_hAttribDC = measures;
        Show(line, {-20, 0}, letters.hook());
        canvas.dc.m_hAttribDC = canvas.dc.m_hDC;
        const HDC dc = canvas.dc.m_hDC;
        Drawing drawing{{}, CurrentFont(), ::GetTextColor(dc), ::GetBkColor(dc), ::GetBkMode(dc)};
        for (int y = 0; y < 2 * table->m_charHeight; ++y)
            for (int x = 0; x < Canvas::width; ++x)
                drawing.pixels.push_back(canvas.At(x, y));
        return drawing;
    }
    xTExtString RandomLine()
    {
        static constexpr WStrView signs = L"kkkkinspqyu##    \tЖ_W";
        std::wstring text;
        for (std::uint32_t left = 1 + random() % 60; left > 0; --left)
            text.append(1 + random() % 4, signs[random() % signs.size()]);
        xTExtString line = Line(text);
        if (random() % 3 == 0)
            for (std::int32_t i = static_cast<std::int32_t>(random() % text.size()), n = 0; n < 9 && i < line.GetLength(); ++n)
                line.MarkSelected(i++);
        if (random() % 8 == 0)
            line.m_flags |= xTExtString::flagBreakPoint;
        return line;
    }
    std::mt19937 random{20};
};

TEST_P(DrawnTogether, RunsShowWhatTheyShowOneByOneAndLeaveTheContextAlike)
{
    const xTMemDC other(::CreateCompatibleDC(nullptr));
    for (const LONG height : {-13, -24}) {
        LOGFONTW lf = table->m_logFont;
        lf.lfHeight = height;
        SetTheme(GetParam());
        table->create_fonts(&lf, &canvas.dc);
        for (int round = 0; round < 60; ++round) {
            if (round == 40)  // slanted characters lean out of their cells
                table->m_italic[table->FindEntry(ATTR_KEYWORD)] = true;
            const xTExtString line = RandomLine();
            DrawingOf(line, canvas.dc.m_hDC);  // fonts are asked about when they are first used
            const Drawing together = DrawingOf(line, canvas.dc.m_hDC);
            ASSERT_TRUE(together == DrawingOf(line, other.get())) << height << ", round " << round;
        }
    }
    ::SelectObject(other.get(), ::GetStockObject(SYSTEM_FONT));
}

// Without this the one above would hold for a table that draws nothing together.
TEST_F(Draw, ACommonLineIsDrawnTogether)
{
    const xTAsciiFace face = [&] {
        table->ApplyAttr(ATTR_TEXT, &wnd, &canvas.dc);
        return xTAsciiFace(canvas.dc.m_hDC);
    }();
    EXPECT_TRUE(face.HoldsContained(L"    if (count > 0) return next[7] * 0x1F;"));
    EXPECT_FALSE(face.HoldsContained(L"текст"));
    EXPECT_FALSE(face.HoldsContained(L"a\tb"));
    table->_MakeFontSelect(canvas.dc.m_hDC, [&] {
        LOGFONTW lf = table->m_logFont;
        lf.lfUnderline = 1;
        return lf;
    }());
    EXPECT_FALSE(xTAsciiFace(canvas.dc.m_hDC).HoldsContained(L"a"));
}

INSTANTIATE_TEST_SUITE_P(Themes, DrawnTogether, testing::Range(1u, 6u));

TEST_F(Draw, AnEmptyLineShowsNoBandAtAll)
{
    xTExtString line;
    line.m_flags = xTExtString::flagBreakPoint | xTExtString::flagExecPoint;
    EXPECT_EQ(Drawn(line), Calls{});
}

TEST_F(Draw, BandsHave197SpacesFromTheLeftEdgeWhateverTheScrollPosition)
{
    xTExtString line = Line(L"ab");
    line.m_flags = xTExtString::flagBreakPoint;
    EXPECT_EQ(Drawn(line, {-50, 45}), (Calls{{band, 0, 45}, {L"ab", -50, 45}}));
    line.m_flags |= xTExtString::flagExecPoint;
    EXPECT_EQ(Drawn(line, {-50, 45}), (Calls{{band, 0, 45}, {band, 0, 45}, {L"ab", -50, 45}}));
}

TEST_F(Draw, TheExecutionBandCoversTheBreakPointsBand)
{
    xTExtString line = Line(L"a");
    line.m_flags = xTExtString::flagBreakPoint | xTExtString::flagExecPoint;
    Show(line, {40, 0});
    EXPECT_EQ(canvas.At(0, 0), 0x00FF00u);
    EXPECT_EQ(canvas.At(700, table->m_charHeight - 1), 0x00FF00u);
    line.m_flags = xTExtString::flagBreakPoint;
    Show(line, {40, 0});
    EXPECT_EQ(canvas.At(0, 0), 0x0000FFu);
}

TEST_F(Draw, ATabRunAdvancesByExactlyItsTabWidths)
{
    const int stop = 4 * W();
    EXPECT_EQ(Drawn(Line(L"a\tb\t\tc")).back(), (DrawnTexts::Call{L"c", 3 * stop + 2 * W(), 0}));
    table->m_tabSize = 7;
    EXPECT_EQ(Drawn(Line(L"\tc")).back(), (DrawnTexts::Call{L"c", 7 * W(), 0}));
}

TEST_F(Draw, ATabRunBeforeASelectionIsDrawnAsSpacesAndOneMore)
{
    xTExtString line = Line(L"x\t\tab");
    line.MarkSelected(3);
    const int stop = 4 * W();
    EXPECT_EQ(Drawn(line), (Calls{{L"x", 0, 0}, {std::wstring(9, L' '), W(), 0}, {L"a", W() + 2 * stop, 0},
                                  {L"b", 2 * W() + 2 * stop, 0}}));
}

TEST_F(Draw, ATabRunBeforeASelectionShowsTheBackgroundAcrossTheGap)
{
    SetTheme(3);
    canvas.Fill(0xABCDEF);
    xTExtString line = Line(L"x\tab");
    line.MarkSelected(2);
    Show(line);
    for (int column = 1; column < 5; ++column)
        EXPECT_EQ(Cell(column), std::set<COLORREF>{0x800000}) << column;
    EXPECT_EQ(Cell(5), (std::set<COLORREF>{0xC0C0C0, 0x800000}));  // the selected text over the surplus
}

TEST_F(Draw, ASelectedTabRunBeforeASelectionIsPaintedInItsOwnBackground)
{
    xTExtString line = Line(L"\ta");
    line.MarkSelected(0);
    line.MarkSelected(1);
    canvas.Fill(0xABCDEF);
    Show(line);
    EXPECT_EQ(Cell(2), std::set<COLORREF>{0xC0C0C0});
}

TEST_F(Draw, NoTabSettingBlowsTheGapUp)
{
    for (const std::int32_t size : {2147483647, -2147483647 - 1, 0, -1, 600}) {
        table->m_tabSize = size;
        xTExtString line = Line(std::wstring(500, L'\t') + L"a");
        line.MarkSelected(500);
        const Calls calls = Drawn(line);
        ASSERT_EQ(calls.size(), 2u);
        EXPECT_LE(calls[0].text.size(), 4096u);
        EXPECT_FALSE(calls[0].text.empty());
    }
}

TEST_F(Draw, EachLineStartsAfreshThoughTheLastWordOutlivesIt)
{
    Show(Line(L"abc"));
    EXPECT_EQ(table->m_lastAttr, 6u);
    ::SetTextColor(canvas.dc.m_hDC, 0x123456);
    Show(Line(L"abc"));
    EXPECT_EQ(::GetTextColor(canvas.dc.m_hDC), 0u);
    Show(Line(L"abck"), {0, 0}, letters.hook());
    EXPECT_EQ(table->m_lastAttr, 6u | ATTR_KEYWORD);
}

TEST_F(Draw, AWordOfNullIsTheLastOneThatIsReplaced)
{
    // Kept on purpose: after a run of word 0 nothing is applied within the line. Drawing's words are never 0.
    table->m_lastAttr = 0;
    Show(Line(L"ak"), {0, 0}, letters.hook());
    EXPECT_EQ(::GetTextColor(canvas.dc.m_hDC), 0xFF0000u);
}

TEST_F(Draw, WhatIsMissingMakesItDrawNothing)
{
    const xTExtString line = Line(L"a");
    canvas.Fill(0xABCDEF);
    table->show_that_str({}, nullptr, &wnd, &store, line, {0, 0});
    CDC empty;
    table->show_that_str({}, &empty, &wnd, &store, line, {0, 0});
    table->show_that_str({}, &canvas.dc, nullptr, &store, line, {0, 0});
    table->show_that_str({}, &canvas.dc, &wnd, nullptr, line, {0, 0});
    wnd.m_hWnd = nullptr;
    Show(line);
    EXPECT_EQ(canvas.Colors(0, 0, 50, 50), std::set<COLORREF>{0xABCDEF});
}

TEST_F(Draw, AHookThatDestroysTheWindowStopsTheLine)
{
    TestHook host{[&](wchar_t*, int) { wnd.m_hWnd = nullptr; }};
    EXPECT_EQ(Drawn(Line(L"abc"), {0, 0}, host.hook()), Calls{});
    wnd.m_hWnd = ::GetDesktopWindow();
    const HDC dc = canvas.dc.m_hDC;
    TestHook other{[&](wchar_t*, int) { canvas.dc.m_hDC = nullptr; }};
    canvas.Fill(0xABCDEF);
    Show(Line(L"abc"), {0, 0}, other.hook());
    canvas.dc.m_hDC = dc;
    EXPECT_EQ(canvas.Colors(0, 0, 50, 50), std::set<COLORREF>{0xABCDEF});
}

TEST_F(Draw, AHookThatThrowsOrScribblesLeavesAPlainLine)
{
    TestHook thrower{[](wchar_t* text, int) {
        text[0] = 3;
        throw std::runtime_error("host");
    }};
    EXPECT_EQ(Drawn(Line(L"abc"), {0, 0}, thrower.hook()), (Calls{{L"abc", 0, 0}}));
    TestHook scribbler{[](wchar_t* text, int) { std::fill(text, text + 10000, L'\1'); }};
    EXPECT_EQ(Drawn(Line(L"abc"), {0, 0}, scribbler.hook()), (Calls{{L"abc", 0, 0}}));
}

TEST_F(Draw, AHookMayHaveTheSameTableDrawMeanwhile)
{
    bool nested = false;
    TestHook host{[&](wchar_t* text, int) {
        if (!nested) {
            nested = true;
            Show(Line(L"kkk"), {0, 60}, letters.hook());
        }
        ClassByLetter(text, 0);
    }};
    EXPECT_EQ(Drawn(Line(L"akn"), {0, 0}, host.hook()),
              (Calls{{L"kkk", 0, 60}, {L"a", 0, 0}, {L"k", W(), 0}, {L"n", 2 * W(), 0}}));
}

std::string LastLogRecord()
{
    wchar_t path[MAX_PATH];
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring log(path);
    log.resize(log.find_last_of(L'\\') + 1);
    log += L"scrivctl.log";
    std::string narrow(log.begin(), log.end());
    std::ifstream in(narrow);
    std::string last;
    for (std::string line; std::getline(in, line);)
        last = line;
    return last;
}

TEST_F(Draw, AFailureIsReportedWithAllArgumentsAndTheLineStaysUndrawn)
{
    const std::wstring text(600, L'z');
    const xTExtString line = Line(text);
    canvas.Fill(0xABCDEF);
    const auto failing = [&](bool framework) {
        failWithFramework = framework;
        failAbove = 2000;
        Show(line, {-7, 30});
        EXPECT_EQ(failAbove, 0u);
        return LastLogRecord();
    };
    const std::string args = R"( in xTAttribTable::show_that_str\(hl = 0x[0-9a-f]+, pDC = 0x[0-9a-f]+, )"
                             R"(pWnd = 0x[0-9a-f]+, pStor = 0x[0-9a-f]+, str = <z{600}>, _out_pos = \(x=-7,y=30\)\)\.\r?)";
    const std::string head = R"(.*: in .*AttribTableDraw\.cpp\(\d+\) error: )";
    EXPECT_TRUE(std::regex_match(failing(false), std::regex(head + R"(\.\.\.)" + args))) << LastLogRecord();
    EXPECT_TRUE(std::regex_match(failing(true), std::regex(head + R"(CException\*\(Out of memory\.\))" + args)))
        << LastLogRecord();
    EXPECT_EQ(canvas.Colors(0, 0, 100, 100), std::set<COLORREF>{0xABCDEF});
    Show(line);
    EXPECT_NE(canvas.At(0, 0), 0xABCDEFu);  // the paint goes on with the next
}

TEST_F(Draw, RunsOfNothingDrawAndMeasureNothing)
{
    POINT pos{3, 4};
    table->DrawRun(L"", pos, &canvas.dc);
    table->DrawRun(L"abc", pos, nullptr);
    EXPECT_EQ(pos.x, 3);
    EXPECT_EQ(table->RunExtent(L"abc", nullptr).cx, 0);
    CDC empty;
    EXPECT_EQ(table->RunExtent(L"abc", &empty).cx, 0);
    EXPECT_EQ(table->RunExtent(L"", &canvas.dc).cx, 0);
}

TEST_F(Draw, TheExtentOfTabsIsReadAsSignedSixteenBits)
{
    table->m_tabSize = 256;
    const int stop = 256 * W();
    const std::wstring tabs(20, L'\t');  // 20 * 2048 pixels do not fit: kept on purpose
    EXPECT_EQ(table->RunExtent(tabs, &canvas.dc).cx, static_cast<SHORT>(20 * stop));
}

}  // namespace
