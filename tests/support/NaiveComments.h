#pragma once

#include "framework/base/WinTypes.h"

#include <algorithm>
#include <vector>

/// The block comments of a text, worked out from the told rules alone and with no thought of speed: the oracle for the
/// scan of the store, sharing nothing with it.
class xTNaiveComments {
public:
    struct xTLine {
        WString text;
        std::vector<bool> inComment;
        bool holdsComment = false;
        bool startsInside = false;
    };

    explicit xTNaiveComments(const std::vector<WString>& texts)
    {
        for (const WString& text : texts)
            lines.push_back({text, std::vector<bool>(text.size(), false), false, false});
        Scan();
    }

    std::vector<xTLine> lines;

private:
    struct xTPlace {
        int line;
        int col;
    };

    [[nodiscard]] int Count() const { return static_cast<int>(lines.size()); }
    [[nodiscard]] int Length(int line) const { return static_cast<int>(At(line).text.size()); }
    [[nodiscard]] const xTLine& At(int line) const { return lines[static_cast<std::size_t>(line)]; }
    [[nodiscard]] xTLine& At(int line) { return lines[static_cast<std::size_t>(line)]; }
    [[nodiscard]] WCHAR Char(int line, int col) const
    {
        return col < Length(line) ? At(line).text[static_cast<std::size_t>(col)] : WCHAR{0};
    }

    [[nodiscard]] int Find(int line, const WString& what, int from) const
    {
        for (int col = from; col + static_cast<int>(what.size()) <= Length(line); ++col) {
            if (At(line).text.compare(static_cast<std::size_t>(col), what.size(), what) == 0)
                return col;
        }
        return -1;
    }

    [[nodiscard]] bool EvenQuotesBefore(int line, int hit) const
    {
        bool inside = At(line).startsInside;
        int quotes = 0;
        for (int col = 0; col < hit; ++col) {
            if (inside && Char(line, col) == _T('*') && Char(line, col + 1) == _T('/')) {
                inside = false;
                ++col;
            } else if (!inside && quotes % 2 == 0 && Char(line, col) == _T('/') && Char(line, col + 1) == _T('*')) {
                inside = true;
                ++col;
            } else if (!inside && Char(line, col) == _T('"')) {
                ++quotes;
            }
        }
        return quotes % 2 == 0;
    }

    [[nodiscard]] int FindOutsideStrings(int line, const WString& what, int from) const
    {
        int hit = Find(line, what, from);
        while (hit != -1 && !EvenQuotesBefore(line, hit))
            hit = Find(line, what, hit + 1);
        return hit;
    }

    [[nodiscard]] bool FindOpening(xTPlace from, xTPlace& found) const
    {
        int col = std::max(from.col - 1, 0);
        for (int line = from.line; line < Count(); ++line, col = 0) {
            int open = FindOutsideStrings(line, _T("/*"), col);
            const int slashes = FindOutsideStrings(line, _T("//"), 0);
            if (slashes != -1 && slashes <= open && !At(line).inComment[static_cast<std::size_t>(slashes)])
                open = -1;
            if (open != -1) {
                found = {line, open};
                return true;
            }
        }
        return false;
    }

    [[nodiscard]] xTPlace FindClosing(xTPlace from) const
    {
        int col = from.col;
        for (int line = from.line; line < Count(); ++line, col = 0) {
            const int hit = Find(line, _T("*/"), col);
            if (hit != -1)
                return {line, hit + 2};
        }
        return {Count(), 0};
    }

    void Mark(int line, int from, int to, bool startsInside)
    {
        for (int col = from; col < to && col < Length(line); ++col)
            At(line).inComment[static_cast<std::size_t>(col)] = true;
        At(line).holdsComment = true;
        At(line).startsInside = startsInside;
    }

    void MarkRange(xTPlace start, xTPlace end)
    {
        if (end.line >= Count())
            end = {Count() - 1, Length(Count() - 1)};
        for (int line = start.line; line <= end.line; ++line) {
            Mark(line, line == start.line ? start.col : 0, line == end.line ? end.col : Length(line),
                 line != start.line);
        }
    }

    void Scan()
    {
        if (lines.empty() || (Count() == 1 && Length(0) == 0))
            return;
        xTPlace from{0, 0};
        for (xTPlace open{}; FindOpening(from, open);) {
            const xTPlace end = FindClosing({open.line, open.col + 2});
            MarkRange(open, end);
            from = end;
            if (end.line >= Count())
                continue;
            if (end.col < Length(end.line))
                from.col = end.col + 1;
            else if (end.line + 1 < Count())
                from = {end.line + 1, 0};
        }
    }
};
