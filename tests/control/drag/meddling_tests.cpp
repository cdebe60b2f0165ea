// Hosts that interfere while a drop is on its way, and a drop target that outlives its control.

#include "tests/control/drag/DropFixture.h"
#include "tests/support/win/Misdeeds.h"

#include <ole2.h>

#include <utility>

namespace {

TEST_F(Drop, ATargetThatOutlivesItsControlTakesNothing)
{
    GivenMarked(control, L"abc");
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

const std::vector<Misdeed> misdeeds = MisdeedsAnd({
    {"Undoes", [](HWND control) { edExecCommand(control, ED_COMMAND_UNDO); }, true},
    {"EndsTheDropTarget", [](HWND control) { ::RevokeDragDrop(control); }, true},
});

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
