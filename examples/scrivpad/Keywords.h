#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace scrivpad {

/// Keyword tables are sorted, so that a word is found by halving; each table asserts it.
template <std::size_t N>
[[nodiscard]] constexpr bool IsSorted(const std::wstring_view (&words)[N]) noexcept
{
    return std::is_sorted(std::begin(words), std::end(words));
}

template <std::size_t N>
[[nodiscard]] constexpr bool Holds(const std::wstring_view (&words)[N], std::wstring_view word) noexcept
{
    return std::binary_search(std::begin(words), std::end(words), word);
}

}  // namespace scrivpad
