// The drop target of a control: who has one, what it answers, and what a drag over the control does.

#include "tests/control/drag/DropFixture.h"
#include "tests/support/win/MessageBoxes.h"

#include <ole2.h>

#include <vector>

namespace {

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
    GivenMarked(control, L"a[bc]|d\nefgh");
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

}  // namespace
