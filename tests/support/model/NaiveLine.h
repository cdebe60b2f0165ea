#pragma once

#include "framework/base/WinTypes.h"

/// One line of the reference model: the told rules of a line, on plain strings and with no thought of speed.
/// Columns and counts are in characters from 0. `attrs` is as long as `text`.
struct xTNaiveLine {
    static constexpr WCHAR commentMark = 0x0004;

    static constexpr unsigned breakPoint = 0x0002;
    static constexpr unsigned holdsComment = 0x0004;
    static constexpr unsigned execPoint = 0x0010;
    static constexpr unsigned startsInside = 0x0020;

    WString text;
    WString attrs;
    unsigned flags = 0;
    int snapshot = -1;

    xTNaiveLine() = default;
    explicit xTNaiveLine(const WString& characters) : text(characters), attrs(characters.size(), WCHAR{1}) {}

    [[nodiscard]] int Length() const { return static_cast<int>(text.size()); }
    /// 0 outside the line.
    [[nodiscard]] WCHAR At(int col) const;
    [[nodiscard]] bool IsMarked(int col) const;
    /// Would a character put at `col` lie in a block comment? The rules at the edges of a comment are kept to the letter.
    [[nodiscard]] bool TakesComment(int col) const;
    [[nodiscard]] bool HoldsOneOf(const WString& set) const { return text.find_first_of(set) != WString::npos; }

    void InsertChar(int col, WCHAR ch);
    void Insert(int col, const xTNaiveLine& sub);
    /// A column outside the text counts as 0; a count of -1 means to the end.
    void Delete(int col, int count);
    /// @return by how much the line grew
    int ReplaceTabs(int spaces);
    void Append(const xTNaiveLine& other);

    /// The head keeps all flags, the tail only that it holds a comment. Of the snapshot the head keeps the number.
    [[nodiscard]] xTNaiveLine Head(int count) const;
    [[nodiscard]] xTNaiveLine Tail(int from) const;
};
