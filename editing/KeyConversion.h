#pragma once

#include "framework/base/Platform.h"

/// What the key that types `ch` on layout `source` types on layout `target`; `ch` itself where no key types it, or
/// where that key types nothing there.
[[nodiscard]] WCHAR convert_key_char(WCHAR ch, xTKeyLayout source, xTKeyLayout target) noexcept;
