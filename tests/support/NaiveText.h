#pragma once

#include "framework/base/WinTypes.h"

#include <vector>

/// The told rule of cutting a text into lines, character by character.
[[nodiscard]] inline std::vector<WString> NaiveLines(const WString& text, std::size_t limit = 512)
{
    std::vector<WString> lines;
    std::size_t cursor = 0;
    while (cursor < text.size() && text[cursor] != 0) {
        std::size_t end = cursor;
        while (end < text.size() && text[end] != _T('\n') && text[end] != 0)
            ++end;
        if (end - cursor > limit) {
            lines.push_back(text.substr(cursor, limit));
            cursor += limit;
        } else {
            lines.push_back(text.substr(cursor, end - cursor));
            cursor = end + 1;
        }
    }
    return lines;
}

/// Lines with a line feed between each two.
[[nodiscard]] inline WString Joined(const std::vector<WString>& lines)
{
    WString text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0)
            text += _T('\n');
        text += lines[i];
    }
    return text;
}
