#include "bench/BenchControl.h"
#include "bench/Measure.h"
#include "bench/Messages.h"
#include "include/scrivctl3.h"

// A key as the system sends it, up to the moment when nothing of it is left to paint.

namespace {

constexpr int keysOnALine = 30;  // no line gets so long that the view has to follow

void Finish(HWND control)
{
    ::UpdateWindow(control);
}

void Type(HWND control, UINT key, wchar_t ch)
{
    ::SendMessageW(control, WM_KEYDOWN, key, 1);
    ::SendMessageW(control, WM_CHAR, ch, 1);
    ::SendMessageW(control, WM_KEYUP, key, 1);
    Finish(control);
}

void Press(HWND control, UINT key)
{
    ::SendMessageW(control, WM_KEYDOWN, key, 1);
    ::SendMessageW(control, WM_KEYUP, key, 1);
    Finish(control);
}

void PutCaret(HWND control, int line, int column)
{
    edSetCaretPosition(control, line, column);
    Drain();
    Finish(control);
}

double TypeAt(HWND control, int line)
{
    int count = 0;
    return MedianTime(300, [&] { Type(control, 'X', L'x'); },
                      [&] {
                          if (count++ % keysOnALine == 0)
                              PutCaret(control, line - count / keysOnALine, 4);
                      });
}

double TypeFirst(HWND control, const std::wstring& text)
{
    const int rounds = text.size() > 5'000'000 ? 7 : 30;
    return MedianTime(rounds, [&] { Type(control, 'X', L'x'); },
                      [&] {
                          edLoadText(control, text.c_str(), 0xFFFFFFFF);
                          PutCaret(control, static_cast<int>(edGetLineCount(control) / 2), 4);
                      });
}

double EnterAtTop(HWND control)
{
    return MedianTime(60, [&] { Type(control, VK_RETURN, L'\r'); }, [&] { PutCaret(control, 0, 3); });
}

double PressInView(HWND control, UINT key, int lines)
{
    int count = 0;
    return MedianTime(200, [&] { Press(control, key); },
                      [&] {
                          if (count++ % keysOnALine == 0)
                              PutCaret(control, lines / 2, 0);
                      });
}

}  // namespace

void BenchKeys(const Size& size, const Floors& floors, const std::wstring& text)
{
    const HWND control = MakeControl();
    const char* const line = "an invalidated line, paint, caret";
    Row(size.name, "first keystroke after a load", TypeFirst(control, text), line, floors.line, 2);
    const int lines = static_cast<int>(edGetLineCount(control));
    Row(size.name, "keystroke in the middle", TypeAt(control, lines / 2), line, floors.line, 2);
    Row(size.name, "keystroke at the far end", TypeAt(control, lines - 1), line, floors.line, 2);
    Row(size.name, "Enter at line 0", EnterAtTop(control), "a page, a scroll bar call, a caret move",
        floors.page + floors.scrollBar + floors.caret, 1.2);
    Row(size.name, "Down within the view", PressInView(control, VK_DOWN, lines), line, floors.line, 1.3);
    edSetCaretPosition(control, lines / 3, 0);
    edSetScrollPosition(control, lines / 3 - pageRows + 1, -1);
    Drain();
    const double scrolled = floors.scrollBar + 2 * floors.linePaint + floors.shift + floors.caret;
    Row(size.name, "Down with a scroll", MedianTime(200, [&] { Press(control, VK_DOWN); }),
        "bar, shift, two lines, caret", scrolled, 1.3);
    PutCaret(control, 0, 0);
    Row(size.name, "Page Down", MedianTime(60, [&] { Press(control, VK_NEXT); }),
        "a page, a scroll bar call, a caret move", floors.page + floors.scrollBar + floors.caret, 1.3);
    edDestroyCtrl(control);
}
