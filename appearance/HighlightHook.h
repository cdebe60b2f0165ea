#pragma once

#include "framework/base/WinTypes.h"

/// The host's classifier as the engine calls it; the same two fields as the host's record.
struct xTHighlightHook {
    /// Overwrites each character of `text` by its class code; `insideComment` is 1 when the line begins in a comment.
    void (*fn)(void* ctx, WCHAR* text, int insideComment) = nullptr;
    void* ctx = nullptr;
};
