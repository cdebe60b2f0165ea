#pragma once

#include <compare>
#include <cstdint>

/// A place in the text, in characters from 0; a tab is one character.
/// `col` may be the line's length (on its break) or -1 (before the first character).
struct xTPos {
    std::int32_t line = 0;
    std::int32_t col = 0;
    constexpr xTPos() = default;
    constexpr xTPos(std::int32_t l, std::int32_t c) noexcept : line(fit(l)), col(fit(c)) {}
    // Not defaulted: a field may be stepped below -1 in place, and every copy repairs it to 0.
    constexpr xTPos(const xTPos& o) noexcept : xTPos(o.line, o.col) {}
    constexpr xTPos& operator=(const xTPos& o) noexcept
    {
        line = fit(o.line);
        col = fit(o.col);
        return *this;
    }
    friend constexpr auto operator<=>(const xTPos&, const xTPos&) = default;  // line, then col
    static const xTPos none;  ///< (-1, -1): no position

private:
    static constexpr std::int32_t fit(std::int32_t v) noexcept { return v < -1 ? 0 : v; }
};
inline constexpr xTPos xTPos::none{-1, -1};

/// Both ends inclusive. A `last` on the line's length takes the line break; a `last` with column -1 takes nothing of
/// its own line, the break before it being the last thing in the range.
struct xTPosRange {
    xTPos first = xTPos::none;
    xTPos last = xTPos::none;
};

/// A selection exists only when neither `first` nor `last` is none. `anchor` takes part in no decision.
struct xTSelection {
    xTPos anchor = xTPos::none;
    xTPos first = xTPos::none;
    xTPos last = xTPos::none;
};
