#pragma once

#include "framework/base/CString.h"

#include <cstddef>

/// What becomes of the text of a line in which something is replaced, for a change of many lines.
struct xTReplacedText {
    static constexpr std::size_t slabWorth = 256;  ///< from so many replacements on slabs are worth their room

    xTStringSlabs* slabs = nullptr;  ///< the new text is carved out of these
    const CString* known = nullptr;  ///< the new text may be this one, and shares its buffer then
    CString* before = nullptr;       ///< gets the text as it was

    /// `text` with `by` in the place of `count` characters from `column` on, which lies in it. `text` itself stays.
    [[nodiscard]] CString Of(const CString& text, std::size_t column, std::size_t count, WStrView by) const;
};
