#include "MessageLoop.h"

#include "MainWindow.h"
#include "Menu.h"

namespace scrivpad {

void Dispatch(MainWindow& window, HACCEL shortcuts, MSG& message)
{
    // A modeless dialog such as the one of the search has windows and keys of its own: Ctrl+C copies its text there.
    const HWND top = ::GetAncestor(message.hwnd, GA_ROOT);
    const bool foreign = top != nullptr && top != window.Handle();
    const bool taken = foreign ? ::IsDialogMessageW(top, &message) != 0
                               : ::TranslateAcceleratorW(window.Handle(), shortcuts, &message) != 0;
    if (!taken) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    // Once nothing waits any more: the control tells of its caret, but not of a search, nor of its typing mode.
    if (window.Handle() != nullptr && HIWORD(::GetQueueStatus(QS_ALLINPUT)) == 0)
        window.RefreshStatus();
}

int RunMessageLoop(MainWindow& window)
{
    const HACCEL shortcuts = BuildShortcuts();
    MSG message = {};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0)
        Dispatch(window, shortcuts, message);
    ::DestroyAcceleratorTable(shortcuts);
    return static_cast<int>(message.wParam);
}

}  // namespace scrivpad
