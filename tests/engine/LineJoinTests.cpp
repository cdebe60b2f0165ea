#include "store/LineJoin.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

// Lines as one text, against the plainest way: as a load leaves them, long ones, empty ones, changed ones, at the ends of
// blocks and around the free room of the array, into exactly the room that they are said to take.

namespace {

using xTLines = CArray<xTExtString>;

WString PlainlyJoined(const xTLines& lines, std::int32_t first, std::int32_t stop)
{
    WString text;
    for (std::int32_t i = first; i < stop; ++i)
        (text += WString(lines[i].m_text.view())) += _T('\n');
    return text;
}

void ExpectJoined(const xTLines& lines, std::int32_t first, std::int32_t stop)
{
    const WString expected = PlainlyJoined(lines, first, stop);
    ASSERT_EQ(JoinedLength(lines, first, stop), static_cast<std::int64_t>(expected.size()));
    constexpr WCHAR untouched = 0xABCD;
    std::vector<WCHAR> room(expected.size() + 1, untouched);
    room.shrink_to_fit();
    ASSERT_EQ(JoinLines(lines, first, stop, room.data()), room.data() + expected.size());
    ASSERT_EQ(WStrView(room.data(), expected.size()), expected);
    ASSERT_EQ(room.back(), untouched);
}

WString RandomLine(std::mt19937& random, std::size_t longest)
{
    WString line(random() % (longest + 1), _T(' '));
    for (WCHAR& ch : line)
        ch = static_cast<WCHAR>(1 + random() % 0xFFFF);
    return line;
}

}  // namespace

TEST(LineJoin, GivesTheLinesWithALineFeedBehindEach)
{
    std::mt19937 random(5);
    for (int round = 0; round < 60; ++round) {
        const std::size_t longest = round % 3 == 0 ? 3 : round % 3 == 1 ? 130 : 512;
        xTLines lines;
        xTStringSlabs slabs;
        const int count = static_cast<int>(random() % 1200);
        for (int i = 0; i < count; ++i)
            lines.Add(xTExtString(slabs.Carve(RandomLine(random, longest))));
        for (int i = count / 10; i > 0; --i)
            lines[random() % static_cast<unsigned>(count)] = xTExtString(CString(RandomLine(random, longest)));
        *lines.InsertAt(random() % (static_cast<unsigned>(count) + 1)) = xTExtString(CString(RandomLine(random, longest)));
        const std::int32_t all = count + 1;
        ExpectJoined(lines, 0, all);
        for (int i = 0; i < 5; ++i) {
            const auto first = static_cast<std::int32_t>(random() % static_cast<unsigned>(all));
            ExpectJoined(lines, first, first + static_cast<std::int32_t>(random() % static_cast<unsigned>(all - first + 1)));
        }
    }
}

TEST(LineJoin, OfNoLineIsNothing)
{
    const xTLines lines;
    EXPECT_EQ(JoinedLength(lines, 0, 0), 0);
    WCHAR room = 7;
    EXPECT_EQ(JoinLines(lines, 0, 0, &room), &room);
    EXPECT_EQ(room, 7);
}

TEST(LineJoin, ReadsNothingBehindTheEndOfABlock)
{
    // Lines of every length at the end of a block: what reaches past it is a page that nobody owns.
    for (std::size_t length = 1; length <= 200; ++length) {
        xTLines lines;
        xTStringSlabs slabs;
        for (std::size_t used = 0; used < 3 * xTStringSlabs::blockBytes; used += 2 * length + 14)
            lines.Add(xTExtString(slabs.Carve(WString(length, static_cast<WCHAR>(1 + used % 999)))));
        ExpectJoined(lines, 0, static_cast<std::int32_t>(lines.GetSize()));
    }
}
