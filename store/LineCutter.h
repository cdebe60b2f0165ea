#pragma once

#include "store/WideScan.h"

/// Cuts a text into the pieces that become lines. Only a line feed ends a piece, a carriage return stays in it; a run
/// longer than the limit goes on in the next piece. A line feed at the end of the text opens no further piece.
class xTLineCutter {
public:
    /// @param limit the most characters of one piece, above 0
    xTLineCutter(WStrView text, std::size_t limit) noexcept
        : m_text(text), m_limit(limit), m_runEnd(FindUnit(text, _T('\n'), 0))
    {}

    /// @return false when the text is used up
    bool Next(WStrView& piece) noexcept
    {
        if (m_at >= m_text.size())
            return false;
        const std::size_t rest = m_runEnd - m_at;
        piece = m_text.substr(m_at, rest < m_limit ? rest : m_limit);
        m_at += piece.size();
        if (rest <= m_limit)
            StepOverFeed();
        return true;
    }

private:
    void StepOverFeed() noexcept
    {
        ++m_at;
        if (m_at < m_text.size())
            m_runEnd = FindUnit(m_text, _T('\n'), m_at);
    }

    WStrView m_text;
    std::size_t m_limit;
    std::size_t m_at = 0;
    std::size_t m_runEnd;  // the line feed or the end behind the run that `m_at` stands in: a long run is searched once
};
