#pragma once

class xTMemStorage;

/// Moves the caret of a store one step and lets the selection follow it. The store has a window.
/// @param direction 0 left, 1 right, 2 up, 3 down; any other does nothing
void ExtendSelection(xTMemStorage& store, int direction);
