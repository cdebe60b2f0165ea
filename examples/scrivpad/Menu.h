#pragma once

#include <windows.h>

namespace scrivpad {

/// Numbers of the menu commands. Each range has one number for each row of its table in Names.h.
enum Command : unsigned {
    cmdOpen = 100,
    cmdSave,
    cmdSaveAs,
    cmdExit,
    cmdAbout,
    cmdFirstTheme = 200,
    cmdFirstEncoding = 300,  ///< the encoding of the next save
    cmdFirstReopen = 400,    ///< read the file again in that encoding
};

/// @return the whole menu bar; the window it is given to owns it
[[nodiscard]] HMENU BuildMenu();

/// @return the keyboard shortcuts; they live as long as the program
[[nodiscard]] HACCEL BuildShortcuts();

/// Puts the dots to the theme and the encoding in use and greys what cannot be done.
void UpdateMenu(HMENU menu, unsigned theme, unsigned encoding, bool hasFile);

}  // namespace scrivpad
