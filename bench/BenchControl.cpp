#include "bench/BenchControl.h"

#include "bench/Measure.h"
#include "bench/Messages.h"
#include "bench/SampleText.h"
#include "include/scrivctl3.h"

#include <algorithm>

Beside MeasureBeside(FloorWindow& floors, int rounds, const std::function<void()>& work,
                     const std::function<void()>& prepare)
{
    const int stretches = std::min(rounds, 5);
    std::vector<double> times;
    for (int stretch = 0; stretch < stretches; ++stretch) {
        floors.Sample();
        const int from = rounds * stretch / stretches;
        const int to = rounds * (stretch + 1) / stretches;
        for (int i = from; i < to; ++i) {
            if (prepare)
                prepare();
            times.push_back(TimeOf(work));
        }
    }
    return {MedianOf(times), floors.Take()};
}

double FloorSum::In(const Floors& floors) const
{
    double sum = 0;
    for (const Part& part : parts)
        sum += part.times * floors[part.floor];
    return sum;
}

void Report(const Bench& bench, const char* what, const Beside& measured, const Goal& goal)
{
    const double floor = goal.floor.In(measured.floors);
    const TableRow row{bench.size.name, what, measured.ns, goal.floor.name, floor, goal.multiple};
    Print(row);
    PrintBound(row, goal.bound.name, goal.bound.In(measured.floors));
}

HWND HostWindow()
{
    static const HWND host = ::CreateWindowExW(0, L"STATIC", L"bench", WS_POPUP | WS_VISIBLE, 0, 0, 1280, 1024, nullptr,
                                               nullptr, nullptr, nullptr);
    return host;
}

HWND MakeControl()
{
    edHighlightHook hook{&ClassifySample, nullptr};
    RECT rect{0, 0, clientSize.cx, clientSize.cy};
    edCreateParams params{};
    params.parent = HostWindow();
    params.rect = &rect;
    params.highlightHook = &hook;
    const HWND control = edCreateCtrl(&params);
    // The client area is what counts: the frame and the bars come on top of it.
    RECT client{};
    ::GetClientRect(control, &client);
    ::SetWindowPos(control, nullptr, 0, 0, 2 * clientSize.cx - client.right, 2 * clientSize.cy - client.bottom,
                   SWP_NOMOVE | SWP_NOZORDER);
    ::ShowWindow(control, SW_SHOW);
    ::SetFocus(control);
    Drain();
    return control;
}

double PrivateBytes()
{
    double bytes = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const char* at = nullptr; ::VirtualQuery(at, &region, sizeof region);
         at = static_cast<const char*>(region.BaseAddress) + region.RegionSize)
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE)
            bytes += static_cast<double>(region.RegionSize);
    return bytes;
}

double TimeOfLoad(HWND control, const std::wstring& text)
{
    return TimeOf([&] { edLoadText(control, text.c_str(), 0xFFFFFFFF); });
}

void PutCaret(HWND control, int line, int column)
{
    edSetCaretPosition(control, line, column);
    Drain();
    ::UpdateWindow(control);
    Rest();
}

void Type(HWND control, UINT key, wchar_t ch)
{
    ::SendMessageW(control, WM_KEYDOWN, key, 1);
    ::SendMessageW(control, WM_CHAR, ch, 1);
    ::SendMessageW(control, WM_KEYUP, key, 1);
    ::UpdateWindow(control);
}

void Press(HWND control, UINT key)
{
    ::SendMessageW(control, WM_KEYDOWN, key, 1);
    ::SendMessageW(control, WM_KEYUP, key, 1);
    ::UpdateWindow(control);
}
