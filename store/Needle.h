#pragma once

#include "framework/base/CString.h"

/// One text, ready to be looked for in many others. It reads the stored characters where they are. Of its units the two
/// that are rarest in sources are looked for, many places at once; what has both is compared in full.
class xTNeedle {
public:
    static constexpr std::size_t none = WStrView::npos;

    /// @param match_case false: units count as equal that have the same lower case, by the system's own conversion
    xTNeedle(const CString& text, bool match_case);

    [[nodiscard]] std::size_t Length() const noexcept { return m_text.view().size(); }
    /// @return the index of the first match at or behind `from`, or `none`; an empty text has none
    [[nodiscard]] std::size_t FindIn(WStrView text, std::size_t from) const noexcept;

private:
    /// One unit of the text: where it stands in it, and what the unit at that place of a match is like. The bits in which
    /// its capitals and small letters differ are left out, so that one comparison serves all of them; other units may
    /// pass too.
    struct xTUnit {
        std::size_t offset = 0;
        WCHAR unit = 0;
        WCHAR bits = 0xFFFF;  ///< those that are compared
        [[nodiscard]] bool May(const WCHAR* match) const noexcept
        {
            return ((match[offset] ^ unit) & bits) == 0;
        }
    };

    template <bool folds>
    class xTScan;

    [[nodiscard]] xTUnit UnitAt(std::size_t offset) const noexcept;
    [[nodiscard]] bool IsAt(const WCHAR* place) const noexcept;

    CString m_text;  // in lower case where case does not matter
    bool m_matchCase;
    xTUnit m_rarest;
    xTUnit m_other;  // the same one again in a text of one unit
};
