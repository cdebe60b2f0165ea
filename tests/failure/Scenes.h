#pragma once

#include "tests/failure/Stage.h"

#include <cstdint>
#include <ostream>
#include <span>
#include <string>

/// One thing that a host or its user does. It is brought about with all in order, then done with something failing, and
/// the control looked at afterwards.
struct Scene {
    enum Allows : unsigned {
        nothing = 0,
        halfWay = 1,    ///< the text may stop between old and new, since nothing rolls back; undo still leads to the old
        newText = 2,    ///< the text is replaced as a whole and undo forgotten
        otherText = 4,  ///< the act is done to another control than the one that is looked at
        gone = 8,       ///< the control may be destroyed by it
        sum = 16,       ///< the answers of several calls are added up, each of which may fail
        quiet = 32,     ///< a lack of memory is swallowed without a report: required of the strings of lines
        keepsStep = 64, ///< an undo or a redo that failed has moved its step all the same: required
        fresh = 128,    ///< each point has a control of its own, since the scene changes more of it than its text
    };

    const char* name;
    std::wstring text;              ///< as GivenMarked() takes it
    void (*prepare)(Stage& stage);  ///< null: nothing
    std::int64_t (*act)(Stage& stage);
    std::int64_t afterAFault = 0;   ///< what it answers then, as documented
    unsigned allows = nothing;
    int operation = -1;             ///< the kind of operation that it puts on the list of undo; -1: none

    friend void PrintTo(const Scene& scene, std::ostream* out) { *out << scene.name; }
};

[[nodiscard]] std::span<const Scene> ExportScenes();   ///< what a host does by the exported functions
[[nodiscard]] std::span<const Scene> EditingScenes();  ///< each kind of operation, its undo and its redo
[[nodiscard]] std::span<const Scene> UserScenes();     ///< keys, mouse, painting, dialogs, dragging
/// All of them.
[[nodiscard]] std::vector<Scene> AllScenes();
