#pragma once

#include "store/Needle.h"
#include "store/Positions.h"

class xTMemStorage;

/// Looks for one text, as a whole word or not, through a store.
class xTTextFinder {
public:
    xTTextFinder(const CString& what, bool whole_word, bool match_case)
        : m_needle(what, match_case), m_wholeWord(whole_word)
    {}

    /// @return the column of the first match at or behind `from`, whole word or not, or -1; an empty text has none
    [[nodiscard]] std::int32_t FindIn(WStrView line, std::int32_t from) const noexcept;
    /// False when words matter and the match at `hit` is only a part of one.
    [[nodiscard]] bool Accepts(WStrView line, std::int32_t hit) const noexcept;
    [[nodiscard]] std::int32_t Length() const noexcept { return static_cast<std::int32_t>(m_needle.Length()); }

    /// Goes through a store from its caret, round the ends of the text, back to where it began.
    /// @param down, from_caret, wrapped as for xTMemStorage::find_text
    [[nodiscard]] xTPos Search(const xTMemStorage& store, bool down, bool from_caret, bool* wrapped) const;

private:
    [[nodiscard]] xTPos PassOver(const xTMemStorage& store, std::int32_t line, std::int32_t stop, bool down) const;

    xTNeedle m_needle;
    bool m_wholeWord;
};
