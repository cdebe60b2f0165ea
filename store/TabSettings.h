#pragma once

#include <algorithm>
#include <cstdint>

/// The tab settings that the store reads; the attribute table is built on them.
struct xTTabSettings {
    bool m_keepTabs = true;       ///< false: every tab that comes in becomes spaces
    std::int32_t m_tabSize = 4;   ///< in characters; any value may come out of a settings block

    /// The most characters that one tab becomes: a settings block of arbitrary bytes must not blow a text up.
    static constexpr std::int32_t widestTab = 64;

    /// The spaces that stand for one tab, 0 to `widestTab`.
    [[nodiscard]] std::int32_t TabSpaces() const noexcept { return std::clamp(m_tabSize, 0, widestTab); }
};
