#pragma once

#include "store/MemStor.h"

/// A text with marks, for tests that show the state before and after in one glance: '|' is the caret, '[' stands before
/// the first selected character and ']' behind the last. A selected line break is shown by a ']' at the start of the
/// next line. A line feed parts two lines, so that "a\n" is a line `a` and an empty one, and "" is one empty line.

/// Puts the lines, the caret and the selection of a marked text into a store. Without a '|' the caret is at (0, 0).
void GivenMarked(xTMemStorage& store, WStrView marked);

/// The state of a store as a marked text. Where marks meet, the order is ']', '|', '['.
[[nodiscard]] WString Marked(const xTMemStorage& store);
