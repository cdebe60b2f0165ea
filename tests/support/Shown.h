#pragma once

#include "framework/base/CString.h"
#include "store/Positions.h"

#include <cstdio>
#include <string>

/// A text as a failing test shows it: printable ASCII as it is, every other unit as \xHHHH, a line feed as \n.
[[nodiscard]] inline std::string Shown(WStrView text)
{
    std::string shown;
    for (const WCHAR ch : text) {
        char digits[8];
        if (ch == _T('\n'))
            shown += "\\n";
        else if (ch >= 0x20 && ch < 0x7F)
            shown += static_cast<char>(ch);
        else if (std::snprintf(digits, sizeof digits, "\\x%04X", static_cast<unsigned>(ch)) > 0)
            shown += digits;
    }
    return shown;
}

/// A position as "(line,column)".
[[nodiscard]] inline std::string Shown(const xTPos& pos)
{
    return "(" + std::to_string(pos.line) + "," + std::to_string(pos.col) + ")";
}
