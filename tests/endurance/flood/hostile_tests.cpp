#include "tests/endurance/flood/Flood.h"
#include "tests/support/win/HostLog.h"
#include "tests/support/win/KeyDriver.h"

#include <gtest/gtest.h>

#include <commdlg.h>
#include <climits>

// The documented messages with hostile values: edges of 16 and 32 bits, codes that there are not, null and dead
// handles, the wrong order. A row is one message with all its values in all combinations, sent and posted.

namespace {

using flood::Message;
using flood::Target;

struct Row {
    const char* name;
    std::vector<UINT> ids;
    std::vector<WPARAM> wParams;
    std::vector<LPARAM> lParams;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

constexpr WPARAM allBits = ~WPARAM{0};
constexpr UINT dragScroll = 0x40D;
constexpr UINT afterPaint = 0x40E;

constexpr LPARAM At(int x, int y)
{
    return MAKELPARAM(static_cast<WORD>(x), static_cast<WORD>(y));
}

std::vector<LPARAM> Points()
{
    constexpr int edges[] = {-32768, -1, 0, 1, 40, 199, 200, 329, 330, 32767};
    std::vector<LPARAM> points;
    for (const int x : edges)
        for (const int y : edges)
            points.push_back(At(x, y));
    return points;
}

std::vector<WPARAM> UpTo(WPARAM last)
{
    std::vector<WPARAM> numbers(last + 1);
    for (WPARAM i = 0; i <= last; ++i)
        numbers[i] = i;
    for (const WPARAM i : {WPARAM{0x1001}, WPARAM{0xFFFF}, WPARAM{0x10041}, WPARAM{0x80000000}, allBits})
        numbers.push_back(i);
    return numbers;
}

const LPARAM deadHandle = 0x7FFE0000;
const std::vector<WPARAM> wheelTurns = {MAKEWPARAM(0, 0),      MAKEWPARAM(0, 1),      MAKEWPARAM(0, 0xFFFF),
                                        MAKEWPARAM(0, 120),    MAKEWPARAM(0, 0xFF88), MAKEWPARAM(0, 0x7FFF),
                                        MAKEWPARAM(0, 0x8000), MAKEWPARAM(0xFFFF, 1), allBits};
const std::vector<WPARAM> scrollCodes = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  0xFFFF, 0x00040004, 0xFFFF0004,
    0x7FFF0005,
                                         0x80000005, allBits};

const Row rows[] = {
    {"MouseMove", {WM_MOUSEMOVE}, {0, MK_LBUTTON, 0xFFFF, allBits}, Points()},
    {"ButtonDown", {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN, WM_XBUTTONDOWN}, {0, MK_LBUTTON, allBits},
     Points()},
    {"ButtonUpWithNoneDown", {WM_LBUTTONUP, WM_RBUTTONUP, WM_MBUTTONUP, WM_XBUTTONUP}, {0, allBits}, Points()},
    {"DoubleClick", {WM_LBUTTONDBLCLK, WM_RBUTTONDBLCLK}, {0, MK_LBUTTON, MK_LBUTTON | MK_SHIFT, allBits}, Points()},
    {"DownMoveUp", {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP}, {MK_LBUTTON}, Points()},
    {"MoveBeforeDown", {WM_MOUSEMOVE, WM_LBUTTONUP, WM_LBUTTONDOWN, WM_CAPTURECHANGED}, {MK_LBUTTON}, Points()},
    {"CaptureChanged", {WM_LBUTTONDOWN, WM_CAPTURECHANGED, WM_MOUSEMOVE}, {0, MK_LBUTTON}, {0, 1, deadHandle, -1}},
    {"CancelledMode", {WM_LBUTTONDOWN, WM_CANCELMODE, WM_MOUSEMOVE, WM_LBUTTONUP}, {MK_LBUTTON}, {0, At(40, 40), -1}},
    {"Hover", {WM_MOUSEHOVER, WM_MOUSELEAVE, WM_NCMOUSEMOVE, WM_NCHITTEST, WM_MOUSEACTIVATE}, {0, 1, 6, 7, allBits},
     Points()},
    {"Wheel", {WM_MOUSEWHEEL, WM_MOUSEHWHEEL}, wheelTurns, {0, -1, At(-32768, 32767)}},
    {"Scroll", {WM_VSCROLL, WM_HSCROLL}, scrollCodes, {0, 1, deadHandle, -1}},
    {"Timer", {WM_TIMER}, {0, 1, 2, 3500, 3501, 3502, 0xFFFF, 0x7FFFFFFF, allBits}, {0}},
    {"TimerInADrag", {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_TIMER}, {1, 3501}, {0, At(100, 100), At(-32768, -32768)}},
    {"Size", {WM_SIZE, WM_MOVE}, {0, 1, 2, 3, 4, 5, allBits}, {0, 1, 0x00010000, 0xFFFF, -1, 0x7FFFFFFF,
     -0x80000000LL}},
    {"Redraw", {WM_SETREDRAW, WM_PAINT, WM_SETREDRAW, WM_NCPAINT}, {0, 1, 2, allBits}, {0, -1}},
    {"Show", {WM_SHOWWINDOW, WM_PAINT, WM_ENABLE}, {0, 1, 2, allBits}, {0, 1, 4}},
    {"EraseAndPrint", {WM_ERASEBKGND, WM_PRINTCLIENT, WM_PRINT, WM_ICONERASEBKGND}, {0, 1, 0x7FFE0000, allBits}, {0,
     0x3F, -1}},
    {"Focus", {WM_SETFOCUS, WM_KILLFOCUS}, {0, 1, 0x7FFE0000, allBits}, {0, -1}},
    {"FocusLostTwice", {WM_KILLFOCUS, WM_KILLFOCUS, WM_SETFOCUS, WM_SETFOCUS, WM_CHAR}, {'a'}, {1}},
    {"Activate", {WM_ACTIVATE, WM_ACTIVATEAPP, WM_NCACTIVATE, WM_CHILDACTIVATE}, {0, 1, 2, allBits}, {0, deadHandle}},
    {"KeyDown", {WM_KEYDOWN}, UpTo(0xFF), {0, 1, 0x40000001, 0x2000FFFF, -1}},
    {"KeyUpWithNoneDown", {WM_KEYUP, WM_SYSKEYUP}, UpTo(0xFF), {0, -1}},
    {"SysKeyDown", {WM_SYSKEYDOWN}, UpTo(0xFF), {0, 0x20000001, -1}},
    {"SysChar", {WM_SYSCHAR, WM_DEADCHAR, WM_SYSDEADCHAR}, UpTo(0xFF), {0, 0x20000001}},
    {"Char", {WM_CHAR, WM_UNICHAR, WM_IME_CHAR}, UpTo(0x2FF), {0, 1, -1}},
    {"CharOfTheEdges", {WM_CHAR}, {0xD7FF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFEFF, 0xFFFE, 0x1F600,
     0x80000041}, {1}},
    {"ImeWithoutComposition",
     {WM_IME_STARTCOMPOSITION, WM_IME_COMPOSITION, WM_IME_ENDCOMPOSITION, WM_IME_NOTIFY, WM_IME_SETCONTEXT,
      WM_IME_SELECT,
      WM_IME_COMPOSITIONFULL, WM_IME_KEYDOWN, WM_IME_KEYUP},
     {0, 1, 'A', allBits},
     {0, 0x0800, -1}},
    {"DragScroll", {dragScroll}, {0, allBits}, Points()},
    {"AfterPaint", {afterPaint}, {0, allBits}, {0, -1}},
    {"SystemChanged",
     {WM_SYSCOLORCHANGE, WM_FONTCHANGE, WM_TIMECHANGE, WM_DISPLAYCHANGE, WM_THEMECHANGED, WM_PALETTECHANGED,
      WM_USERCHANGED,
      WM_INPUTLANGCHANGE, WM_QUERYNEWPALETTE},
     {0, 1, 32, allBits},
     {0, At(1, 1), -1}},
    {"SessionEnds", {WM_QUERYENDSESSION, WM_ENDSESSION, WM_QUIT, WM_QUERYOPEN}, {0, 1, allBits}, {0, 1}},
    {"MadeAgain", {WM_CREATE}, {0, allBits}, {0, -1}},
    {"Questions", {WM_GETDLGCODE, WM_GETFONT, WM_GETICON, WM_GETHOTKEY, WM_GETTEXTLENGTH, WM_GETOBJECT,
     WM_QUERYDRAGICON},
     {0, 1, allBits}, {0, 1, -1, -4}},
    {"EditMessages", {WM_CUT, WM_COPY, WM_PASTE, WM_CLEAR, WM_UNDO, EM_SETSEL, EM_UNDO, EM_LIMITTEXT}, {0, 1,
     allBits}, {0, -1}},
    {"NullRecords",
     {WM_SETTEXT, WM_GETTEXT, WM_COPYDATA, WM_NOTIFY, WM_HELP, WM_DRAWITEM, WM_MEASUREITEM, WM_COMPAREITEM,
      WM_DELETEITEM,
      WM_SETTINGCHANGE, WM_DEVMODECHANGE, WM_DPICHANGED, WM_SIZING, WM_MOVING, WM_NEXTMENU, WM_POWERBROADCAST,
          WM_DEVICECHANGE,
      WM_DROPFILES, WM_IME_CONTROL, WM_IME_REQUEST},
     {0, 1, 0xFFFF, allBits},
     {0}},
};

class Hostile : public testing::TestWithParam<Row> {
protected:
    Target target;
    HostLog log;
};

// Each combination begins where the last one has left the control: so orders meet that nobody thought of.
void Play(Target& target, const Row& row, bool posted)
{
    constexpr std::size_t longText = 1000;
    for (const WPARAM wParam : row.wParams) {
        for (const LPARAM lParam : row.lParams) {
            for (const UINT id : row.ids) {
                const Message message{id, wParam, lParam};
                posted ? target.Post(message) : static_cast<void>(target.Send(message));
                ASSERT_EQ(posted ? "" : target.Fault(), "") << Shown(message);
            }
            if (posted) {
                target.Settle();
                ASSERT_EQ(target.Fault(), "") << "wParam " << wParam << ", lParam " << lParam;
            }
        }
        target.Settle();
        if (target.Text().size() > longText)
            target.Restore();
    }
}

}  // namespace

TEST_P(Hostile, ValuesLeaveTheControlWhole)
{
    for (const bool posted : {false, true}) {
        Play(target, GetParam(), posted);
        target.Restore();
        ASSERT_EQ(target.Fault(), "");
    }
    EXPECT_EQ(log.News(), "");
}

INSTANTIATE_TEST_SUITE_P(Messages, Hostile, testing::ValuesIn(rows),
                         [](const auto& info) { return std::string(info.param.name); });

namespace {

class HostileOrder : public testing::Test {
protected:
    /// Behind everything the control stands and takes a letter as ever.
    void ExpectWhole()
    {
        EXPECT_EQ(target.Fault(), "");
        target.Restore();
        keys::Type(target.Window(), L'Q');
        EXPECT_EQ(TextOf(target.Window()).substr(0, 6), L"Qfirst");
        EXPECT_EQ(log.News(), "");
    }

    Target target;
    HostLog log;
};

}  // namespace

TEST_F(HostileOrder, EveryKeyWithEveryModifier)
{
    for (unsigned held = 0; held < 8; ++held) {
        for (UINT key = 0; key < 0x100; ++key) {
            const keys::Holding holding(held, key);
            target.Send({WM_KEYDOWN, key, 1});
            ASSERT_EQ(target.Fault(), "") << key << " with " << held;
        }
        target.Settle();
        target.Restore();
    }
    ExpectWhole();
}

// The caret of the line on top is below the client area and that of the line behind it above: there is no place to go
// to.
TEST_F(HostileOrder, TheViewOfAControlLowerThanALineComesToRest)
{
    for (const int height : {1, 5, 14}) {
        ::SetWindowPos(target.Window(), nullptr, 0, 0, 330, height + 4 + ::GetSystemMetrics(SM_CYHSCROLL),
                       SWP_NOZORDER | SWP_NOMOVE);
        RECT client{};
        ::GetClientRect(target.Window(), &client);
        ASSERT_EQ(client.bottom, height);
        for (const UINT key : {VK_END, VK_DOWN, VK_DOWN, VK_RIGHT, VK_UP})
            target.Send({WM_KEYDOWN, key, 1});
        edPoint caret{};
        edPoint view{};
        edGetPosition(target.Window(), ED_POSITION_CARET, &caret);
        edGetPosition(target.Window(), ED_POSITION_VIEWPORT, &view);
        EXPECT_EQ(view.y, caret.y);
    }
    ::SetWindowPos(target.Window(), nullptr, 0, 0, 330, 200, SWP_NOZORDER | SWP_NOMOVE);
    ExpectWhole();
}

TEST_F(HostileOrder, TheViewOfAControlWithoutWidthComesToRest)
{
    ::SetWindowPos(target.Window(), nullptr, 0, 0, 0, 2000, SWP_NOZORDER | SWP_NOMOVE);
    RECT client{};
    ::GetClientRect(target.Window(), &client);
    ASSERT_EQ(client.right, 0);
    for (const UINT key : {VK_END, VK_HOME, VK_DOWN, VK_RIGHT, VK_NEXT, VK_END})
        target.Send({WM_KEYDOWN, key, 1});
    ::SetWindowPos(target.Window(), nullptr, 0, 0, 330, 200, SWP_NOZORDER | SWP_NOMOVE);
    ExpectWhole();
}

TEST_F(HostileOrder, TheSizeOfAControlGoesToTheEdges)
{
    constexpr int sizes[] = {0, 1, 5, 32767, -1, 0};
    for (const int width : sizes) {
        for (const int height : sizes) {
            ::SetWindowPos(target.Window(), nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOMOVE);
            ::UpdateWindow(target.Window());
            for (const UINT key : {VK_NEXT, VK_END, VK_PRIOR, VK_DOWN})
                target.Send({WM_KEYDOWN, key, 1});
            ASSERT_EQ(target.Fault(), "") << width << " by " << height;
        }
    }
    ::SetWindowPos(target.Window(), nullptr, 0, 0, 330, 200, SWP_NOZORDER | SWP_NOMOVE);
    ExpectWhole();
}

TEST_F(HostileOrder, SoundRecordsWithHostileContents)
{
    COPYDATASTRUCT data{0, 0xFFFFFFFF, nullptr};
    target.Send({WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data)});
    WINDOWPOS place{target.Window(), nullptr, INT_MIN, INT_MAX, INT_MAX, INT_MIN, 0};
    target.Send({WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&place)});
    target.Send({WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&place)});
    NCCALCSIZE_PARAMS inner{};
    inner.rgrc[0] = {INT_MAX, INT_MAX, INT_MIN, INT_MIN};
    target.Send({WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&inner)});
    MINMAXINFO limits{};
    target.Send({WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits)});
    STYLESTRUCT style{0, 0xFFFFFFFF};
    target.Send({WM_STYLECHANGED, static_cast<WPARAM>(GWL_STYLE), reinterpret_cast<LPARAM>(&style)});
    RECT nowhere{INT_MAX, INT_MAX, INT_MIN, INT_MIN};
    target.Send({WM_DPICHANGED, MAKEWPARAM(0, 0xFFFF), reinterpret_cast<LPARAM>(&nowhere)});
    const std::wstring caption(100'000, L'x');
    target.Send({WM_SETTEXT, 0, reinterpret_cast<LPARAM>(caption.c_str())});
    wchar_t small[4] = L"";
    EXPECT_EQ(target.Send({WM_GETTEXT, 4, reinterpret_cast<LPARAM>(small)}), 3);
    CREATESTRUCTW made{};
    target.Send({WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&made)});
    target.Send({WM_CREATE, 0, reinterpret_cast<LPARAM>(&made)});
    ExpectWhole();
}

TEST_F(HostileOrder, FindMessagesThatNoDialogHasSent)
{
    const UINT find = ::RegisterWindowMessageW(L"commdlg_FindReplace");
    FINDREPLACEW forged{};
    wchar_t what[] = L"first";
    forged.lStructSize = sizeof forged;
    forged.lpstrFindWhat = forged.lpstrReplaceWith = what;
    forged.wFindWhatLen = forged.wReplaceWithLen = static_cast<WORD>(std::size(what));
    for (const DWORD flags : {0ul, 0xFFFFFFFFul, DWORD{FR_REPLACEALL}, DWORD{FR_FINDNEXT}, DWORD{FR_DIALOGTERM}}) {
        forged.Flags = flags;
        for (const LPARAM record : {LPARAM{0}, LPARAM{1}, LPARAM{-1}, reinterpret_cast<LPARAM>(&forged)})
            target.Send({find, flags, record});
    }
    ExpectWhole();
}

// The system's own loops over scroll bars, frame and menu, each ended by the button that is let go or by Esc.
TEST_F(HostileOrder, LoopsOfTheSystemThatEndAtOnce)
{
    const HWND control = target.Window();
    for (WPARAM place = 0; place <= HTHELP; ++place) {
        for (const UINT id : {WM_NCLBUTTONDOWN, WM_NCLBUTTONDBLCLK, WM_NCRBUTTONDOWN}) {
            ::PostMessageW(control, WM_LBUTTONUP, 0, 0);
            ::PostMessageW(control, WM_RBUTTONUP, 0, 0);
            ::PostMessageW(control, WM_KEYDOWN, VK_ESCAPE, 1);
            target.Send({id, place, At(100, 100)});
            target.Settle();
            ASSERT_EQ(target.Fault(), "") << flood::Shown({id, place, 0});
        }
    }
    ExpectWhole();
}

TEST_F(HostileOrder, TheCaptureGoesToAnotherWindowInTheMiddleOfASelection)
{
    target.Send({WM_LBUTTONDOWN, MK_LBUTTON, At(4, 4)});
    target.Send({WM_MOUSEMOVE, MK_LBUTTON, At(60, 40)});
    ::SetCapture(target.HostWindow());
    target.Send({WM_MOUSEMOVE, MK_LBUTTON, At(100, 80)});
    target.Send({WM_LBUTTONUP, 0, At(100, 80)});
    target.Send({WM_TIMER, 3501, 0});
    ::ReleaseCapture();
    ExpectWhole();
}

namespace {

struct Ending {
    const char* name;
    Message message;
    bool windowGoes;
};

void PrintTo(const Ending& ending, std::ostream* out)
{
    *out << ending.name;
}

const Ending endings[] = {
    {"Close", {WM_CLOSE, 0, 0}, true},
    {"CloseWithArguments", {WM_CLOSE, allBits, -1}, true},
    {"SystemClose", {WM_SYSCOMMAND, SC_CLOSE, 0}, true},
    {"Destroy", {WM_DESTROY, 0, 0}, false},
    {"NcDestroy", {WM_NCDESTROY, 0, 0}, false},
};

class HostileEnd : public testing::TestWithParam<Ending> {};

}  // namespace

// A window that is gone is a bad handle; one whose parts are gone answers every question and takes every message still.
TEST_P(HostileEnd, LeavesNothingThatCouldFall)
{
    const HostLog log;
    for (const bool posted : {false, true}) {
        Target target;
        const HWND control = target.Window();
        const Message& message = GetParam().message;
        posted ? target.Post(message) : static_cast<void>(target.Send(message));
        target.Settle();
        EXPECT_EQ(::IsWindow(control) == 0, GetParam().windowGoes);
        for (int pattern = 0; pattern < flood::patternCount; ++pattern)
            for (UINT id = 0; id < 0x500; ++id)
                if (!flood::WhyLeftOut(id))
                    target.Send(flood::Pattern(id, pattern));
        edPoint point{};
        EXPECT_LE(edGetLineCount(control), 0u);
        edGetPosition(control, ED_POSITION_CARET, &point);
        edExecCommand(control, ED_COMMAND_UNDO);
        edLoadText(control, L"x", 1);
        edDestroyCtrl(control);
        edDestroyCtrl(control);
        target.Settle();
    }
    EXPECT_EQ(log.News(), "");
}

INSTANTIATE_TEST_SUITE_P(Messages, HostileEnd, testing::ValuesIn(endings),
                         [](const auto& info) { return std::string(info.param.name); });
