#pragma once

#include "framework/base/CString.h"

/// What the find dialog asks for: its two texts and its flags, which have the values of the system's FR_ constants.
struct xTSearchRequest {
    enum : DWORD {
        down = 0x01,
        wholeWord = 0x02,
        matchCase = 0x04,
        findNext = 0x08,
        replace = 0x10,
        replaceAll = 0x20,
        dialogTerm = 0x40,  ///< the dialog is closing
    };
    [[nodiscard]] bool Has(DWORD flag) const noexcept { return (flags & flag) != 0; }

    CString find_text;
    CString replace_text;
    DWORD flags = 0;
};
