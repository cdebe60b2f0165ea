#include "tests/failure/States.h"

#include <cstdlib>

namespace {

void Mark(Stage& stage)
{
    const auto lines = static_cast<INT32>(edGetLineCount(stage.control));
    for (INT32 line = 0; line < lines; line += 2)
        edSetBreakPoint(stage.control, line);
    edSetExecPoint(stage.control, lines / 2);
    edTakeSnapshot(stage.control);
}

void Overwrite(Stage& stage)
{
    stage.Command(ED_COMMAND_TOGGLE_OVERWRITE);
}

void OpenDialogs(Stage& stage)
{
    if (!stage.FindDialog())
        stage.Command(ED_COMMAND_FIND);
    if (!stage.pages[0])
        stage.Page(&edCreateFontTuneDialog, 0);
    if (!stage.pages[1])
        stage.Page(&edCreateHighlightTuneDialog, 1);
    ::SetFocus(stage.control);
}

constexpr int many = 80;

const State states[] = {
    {"Plain"},
    {"TextBehind", 0, false, true, many, false, nullptr},
    {"Marked", 0, false, true, 40, false, &Mark},
    {"SpacesForTabs", 0, true, false, 0, false, nullptr},
    {"Overwriting", 0, false, true, 0, false, &Overwrite},
    {"ReadOnly", ED_CREATE_READONLY, false, true, 20, false, nullptr},
    {"UnderDialogs", 0, false, true, 0, true, &OpenDialogs},
};

}  // namespace

bool State::Suits(const Scene& scene) const noexcept
{
    if (this == states)
        return true;
    // What makes a control of its own, or has one of its own each time, does the same in any state.
    return !(scene.allows & (Scene::otherText | Scene::fresh));
}

std::span<const State> States()
{
    return states;
}

std::string Play::Name() const
{
    return std::string(scene.name) + (state == states ? "" : std::string("In") + state->name);
}

std::vector<Play> PlainPlays()
{
    std::vector<Play> plays;
    for (const Scene& scene : AllScenes())
        plays.push_back({scene, states});
    return plays;
}

std::vector<Play> AllPlays()
{
    constexpr std::size_t oneInASlice = 24;
    std::vector<Play> plays = PlainPlays();
    std::size_t others = 0;
    for (const State& state : std::span(states).subspan(1))
        for (const Scene& scene : AllScenes())
            if (state.Suits(scene) && (others++ % oneInASlice == 0 || IsFullRun()))
                plays.push_back({scene, &state});
    return plays;
}

bool IsFullRun()
{
    return std::getenv("SCRIV_FULL") != nullptr;
}
