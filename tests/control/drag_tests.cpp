// Drags of the selection with the real mouse, through the system's own drag loop: within a control, between controls,
// and with other programs.

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/DragData.h"
#include "tests/support/win/Pointer.h"

#include <gtest/gtest.h>

#include <ole2.h>

#include <optional>
#include <utility>

namespace {

using Steps = std::vector<std::function<void()>>;

constexpr POINT outside{1200, 950};  // a place of the screen with no window of ours

void undo(HWND control, int times = 1)
{
    ::SetFocus(control);
    for (int i = 0; i < times; ++i)
        EXPECT_TRUE(edExecCommand(control, ED_COMMAND_UNDO));
}

bool canUndo(HWND control)
{
    ::SetFocus(control);
    return edCanExecCommand(control, ED_COMMAND_UNDO);
}

class Drag : public testing::Test {
protected:
    ControlHost host{600, 300};
    HWND control = host.Show(L"");

    void SetUp() override { Pump(50); }
    ~Drag() override
    {
        PutButton(false);
        PutKey(VK_CONTROL, false);
        Pump(50);
    }
    /// Presses at `from`, moves on a little, plays `then` and lets the button go.
    [[nodiscard]] bool drag(POINT from, Steps then, bool release = true)
    {
        Steps steps{
            [this, from] { PutPointer(control, from); },
            [] { PutButton(true); },
            [this, from] { PutPointer(control, {from.x + 2, from.y}); },
        };
        steps.insert(steps.end(), then.begin(), then.end());
        if (release)
            steps.push_back([] { PutButton(false); });
        steps.push_back([] {});
        return PlaySteps(steps);
    }
    [[nodiscard]] bool dragTo(POINT from, HWND window, POINT to, bool copying = false)
    {
        Steps steps{
            [window, to] { PutPointer(window, {to.x, to.y + 3}); },
            [window, to] { PutPointer(window, to); },
        };
        // The last thing before the drop: a key held by hand is forgotten at the next move of the pointer.
        if (copying)
            steps.push_back([] { PutKey(VK_CONTROL, true); });
        return drag(from, steps);
    }
};

// ---- Within a control

struct Move {
    const char* name;
    const wchar_t* before;
    POINT from;
    POINT to;
    bool copying;
    const wchar_t* told;   // as the host finds the text when it is told of the change; null: it is not told
    const wchar_t* after;
    const wchar_t* undone;  // null: there is nothing to undo
};

class Moves : public Drag, public testing::WithParamInterface<Move> {};

TEST_P(Moves, AreOneUndoStep)
{
    const Move& row = GetParam();
    Give(control, row.before);
    std::optional<std::wstring> told;
    host.onMessage = [&](const ControlHost::Message& message) {
        if (message.id == ED_NOTIFY_CARET && message.wParam)
            told = Marked(control);
    };
    EXPECT_TRUE(dragTo(row.from, control, row.to, row.copying));
    host.onMessage = nullptr;
    EXPECT_EQ(told, row.told ? std::optional<std::wstring>(row.told) : std::nullopt);
    EXPECT_EQ(Marked(control), row.after);
    if (row.undone) {
        undo(control);
        EXPECT_EQ(Marked(control), row.undone);
    }
    EXPECT_FALSE(canUndo(control));
}

// The text is selected at its new place while the host is told; the drop clears every selection at its end.
const Move rows[] = {
    {"Later", L"a[bc]|def", At(0, 1), At(0, 5), false, L"ade[bc]|f", L"adebc|f", L"a[bc]|def"},
    {"Earlier", L"abc[de]|f", At(0, 3), At(0, 1), false, L"a[de]|bcf", L"ade|bcf", L"abc[de]|f"},
    {"LaterOnAnotherLine", L"a[bc]|d\nefgh", At(0, 2), At(1, 2), false, L"ad\nef[bc]|gh", L"ad\nefbc|gh", L"a[bc]|d\nefgh"},
    {"EarlierOnAnotherLine", L"abcd\ne[fg]|h", At(1, 1), At(0, 2), false, L"ab[fg]|cd\neh", L"abfg|cd\neh", L"abcd\ne[fg]|h"},
    {"OfSeveralLines", L"a[b\nc]|d\nefgh", At(0, 1), At(2, 2), false, L"ad\nef[b\nc]|gh", L"ad\nefb\nc|gh", L"a[b\nc]|d\nefgh"},
    {"JustBehindItself", L"a[bc]|def", At(0, 1), At(0, 3), false, L"a[bc]|def", L"abc|def", L"a[bc]|def"},
    {"CopyLater", L"a[bc]|def", At(0, 1), At(0, 5), true, L"abcde[bc]|f", L"abcdebc|f", L"abcde|f"},
    {"CopyEarlier", L"abc[de]|f", At(0, 3), At(0, 1), true, L"a[de]|bcdef", L"ade|bcdef", L"a|bcdef"},
    {"OnItselfDoesNothingAndClearsTheSelection", L"a[bcde]|f", At(0, 1), At(0, 3), false, nullptr, L"abc|def", nullptr},
    {"OnItsOwnLastCharacterMovesNothing", L"a[bcd]|ef", At(0, 1), At(0, 3), false, nullptr, L"abc|def", nullptr},
    {"OnItsOwnFirstCharacterMovesNothing", L"a[bcd]|ef", At(0, 2), At(0, 1), false, nullptr, L"a|bcdef", nullptr},
    {"CopyOnItselfCopiesNothing", L"a[bcde]|f", At(0, 1), At(0, 3), true, nullptr, L"abc|def", nullptr},
};

INSTANTIATE_TEST_SUITE_P(Each, Moves, testing::ValuesIn(rows), [](const auto& info) { return info.param.name; });

TEST_F(Drag, EscLeavesEverythingAsItWas)
{
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(drag(At(0, 1), {[this] { PutPointer(control, At(0, 5)); }, [] { PutKey(VK_ESCAPE, true); },
                                [] { PutKey(VK_ESCAPE, false); }}));
    EXPECT_EQ(Marked(control), L"a[bc]de|f");  // but for the caret, which the drag has taken along
    EXPECT_FALSE(canUndo(control));
}

TEST_F(Drag, TheRightButtonCancels)
{
    Give(control, L"a[bc]|def");
    const auto rightButton = [](DWORD flag) {
        return [flag] {
            INPUT input{};
            input.type = INPUT_MOUSE;
            input.mi.dwFlags = flag;
            ::SendInput(1, &input, sizeof input);
        };
    };
    EXPECT_TRUE(drag(At(0, 1), {[this] { PutPointer(control, At(0, 5)); }, rightButton(MOUSEEVENTF_RIGHTDOWN),
                                rightButton(MOUSEEVENTF_RIGHTUP)}));
    EXPECT_EQ(TextOf(control), L"abcdef");
}

TEST_F(Drag, OutsideEveryWindowChangesNothing)
{
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(drag(At(0, 1), {[] { ::SetCursorPos(outside.x, outside.y); }}));
    EXPECT_EQ(TextOf(control), L"abcdef");
    EXPECT_TRUE(edGetMode(control, ED_MODE_SELECTION));
    EXPECT_FALSE(canUndo(control));
}

TEST_F(Drag, AfterADragAPressBeginsASelectionAgain)
{
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), control, At(0, 5)));
    LetDoubleClickTimePass();
    MovePointer(control, At(0, 0));
    PressButton();
    MovePointer(control, At(0, 3));
    ReleaseButton();
    EXPECT_EQ(Marked(control), L"[ade]|bcf");
}

TEST_F(Drag, AtTheLowerEdgeScrolls)
{
    std::wstring text = L"first";
    for (int i = 0; i < 200; ++i)
        text += L"\nline";
    edLoadText(control, text.c_str(), 0xFFFFFFFF);
    edSetCaretPositionAdv(control, 0, 0, 0);
    edSetCaretPositionAdv(control, 0, 5, ED_CARET_SELECT);
    RECT client{};
    ::GetClientRect(control, &client);
    Steps steps;
    for (int i = 0; i < 6; ++i)  // the very edge is the scroll bar's first row of pixels: the target sees it too
        steps.push_back([this, client, i] { PutPointer(control, {60 + 4 * i, client.bottom}); });
    steps.push_back([this] { PutPointer(control, At(4, 2)); });
    EXPECT_TRUE(drag(At(0, 1), steps));
    edPoint view{};
    edGetPosition(control, ED_POSITION_VIEWPORT, &view);
    EXPECT_GT(view.y, 0);
    EXPECT_EQ(TextOf(control).find(L"lifirstne"), TextOf(control).rfind(L"first") - 2);
}

// ---- A press that was let go of without a move

TEST_F(Drag, AfterAPressWithoutAMoveTheNextMoveBeginsADragThatEndsAtOnce)
{
    Give(control, L"a[bc]|def");
    MovePointer(control, At(0, 5));  // where a drop would move the text to
    SendClick(control, At(0, 1));
    const HCURSOR arrow = ::LoadCursorW(nullptr, IDC_ARROW);
    ::SetCursor(arrow);
    const ULONGLONG start = ::GetTickCount64();
    SendMouse(control, WM_MOUSEMOVE, At(0, 2), 0);
    EXPECT_LT(::GetTickCount64() - start, 2000u);
    EXPECT_EQ(TextOf(control), L"abcdef");
    EXPECT_TRUE(edGetMode(control, ED_MODE_SELECTION));
    SendMouse(control, WM_MOUSEMOVE, At(0, 2), 0);  // nothing is armed any more: an ordinary move
    EXPECT_EQ(::GetCursor(), ::LoadCursorW(nullptr, IDC_IBEAM));
}

TEST_F(Drag, AReadOnlyControlStartsNone)
{
    edCreateParams params{};
    params.flags = ED_CREATE_READONLY;
    const HWND fixed = host.Show(L"", params);
    ::SetWindowPos(fixed, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    Give(fixed, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), fixed, At(0, 5)));
    EXPECT_EQ(Marked(fixed), L"a[bcde]|f");  // it selects
}

// ---- Between controls

class DragBetween : public Drag {
protected:
    ControlHost otherHost{500, 200};
    HWND other = otherHost.Show(L"");

    void SetUp() override
    {
        ::SetWindowPos(otherHost.Window(), nullptr, 650, 20, 0, 0, SWP_NOSIZE);
        ::SetForegroundWindow(host.Window());
        Pump(50);
    }
};

TEST_F(DragBetween, AMoveIsAStepInEach)
{
    Give(other, L"|uvw");
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 2)));
    EXPECT_EQ(Marked(control), L"a|def");
    // A move from elsewhere deletes the target's own range too, which is its first character before any drag there.
    EXPECT_EQ(Marked(other), L"vbc|w");
    undo(other);
    EXPECT_EQ(TextOf(other), L"uvw");
    EXPECT_FALSE(canUndo(other));
    EXPECT_EQ(TextOf(control), L"adef");
    undo(control);
    EXPECT_EQ(TextOf(control), L"abcdef");
    EXPECT_FALSE(canUndo(control));
}

TEST_F(DragBetween, ASecondMoveIntoTheSameControlDeletesNothingThere)
{
    Give(other, L"|uvw");
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 2)));
    Give(control, L"[gh]|i");
    LetDoubleClickTimePass();
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 0)));
    EXPECT_EQ(TextOf(other), L"ghvbcw");
}

TEST_F(DragBetween, ACopyLeavesTheSource)
{
    Give(other, L"|uvw");
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 2), true));
    EXPECT_EQ(TextOf(control), L"abcdef");
    EXPECT_EQ(TextOf(other), L"uvbcw");
    EXPECT_FALSE(canUndo(control));
}

TEST_F(DragBetween, TheTargetGetsTheFocusAndItsHostComesForward)
{
    Give(other, L"|uvw");
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 2)));
    Pump(50);
    EXPECT_EQ(::GetFocus(), other);
    EXPECT_EQ(::GetForegroundWindow(), otherHost.Window());
    EXPECT_EQ(otherHost.Count(ED_DRAG_ENTER_PARENT), 1u);
}

TEST_F(DragBetween, AReadOnlyControlRefuses)
{
    edCreateParams params{};
    params.flags = ED_CREATE_READONLY;
    const HWND fixed = otherHost.Show(L"fixed", params);
    ::SetWindowPos(fixed, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    edDestroyCtrl(other);
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), fixed, At(0, 2)));
    EXPECT_EQ(TextOf(fixed), L"fixed");
    EXPECT_EQ(TextOf(control), L"abcdef");
}

TEST_F(DragBetween, ACancelledDragLeavesItsRangeForAMoveFromElsewhereToDelete)
{
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(drag(At(0, 1), {[] { ::SetCursorPos(outside.x, outside.y); }}));
    Give(other, L"[X]|yz");
    Steps steps{
        [this] { PutPointer(other, At(0, 0)); },
        [] { PutButton(true); },
        [this] { PutPointer(other, {At(0, 0).x + 2, At(0, 0).y}); },
        [this] { PutPointer(control, {At(0, 5).x, At(0, 5).y + 3}); },
        [this] { PutPointer(control, At(0, 5)); },
        [] { PutButton(false); },
        [] {},
    };
    EXPECT_TRUE(PlaySteps(steps));
    EXPECT_EQ(TextOf(control), L"adeXf");
    EXPECT_EQ(TextOf(other), L"yz");
}

TEST_F(DragBetween, AMoveOutLeavesOneCharacterForAMoveFromElsewhereToDelete)
{
    Give(other, L"|uvw");
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 3)));
    ASSERT_EQ(TextOf(control), L"adef");
    const auto target = TargetOf(control);
    const xTComPtr<DragData> data(new DragData);
    data->PutText(L"X");
    POINT start = At(0, 0);
    ::ClientToScreen(control, &start);
    DWORD effect = DROPEFFECT_MOVE;
    target->Drop(data.get(), 0, {start.x, start.y}, &effect);
    EXPECT_EQ(TextOf(control), L"Xadf");  // the place of the moved text's last character
}

// ---- With other programs

class DragOut : public DragBetween {
protected:
    xTComPtr<ForeignTarget> foreign{new ForeignTarget};
    HWND window = nullptr;

    void SetUp() override
    {
        DragBetween::SetUp();
        window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE | WS_BORDER | SS_NOTIFY, 700, 400, 200, 100, nullptr,
                                   nullptr, nullptr, nullptr);
        ASSERT_EQ(::RegisterDragDrop(window, foreign.get()), S_OK);
        Pump(50);
    }
    void TearDown() override
    {
        ::RevokeDragDrop(window);
        ::DestroyWindow(window);
    }
};

TEST_F(DragOut, AProgramThatTakesACopyLeavesTheSourceAsItIs)
{
    Give(control, L"a[b\nc]|d");
    EXPECT_TRUE(dragTo(At(0, 1), window, {50, 50}));
    EXPECT_EQ(foreign->dropped, std::wstring(L"b\r\nc\0", 5));  // with the terminator
    EXPECT_EQ(TextOf(control), L"ab\ncd");
    EXPECT_TRUE(edGetMode(control, ED_MODE_SELECTION));
    EXPECT_FALSE(canUndo(control));
}

TEST_F(DragOut, AProgramThatMovesHasTheSourceDeletedAsOneStep)
{
    foreign->effect = DROPEFFECT_MOVE;
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), window, {50, 50}));
    EXPECT_EQ(foreign->dropped, std::wstring(L"bc\0", 3));
    EXPECT_EQ(Marked(control), L"a|def");
    undo(control);
    EXPECT_EQ(TextOf(control), L"abcdef");
    EXPECT_FALSE(canUndo(control));
}

TEST_F(DragOut, AProgramMayAnswerWithAnEffectThatWasNotOffered)
{
    foreign->onDrop = [](IDataObject*) {};
    foreign->effect = 0;
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), window, {50, 50}));
    EXPECT_EQ(TextOf(control), L"abcdef");
}

TEST_F(DragOut, TheDataOffersUnicodeTextAndNothingElse)
{
    foreign->onDrop = [](IDataObject* data) {
        xTComPtr<IEnumFORMATETC> formats;
        IEnumFORMATETC* made = nullptr;
        ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, &made), S_OK);
        formats.reset(made);
        FORMATETC format{};
        ULONG got = 0;
        EXPECT_EQ(formats->Next(1, &format, &got), S_OK);
        EXPECT_EQ(format.cfFormat, CF_UNICODETEXT);
        EXPECT_EQ(format.tymed, static_cast<DWORD>(TYMED_HGLOBAL));
        EXPECT_EQ(data->QueryGetData(&format), S_OK);
        EXPECT_EQ(formats->Next(1, &format, &got), S_FALSE);
        STGMEDIUM medium{};
        FORMATETC bytes{CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
        EXPECT_EQ(data->QueryGetData(&bytes), DV_E_FORMATETC);
        EXPECT_EQ(data->GetData(&bytes, &medium), DV_E_FORMATETC);
        FORMATETC file{CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_FILE};
        EXPECT_EQ(data->GetData(&file, &medium), DV_E_FORMATETC);
        EXPECT_EQ(data->GetData(nullptr, &medium), E_INVALIDARG);
        EXPECT_EQ(data->EnumFormatEtc(DATADIR_SET, &made), E_NOTIMPL);
        DWORD connection = 0;
        EXPECT_EQ(data->DAdvise(&bytes, 0, nullptr, &connection), OLE_E_ADVISENOTSUPPORTED);
    };
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), window, {50, 50}));
    EXPECT_EQ(foreign->dropped, std::wstring(L"bc\0", 3));
}

TEST_F(DragOut, DataThatAProgramHoldsOnToIsEmptyAfterTheDragAndOutlivesTheControl)
{
    xTComPtr<IDataObject> held;
    foreign->onDrop = [&](IDataObject* data) { held = Shared(data); };
    Give(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), window, {50, 50}));
    ASSERT_NE(held, nullptr);
    EXPECT_EQ(UnicodeBlockOf(held.get()), L"");
    edDestroyCtrl(control);
    FORMATETC format{CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    EXPECT_EQ(held->QueryGetData(&format), DV_E_FORMATETC);
    held->AddRef();
    EXPECT_EQ(held->Release(), 1u);
}

// ---- Hosts that interfere

struct Meddling {
    const char* name;
    void (*act)(HWND source, HWND target);
    bool sourceLives;
    bool targetLives;
};

class MeddlingDrags : public DragBetween, public testing::WithParamInterface<Meddling> {};

TEST_P(MeddlingDrags, LeaveTheProcessWhole)
{
    for (const bool onTarget : {false, true}) {
        edDestroyCtrl(control);
        edDestroyCtrl(other);
        const HWND source = control = host.Show(L"");
        const HWND target = other = otherHost.Show(L"target");
        ::SetForegroundWindow(host.Window());
        Give(source, L"a[bc]|def");
        bool done = false;
        otherHost.onMessage = [&](const ControlHost::Message& message) {
            if (onTarget && message.id == ED_DRAG_ENTER_PARENT && !std::exchange(done, true))
                GetParam().act(source, target);
        };
        Steps steps{
            [&] { PutPointer(source, At(0, 4)); },
            [&] {
                if (!onTarget && !std::exchange(done, true))
                    GetParam().act(source, target);
            },
            [&] { PutPointer(target, At(0, 2)); },
            [&] { PutPointer(target, At(0, 3)); },
        };
        EXPECT_TRUE(drag(At(0, 1), steps));
        otherHost.onMessage = nullptr;
        EXPECT_TRUE(done);
        EXPECT_EQ(edGetHWND(source) != nullptr, GetParam().sourceLives);
        EXPECT_EQ(edGetHWND(target) != nullptr, GetParam().targetLives);
        EXPECT_EQ(edLoadText(source, L"alive", 5), GetParam().sourceLives);
        EXPECT_EQ(edLoadText(target, L"alive", 5), GetParam().targetLives);
    }
}

const Meddling meddlings[] = {
    {"DestroysTheSource", [](HWND source, HWND) { edDestroyCtrl(source); }, false, true},
    {"DestroysTheTarget", [](HWND, HWND target) { edDestroyCtrl(target); }, true, false},
    {"DestroysBoth", [](HWND source, HWND target) { edDestroyCtrl(source); edDestroyCtrl(target); }, false, false},
    {"ReloadsTheSource", [](HWND source, HWND) { edLoadText(source, L"x", 1); }, true, true},
    {"EmptiesTheTarget", [](HWND, HWND target) { edLoadText(target, nullptr, 0); }, true, true},
    {"SendsMovesIntoTheDrag", [](HWND source, HWND) { SendMouse(source, WM_MOUSEMOVE, At(0, 1)); }, true, true},
    {"EndsTheTargetsRegistration", [](HWND, HWND target) { ::RevokeDragDrop(target); }, true, true},
};

INSTANTIATE_TEST_SUITE_P(Each, MeddlingDrags, testing::ValuesIn(meddlings), [](const auto& info) { return info.param.name; });

}  // namespace
