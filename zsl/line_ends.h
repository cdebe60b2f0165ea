#pragma once

#include "framework/base/WinTypes.h"

#include <string_view>

namespace zsl {

/// Finds out, piece by piece, what line ends a text has: one of characters, or of bytes in a set that holds ASCII as it is.
class line_ends {
public:
    void count(WStrView piece) noexcept { count_units(piece); }
    void count(std::string_view piece) noexcept { count_units(piece); }

    [[nodiscard]] std::size_t feeds() const noexcept { return m_feeds; }
    [[nodiscard]] bool has_zero() const noexcept { return m_zeros != 0; }
    /// True when there is a line feed, each stands behind a carriage return and no carriage return stands elsewhere.
    [[nodiscard]] bool all_crlf() const noexcept
    {
        return m_pairs != 0 && m_pairs == m_feeds && m_pairs == m_returns;
    }

private:
    template <typename Unit>
    void count_units(std::basic_string_view<Unit> piece) noexcept;
    void count_one(WCHAR ch) noexcept;
    template <typename Unit>
    void count_step(const Unit* p) noexcept;

    std::size_t m_zeros = 0;
    std::size_t m_feeds = 0;
    std::size_t m_returns = 0;
    std::size_t m_pairs = 0;
    WCHAR m_last = 0;
};

/// Takes all carriage returns out of a text. @return its new length
[[nodiscard]] std::size_t drop_returns(WCHAR* text, std::size_t length) noexcept;

/// Appends a text with each line feed widened to CR LF.
void append_crlf(WStrView text, WString& out);

}  // namespace zsl
