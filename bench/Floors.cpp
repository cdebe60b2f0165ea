#include "bench/Floors.h"

#include "bench/Measure.h"
#include "bench/Messages.h"

#include <cstring>

namespace {

constexpr int lineHeight = 15;
constexpr int charWidth = 8;

HFONT font = nullptr;

void PaintRow(HDC dc, int y)
{
    static const wchar_t text[] = L"abcdefghijklmnopqrstuvwxyz012345";
    constexpr int length = rowChars / rowRuns;
    for (int run = 0; run < rowRuns; ++run) {
        ::SetTextColor(dc, run % 2 ? RGB(0, 0, 255) : RGB(0, 128, 0));
        ::TextOutW(dc, run * length * charWidth, y, text + run * length, length);
    }
}

LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam)
{
    if (id != WM_PAINT)
        return ::DefWindowProcW(window, id, wParam, lParam);
    PAINTSTRUCT paint;
    const HDC dc = ::BeginPaint(window, &paint);
    ::SelectObject(dc, font);
    for (int y = 0; y < pageRows * lineHeight; y += lineHeight)
        if (y < paint.rcPaint.bottom && y + lineHeight > paint.rcPaint.top)
            PaintRow(dc, y);
    ::EndPaint(window, &paint);
    return 0;
}

HFONT MakeFont()
{
    LOGFONTW lf{};
    lf.lfHeight = -13;
    lf.lfWeight = 400;
    lf.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    wcscpy(lf.lfFaceName, L"Courier New");
    return ::CreateFontIndirectW(&lf);
}

double MeasureBitmap(HWND window)
{
    const HDC dc = ::GetDC(window);
    const HDC memory = ::CreateCompatibleDC(dc);
    const double time = MedianTime(200, [&] {
        const HBITMAP bitmap = ::CreateCompatibleBitmap(dc, ::GetDeviceCaps(dc, HORZRES), ::GetDeviceCaps(dc, VERTRES));
        ::SelectObject(memory, ::SelectObject(memory, bitmap));
        ::DeleteObject(bitmap);
    });
    ::DeleteDC(memory);
    ::ReleaseDC(window, dc);
    return time;
}

// Fresh pages, one write each: what any load pays for the bytes that it keeps.
double MeasureFaults()
{
    constexpr std::size_t bytes = std::size_t{64} << 20;
    return MedianTime(5, [] {
               auto* pages = static_cast<volatile char*>(::VirtualAlloc(nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
               for (std::size_t i = 0; i < bytes; i += 4096)
                   pages[i] = 1;
               ::VirtualFree(const_cast<char*>(pages), 0, MEM_RELEASE);
           }) / static_cast<double>(bytes);
}

void MeasureMemory(Floors& floors)
{
    std::vector<char> from(std::size_t{32} << 20, 'a');
    std::vector<char> to(from.size());
    const auto bytes = static_cast<double>(from.size());
    static const void* volatile found;
    floors.scanByte = MedianTime(7, [&] { found = std::memchr(from.data(), 'b', from.size()); }) / bytes;
    static_cast<void>(found);
    floors.copyByte = MedianTime(7, [&] { std::memcpy(to.data(), from.data(), from.size()); }) / bytes;
}

}  // namespace

Floors MeasureFloors(SIZE client)
{
    WNDCLASSW wc{};
    wc.lpfnWndProc = &Procedure;
    wc.hInstance = ::GetModuleHandleW(nullptr);
    wc.lpszClassName = L"BenchFloor";
    wc.hbrBackground = static_cast<HBRUSH>(::GetStockObject(NULL_BRUSH));
    ::RegisterClassW(&wc);
    font = MakeFont();
    RECT rect{0, 0, client.cx, client.cy};
    ::AdjustWindowRect(&rect, WS_POPUP | WS_VSCROLL, FALSE);
    const HWND window = ::CreateWindowExW(0, L"BenchFloor", L"", WS_POPUP | WS_VISIBLE | WS_VSCROLL, 0, 0, client.cx, client.cy, nullptr,
                                          nullptr, wc.hInstance, nullptr);
    Drain();
    ::SetFocus(window);
    ::CreateCaret(window, nullptr, 1, lineHeight);
    ::ShowCaret(window);

    Floors floors{};
    int step = 0;
    const RECT line{0, 10 * lineHeight, client.cx, 11 * lineHeight};
    const auto paintLine = [&] {
        ::InvalidateRect(window, &line, TRUE);
        ::UpdateWindow(window);
    };
    floors.linePaint = MedianTime(400, paintLine);
    floors.line = MedianTime(400, [&] {
        paintLine();
        ::SetCaretPos(charWidth * (++step % 30), 10 * lineHeight);
    });
    floors.page = MedianTime(60, [&] {
        ::InvalidateRect(window, nullptr, TRUE);
        ::UpdateWindow(window);
    });
    floors.scrollBar = MedianTime(400, [&] {
        SCROLLINFO info{sizeof info, SIF_ALL, 0, 100000, 46, ++step * 7 % 90000, 0};
        ::SetScrollInfo(window, SB_VERT, &info, TRUE);
    });
    floors.caret = MedianTime(400, [&] { ::SetCaretPos(charWidth * (++step % 30), 10 * lineHeight); });
    ::SetCaretPos(0, -100 * lineHeight);
    const RECT rows{0, 0, client.cx, pageRows * lineHeight};
    floors.shift = MedianTime(200, [&] { ::ScrollWindow(window, 0, -lineHeight, &rows, &rows); },
                              [&] { ::ValidateRect(window, nullptr); });
    floors.bitmap = MeasureBitmap(window);
    ::DestroyWindow(window);
    ::DeleteObject(font);
    floors.faultByte = MeasureFaults();
    MeasureMemory(floors);
    return floors;
}
