#pragma once

#include "CommandLine.h"

namespace scrivpad {

class MainWindow;

/// Opens the files of the command line in a shown window and does all steps that it asks for, in the order marks, caret,
/// selection, find dialog, save, screenshot. Throws a Failure at the first that cannot be done. No message box appears meanwhile.
void RunSteps(MainWindow& window, const Options& options);

}  // namespace scrivpad
