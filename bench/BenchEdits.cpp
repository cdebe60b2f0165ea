#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "bench/Messages.h"
#include "include/scrivctl3.h"

#include <cstring>
#include <utility>

// Edits of many lines, and undo.

namespace {

constexpr std::size_t pasted = 100'000;

// The view goes there and the text changes: one page shows both.
constexpr Goal stepElsewhere{
    {"a page, a bar, a line (F2+F3+F1)", {{{Floor::page, 1}, {Floor::scrollBar, 1}, {Floor::line, 1}}}}, 1.2,
    {"a page off screen, a bar, invalidations",
     {{{Floor::boundPage, 1}, {Floor::scrollBar, 1}, {Floor::invalidate, 3}}}}};

void Execute(HWND control, int command)
{
    edExecCommand(control, command);
    Drain();
    ::UpdateWindow(control);
}

void UndoElsewhere(const Bench& bench, HWND control, int lines)
{
    const Beside undo = MeasureBeside(bench.floors, 60, [&] { Execute(control, ED_COMMAND_UNDO); },
                                      [&] {
                                          PutCaret(control, lines / 4, 4);
                                          Type(control, 'X', L'x');
                                          PutCaret(control, lines / 2, 0);
                                      });
    Report(bench, "one undo step elsewhere in the text", undo, stepElsewhere);
}

void FillClipboard(const std::wstring& text)
{
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(::GlobalLock(block), text.c_str(), bytes);
    ::GlobalUnlock(block);
    ::OpenClipboard(HostWindow());
    ::EmptyClipboard();
    ::SetClipboardData(CF_UNICODETEXT, block);
    ::CloseClipboard();
}

void Paste(const Bench& bench, HWND control, int lines)
{
    const std::wstring piece = bench.text.substr(0, pasted);
    FillClipboard(piece);
    const HWND other = MakeControl();
    std::vector<double> loads;
    for (int i = 0; i < 9; ++i)
        loads.push_back(TimeOfLoad(other, piece));
    edDestroyCtrl(other);
    ::SetFocus(control);
    bool done = false;
    const Beside paste = MeasureBeside(bench.floors, 15, [&] { Execute(control, ED_COMMAND_PASTE); },
                                       [&] {
                                           if (std::exchange(done, true))
                                               Execute(control, ED_COMMAND_UNDO);
                                           PutCaret(control, lines / 2, 0);
                                       });
    const Floors& f = paste.floors;
    Print({bench.size.name, "paste of 100,000 characters in the middle", paste.ns,
           "three loads of them, a page, a bar (F2+F3)", 3 * MedianOf(loads) + f[Floor::page] + f[Floor::scrollBar], 1});
}

void DeleteAll(const Bench& bench, HWND control)
{
    const int rounds = bench.size.characters > 50'000'000 ? 3 : 7;
    std::vector<double> loads;
    for (int i = 0; i < 3; ++i) {
        edLoadText(control, nullptr, 0);
        loads.push_back(TimeOfLoad(control, bench.text));
    }
    std::vector<double> undos;
    const Beside removal = MeasureBeside(bench.floors, rounds, [&] { Press(control, VK_DELETE); },
                                         [&] {
                                             if (edGetLineCount(control) < 3)
                                                 undos.push_back(TimeOf([&] { Execute(control, ED_COMMAND_UNDO); }));
                                             Execute(control, ED_COMMAND_SELECT_ALL);
                                         });
    const Floors& f = removal.floors;
    Print({bench.size.name, "delete all", removal.ns, "a page, a scroll bar call (F2+F3)",
           f[Floor::page] + f[Floor::scrollBar], 1});
    Print({bench.size.name, "undo of it", MedianOf(undos), "half its load", MedianOf(loads) / 2, 1});
}

}  // namespace

void BenchEdits(const Bench& bench)
{
    const HWND control = MakeControl();
    edLoadText(control, bench.text.c_str(), 0xFFFFFFFF);
    const int lines = static_cast<int>(edGetLineCount(control));
    UndoElsewhere(bench, control, lines);
    Paste(bench, control, lines);
    DeleteAll(bench, control);
    edDestroyCtrl(control);
}
