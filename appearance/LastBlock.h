#pragma once

#include "appearance/AttribData.h"

/// The process's record of the last settings block that was read or written: its bytes and one more. Nothing reads it
/// but a debugger and the tests. The last table that dies frees it.
void KeepLastBlock(const xTSettingsBlock& block);
void ReleaseLastBlock() noexcept;

/// The bytes of the record, 0 when there is none.
[[nodiscard]] std::size_t LastBlockBytes() noexcept;
