#pragma once

#include "store/WideScan.h"

/// True when a text holds a `/` or a `*`: taking it away may end a comment or begin one.
[[nodiscard]] inline bool HoldsCommentMark(WStrView text) noexcept
{
    constexpr WCHAR marks[] = {_T('/'), _T('*')};
    return FindAnyUnit(text, marks, 0) < text.size();
}

/// The characters that ask for a new scan when they come in. The backslash is one of them here and not where text goes:
/// the two tests differ, as required.
[[nodiscard]] constexpr bool IsCommentUnit(WCHAR ch) noexcept
{
    return ch == _T('*') || ch == _T('/') || ch == _T('\\');
}

[[nodiscard]] inline bool HoldsCommentUnit(WStrView text) noexcept
{
    constexpr WCHAR units[] = {_T('/'), _T('*'), _T('\\')};
    return FindAnyUnit(text, units, 0) < text.size();
}
