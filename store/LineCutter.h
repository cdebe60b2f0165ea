#pragma once

#include "store/EightUnits.h"

#include <bit>

/// The places of one unit in a text, one after the other. Each unit of the text is looked at once, 32 at a time.
class xTUnitWalk {
public:
    xTUnitWalk(WStrView text, WCHAR unit) noexcept : m_text(text), m_unit(unit) {}

    /// @return the next place, the text's length when there is none left
    std::size_t Next() noexcept
    {
        while (m_places == 0) {
            if (m_behind >= m_text.size())
                return m_text.size();
            LookAtNext();
        }
        const auto place = static_cast<std::size_t>(std::countr_zero(m_places));
        m_places &= m_places - 1;
        return m_begin + place;
    }

private:
    static constexpr std::size_t groupUnits = 4 * eightUnits;

    void LookAtNext() noexcept
    {
        m_begin = m_behind;
        const WCHAR* const at = m_text.data() + m_begin;
        if (m_text.size() - m_begin >= groupUnits) {
            m_behind = m_begin + groupUnits;
            const xTEightUnits unit = EightTimes(m_unit);
            const unsigned low = SixteenPlaces(EightEqual(at, unit), EightEqual(at + eightUnits, unit));
            const unsigned high =
                SixteenPlaces(EightEqual(at + 2 * eightUnits, unit), EightEqual(at + 3 * eightUnits, unit));
            m_places = low | high << (2 * eightUnits);
            return;
        }
        m_behind = m_text.size();
        for (std::size_t i = m_begin; i < m_behind; ++i)
            m_places |= static_cast<std::uint32_t>(m_text[i] == m_unit) << (i - m_begin);
    }

    WStrView m_text;
    WCHAR m_unit;
    std::size_t m_begin = 0;   // of the units that were looked at last
    std::size_t m_behind = 0;
    std::uint32_t m_places = 0;  // those among them that were not told yet
};

/// Cuts a text into the pieces that become lines. Only a line feed ends a piece, a carriage return stays in it; a run
/// longer than the limit goes on in the next piece. A line feed at the end of the text opens no further piece.
class xTLineCutter {
public:
    /// @param limit the most characters of one piece, above 0
    xTLineCutter(WStrView text, std::size_t limit) noexcept
        : m_text(text), m_limit(limit), m_feeds(text, _T('\n')), m_runEnd(m_feeds.Next())
    {}

    /// @return false when the text is used up
    bool Next(WStrView& piece) noexcept
    {
        if (m_at >= m_text.size())
            return false;
        const std::size_t rest = m_runEnd - m_at;
        piece = {m_text.data() + m_at, rest < m_limit ? rest : m_limit};
        m_at += piece.size();
        if (rest <= m_limit) {
            ++m_at;
            m_runEnd = m_feeds.Next();
        }
        return true;
    }

private:
    WStrView m_text;
    std::size_t m_limit;
    std::size_t m_at = 0;
    xTUnitWalk m_feeds;
    std::size_t m_runEnd;  // the line feed or the end behind the run that `m_at` stands in: a long run is searched once
};
