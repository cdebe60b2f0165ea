#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <string_view>

/// How a function of the system says that it could not do its work: what it answers and what GetLastError tells then.
/// It touches nothing that it was given, and does nothing; only what gives something back gives it back all the same,
/// lest the test itself run out of it.
struct FailingFunction {
    const char* name;
    std::int64_t answer = 0;
    DWORD error = 0;          ///< 0: it leaves the last error alone
    bool givesMemory = false;
    bool releases = false;
};

/// A function that a failure of has no meaning, or that is not the control's own to call.
struct NeverFailing {
    const char* name;
    const char* reason;
};

[[nodiscard]] std::span<const FailingFunction> FailingFunctions();
[[nodiscard]] std::span<const NeverFailing> NeverFailingFunctions();

/// @return null for a function that never fails
[[nodiscard]] const FailingFunction* FindFailingFunction(std::string_view name);
/// True for a function of the second list.
[[nodiscard]] bool IsLeftAlone(std::string_view name);
