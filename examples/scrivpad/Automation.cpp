#include "Automation.h"

#include "Failure.h"
#include "MainWindow.h"
#include "Menu.h"
#include "Screenshot.h"

#include <iterator>

namespace scrivpad {

namespace {

constexpr DWORD quietMs = 300;    ///< a window that got no message for so long has painted all there was
constexpr DWORD longestMs = 5000; ///< the control's timers never rest, so this ends the wait at the latest

/// While it lives, no message box of this thread comes into being: nobody is there to close it.
class NoMessageBoxes {
public:
    NoMessageBoxes() noexcept : m_hook(::SetWindowsHookExW(WH_CBT, Refuse, nullptr, ::GetCurrentThreadId())) {}
    ~NoMessageBoxes() { ::UnhookWindowsHookEx(m_hook); }
    NoMessageBoxes(const NoMessageBoxes&) = delete;
    NoMessageBoxes& operator=(const NoMessageBoxes&) = delete;

private:
    static LRESULT CALLBACK Refuse(int code, WPARAM wParam, LPARAM lParam) noexcept
    {
        wchar_t name[8] = {};
        if (code == HCBT_CREATEWND && ::GetClassNameW(reinterpret_cast<HWND>(wParam), name, std::size(name)) > 0 &&
            ::lstrcmpW(name, L"#32770") == 0)
            return 1;
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }

    HHOOK m_hook;
};

void DispatchPending()
{
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

/// Lets the window manager, the window and the control draw until nothing is left to draw.
void Settle(HWND window)
{
    const ULONGLONG start = ::GetTickCount64();
    ULONGLONG lastPaint = start;
    for (ULONGLONG now = start; now - lastPaint < quietMs && now - start < longestMs; now = ::GetTickCount64()) {
        if (HIWORD(::GetQueueStatus(QS_PAINT)) != 0)
            lastPaint = now;
        DispatchPending();
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, quietMs / 10, QS_ALLINPUT);
    }
    ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    ::GdiFlush();
    // A window manager that composes windows shows what was drawn only once the thread has come to rest.
    for (const ULONGLONG drawn = ::GetTickCount64(); ::GetTickCount64() - drawn < quietMs;) {
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, quietMs / 10, QS_ALLINPUT);
        DispatchPending();
    }
}

void TakeScreenshot(HWND window, const std::wstring& path)
{
    ::SetForegroundWindow(window);
    ::BringWindowToTop(window);
    Settle(window);
    ::HideCaret(nullptr);  // it blinks: without it two pictures of one window are equal
    SaveScreenshot(window, WholePath(path));
    ::ShowCaret(nullptr);
}

}  // namespace

namespace {

void OpenFiles(MainWindow& window, const Options& options)
{
    if (!options.file.empty())
        window.Active().Open(options.file, options.encoding.value_or(ED_ENCODING_DEFAULT));
    if (options.beside.empty())
        return;
    window.Split();
    window.Active().Open(options.beside, ED_ENCODING_DEFAULT);
    window.NextPane();
}

void MarkPlaces(Pane& pane, const Options& options)
{
    for (const int line : options.breakPoints)
        pane.SetBreakPoint(line);
    if (options.execPoint)
        pane.SetExecPoint(*options.execPoint);
    if (options.caret)
        pane.GoTo(*options.caret);
    if (options.selectTo)
        pane.SelectTo(*options.selectTo);
}

/// The window that a step has opened, else the main one.
[[nodiscard]] HWND WindowToShow(const MainWindow& window) noexcept
{
    if (const HWND settings = window.SettingsHandle())
        return settings;
    const HWND preview = window.PreviewHandle();
    return preview != nullptr ? preview : window.Handle();
}

}  // namespace

void RunSteps(MainWindow& window, const Options& options)
{
    // The search's dialog is of the class that message boxes have, so it is opened while these are not looked out for.
    {
        const NoMessageBoxes guard;
        OpenFiles(window, options);
        MarkPlaces(window.Active(), options);
    }
    if (options.find)
        window.Run(EditCommand(ED_COMMAND_FIND));
    if (options.tune)
        window.ShowSettings(*options.tune == 1 ? SettingsDialog::fontPage : SettingsDialog::coloursPage);
    const NoMessageBoxes guard;
    Pane& pane = window.Active();
    if (!options.saveAs.empty())
        pane.SaveAs(options.saveAs, options.saveEncoding.value_or(pane.CurrentDocument().encoding));
    if (options.preview)
        window.Run(cmdPreview);
    if (!options.screenshot.empty())
        TakeScreenshot(WindowToShow(window), options.screenshot);
}

}  // namespace scrivpad
