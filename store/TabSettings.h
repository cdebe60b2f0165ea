#pragma once

#include <cstdint>

/// The tab settings that the store reads; the attribute table is built on them.
struct xTTabSettings {
    bool m_keepTabs = true;       ///< false: every tab that comes in becomes spaces
    std::int32_t m_tabSize = 4;   ///< in characters; any value may come out of a settings block
};
