#include "CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

using namespace scrivpad;

namespace {

using Arguments = std::vector<std::wstring>;

[[nodiscard]] ParsedCommandLine Parse(const Arguments& arguments)
{
    return ParseCommandLine(arguments);
}

TEST(CommandLine, MayBeEmpty)
{
    const ParsedCommandLine parsed = Parse({});
    EXPECT_TRUE(parsed.error.empty());
    EXPECT_TRUE(parsed.options.file.empty());
    EXPECT_FALSE(parsed.options.Automated());
}

TEST(CommandLine, WithAFileAloneIsNotAutomated)
{
    const ParsedCommandLine parsed = Parse({L"demo.cpp"});
    EXPECT_EQ(parsed.options.file, L"demo.cpp");
    EXPECT_FALSE(parsed.options.Automated());
}

TEST(CommandLine, TakesAllOptionsInAnyOrder)
{
    const ParsedCommandLine parsed =
        Parse({L"--exit", L"--save-encoding", L"4", L"demo.cpp", L"--theme", L"5", L"--encoding", L"0", L"--goto",
               L"12:3", L"--save-as", L"out.txt", L"--screenshot", L"a b.png", L"--select-to", L"14:1", L"--break-point",
               L"7", L"--exec-point", L"8", L"--break-point", L"9", L"--find", L"--beside", L"b.cpp",
               L"--settings", L"look", L"--tune", L"2"});
    EXPECT_TRUE(parsed.error.empty());
    const Options& options = parsed.options;
    EXPECT_EQ(options.theme, 5u);
    EXPECT_EQ(options.encoding, 0u);
    EXPECT_EQ(options.caret, (TextPlace{12, 3}));
    EXPECT_EQ(options.selectTo, (TextPlace{14, 1}));
    EXPECT_EQ(options.breakPoints, (std::vector<int>{7, 9}));
    EXPECT_EQ(options.execPoint, 8);
    EXPECT_TRUE(options.find);
    EXPECT_EQ(options.beside, L"b.cpp");
    EXPECT_EQ(options.settings, L"look");
    EXPECT_EQ(options.tune, 2u);
    EXPECT_EQ(options.saveAs, L"out.txt");
    EXPECT_EQ(options.saveEncoding, 4u);
    EXPECT_EQ(options.screenshot, L"a b.png");
    EXPECT_TRUE(options.exit);
    EXPECT_EQ(options.file, L"demo.cpp");
    EXPECT_TRUE(options.Automated());
}

TEST(CommandLine, EveryOptionAloneMakesItAutomated)
{
    for (const Arguments& arguments :
         {Arguments{L"--theme", L"1"}, Arguments{L"--encoding", L"1"}, Arguments{L"--goto", L"1:1"},
          Arguments{L"--select-to", L"1:1"}, Arguments{L"--break-point", L"1"}, Arguments{L"--exec-point", L"1"},
          Arguments{L"--find"}, Arguments{L"--preview"}, Arguments{L"--beside", L"x"}, Arguments{L"--save-as", L"x"}, Arguments{L"--screenshot", L"x"}, Arguments{L"--exit"},
          Arguments{L"--tune", L"1"}})
        EXPECT_TRUE(Parse(arguments).options.Automated());
}

TEST(CommandLine, AFileOfSettingsIsForUsersToo)
{
    EXPECT_FALSE(Parse({L"--settings", L"look"}).options.Automated());
}

TEST(CommandLine, TakesAFileThatBeginsWithDashesBehindTwoDashes)
{
    EXPECT_EQ(Parse({L"--", L"--exit"}).options.file, L"--exit");
}

class BadCommandLine : public testing::TestWithParam<Arguments> {};

TEST_P(BadCommandLine, IsRefusedWithAMessage)
{
    EXPECT_FALSE(Parse(GetParam()).error.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BadCommandLine,
    testing::Values(Arguments{L"--nonsense"}, Arguments{L"--Exit"}, Arguments{L"--theme"}, Arguments{L"--theme", L"0"},
                    Arguments{L"--theme", L"6"}, Arguments{L"--theme", L"-1"}, Arguments{L"--theme", L"1x"},
                    Arguments{L"--theme", L""}, Arguments{L"--theme", L"99999999999999999999"},
                    Arguments{L"--encoding", L"6"}, Arguments{L"--encoding", L"utf-8"}, Arguments{L"--goto", L"5"},
                    Arguments{L"--goto", L"0:1"}, Arguments{L"--goto", L"1:0"}, Arguments{L"--goto", L"1:"},
                    Arguments{L"--goto", L":1"}, Arguments{L"--goto", L"1:2:3"}, Arguments{L"--goto", L"2147483648:1"},
                    Arguments{L"--select-to", L"1"}, Arguments{L"--break-point", L"0"},
                    Arguments{L"--exec-point", L"x"}, Arguments{L"--beside", L""},
                    Arguments{L"--settings", L""}, Arguments{L"--tune", L"0"}, Arguments{L"--tune", L"3"}, Arguments{L"--save-as"}, Arguments{L"--save-as", L""}, Arguments{L"--save-encoding", L"2"},
                    Arguments{L"--screenshot", L""}, Arguments{L"a", L"b"}, Arguments{L""}));

}  // namespace
