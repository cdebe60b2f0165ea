// Hosts that interfere, and who lives and who dies.
#include "tests/control/find/FindFixture.h"

namespace {

// ---- Message boxes stand over the dialog

TEST_F(Find, WhileABoxWaitsNeitherTheDialogNorTheHostGoesOn)
{
    given(L"text");
    host.answer = 1;
    bool dialogGoesOn = true;
    bool hostGoesOn = true;
    boxes.onBox = [&](HWND) {
        dialogGoesOn = ::IsWindowEnabled(dialog()) != FALSE;
        hostGoesOn = ::IsWindowEnabled(host.Window()) != FALSE;
    };
    open(openFind);
    ::SetActiveWindow(dialog());
    find(L"nowhere");
    EXPECT_EQ(boxes.texts.size(), 1u);
    EXPECT_FALSE(dialogGoesOn);
    EXPECT_FALSE(hostGoesOn);
    EXPECT_TRUE(::IsWindowEnabled(dialog()));
    EXPECT_TRUE(::IsWindowEnabled(host.Window()));
}

// ---- Who lives and who dies

TEST_F(Find, DestroyingTheControlDestroysItsDialog)
{
    for (const Command which : {openFind, openReplace}) {
        given(L"text");
        const HWND window = open(which);
        ASSERT_NE(window, nullptr);
        edDestroyCtrl(control);
        EXPECT_FALSE(::IsWindow(window));
    }
}

TEST_F(Find, DestroyingTheHostDestroysTheDialogToo)
{
    given(L"text");
    const HWND window = open(openFind);
    ::DestroyWindow(host.Window());
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(edExecCommand(control, openFind), 0);
}

TEST_F(Find, ADialogWhoseControlHasLostItsWindowDoesNoHarm)
{
    given(L"text");
    const HWND window = open(openReplace);
    ::DestroyWindow(control);  // not as the library asks for, so the object stays
    ::SendDlgItemMessageW(window, pressFind, BM_CLICK, 0, 0);
    ::SendDlgItemMessageW(window, pressReplaceAll, BM_CLICK, 0, 0);
    ::SendDlgItemMessageW(window, pressCancel, BM_CLICK, 0, 0);
    Pump();
    EXPECT_FALSE(::IsWindow(window));
}

using Deed = void (*)(HWND control, HWND dialog);

struct Interference {
    const char* name;
    Deed deed;
    bool controlLives;
    bool dialogLives;
};

const Interference interferences[] = {
    {"DestroysTheControl", [](HWND control, HWND) { edDestroyCtrl(control); }, false, false},
    {"DestroysTheControlsWindow", [](HWND control, HWND) { ::DestroyWindow(control); }, false, true},
    {"DestroysTheDialog", [](HWND, HWND dialog) { ::DestroyWindow(dialog); }, true, false},
    {"ClosesTheDialog", [](HWND, HWND dialog) { ::SendMessageW(dialog, WM_CLOSE, 0, 0); }, true, false},
    {"ClosesAndOpensTheDialog",
     [](HWND control, HWND dialog) {
         ::SendMessageW(dialog, WM_CLOSE, 0, 0);
         edExecCommand(control, openFind);
     },
     true, true},
    {"EmptiesTheText", [](HWND control, HWND) { edLoadText(control, nullptr, 0); }, true, true},
    {"LoadsAShorterText", [](HWND control, HWND) { edLoadText(control, L"s", 1); }, true, true},
    {"Pumps", [](HWND, HWND) { Pump(20); }, true, true},
    {"SearchesAgain",
     [](HWND control, HWND) {
         static int left = 3;
         if (left-- > 0)
             edExecCommand(control, findNext);
     },
     true, true},
    {"DestroysItself", [](HWND control, HWND) { ::DestroyWindow(::GetParent(control)); }, false, false},
};

class FindInterference : public Find, public testing::WithParamInterface<Interference> {
protected:
    void asked()
    {
        host.answer = 1;
        host.onMessage = [this](const ControlHost::Message& message) {
            if (message.id == ED_NOTIFY_FIND)
                GetParam().deed(control, dialog());
        };
    }
    void expectWhatLives()
    {
        host.onMessage = nullptr;
        EXPECT_EQ(dialog() != nullptr, GetParam().dialogLives);
        EXPECT_EQ(edGetHWND(control) != nullptr, GetParam().controlLives);
        if (HWND left = GetParam().controlLives ? nullptr : dialog())
            ::SendMessageW(left, WM_CLOSE, 0, 0);
        if (!GetParam().controlLives)
            return;
        if (dialog())
            press(pressCancel);
        ::InvalidateRect(control, nullptr, TRUE);
        ::UpdateWindow(control);
        edLoadText(control, L"alive", 1);
        EXPECT_NE(open(openFind), nullptr);
        find(L"alive");
    }
};

constexpr const wchar_t* longText = L"here is a key\n\n\n\n\n\n\nno more";

TEST_P(FindInterference, OfAHostThatTheDialogsSearchAsks)
{
    given(longText, 7, 0);
    open(openFind);
    asked();
    find(L"key");
    expectWhatLives();
}

TEST_P(FindInterference, OfAHostThatFindNextAsks)
{
    given(longText);
    find(L"key");
    edSetCaretPosition(control, 7, 0);
    asked();
    EXPECT_EQ(edExecCommand(control, findNext), 1);
    Pump();
    expectWhatLives();
}

TEST_P(FindInterference, OfAHostThatReplaceAsks)
{
    given(longText, 7, 0);
    open(openReplace);
    asked();
    replace(pressReplace, L"key", L"lock");
    expectWhatLives();
}

INSTANTIATE_TEST_SUITE_P(Each, FindInterference, testing::ValuesIn(interferences),
                         [](const auto& info) { return info.param.name; });

TEST_F(Find, AControlThatIsDestroyedWhileItsDialogOpensTakesItAlong)
{
    given(L"text");
    host.onMessage = [&](const ControlHost::Message& message) {
        if (message.id == ED_NOTIFY_CARET && message.lParam == -1)
            edDestroyCtrl(control);  // the dialog takes the focus
    };
    edExecCommand(control, openFind);
    Pump();
    EXPECT_EQ(edGetHWND(control), nullptr);
    EXPECT_EQ(dialog(), nullptr);
}

TEST_F(Find, AFindMessageThatNoDialogSentIsIgnored)
{
    given(L"text text");
    const UINT message = ::RegisterWindowMessageW(FINDMSGSTRINGW);
    FINDREPLACEW foreign{};
    wchar_t what[] = L"text";
    foreign.lStructSize = sizeof foreign;
    foreign.Flags = FR_FINDNEXT | FR_DOWN;
    foreign.lpstrFindWhat = what;
    for (const LPARAM lParam : {LPARAM{0}, LPARAM{1}, LPARAM{-1}, reinterpret_cast<LPARAM>(&foreign)})
        EXPECT_EQ(::SendMessageW(control, message, 0, lParam), 0);
    EXPECT_EQ(caret(), "0,0");
    EXPECT_EQ(edExecCommand(control, findNext), 0) << "nothing was remembered";
}

}  // namespace
