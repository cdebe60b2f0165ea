#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "bench/Messages.h"
#include "include/scrivctl3.h"

// The keys that move the caret, up to the moment when nothing of them is left to paint.

namespace {

constexpr int keysInView = 30;

// The caret's place is painted at once, its line after that: two paints.
void DownInView(const Bench& bench, HWND control, int lines)
{
    int count = 0;
    const Beside down = MeasureBeside(bench.floors, 150, [&] { Press(control, VK_DOWN); },
                                      [&] {
                                          if (count++ % keysInView == 0)
                                              PutCaret(control, lines / 2, 0);
                                      });
    const Floors& f = down.floors;
    const TableRow row{bench.size.name, "Down within the view", down.ns, "two lines, the caret moved twice (2 F1)",
                       2 * f[Floor::line], 1.3};
    Print(row);
    PrintBound(row, "two lines off screen, a key state, invalidations",
               2 * f[Floor::boundLine] + f[Floor::keyState] + f[Floor::invalidate]);
}

void DownAtTheBottom(const Bench& bench, HWND control, int lines)
{
    edSetCaretPosition(control, lines / 3, 0);
    edSetScrollPosition(control, lines / 3 - pageRows + 1, -1);
    Drain();
    const Beside down = MeasureBeside(bench.floors, 150, [&] { Press(control, VK_DOWN); });
    const Floors& f = down.floors;
    const TableRow row{bench.size.name, "Down at the bottom", down.ns, "a line, a scroll bar call (F1+F3)",
                       f[Floor::line] + f[Floor::scrollBar], 1.2};
    Print(row);
    PrintBound(row, "three lines off screen, a bar, a shift, a key",
               3 * f[Floor::boundLine] + f[Floor::scrollBar] + f[Floor::shift] + f[Floor::keyState] +
                   2 * f[Floor::invalidate]);
}

void PageDown(const Bench& bench, HWND control)
{
    PutCaret(control, 0, 0);
    const Beside down = MeasureBeside(bench.floors, 100, [&] { Press(control, VK_NEXT); });
    const Floors& f = down.floors;
    const TableRow row{bench.size.name, "Page Down", down.ns, "a page, a scroll bar call (F2+F3)",
                       f[Floor::page] + f[Floor::scrollBar], 1.2};
    Print(row);
    PrintBound(row, "a page off screen, a bar, a key, invalidations",
               f[Floor::boundPage] + f[Floor::scrollBar] + f[Floor::keyState] + 2 * f[Floor::invalidate]);
}

}  // namespace

void BenchCaretKeys(const Bench& bench)
{
    const HWND control = MakeControl();
    edLoadText(control, bench.text.c_str(), 0xFFFFFFFF);
    const int lines = static_cast<int>(edGetLineCount(control));
    DownInView(bench, control, lines);
    DownAtTheBottom(bench, control, lines);
    PageDown(bench, control);
    edDestroyCtrl(control);
}
