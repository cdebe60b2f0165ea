// What searching and replacing costs in a visible control, asked for through the system's own dialog.
// bench/run.sh starts it.

#include "bench/Measure.h"
#include "bench/Messages.h"
#include "bench/SampleText.h"
#include "include/scrivctl3.h"
#include "tests/support/win/MessageBoxes.h"

#include <commdlg.h>
#include <dlgs.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

constexpr const wchar_t* word = L"er";      // 66,000 times in 10 million characters
constexpr const wchar_t* longer = L"errr";  // so that lines change their length
constexpr double replaceGoal = 2500;         // nanoseconds a match

HWND hostWindow = nullptr;

struct Size {
    const char* name;
    std::size_t characters;
};

HWND OpenReplaceDialog(HWND control, const wchar_t* what, const wchar_t* with)
{
    edExecCommand(control, ED_COMMAND_REPLACE);
    Drain();
    HWND dialog = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            if (::GetDlgItem(window, edt2))
                *reinterpret_cast<HWND*>(result) = window;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&dialog));
    ::SetDlgItemTextW(dialog, edt1, what);
    ::SetDlgItemTextW(dialog, edt2, with);
    return dialog;
}

std::size_t Occurrences(const std::wstring& text, const std::wstring& what)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::wstring::npos; at = text.find(what, at + what.size()))
        ++count;
    return count;
}

void Row(const char* size, const char* what, double ns, double goal)
{
    std::printf("%-2s %-44s %14.0f ns", size, what, ns);
    if (goal != 0)
        std::printf("  goal %6.0f  %s", goal, ns <= goal ? "met" : "MISSED");
    std::printf("\n");
    std::fflush(stdout);
}

/// The time from the button to the message box that says how many: the box itself is not the control's work.
double TimeOfButton(HWND dialog, int button)
{
    MessageBoxes boxes;
    double shown = 0;
    boxes.onBox = [&](HWND) { shown = Now(); };
    const double start = Now();
    ::SendDlgItemMessageW(dialog, button, BM_CLICK, 0, 0);
    return (shown != 0 ? shown : Now()) - start;
}

void Bench(const Size& size)
{
    const std::wstring text = SampleText(size.characters);
    const double matches = static_cast<double>(Occurrences(text, word));
    RECT rect{0, 0, 1000, 700};
    edHighlightHook hook{&ClassifySample, nullptr};
    edCreateParams params{};
    params.parent = hostWindow;
    params.rect = &rect;
    params.highlightHook = &hook;
    const HWND control = edCreateCtrl(&params);
    ::ShowWindow(control, SW_SHOW);
    ::SetFocus(control);
    edLoadText(control, text.c_str(), 0xFFFFFFFF);
    const double message = MedianTime(9, [] { ::SendNotifyMessageW(hostWindow, ED_NOTIFY_CARET, 1, 0); }, {}, 5000);
    std::printf("%-2s %.0f matches; each tells the host of itself, which costs %.0f ns\n", size.name, matches, message);

    const HWND dialog = OpenReplaceDialog(control, word, longer);
    Row(size.name, "replace all, a match", TimeOfButton(dialog, psh2) / matches, replaceGoal);
    ::SetFocus(control);
    double start = Now();
    edExecCommand(control, ED_COMMAND_UNDO);
    Row(size.name, "undo of it, a match", (Now() - start) / matches, 0);
    start = Now();
    edExecCommand(control, ED_COMMAND_REDO);
    Row(size.name, "redo of it, a match", (Now() - start) / matches, 0);

    edSetCaretPosition(control, 0, 0);
    ::SetDlgItemTextW(dialog, edt1, L"nowhere to be found");
    Row(size.name, "find what is not there, a character",
        TimeOfButton(dialog, IDOK) / static_cast<double>(text.size()), 0);
    edDestroyCtrl(control);
}

}  // namespace

int main(int argc, char** argv)
{
    const Size sizes[] = {{"S", 1'000'000}, {"M", 10'000'000}, {"L", 100'000'000}};
    const std::string wanted = argc > 1 ? argv[1] : "SML";
    const std::string topics = argc > 2 ? argv[2] : "f";
    if (topics.find('f') == std::string::npos)
        return 0;
    hostWindow = ::CreateWindowExW(0, L"STATIC", L"bench", WS_POPUP | WS_VISIBLE, 0, 0, 1280, 1024, nullptr, nullptr,
                                   nullptr, nullptr);
    Drain();
    for (const Size& size : sizes)
        if (wanted.find(size.name) != std::string::npos)
            Bench(size);
    return 0;
}
