#include "bench/Floors.h"

#include "bench/Measure.h"
#include "bench/Messages.h"

#include <cstring>

namespace {

constexpr int lineHeight = 15;
constexpr int charWidth = 8;
constexpr int caretRow = 10;
constexpr const wchar_t* className = L"BenchFloor";

HFONT MakeFont()
{
    LOGFONTW lf{};
    lf.lfHeight = -13;
    lf.lfWeight = 400;
    lf.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    wcscpy(lf.lfFaceName, L"Courier New");
    return ::CreateFontIndirectW(&lf);
}

void PaintRow(HDC dc, int y)
{
    static const wchar_t text[] = L"abcdefghijklmnopqrstuvwxyz012345";
    constexpr int length = rowChars / rowRuns;
    for (int run = 0; run < rowRuns; ++run) {
        ::SetTextColor(dc, run % 2 ? RGB(0, 0, 255) : RGB(0, 128, 0));
        ::TextOutW(dc, run * length * charWidth, y, text + run * length, length);
    }
}

}  // namespace

void Rest()
{
    constexpr DWORD displayMs = 3;
    Drain();
    ::Sleep(displayMs);
}

FloorWindow::FloorWindow(HWND host, SIZE client)
    : m_client(client), m_screen{::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)}, m_font(MakeFont())
{
    WNDCLASSW wc{};
    wc.lpfnWndProc = &Procedure;
    wc.cbWndExtra = sizeof(FloorWindow*);
    wc.hInstance = ::GetModuleHandleW(nullptr);
    wc.lpszClassName = className;
    wc.hbrBackground = static_cast<HBRUSH>(::GetStockObject(NULL_BRUSH));
    ::RegisterClassW(&wc);
    constexpr DWORD style = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL;
    m_window = ::CreateWindowExW(WS_EX_CLIENTEDGE, className, L"", style, 0, 0, client.cx, client.cy, host, nullptr,
                                 wc.hInstance, nullptr);
    RECT got{};
    ::GetClientRect(m_window, &got);
    ::SetWindowPos(m_window, nullptr, 0, 0, 2 * client.cx - got.right, 2 * client.cy - got.bottom,
                   SWP_NOMOVE | SWP_NOZORDER);
    const HDC dc = ::GetDC(m_window);
    m_memory = ::CreateCompatibleDC(dc);
    ::ReleaseDC(m_window, dc);
    ::SelectObject(m_memory, m_font);
    ::SetWindowLongPtrW(m_window, 0, reinterpret_cast<LONG_PTR>(this));
    Drain();
}

FloorWindow::~FloorWindow()
{
    ::DestroyWindow(m_window);
    ::DeleteDC(m_memory);
    ::DeleteObject(m_font);
}

LRESULT CALLBACK FloorWindow::Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam)
{
    auto* object = reinterpret_cast<FloorWindow*>(::GetWindowLongPtrW(window, 0));
    if (id != WM_PAINT || !object)
        return ::DefWindowProcW(window, id, wParam, lParam);
    object->Paint();
    return 0;
}

void FloorWindow::Paint()
{
    PAINTSTRUCT paint;
    const HDC dc = ::BeginPaint(m_window, &paint);
    if (m_paints == Paints::bound) {
        ::HideCaret(m_window);
        PaintOffScreen(dc, paint.rcPaint);
    } else if (m_paints == Paints::direct) {
        ::SelectObject(dc, m_font);
        PaintRows(dc, paint.rcPaint);
    }
    ::EndPaint(m_window, &paint);
    if (m_paints == Paints::bound) {
        MoveCaret();
        ::ShowCaret(m_window);
    }
}

void FloorWindow::PaintRows(HDC dc, const RECT& area) const
{
    for (int y = 0; y < pageRows * lineHeight; y += lineHeight)
        if (y < area.bottom && y + lineHeight > area.top)
            PaintRow(dc, y);
}

void FloorWindow::PaintOffScreen(HDC dc, const RECT& area) const
{
    const HBITMAP bitmap = ::CreateCompatibleBitmap(dc, m_screen.cx, m_screen.cy);
    const HGDIOBJ before = ::SelectObject(m_memory, bitmap);
    ::IntersectClipRect(m_memory, area.left, area.top, area.right, area.bottom);
    ::PatBlt(m_memory, 0, 0, m_screen.cx, m_screen.cy, PATCOPY);
    PaintRows(m_memory, area);
    ::SelectClipRgn(m_memory, nullptr);
    ::BitBlt(dc, area.left, area.top, area.right, area.bottom, m_memory, area.left, area.top, SRCCOPY);
    ::SelectObject(m_memory, before);
    ::DeleteObject(bitmap);
}

void FloorWindow::InvalidateLine()
{
    const RECT line{0, caretRow * lineHeight, m_client.cx, (caretRow + 1) * lineHeight};
    ::InvalidateRect(m_window, &line, TRUE);
}

void FloorWindow::InvalidatePage()
{
    ::InvalidateRect(m_window, nullptr, TRUE);
}

void FloorWindow::PaintLine()
{
    InvalidateLine();
    ::UpdateWindow(m_window);
    if (m_paints == Paints::direct)
        MoveCaret();  // with the other the caret is moved while it is hidden
}

void FloorWindow::PaintPage()
{
    InvalidatePage();
    ::UpdateWindow(m_window);
}

void FloorWindow::PaintPageAndRest()
{
    PaintPage();
    Rest();
}

void FloorWindow::MoveCaret()
{
    ::SetCaretPos(charWidth * (++m_step % 30), caretRow * lineHeight);
}

void FloorWindow::SetBar()
{
    const SCROLLINFO info{sizeof info, SIF_ALL, 0, 100000, pageRows, ++m_step * 7 % 90000, 0};
    ::SetScrollInfo(m_window, SB_VERT, &info, TRUE);
}

void FloorWindow::Shift()
{
    const RECT rows{0, 0, m_client.cx, pageRows * lineHeight};
    ::ScrollWindow(m_window, 0, -lineHeight, &rows, &rows);
}

void FloorWindow::AskKeys()
{
    static_cast<void>(::GetKeyState(VK_CONTROL));
}

void FloorWindow::Validate()
{
    ::ValidateRect(m_window, nullptr);
    MoveCaret();
}

void FloorWindow::Time(Floor floor, int rounds, void (FloorWindow::*work)(), void (FloorWindow::*prepare)())
{
    for (int i = 0; i < rounds; ++i) {
        if (prepare)
            (this->*prepare)();
        m_samples[static_cast<std::size_t>(floor)].push_back(TimeOf([&] { (this->*work)(); }));
    }
}

void FloorWindow::SampleAs(Paints paints, Floor line, Floor page, Floor restedLine)
{
    m_paints = paints;
    Time(line, 20, &FloorWindow::PaintLine);
    Time(page, 8, &FloorWindow::PaintPage);
    Time(restedLine, 8, &FloorWindow::PaintLine, &FloorWindow::PaintPageAndRest);
}

void FloorWindow::SampleCalls()
{
    Time(Floor::scrollBar, 20, &FloorWindow::SetBar);
    Time(Floor::keyState, 20, &FloorWindow::AskKeys);
    Time(Floor::invalidate, 20, &FloorWindow::InvalidateLine);
    Time(Floor::shift, 12, &FloorWindow::Shift, &FloorWindow::Validate);
    ::ValidateRect(m_window, nullptr);
}

void FloorWindow::Sample()
{
    const HWND before = ::SetFocus(m_window);
    ::CreateCaret(m_window, nullptr, 1, lineHeight);
    MoveCaret();
    ::ShowCaret(m_window);
    Drain();
    SampleAs(Paints::direct, Floor::line, Floor::page, Floor::restedLine);
    SampleAs(Paints::bound, Floor::boundLine, Floor::boundPage, Floor::boundRestedLine);
    SampleCalls();
    m_paints = Paints::nothing;
    ::DestroyCaret();
    ::SetFocus(before);
    Drain();
}

Floors FloorWindow::Take()
{
    Floors floors;
    for (std::size_t i = 0; i < m_samples.size(); ++i) {
        floors.ns[i] = MedianOf(m_samples[i]);
        m_samples[i].clear();
    }
    return floors;
}

namespace {

// Fresh pages, one write each: what any load pays for the bytes that it keeps.
double MeasureFaults()
{
    constexpr std::size_t bytes = std::size_t{64} << 20;
    return MedianTime(5, [] {
               void* const fresh = ::VirtualAlloc(nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
               auto* pages = static_cast<volatile char*>(fresh);
               for (std::size_t i = 0; i < bytes; i += 4096)
                   pages[i] = 1;
               ::VirtualFree(fresh, 0, MEM_RELEASE);
           }) / static_cast<double>(bytes);
}

}  // namespace

MemoryFloors MeasureMemoryFloors()
{
    std::vector<char> from(std::size_t{32} << 20, 'a');
    std::vector<char> to(from.size());
    const auto bytes = static_cast<double>(from.size());
    static const void* volatile found;
    MemoryFloors floors{};
    floors.fault = MeasureFaults();
    floors.scan = MedianTime(7, [&] { found = std::memchr(from.data(), 'b', from.size()); }) / bytes;
    static_cast<void>(found);
    floors.copy = MedianTime(7, [&] { std::memcpy(to.data(), from.data(), from.size()); }) / bytes;
    return floors;
}
