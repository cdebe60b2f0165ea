// What the keys leave on the screen.

#include "tests/control/keys/KeysFixture.h"

#include <functional>
#include <vector>

namespace {

using namespace keys;

// How often the system asks a control to paint, while one of these lives.
class Paints {
public:
    explicit Paints(HWND control) : m_control(control)
    {
        count = 0;
        procedure = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Paints::Procedure)));
    }
    Paints(const Paints&) = delete;
    Paints& operator=(const Paints&) = delete;
    ~Paints() { ::SetWindowLongPtrW(m_control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)); }

    [[nodiscard]] int Count() const { return count; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam)
    {
        count += id == WM_PAINT;
        return ::CallWindowProcW(procedure, window, id, wParam, lParam);
    }

    HWND m_control;
    static inline WNDPROC procedure = nullptr;
    static inline int count = 0;
};

std::string DifferenceFromAFullRepaint(HWND control)
{
    const Picture now(control);
    ::InvalidateRect(control, nullptr, TRUE);
    ::UpdateWindow(control);
    return now.Difference(Picture(control));
}

constexpr int lastRow = 29;  // of those that the control of these tests shows whole

// What is done to a text of 500 long lines with line 100 at the top.
struct Gesture {
    const char* name;
    int line;  // of the caret before
    int column;
    std::function<void(HWND)> act;
};

std::ostream& operator<<(std::ostream& out, const Gesture& gesture) { return out << gesture.name; }

std::function<void(HWND)> Key(UINT key, unsigned held = none)
{
    return [=](HWND control) { Press(control, key, held); };
}

const Gesture gestures[] = {
    {"Left", 110, 5, Key(VK_LEFT)},
    {"Down", 110, 5, Key(VK_DOWN)},
    {"ShiftDown", 110, 5, Key(VK_DOWN, shift)},
    {"Up", 110, 5, Key(VK_UP)},
    {"DownAtTheBottom", 100 + lastRow, 5, Key(VK_DOWN)},
    {"ShiftDownAtTheBottom", 100 + lastRow, 5, Key(VK_DOWN, shift)},
    {"UpAtTheTop", 100, 5, Key(VK_UP)},
    {"RightBeyondTheRightEdge", 110, 79, Key(VK_RIGHT)},
    {"WordRight", 110, 5, Key(VK_RIGHT, ctrl)},
    {"Home", 110, 5, Key(VK_HOME)},
    {"EndBeyondTheRightEdge", 110, 5, Key(VK_END)},
    {"ShiftEnd", 110, 5, Key(VK_END, shift)},
    {"ControlHome", 110, 5, Key(VK_HOME, ctrl)},
    {"ControlEnd", 110, 5, Key(VK_END, ctrl)},
    {"PageDown", 110, 5, Key(VK_NEXT)},
    {"ShiftPageUp", 110, 5, Key(VK_PRIOR, shift)},
    {"ALetter", 110, 5, [](HWND control) { Type(control, L'x'); }},
    {"Enter", 110, 5, [](HWND control) { Type(control, L'\r'); }},
    {"AJumpOfTheHosts", 110, 5, [](HWND control) { edSetCaretPosition(control, 140, 3); }},
    {"AFarJumpOfTheHosts", 110, 5, [](HWND control) { edSetCaretPosition(control, 450, 3); }},
    {"AScrollByALine", 110, 5, [](HWND control) { ::SendMessageW(control, WM_VSCROLL, SB_LINEDOWN, 0); }},
    {"AScrollByAPageDown", 110, 5, [](HWND control) { ::SendMessageW(control, WM_VSCROLL, SB_PAGEDOWN, 0); }},
    {"AScrollByAPageUp", 110, 5, [](HWND control) { ::SendMessageW(control, WM_VSCROLL, SB_PAGEUP, 0); }},
};

class OnePaint : public Keys, public testing::WithParamInterface<Gesture> {
protected:
    void SetUp() override
    {
        std::wstring text;
        for (int line = 0; line < 500; ++line)
            text += std::to_wstring(line) + L" is a line that reaches beyond the right edge of the control that shows it here" +
                    std::wstring(20, L'x') + L'\n';
        edLoadText(control, (text + L"end").c_str(), 0xFFFFFFFF);
        place(GetParam().line, GetParam().column);
    }
    // Line 100 stands at the top, and nothing is left to paint.
    void place(int line, int column)
    {
        edSetCaretPositionAdv(control, line, column, ED_CARET_FOCUS);
        edSetScrollPosition(control, 100, -1);
        Pump();
        ::UpdateWindow(control);
        ASSERT_EQ(topLine(), 100);
    }
    POINT systemCaret() const
    {
        POINT at{};
        ::GetCaretPos(&at);
        return at;
    }
};

TEST_P(OnePaint, IsAllThatAGestureTakes)
{
    const Paints paints(control);
    GetParam().act(control);
    Pump();
    ::UpdateWindow(control);
    EXPECT_EQ(paints.Count(), 1);
}

TEST_P(OnePaint, LeavesTheSamePictureAsAFullRepaintAndTheCaretInItsPlace)
{
    GetParam().act(control);
    ::UpdateWindow(control);
    const POINT caret = systemCaret();
    EXPECT_EQ(DifferenceFromAFullRepaint(control), "");
    EXPECT_EQ(systemCaret().x, caret.x);
    EXPECT_EQ(systemCaret().y, caret.y);
}

TEST_P(OnePaint, ShowsTheCaretAgain)
{
    GetParam().act(control);
    ::UpdateWindow(control);
    const POINT at = systemCaret();
    const HDC dc = ::GetDC(control);
    const COLORREF withCaret = ::GetPixel(dc, at.x, at.y + 7);
    ::ReleaseDC(control, dc);
    const Picture without(control);
    if (withCaret != CLR_INVALID)  // in view
        EXPECT_NE(withCaret, without.At(at.x, at.y + 7));
    else
        EXPECT_EQ(std::string_view(GetParam().name).substr(0, 8), "AScrollB");
}

INSTANTIATE_TEST_SUITE_P(Each, OnePaint, testing::ValuesIn(gestures), [](const auto& info) { return info.param.name; });

// What turns into a comment is known before the line that the key changed is painted.
TEST_F(Keys, AKeyThatTakesTheEndOfACommentAwayPaintsOnce)
{
    given(L"one\n/* two *|/ three\nfour\n/* five */");
    Press(control, VK_DELETE);
    const Paints paints(control);
    Pump();
    EXPECT_EQ(paints.Count(), 1);
    EXPECT_EQ(DifferenceFromAFullRepaint(control), "");
}

TEST_F(Keys, AStepTakenBackFarAwayIsPaintedOnceAndSoIsItsReturn)
{
    given(manyLines(500));
    edSetCaretPosition(control, 400, 3);
    Type(control, L'x');
    edSetCaretPosition(control, 3, 0);
    Pump();
    for (const int code : {ED_COMMAND_UNDO, ED_COMMAND_REDO}) {
        const Paints paints(control);
        ASSERT_TRUE(edExecCommand(control, code));
        Pump();
        EXPECT_EQ(paints.Count(), 1) << code;
        EXPECT_EQ(DifferenceFromAFullRepaint(control), "") << code;
        edSetScrollPosition(control, 0, -1);
        Pump();
    }
}

// The host is told while the view moves: what it does to the picture then must not be lost.
TEST_F(Keys, AHostMayPaintTheControlWhileAKeyScrollsIt)
{
    given(manyLines(500));
    edSetCaretPosition(control, lastRow, 3);
    edSetScrollPosition(control, 0, -1);
    Pump();
    int told = 0;
    host.onMessage = [&](const ControlHost::Message& message) {
        if (message.id == ED_NOTIFY_SCROLL) {
            ++told;
            ::UpdateWindow(control);
        }
    };
    for (int i = 0; i < 3; ++i)
        Press(control, VK_DOWN);
    host.onMessage = nullptr;
    EXPECT_EQ(told, 3);
    EXPECT_EQ(DifferenceFromAFullRepaint(control), "");
}

TEST_F(Keys, APageKeyLeavesTheSamePictureAsAFullRepaint)
{
    given(manyLines(500));
    edSetCaretPosition(control, 3, 2);
    for (const unsigned held : {unsigned{none}, unsigned{shift}}) {
        for (const UINT key : {VK_NEXT, VK_NEXT, VK_PRIOR, VK_PRIOR, VK_PRIOR}) {
            Press(control, key, held);
            EXPECT_FALSE(::GetUpdateRect(control, nullptr, FALSE));
            EXPECT_EQ(DifferenceFromAFullRepaint(control), "");
        }
    }
}

TEST_F(Keys, TypingPaintsTheCaretsRowAloneAndOnce)
{
    std::vector<std::wstring> asked;
    edHighlightHook hook{[](void* ctx, wchar_t* text, int) {
                             static_cast<std::vector<std::wstring>*>(ctx)->push_back(text);
                         },
                         &asked};
    edCreateParams params{};
    params.highlightHook = &hook;
    edDestroyCtrl(control);
    control = host.Show(L"one\ntwo\nthree\nfour", params);
    edSetCaretPosition(control, 2, 5);
    Pump();
    asked.clear();
    Press(control, 'X');
    Type(control, L'x');
    EXPECT_LE(asked.size(), 3u);  // drawn once, and measured for the caret
    for (const std::wstring& line : asked)
        EXPECT_EQ(line, L"threex");
    EXPECT_FALSE(::GetUpdateRect(control, nullptr, FALSE));
}

TEST_F(Keys, TypingShowsTheSamePictureAsAFullRepaint)
{
    given(L"    one\n    two /* three\n    four\n*/ five|\nsix");
    for (const wchar_t ch : std::wstring(L"ab\r\b*/\b\b/*\t;")) {
        Type(control, ch);
        Pump();
        EXPECT_EQ(DifferenceFromAFullRepaint(control), "") << static_cast<int>(ch);
    }
}

}  // namespace
