#pragma once

#include "store/Positions.h"

#include <cstdint>

class xTMemStorage;

// The caret keys that go further than one step, and what each does to the selection with Shift down. They place the
// caret and set the selection; repainting is the window's, but for a selection that is cleared.

/// To the previous or next word stop of the line, or across its end. Without Shift a selection is left instead: to its
/// first character, or to its last one and not behind it.
void WordLeft(xTMemStorage& store, bool shift);
void WordRight(xTMemStorage& store, bool shift);

/// To the first character that is no blank, from there to column 0.
void HomeStep(xTMemStorage& store, bool shift);
/// To the end of the line.
void EndStep(xTMemStorage& store, bool shift);

/// Selects from the caret to the end of its line; the caret stays. At the end of a line a selection with its first
/// position behind its last one is stored.
void SelectRestOfLine(xTMemStorage& store);

/// The caret of a page key, once the view has moved.
/// @param moved  lines that the view moved by, below 0 towards the start; 0: the caret goes to the end of the text on
///               that side
/// @param old    the caret before
void PageStep(xTMemStorage& store, bool down, std::int32_t moved, xTPos old, bool shift);
