#pragma once

#include "tests/support/model/Commands.h"
#include "tests/support/model/EngineSide.h"
#include "tests/support/model/NaiveEditor.h"

/// The model and the engine side by side, fed with the same commands.
class xTSideBySide {
public:
    xTSideBySide();

    /// Does a command on both sides and compares everything.
    /// @return the first difference in words; empty when there is none
    [[nodiscard]] std::string Do(const xTCommand& command);
    /// Undoes all that can be undone, redoes it all, and compares after every step.
    [[nodiscard]] std::string GoBackAndForth();

    xTNaiveEditor model;
    xTEngineSide engine;
};

/// What differs between the two, in words; empty when nothing does.
[[nodiscard]] std::string Difference(const xTNaiveEditor& model, const xTEngineSide& engine);

/// Runs a whole history from an empty text on, then back to its start and forth to its end.
/// @return the first difference with the number of the command behind which it shows; empty when there is none
[[nodiscard]] std::string RunHistory(const xTHistory& history);
