#pragma once

#include "tests/support/model/Commands.h"

#include <functional>

/// The shortest history that still fails, found by leaving out ever smaller stretches and then by shortening the texts
/// of what remains. `fails` must hold for `history`.
[[nodiscard]] xTHistory Shrunk(xTHistory history, const std::function<bool(const xTHistory&)>& fails);
