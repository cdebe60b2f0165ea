#include "zsl/memory_stream.h"

#include <gtest/gtest.h>

#include <string>

using zsl::memory_stream;

namespace {

std::string read(memory_stream& stream, std::size_t size, bool all)
{
    std::string bytes(size, '-');
    std::size_t got = 99;
    EXPECT_EQ(stream.read(bytes.data(), size, &got), all);
    bytes.resize(got);
    return bytes;
}

}  // namespace

TEST(MemoryStream, GrowsAsItIsWrittenAndIsReadFromItsBeginning)
{
    memory_stream stream;
    ASSERT_TRUE(stream.ok());
    EXPECT_EQ(stream.get_interface()->size(), 0u);
    EXPECT_TRUE(stream.get_interface()->write("abc", 3));
    EXPECT_TRUE(stream.get_interface()->write("def", 3));
    EXPECT_EQ(stream.get_interface()->size(), 6u);
    EXPECT_EQ(read(stream, 4, true), "abcd");
    EXPECT_TRUE(stream.get_interface()->write("g", 1));
    EXPECT_EQ(read(stream, 9, false), "efg");
    EXPECT_EQ(read(stream, 1, false), "");
    EXPECT_EQ(stream.get_interface()->size(), 7u);
}

TEST(MemoryStream, ReadsTheBlockOfTheCallerAndNeverChangesIt)
{
    const char block[] = {'x', 'y', 'z'};
    memory_stream stream(block, sizeof block);
    ASSERT_TRUE(stream.ok());
    EXPECT_EQ(stream.get_interface()->size(), 3u);
    EXPECT_FALSE(stream.get_interface()->write("q", 1));
    EXPECT_EQ(read(stream, 3, true), "xyz");
    EXPECT_EQ(stream.get_interface()->size(), 3u);
}

TEST(MemoryStream, TellsHowMuchAShortReadGave)
{
    memory_stream stream("ab", 2);
    EXPECT_EQ(read(stream, 5, false), "ab");
}

TEST(MemoryStream, ReadsThroughTheInterfaceFromTheSamePlace)
{
    memory_stream stream("abcd", 4);
    char two[2]{};
    EXPECT_TRUE(stream.get_interface()->read(two, 2, nullptr));
    EXPECT_EQ(read(stream, 2, true), "cd");
}

TEST(MemoryStream, IsNotOkOverNothing)
{
    memory_stream stream(nullptr, 10);
    EXPECT_FALSE(stream.ok());
    EXPECT_EQ(stream.get_interface(), nullptr);
    EXPECT_EQ(read(stream, 1, false), "");
}

TEST(MemoryStream, ReadsNothingIntoNull)
{
    memory_stream stream("ab", 2);
    std::size_t got = 99;
    EXPECT_FALSE(stream.read(nullptr, 2, &got));
    EXPECT_EQ(got, 0u);
    EXPECT_FALSE(memory_stream().get_interface()->write(nullptr, 1));
    EXPECT_EQ(read(stream, 2, true), "ab");
}
