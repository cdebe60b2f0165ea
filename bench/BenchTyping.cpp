#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "include/scrivctl3.h"

#include <algorithm>

// Characters and Enter, up to the moment when nothing of them is left to paint.

namespace {

constexpr int keysOnALine = 30;  // no line gets so long that the view has to follow

void Report(const Bench& bench, const char* what, const Beside& measured)
{
    const Floors& f = measured.floors;
    const TableRow row{bench.size.name, what, measured.ns, "a line, the caret moved (F1)", f[Floor::line], 1.8};
    Print(row);
    PrintBound(row, "a line off screen, two key states, one invalidation",
               f[Floor::boundLine] + 2 * f[Floor::keyState] + f[Floor::invalidate]);
}

// Of a key that comes behind a painted page and a rest.
void ReportRested(const Bench& bench, const char* what, const Beside& measured)
{
    const Floors& f = measured.floors;
    const TableRow row{bench.size.name, what, measured.ns, "a line behind a page and a rest (F1)",
                       f[Floor::restedLine], 1.8};
    Print(row);
    PrintBound(row, "such a line off screen, two key states, one invalidation",
               f[Floor::boundRestedLine] + 2 * f[Floor::keyState] + f[Floor::invalidate]);
}

Beside TypeAt(const Bench& bench, HWND control, const std::function<void(int)>& place)
{
    int count = 0;
    return MeasureBeside(bench.floors, 150, [&] { Type(control, 'X', L'x'); },
                         [&] {
                             if (count++ % keysOnALine == 0)
                                 place(count / keysOnALine);
                         });
}

Beside TypeFirst(const Bench& bench, HWND control)
{
    const int rounds = bench.text.size() > 50'000'000 ? 5 : bench.text.size() > 5'000'000 ? 9 : 30;
    return MeasureBeside(bench.floors, rounds, [&] { Type(control, 'X', L'x'); },
                         [&] {
                             edLoadText(control, bench.text.c_str(), 0xFFFFFFFF);
                             PutCaret(control, static_cast<int>(edGetLineCount(control) / 2), 4);
                         });
}

// Each key at the other end of the text than the one before.
Beside TypeByTurns(const Bench& bench, HWND control, int lines)
{
    int count = 0;
    return MeasureBeside(bench.floors, 100, [&] { Type(control, 'X', L'x'); },
                         [&] { PutCaret(control, ++count % 2 ? lines - 2 - count / 60 : count / 60, 4); });
}

int LineWith(const std::wstring& text, const wchar_t* what, std::size_t from)
{
    const std::size_t at = text.find(what, from);
    return static_cast<int>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), L'\n'));
}

void ReportEnter(const Bench& bench, HWND control)
{
    const Beside enter = MeasureBeside(bench.floors, 60, [&] { Type(control, VK_RETURN, L'\r'); },
                                       [&] { PutCaret(control, 0, 3); });
    const Floors& f = enter.floors;
    const TableRow row{bench.size.name, "Enter at line 0", enter.ns, "a line, a page, a scroll bar call (F1+F2+F3)",
                       f[Floor::line] + f[Floor::page] + f[Floor::scrollBar], 1.15};
    Print(row);
    PrintBound(row, "a page off screen, a bar, two key states",
               f[Floor::boundPage] + f[Floor::scrollBar] + 2 * f[Floor::keyState] + 3 * f[Floor::invalidate]);
}

}  // namespace

void BenchTyping(const Bench& bench)
{
    const HWND control = MakeControl();
    ReportRested(bench, "first keystroke after a load", TypeFirst(bench, control));
    const int lines = static_cast<int>(edGetLineCount(control));
    Report(bench, "keystroke in the middle",
           TypeAt(bench, control, [&](int step) { PutCaret(control, lines / 2 - step, 4); }));
    Report(bench, "keystroke at the far end",
           TypeAt(bench, control, [&](int step) { PutCaret(control, lines - 1 - step, 4); }));
    ReportRested(bench, "keystroke at either end by turns", TypeByTurns(bench, control, lines));
    const int comment = LineWith(bench.text, L"//", bench.text.size() / 3);
    Report(bench, "keystroke on a line with //", TypeAt(bench, control, [&](int) { PutCaret(control, comment, 1); }));
    ReportEnter(bench, control);
    edDestroyCtrl(control);
}
