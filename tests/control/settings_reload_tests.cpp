// A host hands a settings block to a control that lives already.

#include "tests/support/SettingsBytes.h"
#include "tests/support/win/ControlHost.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

constexpr COLORREF white = 0xFFFFFF;
constexpr COLORREF navy = 0x800000;

/// Background of that colour and black text in "Courier New", `height` pixels a character.
xTSettingsBytes Block(COLORREF background, std::int32_t height)
{
    xTSettingsBytes block;
    block.Number(xTSettingsBytes::magic).Number(2).Byte(1);
    block.Entry(false, false, false, background, 2).Entry(false, false, false, 0x000000, 4);
    block.Font(-height, 0, L"Courier New").Tail(true, 4);
    return block;
}

class Reload : public testing::Test {
protected:
    static edSettingsBlock Of(xTSettingsBytes& bytes) { return {bytes.bytes().data(), bytes.Block().size}; }
    void Give(xTSettingsBytes bytes)
    {
        const edSettingsBlock block = Of(bytes);
        edReloadTuneSettings(control, &block);
    }
    [[nodiscard]] int LineHeight() const
    {
        edPoint top{};
        edPoint bottom{};
        edGetPosition(control, ED_POSITION_CARET_TOP, &top);
        edGetPosition(control, ED_POSITION_CARET_BOTTOM, &bottom);
        return bottom.y - top.y;
    }
    [[nodiscard]] COLORREF Background() const
    {
        ::UpdateWindow(control);
        return Picture(control).At(300, 200);  // far from the text
    }
    [[nodiscard]] bool AsksForARepaint(const edSettingsBlock* block) const
    {
        ::UpdateWindow(control);
        ::ValidateRect(control, nullptr);
        edReloadTuneSettings(control, block);
        return ::GetUpdateRect(control, nullptr, FALSE) != 0;
    }

    ControlHost host;
    HWND control = host.Show(L"one\n\ttwo");
};

TEST_F(Reload, GivesTheControlTheColoursOfTheBlock)
{
    ASSERT_EQ(Background(), white);
    Give(Block(navy, 13));
    EXPECT_EQ(Background(), navy);
}

TEST_F(Reload, RebuildsTheFontsAndTheLineHeightFollows)
{
    const int before = LineHeight();
    Give(Block(white, 26));
    Pump();
    EXPECT_GT(LineHeight(), before * 3 / 2);
    Give(Block(white, 13));
    Pump();
    EXPECT_EQ(LineHeight(), before);
}

TEST_F(Reload, KeepsTextCaretAndMarks)
{
    edSetBreakPoint(control, 1);
    edSetCaretPosition(control, 1, 2);
    Give(Block(navy, 20));
    EXPECT_EQ(TextOf(control), L"one\n\ttwo");
    EXPECT_EQ(edGetBreakPointCount(control), 1);
    edPoint caret{};
    edGetPosition(control, ED_POSITION_CARET, &caret);
    EXPECT_EQ(caret.y, 1);
    EXPECT_EQ(caret.x, 2);
}

TEST_F(Reload, ABlockThatIsMissingHasNoDataOrNoSizeDoesNothing)
{
    xTSettingsBytes bytes = Block(navy, 26);
    const edSettingsBlock good = Of(bytes);
    const edSettingsBlock noData{nullptr, good.size};
    const edSettingsBlock noSize{good.data, 0};
    const edSettingsBlock errorValue{good.data, 0xFFFFFFFF};
    for (const edSettingsBlock* block : {static_cast<const edSettingsBlock*>(nullptr), &noData, &noSize, &errorValue})
        EXPECT_FALSE(AsksForARepaint(block));
    EXPECT_EQ(Background(), white);
    EXPECT_TRUE(AsksForARepaint(&good));
}

TEST_F(Reload, ABlockOfAnotherFormatLeavesTheLookAndRepaintsAllTheSame)
{
    Give(Block(navy, 13));
    xTSettingsBytes wrong = Block(white, 26);
    wrong.bytes()[0] ^= 1;
    const edSettingsBlock block = Of(wrong);
    const int before = LineHeight();
    EXPECT_TRUE(AsksForARepaint(&block));
    EXPECT_EQ(Background(), navy);
    EXPECT_EQ(LineHeight(), before);
}

TEST_F(Reload, OtherControlsAreLeftAlone)
{
    const RECT half{0, 300, 400, 480};
    edCreateParams params{};
    params.rect = &half;
    const HWND other = host.Create(params);
    ::ShowWindow(other, SW_SHOW);
    Give(Block(navy, 13));
    Pump();
    EXPECT_EQ(Picture(other).At(200, 100), white);
}

struct Looker {
    HWND control = nullptr;
    xTSettingsBytes bytes = Block(navy, 40);
    bool done = false;
    static void Classify(void* ctx, wchar_t* text, int)
    {
        auto& self = *static_cast<Looker*>(ctx);
        for (; *text; ++text)
            *text = ED_CLASS_PLAIN;
        if (!self.control || std::exchange(self.done, true))
            return;
        const edSettingsBlock block{self.bytes.bytes().data(), self.bytes.Block().size};
        edReloadTuneSettings(self.control, &block);
    }
};

TEST(ReloadInside, TheHighlightHookMayReloadInTheMiddleOfAPaint)
{
    ControlHost host;
    Looker looker;
    const edHighlightHook hook{&Looker::Classify, &looker};
    edCreateParams params{};
    params.highlightHook = &hook;
    looker.control = host.Show(L"one\ntwo\nthree", params);
    ::InvalidateRect(looker.control, nullptr, TRUE);
    ::UpdateWindow(looker.control);
    Pump();
    EXPECT_TRUE(looker.done);
    EXPECT_EQ(Picture(looker.control).At(300, 300), navy);
}

}  // namespace
