#pragma once

#include "tests/control/live/LiveControl.h"
#include "tests/support/model/Commands.h"
#include "tests/support/model/NaiveControl.h"

/// The model and a live control, fed with the same commands: those of the engine's histories, played as what a person
/// or a host does to bring them about.
struct Sides {
    xTNaiveControl model;
    LiveControl live;

    /// Plays a command on both sides. One that no gesture stands for is left out.
    /// @return what differs afterwards, in words; empty when nothing does
    [[nodiscard]] std::string Do(const xTCommand& command);
    /// Undoes all that can be undone and redoes it all, and compares at every step.
    [[nodiscard]] std::string GoBackAndForth();
};
