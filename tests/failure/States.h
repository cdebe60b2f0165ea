#pragma once

#include "tests/failure/Scenes.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// How a control stands when a scene begins.
struct State {
    const char* name;
    UINT32 flags = 0;               ///< ED_CREATE_ bits
    bool spacesForTabs = false;     ///< other settings: no tabs, another size and font
    bool hooked = true;             ///< the host classes the words
    int linesBehind = 0;            ///< so many lines stand behind the text of the scene
    bool keepsDialogs = false;      ///< the find dialog and the tuning pages stay open
    void (*enter)(Stage&) = nullptr;  ///< once the text is there

    [[nodiscard]] bool Suits(const Scene& scene) const noexcept;
};

[[nodiscard]] std::span<const State> States();  ///< the plain one first

/// A scene in a state.
struct Play {
    Scene scene;
    const State* state;

    [[nodiscard]] std::string Name() const;
    friend void PrintTo(const Play& play, std::ostream* out) { *out << play.Name(); }
};

[[nodiscard]] std::vector<Play> PlainPlays();  ///< each scene in the plain state
/// In each state that suits it; but in a full run, a few of the others only.
[[nodiscard]] std::vector<Play> AllPlays();
/// SCRIV_FULL is set.
[[nodiscard]] bool IsFullRun();
