// Printing as a host does it, with a metafile in the place of the printer.

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/HostLog.h"
#include "tests/support/win/MessageBoxes.h"
#include "tests/support/win/Metafile.h"

#include <gtest/gtest.h>

namespace {

constexpr UINT32 any = 0xFFFFFFFF;
constexpr RECT a4 = {50, 40, 750, 1080};

class PrintExports : public testing::Test {
protected:
    void given(const wchar_t* text) { edLoadText(control, text, any); }

    [[nodiscard]] static edPrintSetup setup(const Metafile& file, UINT32 whole = 1)
    {
        return {file.Context(), a4, a4, a4, a4, {whole, 0}};
    }
    BOOL prepare(UINT32 whole = 1) const
    {
        const edPrintSetup all = setup(measures, whole);
        return edPreparePrinting(control, &all);
    }
    [[nodiscard]] std::vector<std::wstring> printed(UINT32 page) const
    {
        Metafile file;
        const edPrintPageParams params{file.Context(), page};
        EXPECT_EQ(edPrintPage(control, &params), 1);
        return file.End().Words();
    }

    ControlHost host;
    HWND control = host.Show(L"one\ntwo\nthree");
    Metafile measures;
};

using Words = std::vector<std::wstring>;

TEST_F(PrintExports, AHostPrintsItsTextPageByPage)
{
    EXPECT_EQ(prepare(), 1);
    EXPECT_EQ(printed(1), (Words{L"one", L"two", L"three"}));
    EXPECT_EQ(printed(2), Words{});
    EXPECT_EQ(edPrintingOver(control), 1);
    EXPECT_EQ(edPrintingOver(control), 0);
}

TEST_F(PrintExports, EitherRangeFieldChoosesTheWholeText)
{
    edPrintSetup all = setup(measures, 0);
    EXPECT_EQ(edPreparePrinting(control, &all), 0);
    for (const UINT32 value : {1u, 2u, any}) {
        all.wholeText[0] = value;
        all.wholeText[1] = 0;
        EXPECT_EQ(edPreparePrinting(control, &all), 1);
        std::swap(all.wholeText[0], all.wholeText[1]);
        EXPECT_EQ(edPreparePrinting(control, &all), 1);
    }
}

TEST_F(PrintExports, BothRangeFieldsZeroPrintTheSelection)
{
    edSetCaretPosition(control, 0, 1);
    edSetCaretPositionAdv(control, 1, 2, ED_CARET_SELECT);
    EXPECT_EQ(prepare(0), 1);
    EXPECT_EQ(printed(1), (Words{L"ne", L"tw"}));
}

TEST_F(PrintExports, TheNumberOfPagesIsTheAnswer)
{
    std::wstring text;
    for (int i = 0; i < 1000; ++i)
        text += L"line\n";
    given(text.c_str());
    const BOOL pages = prepare();
    EXPECT_GT(pages, 10);
    std::size_t lines = 0;
    for (int page = 1; page <= pages; ++page)
        lines += printed(static_cast<UINT32>(page)).size();
    EXPECT_EQ(lines, 1000u);
}

TEST_F(PrintExports, ANullRecordIsAnsweredWithZeroAndTheJobStays)
{
    prepare();
    EXPECT_EQ(edPreparePrinting(control, nullptr), 0);
    EXPECT_EQ(edPrintPage(control, nullptr), 0);
    const edPrintPageParams noContext{nullptr, 1};
    EXPECT_EQ(edPrintPage(control, &noContext), 0);
    EXPECT_EQ(printed(1).size(), 3u);
    EXPECT_EQ(edPrintingOver(control), 1);
}

TEST_F(PrintExports, PageZeroAnswersZeroAndIsLogged)
{
    prepare();
    const HostLog log;
    const edPrintPageParams zero{measures.Context(), 0};
    EXPECT_EQ(edPrintPage(control, &zero), 0);
    EXPECT_NE(log.News().find(" error: invalid vector<T> subscript."), std::string::npos);
}

TEST_F(PrintExports, AContextThatRefusesTheFontIsToldAndSplittingGoesOn)
{
    const MessageBoxes boxes;
    edPrintSetup all = setup(measures);
    all.dc = nullptr;
    EXPECT_EQ(edPreparePrinting(control, &all), 1);
    EXPECT_EQ(boxes.texts, Words{L"Испорчен шрифт редактора!"});
}

TEST_F(PrintExports, EachControlHasAJobOfItsOwn)
{
    ControlHost otherHost;
    const HWND other = otherHost.Show(L"other");
    prepare();
    EXPECT_EQ(edPrintingOver(other), 0);
    EXPECT_EQ(printed(1).size(), 3u);
    edDestroyCtrl(other);
}

TEST_F(PrintExports, AJobGoesWithItsControl)
{
    prepare();
    edDestroyCtrl(control);
    const edPrintPageParams params{measures.Context(), 1};
    EXPECT_EQ(edPrintPage(control, &params), 0);
    EXPECT_EQ(edPrintingOver(control), 0);
    EXPECT_TRUE(measures.End().texts.empty());
}

TEST_F(PrintExports, AReadOnlyOrHiddenControlPrintsToo)
{
    edPrintSetup all = setup(measures);
    edCreateParams params{};
    params.flags = ED_CREATE_READONLY;
    const HWND hidden = host.Create(params);
    edLoadText(hidden, L"text", any);
    EXPECT_EQ(edPreparePrinting(hidden, &all), 1);
}

// ---- What a host may do while the message box about a broken font stands

struct Meanwhile {
    const char* name;
    void (*act)(HWND control, const edPrintSetup& setup);
    BOOL pages;
    BOOL over;  // what edPrintingOver says afterwards
};

class WhileABoxStands : public PrintExports, public testing::WithParamInterface<Meanwhile> {};

TEST_P(WhileABoxStands, AHostMayDoAnything)
{
    edPrintSetup all = setup(measures);
    all.dc = nullptr;
    const HostLog log;
    const edPrintSetup good = setup(measures);
    MessageBoxes boxes;
    boxes.onBox = [&](HWND) { GetParam().act(control, good); };
    EXPECT_EQ(edPreparePrinting(control, &all), GetParam().pages);
    EXPECT_EQ(edPrintingOver(control), GetParam().over);
    EXPECT_EQ(log.News(), "");
}

INSTANTIATE_TEST_SUITE_P(Each, WhileABoxStands, testing::Values(
    Meanwhile{"EndTheJob", [](HWND h, const edPrintSetup&) { edPrintingOver(h); }, 1, 1},
    Meanwhile{"StartAJob", [](HWND h, const edPrintSetup& s) { edPreparePrinting(h, &s); }, 1, 1},
    Meanwhile{"LoadAText", [](HWND h, const edPrintSetup&) { edLoadText(h, L"new", any); }, 1, 1},
    Meanwhile{"EmptyTheText", [](HWND h, const edPrintSetup&) { edLoadText(h, nullptr, 0); }, 0, 1},
    Meanwhile{"DestroyTheControl", [](HWND h, const edPrintSetup&) { edDestroyCtrl(h); }, 1, 0}),
    [](const auto& info) { return info.param.name; });

}  // namespace
