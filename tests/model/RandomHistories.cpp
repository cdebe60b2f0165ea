#include "tests/support/RunLength.h"
#include "tests/support/model/CommandMaker.h"
#include "tests/support/model/Comparison.h"
#include "tests/support/model/Shrink.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <random>

// Random editing: after every command, and then at every step back to the start and forth to the end, the engine stands
// as the model does. SCRIV_FULL=1 makes it ten times as long, SCRIV_STEPS as long as one likes; SCRIV_SEED is the seed, 0
// draws one.

namespace {

using xTRandom = std::mt19937_64;

std::uint64_t Seed()
{
    constexpr std::uint64_t always = 20130405;
    const char* const given = std::getenv("SCRIV_SEED");
    const std::uint64_t seed = given ? std::strtoull(given, nullptr, 10) : always;
    return seed != 0 ? seed : std::random_device{}();
}

std::int64_t Steps()
{
    return RunLength("SCRIV_STEPS", 100'000, 1'000'000);
}

// Most histories are short; some are long enough for the oldest steps to be dropped.
int LengthOfHistory(xTRandom& random)
{
    return random() % 50 == 0 ? 700 : static_cast<int>(10 + random() % 40);
}

struct xTResult {
    xTHistory history;
    std::string found;
};

xTResult RunRandom(std::uint64_t seed, int length)
{
    xTRandom random(seed);
    xTCommandMaker maker([&](unsigned n) { return static_cast<unsigned>(random() % n); });
    xTSideBySide sides;
    xTResult result{maker.Start(sides.model.store), {}};
    for (const xTCommand& command : result.history) {
        if (result.found = sides.Do(command); !result.found.empty())
            return result;
    }
    while (static_cast<int>(result.history.size()) < length) {
        result.history.push_back(maker.Next(sides.model.store));
        if (result.found = sides.Do(result.history.back()); !result.found.empty())
            return result;
    }
    result.found = sides.GoBackAndForth();
    return result;
}

std::string Report(std::uint64_t seed, const xTHistory& history)
{
    const xTHistory shortest = Shrunk(history, [](const xTHistory& shorter) { return !RunHistory(shorter).empty(); });
    return "history of seed " + std::to_string(seed) + ", shrunk to " + std::to_string(shortest.size()) + " commands:\n" +
           Readable(shortest) + "  " + RunHistory(shortest) + "\n";
}

}  // namespace

TEST(RandomHistories, TheEngineStandsAsTheModelAfterEveryStep)
{
    constexpr int enoughFaults = 10;
    const std::uint64_t seed = Seed();
    std::cout << "seed " << seed << ", " << Steps() << " steps\n";
    xTRandom random(seed);
    int faults = 0;
    for (std::int64_t done = 0; done < Steps() && faults < enoughFaults;) {
        const std::uint64_t ofHistory = random();
        const xTResult result = RunRandom(ofHistory, LengthOfHistory(random));
        done += static_cast<std::int64_t>(result.history.size());
        if (!result.found.empty()) {
            ADD_FAILURE() << result.found << "\n" << Report(ofHistory, result.history);
            ++faults;
        }
    }
}
