#pragma once

#include "framework/base/CString.h"
#include "store/Positions.h"
#include "store/WideScan.h"

#include <array>
#include <span>

class xTMemStorage;

/// A unit in lower case as the system's own conversion has it, from a table that is filled once.
[[nodiscard]] WCHAR FoldCase(WCHAR ch) noexcept;
/// The same for a text.
[[nodiscard]] CString FoldCase(const CString& text);

/// Looks for one text, ready for many lines. It reads the stored characters where they are: no line is copied.
class xTTextFinder {
public:
    xTTextFinder(const CString& what, bool whole_word, bool match_case);

    /// @return the column of the first match at or behind `from`, whole word or not, or -1; an empty text has none
    [[nodiscard]] std::int32_t FindIn(WStrView line, std::int32_t from) const noexcept;
    /// False when words matter and the match at `hit` is only a part of one.
    [[nodiscard]] bool Accepts(WStrView line, std::int32_t hit) const noexcept;
    [[nodiscard]] std::int32_t Length() const noexcept { return m_what.GetLength(); }

    /// Goes through a store from its caret, round the ends of the text, back to where it began.
    /// @param down, from_caret, wrapped as for xTMemStorage::find_text
    [[nodiscard]] xTPos Search(const xTMemStorage& store, bool down, bool from_caret, bool* wrapped) const;

private:
    static constexpr std::size_t mostVariants = mostEndUnits;

    /// The units that one unit of the text may be in a line. More than there is room for: any unit is looked at.
    struct xTVariants {
        std::array<WCHAR, mostVariants> units{};
        std::size_t count = 0;
        [[nodiscard]] bool AreKnown() const noexcept { return count <= mostVariants; }
        [[nodiscard]] std::span<const WCHAR> view() const noexcept { return std::span(units).first(count); }
    };

    [[nodiscard]] static xTVariants VariantsOf(WCHAR unit, bool match_case) noexcept;
    [[nodiscard]] bool KnowsEnds() const noexcept { return m_firsts.AreKnown() && m_lasts.AreKnown(); }
    [[nodiscard]] std::size_t NextCandidate(WStrView line, std::size_t from) const noexcept;
    [[nodiscard]] std::int32_t PassOver(const xTMemStorage& store, std::int32_t line, std::int32_t stop,
                                        bool down) const;
    [[nodiscard]] bool MatchesAt(const WCHAR* place) const noexcept;

    CString m_what;  // in lower case where case does not matter
    bool m_wholeWord;
    bool m_matchCase;
    xTVariants m_firsts;  // of the first unit and of the last: what has both ends right is looked at in full
    xTVariants m_lasts;
};
