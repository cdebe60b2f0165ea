#pragma once

#include <cstddef>

/// The next allocation of more than so many bytes fails, once; 0: none fails.
extern std::size_t failAbove;
/// It fails with the framework's exception, not the standard one.
extern bool failWithFramework;
