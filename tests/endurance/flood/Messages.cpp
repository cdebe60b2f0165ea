#include "tests/endurance/flood/Flood.h"

#include <algorithm>
#include <iterator>
#include <sstream>

namespace flood {

namespace {

constexpr const char* record = "its argument is a record that the system reads or writes";
constexpr const char* buffer = "its argument is a text or a buffer of the system's";
constexpr const char* loop = "the system goes into a loop of its own until a button or a key comes";
constexpr const char* end = "it ends the window or its parts";
constexpr const char* global = "its argument is global memory that the system locks and frees";

// The messages that are tested by themselves, with null, with records that are sound and hostile at once, or with what
// ends their loops: see hostile_tests.cpp.
constexpr LeftOut leftOut[] = {
    {WM_DESTROY, WM_DESTROY, end},
    {WM_SETTEXT, WM_GETTEXT, buffer},
    {WM_CLOSE, WM_CLOSE, end},
    {WM_SETTINGCHANGE, WM_DEVMODECHANGE, buffer},
    {WM_GETMINMAXINFO, WM_GETMINMAXINFO, record},
    {WM_DRAWITEM, WM_DELETEITEM, record},
    {WM_COMPAREITEM, WM_COMPAREITEM, record},
    {WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, record},
    {WM_COPYDATA, WM_COPYDATA, record},
    {WM_NOTIFY, WM_NOTIFY, record},
    {WM_HELP, WM_HELP, record},
    {WM_STYLECHANGING, WM_STYLECHANGED, record},
    {WM_NCCREATE, WM_NCCREATE, record},
    {WM_NCDESTROY, WM_NCDESTROY, end},
    {WM_NCCALCSIZE, WM_NCCALCSIZE, record},
    {0x0090, 0x0095, record},  // what menus and captions of later systems are drawn by; documented nowhere
    {WM_NCLBUTTONDOWN, WM_NCLBUTTONDOWN, loop},
    {WM_NCLBUTTONDBLCLK, WM_NCRBUTTONDOWN, loop},
    {WM_SYSCOMMAND, WM_SYSCOMMAND, loop},
    {WM_NEXTMENU, WM_SIZING, record},
    {WM_MOVING, WM_MOVING, record},
    {WM_POWERBROADCAST, WM_DEVICECHANGE, record},
    {WM_MDICREATE, WM_MDICREATE, record},
    {WM_DROPFILES, WM_DROPFILES, global},
    {WM_IME_CONTROL, WM_IME_CONTROL, record},
    {WM_IME_REQUEST, WM_IME_REQUEST, record},
    {WM_DPICHANGED, WM_DPICHANGED, record},
    {0x02E4, 0x02E4, record},  // WM_GETDPISCALEDSIZE
    {WM_PAINTCLIPBOARD, WM_PAINTCLIPBOARD, global},
    {WM_SIZECLIPBOARD, WM_ASKCBFORMATNAME, global},
    {0x0313, 0x0313, loop},  // the system menu at a point; documented nowhere
    {0x033F, 0x033F, record},  // WM_GETTITLEBARINFOEX
    {0x03E0, 0x03E8, global},  // dynamic data exchange
};

constexpr UINT typing[] = {WM_KEYDOWN, WM_CHAR, WM_SYSKEYDOWN, WM_UNICHAR, WM_IME_CHAR, WM_IME_KEYDOWN};

struct Arguments {
    std::uint64_t wParam;
    std::int64_t lParam;
};

constexpr Arguments patterns[] = {
    {0, 0},
    {1, 0},
    {0, 1},
    {1, 1},
    {2, 0x00010001},
    {0x7FFF, 0x7FFF7FFF},
    {0x8000, -0x7FFF8000},
    {0xFFFF, -1},
    {0x10000, 0x10000},
    {0x7FFFFFFF, 0x7FFFFFFF},
    {0x80000000, -0x80000000LL},
    {~std::uint64_t{0}, -1},
    {0x41, 0x001E0001},
    {0x0D, 0x001C0001},
    {0xDEADBEEF, 0x00640032},
    {0x8000000000000000, INT64_MIN},
};
static_assert(std::size(patterns) == patternCount);

}  // namespace

Message Pattern(UINT id, int pattern)
{
    const Arguments& row = patterns[pattern];
    return {id, static_cast<WPARAM>(row.wParam), static_cast<LPARAM>(row.lParam)};
}

const char* WhyLeftOut(UINT id)
{
    const auto row = std::find_if(std::begin(leftOut), std::end(leftOut),
                                  [id](const LeftOut& one) { return one.first <= id && id <= one.last; });
    return row == std::end(leftOut) ? nullptr : row->why;
}

bool IsCalledWhenPosted(const Message& message)
{
    constexpr UINT systemTimer = 0x0118;
    return (message.id == WM_TIMER || message.id == systemTimer) && message.lParam != 0;
}

bool Types(UINT id)
{
    return std::find(std::begin(typing), std::end(typing), id) != std::end(typing);
}

std::string Shown(const Message& message)
{
    std::ostringstream text;
    text << std::hex << "message 0x" << message.id << ", wParam 0x" << message.wParam << ", lParam 0x"
        << message.lParam;
    return text.str();
}

}  // namespace flood
