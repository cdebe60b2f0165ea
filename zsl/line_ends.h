#pragma once

#include "framework/base/WinTypes.h"

namespace zsl {

/// Finds out, piece by piece, what line ends a text has.
class line_ends {
public:
    void count(WStrView piece) noexcept;

    [[nodiscard]] bool has_zero() const noexcept { return m_zeros != 0; }
    /// True when there is a line feed, each stands behind a carriage return and no carriage return stands elsewhere.
    [[nodiscard]] bool all_crlf() const noexcept
    {
        return m_pairs != 0 && m_pairs == m_feeds && m_pairs == m_returns;
    }

private:
    void count_one(WCHAR ch) noexcept;
    void count_step(const WCHAR* p) noexcept;

    std::size_t m_zeros = 0;
    std::size_t m_feeds = 0;
    std::size_t m_returns = 0;
    std::size_t m_pairs = 0;
    WCHAR m_last = 0;
};

/// Takes all carriage returns out of a text.
void drop_returns(WString& text) noexcept;

/// Appends a text with each line feed widened to CR LF.
void append_crlf(WStrView text, WString& out);

}  // namespace zsl
