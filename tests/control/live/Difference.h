#pragma once

#include "tests/support/model/NaiveControl.h"

#include <windows.h>

#include <string>

/// What differs between the model and the control, in words; empty when nothing does.
[[nodiscard]] std::string Difference(const xTNaiveControl& model, HWND control);
