#include "tests/endurance/flood/Flood.h"
#include "tests/support/win/Pointer.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace flood {

namespace {

constexpr const wchar_t* startText =
    L"first line\n\tsecond /* begins\n\nends */ \"four\"\nслово слово\n// six\n0123456789012345678901234567890\n"
    L"if (x) {\n\ty = 1;\n}\nlast";

WNDPROC ofTheHost = nullptr;
Message now{};

/// What the default handling of a child asks of the window around it: to close, to open its menu, to move.
LRESULT CALLBACK StayOpen(HWND window, UINT id, WPARAM wParam, LPARAM lParam)
{
    if (id == WM_CLOSE || id == WM_SYSCOMMAND || id == WM_CONTEXTMENU)
        return 0;
    return ::CallWindowProcW(ofTheHost, window, id, wParam, lParam);
}

/// A crash says which message it was.
LONG WINAPI TellTheMessage(EXCEPTION_POINTERS* fault)
{
    std::printf("exception 0x%lx at %s\n", fault->ExceptionRecord->ExceptionCode, Shown(now).c_str());
    std::fflush(stdout);
    return EXCEPTION_CONTINUE_SEARCH;
}

bool IsIn(const edPoint& point, const std::vector<std::size_t>& lengths, int least)
{
    return point.y >= 0 && point.y < static_cast<int>(lengths.size()) && point.x >= least &&
           point.x <= static_cast<int>(lengths[static_cast<std::size_t>(point.y)]);
}

std::vector<std::size_t> LengthsOf(const std::wstring& text)
{
    std::vector<std::size_t> lengths(1);
    for (const wchar_t ch : text)
        ch == L'\n' ? lengths.push_back(0) : static_cast<void>(++lengths.back());
    return lengths;
}

}  // namespace

Target::Target() : m_host(330, 200), m_control(m_host.Show(startText)), m_text(TextOf(m_control))
{
    ::SetUnhandledExceptionFilter(&TellTheMessage);
    ofTheHost = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(m_host.Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&StayOpen)));
    ::SetCursorPos(1200, 1000);  // a drag that ends at once would drop on what is under the pointer
    Pump(30);
}

Target::~Target()
{
    ::SetWindowLongPtrW(m_host.Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ofTheHost));
}

LRESULT Target::Send(const Message& message)
{
    now = message;
    m_typed = m_typed || Types(message.id);
    return ::SendMessageW(m_control, message.id, message.wParam, message.lParam);
}

void Target::Post(const Message& message)
{
    now = message;
    m_typed = m_typed || Types(message.id);
    ::PostMessageW(m_control, message.id, message.wParam, message.lParam);
}

void Target::Settle()
{
    Pump();
    m_host.Forget();
}

std::string Target::Fault()
{
    if (edGetHWND(m_control) != m_control)
        return "the control is gone";
    std::wstring text = TextOf(m_control);
    if (text == m_text)
        return PositionFault();
    if (!m_typed)
        return "the text has changed";
    m_text = std::move(text);
    return PositionFault();
}

std::string Target::PositionFault() const
{
    const std::vector<std::size_t> lengths = LengthsOf(m_text);
    const UINT32 lines = edGetLineCount(m_control);
    // A text of one empty line is told as a line break.
    if (lines != lengths.size() && !(m_text == L"\n" && lines == 1))
        return "the number of lines";
    UINT32 room = 0;
    edGetLine(m_control, lines - 1, FALSE, nullptr, &room);
    if (room != lengths[lines - 1] + 1)
        return "the length of the last line";
    edPoint point{-9, -9};
    if (!edGetPosition(m_control, ED_POSITION_CARET, &point) || !IsIn(point, lengths, 0))
        return "the caret is at " + std::to_string(point.y) + "," + std::to_string(point.x);
    edPoint last{-9, -9};
    const bool first = edGetPosition(m_control, ED_POSITION_SELECTION_FIRST, &point) != 0;
    if (first != (edGetPosition(m_control, ED_POSITION_SELECTION_LAST, &last) != 0) ||
        first != (edGetMode(m_control, ED_MODE_SELECTION) != 0))
        return "half a selection";
    if (first && (!IsIn(point, lengths, 0) || !IsIn(last, lengths, -1)))
        return "the selection is outside of the text";
    if (!edGetPosition(m_control, ED_POSITION_VIEWPORT, &point) || point.x < 0 || point.y < 0)
        return "the view is at " + std::to_string(point.y) + "," + std::to_string(point.x);
    return {};
}

void Target::Restore()
{
    ::SendMessageW(m_control, WM_CAPTURECHANGED, 0, 0);
    ::ReleaseCapture();
    ::SendMessageW(m_control, WM_SETREDRAW, TRUE, 0);
    ::SendMessageW(m_control, WM_SHOWWINDOW, TRUE, 0);
    ::EnableWindow(m_control, TRUE);
    ::ShowWindow(m_control, SW_SHOW);
    Settle();  // what was typed by way of the queue comes in before the text is put back
    if (TextOf(m_control) != startText)
        edLoadText(m_control, startText, 0xFFFFFFFF);
    m_text = startText;
    edSetScrollPosition(m_control, 0, 0);
    edSetCaretPosition(m_control, 0, 0);
    Settle();
    m_typed = false;
}

}  // namespace flood
