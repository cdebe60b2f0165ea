#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "bench/Messages.h"
#include "include/scrivctl3.h"

// Painting and scrolling without a change of the text.

namespace {

void Repaint(const Bench& bench, HWND control)
{
    const Beside paint = MeasureBeside(bench.floors, 100, [&] {
        ::InvalidateRect(control, nullptr, TRUE);
        ::UpdateWindow(control);
    });
    const TableRow row{bench.size.name, "full page paint", paint.ns, "a page of 46 rows, 10 runs each (F2)",
                       paint.floors[Floor::page], 1.5};
    Print(row);
    PrintBound(row, "a page off screen", paint.floors[Floor::boundPage]);
}

void ScrollByALine(const Bench& bench, HWND control)
{
    const Beside scroll =
        MeasureBeside(bench.floors, 150, [&] { ::SendMessageW(control, WM_VSCROLL, SB_LINEDOWN, 0); });
    const Floors& f = scroll.floors;
    const TableRow row{bench.size.name, "scroll by a line", scroll.ns, "a line, a scroll bar call (F1+F3)",
                       f[Floor::line] + f[Floor::scrollBar], 1.2};
    Print(row);
    PrintBound(row, "a line off screen, a bar, a shift",
               f[Floor::boundLine] + f[Floor::scrollBar] + f[Floor::shift]);
}

void ScrollByAPage(const Bench& bench, HWND control)
{
    const Beside scroll =
        MeasureBeside(bench.floors, 100, [&] { ::SendMessageW(control, WM_VSCROLL, SB_PAGEDOWN, 0); });
    const Floors& f = scroll.floors;
    const TableRow row{bench.size.name, "scroll by a page", scroll.ns, "a page, a scroll bar call (F2+F3)",
                       f[Floor::page] + f[Floor::scrollBar], 1.2};
    Print(row);
    PrintBound(row, "a page off screen, a bar, a shift of a page",
               f[Floor::boundPage] + f[Floor::scrollBar] + f[Floor::shiftPage]);
}

// The first jump to the end after a load, beside the second.
void Jumps(const Bench& bench, HWND control, int lines)
{
    const int rounds = bench.size.characters > 50'000'000 ? 3 : 15;
    std::vector<double> first;
    std::vector<double> second;
    for (int i = 0; i < rounds; ++i) {
        edLoadText(control, bench.text.c_str(), 0xFFFFFFFF);
        for (std::vector<double>* times : {&first, &second}) {
            PutCaret(control, 0, 0);
            times->push_back(TimeOf([&] { edSetCaretPosition(control, lines - 1, 0); }));
        }
    }
    Print({bench.size.name, "first jump to the end after a load", MedianOf(first), "the second jump", MedianOf(second),
           1});
}

}  // namespace

void BenchView(const Bench& bench)
{
    const HWND control = MakeControl();
    edLoadText(control, bench.text.c_str(), 0xFFFFFFFF);
    const int lines = static_cast<int>(edGetLineCount(control));
    edSetScrollPosition(control, lines / 2, -1);
    Drain();
    Repaint(bench, control);
    ScrollByALine(bench, control);
    ScrollByAPage(bench, control);
    Jumps(bench, control, lines);
    edDestroyCtrl(control);
}
