#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "include/scrivctl3.h"

#include <algorithm>

// Characters and Enter, up to the moment when nothing of them is left to paint.

namespace {

constexpr int keysOnALine = 30;  // no line gets so long that the view has to follow

constexpr Goal aKeystroke{
    {"a line, the caret moved (F1)", {{{Floor::line, 1}}}}, 1.8,
    {"a line off screen, two key states, one invalidation",
     {{{Floor::boundLine, 1}, {Floor::keyState, 2}, {Floor::invalidate, 1}}}}};
// Of a key that comes behind a painted page and a rest.
constexpr Goal aRestedKeystroke{
    {"a line behind a page and a rest (F1)", {{{Floor::restedLine, 1}}}}, 1.8,
    {"such a line off screen, two key states, one invalidation",
     {{{Floor::boundRestedLine, 1}, {Floor::keyState, 2}, {Floor::invalidate, 1}}}}};
constexpr Goal anEnter{
    {"a line, a page, a scroll bar call (F1+F2+F3)", {{{Floor::line, 1}, {Floor::page, 1}, {Floor::scrollBar, 1}}}}, 1.15,
    {"a page off screen, a bar, two key states",
     {{{Floor::boundPage, 1}, {Floor::scrollBar, 1}, {Floor::keyState, 2}, {Floor::invalidate, 3}}}}};

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

Beside TypeEnter(const Bench& bench, HWND control)
{
    return MeasureBeside(bench.floors, 60, [&] { Type(control, VK_RETURN, L'\r'); }, [&] { PutCaret(control, 0, 3); });
}

}  // namespace

void BenchTyping(const Bench& bench)
{
    const HWND control = MakeControl();
    Report(bench, "first keystroke after a load", TypeFirst(bench, control), aRestedKeystroke);
    const int lines = static_cast<int>(edGetLineCount(control));
    const auto middle = [&](int step) { PutCaret(control, lines / 2 - step, 4); };
    Report(bench, "keystroke in the middle", TypeAt(bench, control, middle), aKeystroke);
    const auto end = [&](int step) { PutCaret(control, lines - 1 - step, 4); };
    Report(bench, "keystroke at the far end", TypeAt(bench, control, end), aKeystroke);
    Report(bench, "keystroke at either end by turns", TypeByTurns(bench, control, lines), aRestedKeystroke);
    const int comment = LineWith(bench.text, L"//", bench.text.size() / 3);
    const auto onComment = [&](int) { PutCaret(control, comment, 1); };
    Report(bench, "keystroke on a line with //", TypeAt(bench, control, onComment), aKeystroke);
    Report(bench, "Enter at line 0", TypeEnter(bench, control), anEnter);
    edDestroyCtrl(control);
}
