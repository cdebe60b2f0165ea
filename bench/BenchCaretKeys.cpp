#include "bench/BenchControl.h"
#include "bench/Messages.h"
#include "include/scrivctl3.h"

// The keys that move the caret, up to the moment when nothing of them is left to paint.

namespace {

constexpr int keysInView = 30;

// The lines that the caret leaves and comes to are painted in one go.
constexpr Goal downInView{
    {"two lines, the caret moved twice (2 F1)", {{{Floor::line, 2}}}}, 1.3,
    {"a line off screen, a key state, invalidations",
     {{{Floor::boundLine, 1}, {Floor::keyState, 1}, {Floor::invalidate, 1}}}}};
// Of what the shift exposes, one line more is painted: the caret's old place is in it.
constexpr Goal downAtTheBottom{
    {"a line, a scroll bar call (F1+F3)", {{{Floor::line, 1}, {Floor::scrollBar, 1}}}}, 1.2,
    {"a line off screen, a bar, a shift, a key",
     {{{Floor::boundLine, 1}, {Floor::scrollBar, 1}, {Floor::shift, 1}, {Floor::keyState, 1}, {Floor::invalidate, 2}}}}};
constexpr Goal pageDown{
    {"a page, a scroll bar call (F2+F3)", {{{Floor::page, 1}, {Floor::scrollBar, 1}}}}, 1.2,
    {"a page off screen, a bar, a key, invalidations",
     {{{Floor::boundPage, 1}, {Floor::scrollBar, 1}, {Floor::keyState, 1}, {Floor::invalidate, 2}}}}};

Beside Down(const Bench& bench, HWND control, const std::function<void()>& prepare = {})
{
    return MeasureBeside(bench.floors, 150, [&] { Press(control, VK_DOWN); }, prepare);
}

}  // namespace

void BenchCaretKeys(const Bench& bench)
{
    const HWND control = MakeControl();
    edLoadText(control, bench.text.c_str(), 0xFFFFFFFF);
    const int lines = static_cast<int>(edGetLineCount(control));
    int count = 0;
    const auto inView = [&] {
        if (count++ % keysInView == 0)
            PutCaret(control, lines / 2, 0);
    };
    Report(bench, "Down within the view", Down(bench, control, inView), downInView);
    edSetCaretPosition(control, lines / 3, 0);
    edSetScrollPosition(control, lines / 3 - pageRows + 1, -1);
    Drain();
    Report(bench, "Down at the bottom", Down(bench, control), downAtTheBottom);
    PutCaret(control, 0, 0);
    Report(bench, "Page Down", MeasureBeside(bench.floors, 100, [&] { Press(control, VK_NEXT); }), pageDown);
    edDestroyCtrl(control);
}
