#pragma once

#include "scrivctl3.h"

#include <windows.h>

namespace scrivpad {

class Pane;

/// Numbers of the menu commands. Each range has one number for each row of its table in Names.h.
enum Command : unsigned {
    cmdOpen = 100,
    cmdSave,
    cmdSaveAs,
    cmdPageSetup,
    cmdPreview,
    cmdPrint,
    cmdExit,
    cmdAbout,
    cmdSplit,
    cmdNextPane,
    cmdBreakPoint,
    cmdRemoveBreakPoints,
    cmdExecPoint,
    cmdClearExecPoint,
    cmdSettings,
    cmdFirstTheme = 200,
    cmdFirstEncoding = 300,  ///< the encoding of the next save
    cmdFirstReopen = 400,    ///< read the file again in that encoding
    cmdFirstEdit = 500,      ///< plus an ED_COMMAND_ code: what the editor does itself
    cmdLastEdit = cmdFirstEdit + ED_COMMAND_COPY_APPEND,
};

/// The menu command that runs a command of the editor.
[[nodiscard]] constexpr unsigned EditCommand(int code) noexcept
{
    return cmdFirstEdit + static_cast<unsigned>(code);
}

/// @return the ED_COMMAND_ code of a menu command, 0 for one that the editor knows nothing of
[[nodiscard]] constexpr int EditCode(unsigned command) noexcept
{
    return command > cmdFirstEdit && command <= cmdLastEdit ? static_cast<int>(command - cmdFirstEdit) : 0;
}

/// @return the whole menu bar; the window it is given to owns it
[[nodiscard]] HMENU BuildMenu();

/// @return the keyboard shortcuts; whoever asked destroys them
[[nodiscard]] HACCEL BuildShortcuts();

/// What the menu shows besides its texts.
struct MenuState {
    UINT32 theme;
    bool split;
    const Pane& active;
};

/// Puts dots and ticks to what is in use and greys what cannot be done.
void UpdateMenu(HMENU menu, const MenuState& state);

}  // namespace scrivpad
