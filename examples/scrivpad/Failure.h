#pragma once

#include <string>
#include <utility>

namespace scrivpad {

/// A step that could not be done; thrown, and told to the user or the script by whoever asked for the step.
struct Failure {
    std::wstring message;   ///< a sentence without its full stop
    bool told = false;      ///< the control has shown a message of its own already

    explicit Failure(std::wstring text, bool alreadyTold = false) : message(std::move(text)), told(alreadyTold) {}
};

/// @return "text: what the system says about the error code"
[[nodiscard]] Failure SystemFailure(std::wstring text, unsigned long errorCode);

}  // namespace scrivpad
