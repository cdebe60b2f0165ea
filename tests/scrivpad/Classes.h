#pragma once

#include "Highlight.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// The classes of a line in one letter each, in the line's own columns: '.' plain, 'i' identifier, 'k' keyword,
/// 's' symbol, 't' string (text), 'e' escape, '9' number, 'c' comment, '#' directive, 'b' built-in. A character that
/// the classifier left as it was shows as '?'. Nothing behind the line may change.
[[nodiscard]] inline std::string ClassesOf(scrivpad::Highlighter highlight, std::wstring line, int insideComment = 0)
{
    const std::size_t length = line.size();
    std::vector<wchar_t> buffer(line.begin(), line.end());
    buffer.push_back(L'\0');
    buffer.insert(buffer.end(), 8, L'\x7E7E');
    highlight(nullptr, buffer.data(), insideComment);
    EXPECT_EQ(buffer[length], L'\0') << "the terminator was overwritten";
    for (std::size_t i = length + 1; i < buffer.size(); ++i)
        EXPECT_EQ(buffer[i], L'\x7E7E') << "written behind the terminator";

    std::string classes;
    for (std::size_t i = 0; i < length; ++i) {
        switch (buffer[i]) {
        case 0: classes += '.'; break;
        case 2: classes += 'i'; break;
        case 3: classes += 'k'; break;
        case 4: classes += 's'; break;
        case 5: classes += 't'; break;
        case 6: classes += '9'; break;
        case 7: classes += 'c'; break;
        case 8: classes += 'e'; break;
        case 100: classes += '#'; break;
        case 101: classes += 'b'; break;
        default: classes += '?'; break;
        }
    }
    return classes;
}
