#include "tests/control/live/Day.h"
#include "tests/support/RunLength.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iostream>

// A day of work on a source file: typing, blocks, clipboard, keys, mouse, wheel, windows and marks in a mixed order.
// Every stretch of it is undone again and gives the text of the file; at the end the saved file is the old one byte for
// byte and nothing has gone wrong that a log would tell. SCRIV_FULL=1 makes it fifty times as long,
// SCRIV_EVENTS as long as one likes.

namespace {

std::int64_t Events()
{
    return RunLength("SCRIV_EVENTS", 2'000, 100'000);
}

std::string Bytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TEST(WorkingDay, EveryStretchIsUndoneToTheFileAndNothingIsLogged)
{
    const std::filesystem::path log = std::filesystem::current_path() / "scrivctl.log";
    std::filesystem::remove(log);
    const xTTestFolder folder;
    const std::string source = Bytes(SCRIV_SAMPLE);
    ASSERT_FALSE(source.empty());
    folder.put("source.cpp", source);
    LiveControl live;
    UINT32 encoding = ED_ENCODING_UTF8;
    ASSERT_TRUE(edLoadFile(live.Window(), folder.file("source.cpp").c_str(), &encoding));
    const std::wstring text = TextOf(live.Window());
    Day day(live);
    std::int64_t events = 0;
    for (int stretch = 0; events < Events(); ++stretch) {
        events += day.Stretch();
        EXPECT_NE(TextOf(live.Window()), text);
        day.UndoAll();
        ASSERT_TRUE(TextOf(live.Window()) == text) << "stretch " << stretch;
    }
    std::cout << events << " events\n";
    ASSERT_TRUE(edSaveFile(live.Window(), folder.file("source.cpp").c_str(), encoding));
    EXPECT_EQ(folder.bytes("source.cpp") + "\n", source);  // a last line break is not kept
    EXPECT_FALSE(std::filesystem::exists(log)) << Bytes(log);
}
