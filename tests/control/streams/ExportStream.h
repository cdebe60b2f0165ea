#pragma once

#include <cstdint>
#include <span>
#include <string>

// Any bytes as what a host calls: each byte chooses an exported function, those behind it are its arguments, good ones
// and bad ones.

/// Makes the calls of a stream, on controls of its own, and looks at them after every call.
/// @return what is not as it has to be, with the calls that led there; empty when nothing is
[[nodiscard]] std::string RunExportStream(std::span<const std::uint8_t> bytes);
