#pragma once

#include "framework/base/WinTypes.h"

#include <cstdint>
#include <optional>
#include <span>

/// What applying one flag does to a device context.
enum class xTApplies : std::uint8_t { background, fontAndText, markColors };

struct xTApplyRow {
    std::uint32_t flag;
    xTApplies how;
};

/// The order in which the flags of a word are applied: a later one overrides an earlier one.
[[nodiscard]] std::span<const xTApplyRow> ApplyRows() noexcept;
/// @return null for a flag that no row has: a settings block may hold any
[[nodiscard]] const xTApplyRow* FindApplyRow(std::uint32_t flag) noexcept;

/// What the flags of a word come to when all of them have been applied; what no flag says is left as it is.
struct xTLook {
    std::optional<COLORREF> text;
    std::optional<COLORREF> back;
    std::optional<COLORREF> brush;
    std::optional<DWORD> style;  ///< FONT_ bits of the font that stays
    std::uint32_t styles = 0;    ///< of all the fonts that are selected on the way: bit 1 << FONT_ bits
};
