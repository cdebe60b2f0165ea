#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "bench/Messages.h"
#include "include/scrivctl3.h"

// Painting and scrolling without a change of the text.

namespace {

constexpr Goal fullPage{
    {"a page of 46 rows, 10 runs each (F2)", {{{Floor::page, 1}}}}, 1.5,
    {"a page off screen", {{{Floor::boundPage, 1}}}}};
constexpr Goal aLineDown{
    {"a line, a scroll bar call (F1+F3)", {{{Floor::line, 1}, {Floor::scrollBar, 1}}}}, 1.2,
    {"a line off screen, a bar, a shift", {{{Floor::boundLine, 1}, {Floor::scrollBar, 1}, {Floor::shift, 1}}}}};
// A page has nothing to move: all of it is painted.
constexpr Goal aPageDown{
    {"a page, a scroll bar call (F2+F3)", {{{Floor::page, 1}, {Floor::scrollBar, 1}}}}, 1.2,
    {"a page off screen, a bar", {{{Floor::boundPage, 1}, {Floor::scrollBar, 1}}}}};

Beside Repaint(const Bench& bench, HWND control)
{
    return MeasureBeside(bench.floors, 100, [&] {
        ::InvalidateRect(control, nullptr, TRUE);
        ::UpdateWindow(control);
    });
}

Beside Scroll(const Bench& bench, HWND control, int rounds, int code)
{
    return MeasureBeside(bench.floors, rounds,
                         [&] { ::SendMessageW(control, WM_VSCROLL, static_cast<WPARAM>(code), 0); });
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
    Report(bench, "full page paint", Repaint(bench, control), fullPage);
    Report(bench, "scroll by a line", Scroll(bench, control, 150, SB_LINEDOWN), aLineDown);
    Report(bench, "scroll by a page", Scroll(bench, control, 100, SB_PAGEDOWN), aPageDown);
    Jumps(bench, control, lines);
    edDestroyCtrl(control);
}
