// Drags within a control, through the drag loop of the system.

#include "tests/control/drag/DragFixture.h"

#include <optional>

namespace {

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
    GivenMarked(control, row.before);
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
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(drag(At(0, 1), {[this] { PutPointer(control, At(0, 5)); }, [] { PutKey(VK_ESCAPE, true); },
                                [] { PutKey(VK_ESCAPE, false); }}));
    EXPECT_EQ(Marked(control), L"a[bc]de|f");  // but for the caret, which the drag has taken along
    EXPECT_FALSE(canUndo(control));
}

TEST_F(Drag, TheRightButtonCancels)
{
    GivenMarked(control, L"a[bc]|def");
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
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(drag(At(0, 1), {[] { ::SetCursorPos(outside.x, outside.y); }}));
    EXPECT_EQ(TextOf(control), L"abcdef");
    EXPECT_TRUE(edGetMode(control, ED_MODE_SELECTION));
    EXPECT_FALSE(canUndo(control));
}

TEST_F(Drag, AfterADragAPressBeginsASelectionAgain)
{
    GivenMarked(control, L"a[bc]|def");
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
    GivenMarked(control, L"a[bc]|def");
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
    GivenMarked(fixed, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), fixed, At(0, 5)));
    EXPECT_EQ(Marked(fixed), L"a[bcde]|f");  // it selects
}

}  // namespace
