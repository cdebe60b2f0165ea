// Streams of exported calls made of bytes: those of the corpus, and random changes of them for as long as there is time
// (5 s, a minute with SCRIV_FULL=1). Every stream has a seed that makes it again; SCRIV_SEED is the first.

#include "tests/control/streams/ExportStream.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

std::vector<Bytes> Corpus()
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(SCRIV_CORPUS))
        paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<Bytes> all;
    for (const auto& path : paths) {
        std::ifstream file(path, std::ios::binary);
        all.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return all;
}

/// A stream of the corpus with some of its bytes changed, or a wholly random one.
Bytes StreamOf(unsigned seed, const std::vector<Bytes>& corpus)
{
    std::mt19937 random(seed);
    Bytes bytes;
    if (random() % 3 != 0)
        bytes = corpus[random() % corpus.size()];
    if (bytes.empty())
        bytes.resize(1 + random() % 200);
    const bool whole = random() % 4 == 0;
    for (std::uint8_t& byte : bytes) {
        if (whole || random() % 8 == 0)
            byte = static_cast<std::uint8_t>(random());
    }
    for (unsigned more = random() % 40; more > 0; --more)
        bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(random() % (bytes.size() + 1)),
                     static_cast<std::uint8_t>(random()));
    return bytes;
}

unsigned NumberOf(const char* variable, unsigned usual)
{
    const char* const given = std::getenv(variable);
    return given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : usual;
}

}  // namespace

TEST(ExportStreams, OfTheCorpusLeaveTheControlsAsTheyHaveToBe)
{
    for (const Bytes& bytes : Corpus())
        EXPECT_EQ(RunExportStream(bytes), "");
}

TEST(ExportStreams, OfAnyBytesLeaveTheControlsAsTheyHaveToBe)
{
    const std::vector<Bytes> corpus = Corpus();
    const unsigned first = NumberOf("SCRIV_SEED", 1);
    const unsigned seconds = NumberOf("SCRIV_FULL", 0) == 1 ? 60 : 5;
    const ULONGLONG end = ::GetTickCount64() + 1000u * seconds;
    unsigned runs = 0;
    for (; ::GetTickCount64() < end; ++runs)
        ASSERT_EQ(RunExportStream(StreamOf(first + runs, corpus)), "") << "SCRIV_SEED=" << first + runs;
    std::cout << "Done " << runs << " runs in " << seconds << " second(s)\n";
    EXPECT_GT(runs, 0u);
}
