#pragma once

#include <windows.h>

#include <climits>

/// What the handler at work has already told the system to be invalid, in client pixels. Telling is a call to the display
/// server, and several steps of one key tell the same. It is good only as long as nobody else can paint or validate: who
/// lets others work, a host or the system, forgets it.
class xTInvalidArea {
public:
    static constexpr RECT everything{LONG_MIN, LONG_MIN, LONG_MAX, LONG_MAX};

    [[nodiscard]] bool IsEmpty() const noexcept { return m_area.left >= m_area.right; }
    [[nodiscard]] bool Covers(const RECT& area) const noexcept
    {
        return area.left >= m_area.left && area.top >= m_area.top && area.right <= m_area.right &&
               area.bottom <= m_area.bottom;
    }
    /// The latest is kept: what is told twice is told one soon after the other.
    void Note(const RECT& area) noexcept { m_area = area; }
    void Forget() noexcept { m_area = nothing; }

private:
    static constexpr RECT nothing{LONG_MAX, LONG_MAX, LONG_MIN, LONG_MIN};  // covers no area at all

    RECT m_area = nothing;
};
