#include "tests/control/live/Sides.h"
#include "tests/support/RunLength.h"
#include "tests/support/model/CommandMaker.h"
#include "tests/support/model/Shrink.h"
#include "tests/support/native/PlatformNative.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <random>

// Random editing through the exports and messages of a live control, which stands as the model does after every step,
// and at every step back to the start and forth to the end. SCRIV_FULL=1 makes it ten times as long; SCRIV_SEED is the
// seed, 0 draws one.

namespace {

struct Result {
    xTHistory history;
    std::string found;
};

Result RunRandom(std::uint64_t seed, std::size_t length)
{
    std::mt19937_64 random(seed);
    xTCommandMaker maker([&](unsigned n) { return static_cast<unsigned>(random() % n); });
    Sides sides;
    Result result{maker.Start(sides.model.editor.store), {}};
    for (const xTCommand& command : result.history)
        if (result.found = sides.Do(command); !result.found.empty())
            return result;
    while (result.history.size() < length) {
        result.history.push_back(maker.Next(sides.model.editor.store));
        if (result.found = sides.Do(result.history.back()); !result.found.empty())
            return result;
    }
    result.found = sides.GoBackAndForth();
    return result;
}

std::string Replay(const xTHistory& history)
{
    Sides sides;
    for (std::size_t i = 0; i < history.size(); ++i)
        if (const std::string found = sides.Do(history[i]); !found.empty())
            return "behind command " + std::to_string(i + 1) + ": " + found;
    return sides.GoBackAndForth();
}

std::int64_t Steps()
{
    return RunLength("SCRIV_STEPS", 5'000, 50'000);
}

std::uint64_t Seed()
{
    const char* const given = std::getenv("SCRIV_SEED");
    const std::uint64_t seed = given ? std::strtoull(given, nullptr, 10) : 20130405;
    return seed != 0 ? seed : std::random_device{}();
}

}  // namespace

TEST(LiveControlHistories, TheControlStandsAsTheModelAfterEveryStep)
{
    ResetNativePlatform();  // the model's own letters
    const std::uint64_t seed = Seed();
    std::cout << "seed " << seed << ", " << Steps() << " steps\n";
    std::mt19937_64 random(seed);
    for (std::int64_t done = 0; done < Steps() && !HasFailure();) {
        const std::uint64_t ofHistory = random();
        const Result result = RunRandom(ofHistory, random() % 20 == 0 ? 700 : 100);
        done += static_cast<std::int64_t>(result.history.size());
        if (result.found.empty())
            continue;
        const auto fails = [](const xTHistory& history) { return !Replay(history).empty(); };
        const xTHistory shortest = Shrunk(result.history, fails);
        ADD_FAILURE() << result.found << "\nhistory of seed " << ofHistory << ", shrunk to " << shortest.size()
                      << " commands:\n" << Readable(shortest) << "  " << Replay(shortest);
    }
}

// To the letter: the view follows the caret in the middle of the step, while one bound of the selection is set, and the
// paint of an empty line takes a selection of one bound away. No half of it stays behind.
TEST(LiveControlHistories, AFirstShiftedStepThatScrollsSelectsNothingWhereAnEmptyLineIsShown)
{
    for (const bool empty : {false, true}) {
        LiveControl live;
        const std::wstring text = (empty ? L"\n" : L"y\n") + std::wstring(100, L'x') + L"z";
        edLoadText(live.Window(), text.c_str(), 1);
        edSetCaretPosition(live.Window(), 1, 60);
        ::UpdateWindow(live.Window());  // the view follows the caret from where it was painted
        live.Key(VK_LEFT, true);
        edPoint viewport{};
        edGetPosition(live.Window(), ED_POSITION_VIEWPORT, &viewport);
        EXPECT_GT(viewport.x, 0);
        EXPECT_EQ(edGetMode(live.Window(), ED_MODE_SELECTION), empty ? 0 : 1);
        edExecCommand(live.Window(), ED_COMMAND_CLEAR_SELECTION);
        edSetCaretPosition(live.Window(), 1, 100);
        live.Key(VK_DELETE);
        EXPECT_EQ(TextOf(live.Window()), text.substr(0, text.size() - 1)) << "Delete takes the character at the caret";
        edExecCommand(live.Window(), ED_COMMAND_UNDO);
        EXPECT_EQ(TextOf(live.Window()), text);
    }
}
