#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>

/// The attribute words of one line while it is drawn or measured. Lines of the usual limits need no heap; each use has
/// its own, since the host's hook may have another line drawn meanwhile.
class xTAttribWords {
public:
    /// @param count  words, not negative  @param word  what each of them starts as
    xTAttribWords(std::int32_t count, std::uint32_t word)
    {
        if (count > usual)
            m_long = std::make_unique_for_overwrite<std::uint32_t[]>(static_cast<std::size_t>(count));
        m_words = {m_long ? m_long.get() : m_usual, static_cast<std::size_t>(count)};
        std::fill(m_words.begin(), m_words.end(), word);
    }
    xTAttribWords(const xTAttribWords&) = delete;
    xTAttribWords& operator=(const xTAttribWords&) = delete;

    [[nodiscard]] std::span<std::uint32_t> span() const noexcept { return m_words; }

private:
    static constexpr std::int32_t usual = 512;

    std::uint32_t m_usual[usual];
    std::unique_ptr<std::uint32_t[]> m_long;
    std::span<std::uint32_t> m_words;
};
