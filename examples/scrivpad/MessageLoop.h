#pragma once

#include <windows.h>

namespace scrivpad {

class MainWindow;

/// Handles one message that was taken from the queue: shortcuts in the main window, dialog keys in a modeless dialog.
void Dispatch(MainWindow& window, HACCEL shortcuts, MSG& message);

/// Handles messages until the program ends. @return its exit status
int RunMessageLoop(MainWindow& window);

}  // namespace scrivpad
