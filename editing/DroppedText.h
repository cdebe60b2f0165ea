#pragma once

#include "framework/base/CString.h"
#include "framework/win/Handles.h"

struct IDataObject;

// Text as drags carry it.

/// The text of what was dropped: as it stands, or the paths of files, one a line. Empty when it is neither.
/// @param data may be null
[[nodiscard]] CString DroppedText(IDataObject* data);

/// A text with its terminator in global memory, for CF_UNICODETEXT. Raises std::bad_alloc.
[[nodiscard]] xTGlobal TextBlock(const CString& text);
