#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "include/scrivctl3.h"

#include <utility>

// A block comment opened and closed at the top of the text, painted.

namespace {

constexpr double nsALine = 15;  // where the whole text turns
constexpr double goal = 1.2;
constexpr int plainLines = 20;

void Open(HWND control)
{
    Type(control, '8', L'*');
}

void Close(HWND control)
{
    Type(control, VK_BACK, L'\b');
}

// @param lines  how many of them turn from code into comment and back
void Report(const Bench& bench, const char* what, const Beside& measured, double lines)
{
    const Floors& f = measured.floors;
    const char* const floor = lines == 0 ? "a line, a page (F1+F2)" : "a line, a page (F1+F2), the lines";
    const double sum = f[Floor::line] + f[Floor::page] + lines * nsALine / goal;
    const TableRow row{bench.size.name, what, measured.ns, floor, sum, goal};
    Print(row);
    PrintBound(row, "a line and a page off screen, two key states",
               f[Floor::boundLine] + f[Floor::boundPage] + 2 * f[Floor::keyState] + 3 * f[Floor::invalidate] +
                   lines * nsALine);
}

void OpenAndClose(const Bench& bench, HWND control, int rounds, const char* opened, const char* closed, double lines)
{
    PutCaret(control, 0, 0);
    Type(control, VK_OEM_2, L'/');
    bool isOpen = false;
    const auto toggle = [&](bool open) {
        if (std::exchange(isOpen, open) != open)
            open ? Open(control) : Close(control);
    };
    Report(bench, opened,
           MeasureBeside(bench.floors, rounds, [&] { toggle(true); }, [&] { toggle(false); }), lines);
    Report(bench, closed,
           MeasureBeside(bench.floors, rounds, [&] { toggle(false); }, [&] { toggle(true); }), lines);
}

// Lines without a comment at the top, so that there is something to turn.
std::wstring BehindPlainLines(const std::wstring& text)
{
    std::wstring all;
    for (int line = 0; line < plainLines; ++line)
        all += L"    value = table[3] + 17 * step;\n";
    return all + text;
}

std::wstring WithoutComments(std::wstring text)
{
    for (const wchar_t* mark : {L"/*", L"*/"})
        for (std::size_t at = 0; (at = text.find(mark, at)) != std::wstring::npos; at += 2)
            text.replace(at, 2, L"++");
    return text;
}

}  // namespace

void BenchComments(const Bench& bench)
{
    const HWND control = MakeControl();
    edLoadText(control, BehindPlainLines(bench.text).c_str(), 0xFFFFFFFF);
    OpenAndClose(bench, control, 60, "/* opened at the top, comments further down",
                 "/* closed at the top, comments further down", 0);
    edLoadText(control, WithoutComments(bench.text).c_str(), 0xFFFFFFFF);
    const int rounds = bench.size.characters > 50'000'000 ? 9 : 30;
    OpenAndClose(bench, control, rounds, "/* opened at the top, the whole text turns",
                 "/* closed at the top, the whole text turns", edGetLineCount(control));
    edDestroyCtrl(control);
}
