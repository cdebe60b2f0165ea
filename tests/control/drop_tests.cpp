// Drops on a control: what is taken, where it goes, what is told to whom. The control's drop target is called directly.

#include "include/scrivctl3.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/DragData.h"
#include "tests/support/win/MessageBoxes.h"
#include "tests/support/win/Pointer.h"

#include <gtest/gtest.h>

#include <ole2.h>
#include <shlobj.h>

#include <utility>

namespace {

constexpr DWORD copyOrMove = DROPEFFECT_COPY | DROPEFFECT_MOVE;

POINTL onScreen(HWND window, POINT point)
{
    ::ClientToScreen(window, &point);
    return {point.x, point.y};
}

class Drop : public testing::Test {
protected:
    ControlHost host;
    HWND control = host.Show(L"");
    xTComPtr<IDropTarget> target = TargetOf(control);
    xTComPtr<DragData> data{new DragData};

    void SetUp() override { ASSERT_NE(target, nullptr); }
    /// Enters, moves and drops. @return the effect that the source is told
    DWORD drop(POINT point, DWORD keys = 0, DWORD allowed = copyOrMove)
    {
        DWORD effect = allowed;
        EXPECT_EQ(target->DragEnter(data.get(), keys | MK_LBUTTON, onScreen(control, point), &effect), S_OK);
        effect = allowed;
        EXPECT_EQ(target->DragOver(keys | MK_LBUTTON, onScreen(control, point), &effect), S_OK);
        effect = allowed;
        EXPECT_EQ(target->Drop(data.get(), keys, onScreen(control, point), &effect), S_OK);
        return effect;
    }
    DWORD dropText(const std::wstring& text, POINT point, DWORD keys = MK_CONTROL)
    {
        data->PutText(text);
        return drop(point, keys);
    }
    DWORD over(POINT point, DWORD keys = 0, DWORD allowed = copyOrMove)
    {
        DWORD effect = allowed;
        target->DragOver(keys, onScreen(control, point), &effect);
        return effect;
    }
    edPoint at(int code) const
    {
        edPoint point{-1, -1};
        edGetPosition(control, code, &point);
        return point;
    }
    RECT client() const
    {
        RECT rect{};
        ::GetClientRect(control, &rect);
        return rect;
    }
};

// ---- Who takes drops

TEST(DropTargets, AReadOnlyControlHasNone)
{
    ControlHost host;
    edCreateParams params{};
    params.flags = ED_CREATE_READONLY;
    const HWND control = host.Show(L"text", params);
    EXPECT_EQ(TargetOf(control), nullptr);
    EXPECT_EQ(::RevokeDragDrop(control), DRAGDROP_E_NOTREGISTERED);
}

TEST(DropTargets, AnEditableControlHasOneFromItsCreationToItsEnd)
{
    ControlHost host;
    const HWND control = host.Create();
    EXPECT_NE(TargetOf(control), nullptr);
    const xTComPtr<ForeignTarget> second(new ForeignTarget);
    EXPECT_EQ(::RegisterDragDrop(control, second.get()), DRAGDROP_E_ALREADYREGISTERED);
    const auto held = TargetOf(control);
    edDestroyCtrl(control);
    held->AddRef();
    EXPECT_EQ(held->Release(), 1u);  // nobody but this test holds it any more
}

/// Makes every registration of a drop target on this thread fail while it lives: each new child window has one before
/// its own code runs.
class TakenTargets {
public:
    TakenTargets() { taking = target.get(); }
    TakenTargets(const TakenTargets&) = delete;
    TakenTargets& operator=(const TakenTargets&) = delete;
    ~TakenTargets() { ::UnhookWindowsHookEx(m_hook); }

    const xTComPtr<ForeignTarget> target{new ForeignTarget};

private:
    static LRESULT CALLBACK Take(int code, WPARAM wParam, LPARAM lParam)
    {
        if (code == HCBT_CREATEWND && reinterpret_cast<const CBT_CREATEWNDW*>(lParam)->lpcs->hwndParent)
            ::RegisterDragDrop(reinterpret_cast<HWND>(wParam), taking);
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static inline IDropTarget* taking = nullptr;
    HHOOK m_hook = ::SetWindowsHookExW(WH_CBT, &Take, nullptr, ::GetCurrentThreadId());
};

TEST(DropTargets, AFailedRegistrationIsShownAndTheControlWorksWithoutDrops)
{
    ControlHost host;
    ControlHost olderControl;
    olderControl.Create();  // OLE is up on this thread before the hook asks for it
    MessageBoxes boxes;
    const TakenTargets taken;
    const HWND control = host.Show(L"text");
    EXPECT_EQ(boxes.texts, (std::vector<std::wstring>{L"Ole Register Drop Target Failed"}));
    EXPECT_EQ(TextOf(control), L"text");
    EXPECT_EQ(TargetOf(control).get(), taken.target.get());
    edDestroyCtrl(control);
}

TEST(DropTargets, AHostMayDestroyTheParentWhileTheFailedRegistrationIsShown)
{
    ControlHost host;
    ControlHost olderControl;
    olderControl.Create();
    MessageBoxes boxes;
    boxes.onBox = [&](HWND) { ::DestroyWindow(host.Window()); };
    const TakenTargets taken;
    EXPECT_EQ(host.Create(), nullptr);
    EXPECT_EQ(boxes.texts.size(), 1u);
}

// ---- The effect

struct EffectRow {
    const char* name;
    DWORD keys;
    DWORD allowed;
    DWORD effect;
};

class Effects : public Drop, public testing::WithParamInterface<EffectRow> {};

TEST_P(Effects, FollowTheKeysAndTheSource)
{
    const EffectRow& row = GetParam();
    DWORD effect = row.allowed;
    EXPECT_EQ(target->DragEnter(data.get(), row.keys, onScreen(control, At(0, 0)), &effect), S_OK);
    EXPECT_EQ(effect, row.effect);
    EXPECT_EQ(over(At(0, 0), row.keys, row.allowed), row.effect);
    data->PutText(L"x");
    EXPECT_EQ(drop(At(0, 0), row.keys, row.allowed), row.effect);
    EXPECT_EQ(TextOf(control), row.effect == DROPEFFECT_NONE ? L"" : L"x");
}

const EffectRow effectRows[] = {
    {"MoveWithoutKeys", 0, copyOrMove, DROPEFFECT_MOVE},
    {"MoveWithShift", MK_SHIFT, copyOrMove, DROPEFFECT_MOVE},
    {"CopyWithControl", MK_CONTROL, copyOrMove, DROPEFFECT_COPY},
    {"CopyWithControlAndShift", MK_CONTROL | MK_SHIFT, copyOrMove, DROPEFFECT_COPY},
    {"CopyFromASourceThatOnlyLetsCopy", 0, DROPEFFECT_COPY, DROPEFFECT_COPY},
    {"MoveFromASourceThatOnlyLetsMove", MK_CONTROL, DROPEFFECT_MOVE, DROPEFFECT_MOVE},
    {"NoneFromASourceThatOnlyLetsLink", 0, DROPEFFECT_LINK, DROPEFFECT_NONE},
    {"NoneFromASourceThatLetsNothing", MK_CONTROL, 0, DROPEFFECT_NONE},
};

INSTANTIATE_TEST_SUITE_P(Each, Effects, testing::ValuesIn(effectRows), [](const auto& info) { return info.param.name; });

// ---- Over the control

TEST_F(Drop, EnteringTellsTheParentOnce)
{
    data->PutText(L"x");
    drop(At(0, 0), MK_CONTROL);
    ASSERT_EQ(host.Count(ED_DRAG_ENTER_PARENT), 1u);
    EXPECT_EQ(host.Of(ED_DRAG_ENTER_PARENT)[0], (ControlHost::Message{ED_DRAG_ENTER_PARENT, 0, 1}));
}

TEST_F(Drop, MovingOverPutsTheCaretUnderThePointerAndKeepsTheSelection)
{
    Give(control, L"a[bc]|d\nefgh");
    EXPECT_EQ(over(At(1, 2)), static_cast<DWORD>(DROPEFFECT_MOVE));
    EXPECT_EQ(Marked(control), L"a[bc]d\nef|gh");
    target->DragLeave();
    EXPECT_EQ(Marked(control), L"a[bc]d\nef|gh");
}

struct Edge {
    const char* name;
    POINT (*point)(const RECT& client);
    edPoint view;
};

class Edges : public Drop, public testing::WithParamInterface<Edge> {};

TEST_P(Edges, Scroll)
{
    std::wstring text;
    for (int i = 0; i < 200; ++i)
        text += std::wstring(300, L'x') + L"\n";
    edLoadText(control, text.c_str(), 0xFFFFFFFF);
    edSetScrollPosition(control, 20, 20);
    over(GetParam().point(client()));
    EXPECT_EQ(at(ED_POSITION_VIEWPORT).x, GetParam().view.x);
    EXPECT_EQ(at(ED_POSITION_VIEWPORT).y, GetParam().view.y);
}

const Edge edges[] = {
    {"NotInside", [](const RECT&) { return POINT{20, 20}; }, {20, 20}},
    {"NotOnePixelFromTheEdge", [](const RECT& c) { return POINT{1, c.bottom - 1}; }, {20, 20}},
    {"AtTheTopByALine", [](const RECT&) { return POINT{20, 0}; }, {20, 19}},
    {"AboveTheTopByALine", [](const RECT&) { return POINT{20, -9}; }, {20, 19}},
    {"AtTheBottomByALine", [](const RECT& c) { return POINT{20, c.bottom}; }, {20, 21}},
    {"AtTheLeftByTwoColumns", [](const RECT&) { return POINT{0, 20}; }, {18, 20}},
    {"LeftOfTheClientAreaByTwoColumns", [](const RECT&) { return POINT{-30, 20}; }, {18, 20}},
    {"AtTheRightByTwoColumns", [](const RECT& c) { return POINT{c.right, 20}; }, {22, 20}},
    {"InACornerBothWays", [](const RECT& c) { return POINT{c.right, 0}; }, {22, 19}},
};

INSTANTIATE_TEST_SUITE_P(Each, Edges, testing::ValuesIn(edges), [](const auto& info) { return info.param.name; });

// ---- What is dropped, and where

struct DropRow {
    const char* name;
    const wchar_t* before;
    const wchar_t* text;
    POINT point;
    const wchar_t* after;
};

class Drops : public Drop, public testing::WithParamInterface<DropRow> {};

TEST_P(Drops, GoInAndComeOutAgainByOneUndo)
{
    Give(control, GetParam().before);
    const std::wstring before = TextOf(control);
    EXPECT_EQ(dropText(GetParam().text, GetParam().point), static_cast<DWORD>(DROPEFFECT_COPY));
    EXPECT_EQ(Marked(control), GetParam().after);
    EXPECT_TRUE(edExecCommand(control, ED_COMMAND_UNDO));
    EXPECT_EQ(TextOf(control), before);
    EXPECT_FALSE(edCanExecCommand(control, ED_COMMAND_UNDO));
}

const DropRow dropRows[] = {
    {"InALine", L"|abcd", L"XY", At(0, 2), L"abXY|cd"},
    {"BehindTheLineEnd", L"|ab\ncd", L"XY", At(0, 30), L"abXY|\ncd"},
    {"BelowTheTextAtThePointersColumn", L"|ab\ncd", L"XY", At(9, 1), L"ab\ncXY|d"},
    {"SeveralLinesLoseTheirCarriageReturns", L"|ab", L"X\r\nY\rZ", At(0, 1), L"aX\nYZ|b"},
    {"OverASelectionThatStaysInTheText", L"a[bc]|d", L"X", At(0, 2), L"abX|cd"},
    {"CyrillicText", L"|ab", L"жЯ", At(0, 1), L"aжЯ|b"},
};

INSTANTIATE_TEST_SUITE_P(Each, Drops, testing::ValuesIn(dropRows), [](const auto& info) { return info.param.name; });

TEST_F(Drop, OnAnEmptyTextGoesIn)
{
    dropText(L"one\r\ntwo", At(3, 3));
    EXPECT_EQ(Marked(control), L"one\ntwo|");
}

TEST_F(Drop, InAViewScrolledBothWaysGoesUnderThePointer)
{
    std::wstring text;
    for (int i = 0; i < 50; ++i)
        text += std::wstring(200, L'x') + L"\n";
    edLoadText(control, text.c_str(), 0xFFFFFFFF);
    edSetScrollPosition(control, 10, 30);
    dropText(L"YZ", At(2, 3));
    EXPECT_EQ(at(ED_POSITION_CARET).y, 12);
    EXPECT_EQ(at(ED_POSITION_CARET).x, 35);
}

TEST_F(Drop, TheDroppedTextIsSelectedWhileTheHostIsToldAndNotAfterwards)
{
    Give(control, L"|abcd");
    std::wstring told;
    host.onMessage = [&](const ControlHost::Message& message) {
        if (message.id == ED_NOTIFY_CARET && message.wParam)
            told = Marked(control);
    };
    dropText(L"XY", At(0, 2));
    host.onMessage = nullptr;
    EXPECT_EQ(told, L"ab[XY]|cd");
    EXPECT_EQ(Marked(control), L"abXY|cd");
}

TEST_F(Drop, BringsTheHostForwardAndTakesTheFocus)
{
    ControlHost other;
    ::SetForegroundWindow(other.Window());
    Pump(50);
    dropText(L"x", At(0, 0));
    Pump(50);
    EXPECT_EQ(::GetFocus(), control);
    EXPECT_EQ(::GetForegroundWindow(), host.Window());
}

TEST_F(Drop, FilesBecomeTheirPathsALineEachTheLastWithoutABreak)
{
    data->PutFiles({L"C:\\one.txt", L"C:\\два.txt", L"D:\\three"});
    EXPECT_EQ(drop(At(0, 0)), static_cast<DWORD>(DROPEFFECT_MOVE));
    EXPECT_EQ(TextOf(control), L"C:\\one.txt\nC:\\два.txt\nD:\\three");
}

TEST_F(Drop, FilesMayComeAsEightBitText)
{
    data->PutFiles({L"C:\\one.txt", L"C:\\two.txt"}, false);
    drop(At(0, 0));
    EXPECT_EQ(TextOf(control), L"C:\\one.txt\nC:\\two.txt");
}

TEST_F(Drop, APathIsCutAt260Characters)
{
    data->PutFiles({L"C:\\" + std::wstring(257, L'a'), L"C:\\" + std::wstring(300, L'b'), L"C:\\c"});
    drop(At(0, 0));
    EXPECT_EQ(TextOf(control), L"C:\\" + std::wstring(257, L'a') + L"\nC:\\" + std::wstring(257, L'b') + L"\nC:\\c");
}

TEST_F(Drop, TextIsTakenBeforeFiles)
{
    data->PutFiles({L"C:\\one.txt"});
    data->PutText(L"text");
    drop(At(0, 0));
    EXPECT_EQ(TextOf(control), L"text");
}

TEST_F(Drop, AnEmptyTextStopsTheDropThoughThereAreFiles)
{
    Give(control, L"a[bc]|d");
    data->PutFiles({L"C:\\one.txt"});
    data->PutText(L"");
    EXPECT_EQ(drop(At(0, 0)), static_cast<DWORD>(DROPEFFECT_MOVE));  // it is reported as done all the same
    EXPECT_EQ(Marked(control), L"|a[bc]d");
}

TEST_F(Drop, DataOfNeitherFormatDoesNothing)
{
    Give(control, L"a[bc]|d");
    data->Put(CF_TEXT, std::string("text", 5));
    EXPECT_EQ(drop(At(0, 0)), static_cast<DWORD>(DROPEFFECT_MOVE));
    EXPECT_EQ(Marked(control), L"|a[bc]d");
    EXPECT_FALSE(edCanExecCommand(control, ED_COMMAND_UNDO));
}

TEST_F(Drop, ATextWithoutItsTerminatorEndsWithItsBlock)
{
    data->PutText(L"unterminated text", true);
    drop(At(0, 0));
    EXPECT_EQ(TextOf(control).substr(0, 17), L"unterminated text");
}

TEST_F(Drop, BlocksThatTheSourceKeepsAreCopied)
{
    data->keepsBlocks = true;
    data->PutText(L"text");
    drop(At(0, 0));
    EXPECT_EQ(TextOf(control), L"text");
}

TEST_F(Drop, AFileListThatDoesNotEndInItsBlockIsLeftAlone)
{
    DROPFILES head{};
    head.fWide = TRUE;
    const auto bytes = [&](DWORD start, const std::string& names) {
        head.pFiles = start;
        return std::string(reinterpret_cast<const char*>(&head), sizeof head) + names;
    };
    const std::string lists[] = {
        "", "short", bytes(sizeof head, ""), bytes(0xFFFFFFF0, "abcdefgh"), bytes(0, std::string(64, 'x')),
        bytes(sizeof head, std::string(4096, 'x')), bytes(sizeof head, std::string("a\0b\0\0", 5)),
    };
    for (const std::string& list : lists) {
        data.reset(new DragData);
        data->Put(CF_HDROP, list);
        drop(At(0, 0));
        EXPECT_EQ(TextOf(control), L"") << list.size();
    }
}

TEST_F(Drop, AMoveFromElsewhereDeletesTheFirstCharacterBeforeAnyDragAndNothingTheSecondTime)
{
    Give(control, L"|abcd");
    EXPECT_EQ(dropText(L"XY", At(0, 2), 0), static_cast<DWORD>(DROPEFFECT_MOVE));
    EXPECT_EQ(Marked(control), L"bXY|cd");
    dropText(L"Z", At(0, 1), 0);
    EXPECT_EQ(TextOf(control), L"bXYXYcd");  // the data object still gives its first text
    EXPECT_TRUE(edExecCommand(control, ED_COMMAND_UNDO));
    EXPECT_TRUE(edExecCommand(control, ED_COMMAND_UNDO));
    EXPECT_EQ(TextOf(control), L"abcd");
}

TEST_F(Drop, ACopyFromElsewhereDeletesNothing)
{
    Give(control, L"|abcd");
    dropText(L"XY", At(0, 2), MK_CONTROL);
    EXPECT_EQ(TextOf(control), L"abXYcd");
}

TEST_F(Drop, WhileADragIsArmedADropFromElsewhereCountsAsOurOwn)
{
    Give(control, L"a[bcd]|efgh");
    SendClick(control, At(0, 2));  // a press inside the selection arms a drag, and nothing disarms it
    data->PutText(L"X");
    drop(At(0, 0), MK_CONTROL);  // inside the range that stands there before the first drag
    EXPECT_EQ(Marked(control), L"|abcdefgh");
}

// ---- Hosts that interfere, and what outlives a control

TEST_F(Drop, ATargetThatOutlivesItsControlTakesNothing)
{
    Give(control, L"abc");
    data->PutText(L"x");
    edDestroyCtrl(control);
    DWORD effect = copyOrMove;
    EXPECT_EQ(target->DragEnter(data.get(), 0, {5, 5}, &effect), S_OK);
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_NONE));
    effect = copyOrMove;
    EXPECT_EQ(target->DragOver(0, {5, 5}, &effect), S_OK);
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_NONE));
    EXPECT_EQ(target->DragLeave(), S_OK);
    effect = copyOrMove;
    EXPECT_EQ(target->Drop(data.get(), 0, {5, 5}, &effect), S_OK);
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_NONE));
}

TEST_F(Drop, ATargetAnswersCallsThatLackTheirArguments)
{
    EXPECT_EQ(target->DragEnter(nullptr, 0, {}, nullptr), E_INVALIDARG);
    EXPECT_EQ(target->DragOver(0, {}, nullptr), E_INVALIDARG);
    EXPECT_EQ(target->Drop(nullptr, 0, {}, nullptr), E_INVALIDARG);
    DWORD effect = copyOrMove;
    EXPECT_EQ(target->Drop(nullptr, 0, {}, &effect), S_OK);
    EXPECT_EQ(TextOf(control), L"");
    void* other = &effect;
    EXPECT_EQ(target->QueryInterface(IID_IDataObject, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
}

struct Misdeed {
    const char* name;
    void (*act)(HWND control);
    bool controlLives;
};

const Misdeed misdeeds[] = {
    {"Destroys", [](HWND control) { edDestroyCtrl(control); }, false},
    {"DestroysTheParent", [](HWND control) { ::DestroyWindow(::GetParent(control)); }, false},
    {"LoadsAShortText", [](HWND control) { edLoadText(control, L"x", 1); }, true},
    {"EmptiesTheText", [](HWND control) { edLoadText(control, nullptr, 0); }, true},
    {"Hides", [](HWND control) { ::ShowWindow(control, SW_HIDE); }, true},
    {"TakesTheFocus", [](HWND control) { ::SetFocus(::GetParent(control)); }, true},
    {"Undoes", [](HWND control) { edExecCommand(control, ED_COMMAND_UNDO); }, true},
    {"EndsTheDropTarget", [](HWND control) { ::RevokeDragDrop(control); }, true},
    {"Pumps", [](HWND) { Pump(); }, true},
};

class MeddlingHosts : public testing::TestWithParam<Misdeed> {};

TEST_P(MeddlingHosts, MayActWhileADropIsOnItsWay)
{
    for (const UINT id : {ED_DRAG_ENTER_PARENT, ED_NOTIFY_CARET, ED_NOTIFY_SCROLL}) {
        ControlHost host;
        const HWND control = host.Show(L"");
        std::wstring text = L"one";
        for (int i = 0; i < 100; ++i)
            text += L"\nline";
        edLoadText(control, text.c_str(), 0xFFFFFFFF);
        ::SetFocus(host.Window());
        const auto target = TargetOf(control);
        const xTComPtr<DragData> data(new DragData);
        data->PutText(L"dropped\r\ntext");
        bool busy = false;
        int times = 0;
        host.onMessage = [&](const ControlHost::Message& message) {
            if (message.id != id || std::exchange(busy, true))
                return;
            ++times;
            GetParam().act(control);
            busy = false;
        };
        RECT client{};
        ::GetClientRect(control, &client);
        const POINTL bottom = onScreen(control, {20, client.bottom});
        DWORD effect = copyOrMove;
        target->DragEnter(data.get(), 0, bottom, &effect);
        effect = copyOrMove;
        target->DragOver(0, bottom, &effect);  // scrolls
        effect = copyOrMove;
        EXPECT_EQ(target->Drop(data.get(), 0, bottom, &effect), S_OK);
        host.onMessage = nullptr;
        EXPECT_GT(times, 0) << id;
        EXPECT_EQ(edGetHWND(control) != nullptr, GetParam().controlLives);
        EXPECT_EQ(edLoadText(control, L"alive", 5), GetParam().controlLives);
        EXPECT_TRUE(GetParam().controlLives || effect == DROPEFFECT_NONE);
        Pump();
    }
}

INSTANTIATE_TEST_SUITE_P(Each, MeddlingHosts, testing::ValuesIn(misdeeds), [](const auto& info) { return info.param.name; });

}  // namespace
