#pragma once

#include <cstddef>

/// Counts the rounds that a replace-all makes through the text, and sees when it would make them for ever.
///
/// A replace-all ends where it comes back to its first match. Where the replacing itself has taken all matches from there
/// on away, it goes round again and again as long as one stands before that place. That comes to an end by itself when
/// every replacement makes the text shorter, or rewrites it in the same length: "  " by " ", "ba" by "ab". But "//" by
/// "// " with the caret in the middle of "///" finds a match at the line's start in every round, and the text would grow
/// until no memory is left.
class xTSearchRounds {
public:
    /// @param found, replacement the lengths of the text looked for and of the one put there, in code units
    xTSearchRounds(std::size_t found, std::size_t replacement) noexcept : m_found(found), m_replacement(replacement) {}

    /// A match is replaced; `changes` is false when it reads as the replacement already.
    void Replace(bool changes) noexcept { m_changed = m_changed || changes; }

    /// The search has passed the end of the text and goes on at the top.
    void ComeRound() noexcept
    {
        m_endless = m_wrapped && (m_replacement > m_found || !m_changed);
        m_wrapped = true;
        m_changed = false;
    }

    [[nodiscard]] bool HasWrapped() const noexcept { return m_wrapped; }
    /// Whether another round would be one of many without an end.
    [[nodiscard]] bool IsEndless() const noexcept { return m_endless; }

private:
    std::size_t m_found;
    std::size_t m_replacement;
    bool m_wrapped = false;
    bool m_changed = false;  // the text, in the round under way
    bool m_endless = false;
};
