#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace scrivpad {

/// A place in a text as people count: line and column from 1.
struct TextPlace {
    int line = 1;
    int column = 1;
    friend bool operator==(const TextPlace&, const TextPlace&) = default;
};

/// What the command line asks for. Paths are as written; empty means not asked for.
struct Options {
    std::optional<unsigned> theme;         ///< 1 to 5
    std::optional<unsigned> encoding;      ///< code to open with, 0 to 5
    std::optional<TextPlace> caret;
    std::optional<TextPlace> selectTo;     ///< the other end of a selection from the caret
    std::vector<int> breakPoints;          ///< lines, from 1
    std::optional<int> execPoint;          ///< line, from 1
    bool find = false;                     ///< open the find dialog
    bool preview = false;                  ///< open the print preview; a picture is then one of it
    std::wstring settings;                 ///< the file that keeps the settings
    std::optional<unsigned> tune;          ///< open the settings dialog on this page, 1 or 2
    std::wstring saveAs;
    std::optional<unsigned> saveEncoding;  ///< code, 0 to 5; none: that of the file
    std::wstring screenshot;
    bool exit = false;
    bool help = false;
    std::wstring file;
    std::wstring beside;                   ///< a second file

    /// Any option means that a script is at work: nothing may wait for a user then.
    [[nodiscard]] bool Automated() const noexcept;
};

struct ParsedCommandLine {
    Options options;
    std::wstring error;  ///< empty when all arguments were understood
};

/// @param arguments  without the program's own name
[[nodiscard]] ParsedCommandLine ParseCommandLine(std::span<const std::wstring> arguments);

/// @return the lines that explain the options, ended by a line break
[[nodiscard]] const wchar_t* UsageText() noexcept;

}  // namespace scrivpad
