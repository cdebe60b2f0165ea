#include "framework/base/CString.h"

#include "tests/support/FailingNew.h"
#include "tests/support/native/PlatformNative.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace {

constexpr std::size_t slabBytes = 64 * 1024;

class StringSlabs : public testing::Test {
protected:
    std::size_t atStart = xTStringSlabs::LiveBytes();
    [[nodiscard]] std::size_t Bytes() const { return xTStringSlabs::LiveBytes() - atStart; }
};

TEST_F(StringSlabs, ALineOf33CharactersTakes80Bytes)
{
    const CString line(_T('x'), 33);
    std::vector<CString> lines;
    xTStringSlabs slabs;
    for (int i = 0; i < 100000; ++i)
        lines.push_back(slabs.Carve(line));
    EXPECT_LE(Bytes(), (100000 * 80 / slabBytes + 2) * slabBytes);
}

TEST_F(StringSlabs, CarvedStringsHoldTheirTexts)
{
    std::vector<CString> lines;
    {
        xTStringSlabs slabs;
        for (int i = 0; i < 5000; ++i)
            lines.push_back(slabs.Carve(CString(static_cast<WCHAR>(i + 1), i % 60)));
    }
    for (int i = 0; i < 5000; ++i) {
        const auto& line = lines[static_cast<std::size_t>(i)];
        ASSERT_EQ(line, CString(static_cast<WCHAR>(i + 1), i % 60));
        ASSERT_EQ(line.c_str()[line.GetLength()], 0);
    }
}

TEST_F(StringSlabs, ATextMayBeToldInThreePieces)
{
    xTStringSlabs slabs;
    EXPECT_EQ(slabs.Carve(_T("one "), _T("two"), _T(" three")), _T("one two three"));
    EXPECT_EQ(slabs.Carve({}, _T("two"), {}), _T("two"));
    EXPECT_TRUE(slabs.Carve({}, {}, {}).IsEmpty());
    const CString half(_T('x'), 4000);
    const CString whole = slabs.Carve(half, _T("-"), half);
    EXPECT_EQ(whole.GetLength(), 8001);
    EXPECT_EQ(whole[4000], _T('-'));
    EXPECT_EQ(Bytes(), slabBytes) << "too long for a block";
}

TEST_F(StringSlabs, PartsOfALargerTextHoldWhatTheyAreMadeOf)
{
    WString whole(70, _T(' '));
    for (std::size_t i = 0; i < whole.size(); ++i)
        whole[i] = static_cast<WCHAR>(1000 + i);
    whole.shrink_to_fit();
    std::vector<CString> parts;
    xTStringSlabs slabs;
    for (int round = 0; round < 40; ++round) {
        for (std::size_t from = 0; from < whole.size(); ++from)
            parts.push_back(slabs.Carve(WStrView(whole).substr(from, 1 + (from + parts.size()) % 69), whole.size() - from));
    }
    std::size_t carved = 0;
    for (int round = 0; round < 40; ++round) {
        for (std::size_t from = 0; from < whole.size(); ++from, ++carved) {
            ASSERT_EQ(parts[carved], WStrView(whole).substr(from, 1 + (from + carved) % 69));
            ASSERT_EQ(parts[carved].c_str()[parts[carved].GetLength()], 0);
        }
    }
}

TEST_F(StringSlabs, OnlyCarvedStringsTellTheirBlock)
{
    xTStringSlabs slabs;
    const CString first = slabs.Carve(_T("first"));
    const CString second = slabs.Carve(_T("second"));
    EXPECT_NE(xTStringSlabs::BlockOf(first), 0u);
    EXPECT_EQ(xTStringSlabs::BlockOf(first), xTStringSlabs::BlockOf(second));
    EXPECT_EQ(xTStringSlabs::BlockOf(CString()), 0u);
    EXPECT_EQ(xTStringSlabs::BlockOf(CString(_T("own"))), 0u);
    EXPECT_EQ(xTStringSlabs::BlockOf(SharedRun(0x0001, 7)), 0u);
}

TEST_F(StringSlabs, TheBlockGoesWithItsLastString)
{
    std::optional<xTStringSlabs> slabs(std::in_place);
    std::optional<CString> first = slabs->Carve(_T("first"));
    std::optional<CString> second = slabs->Carve(_T("second"));
    EXPECT_EQ(Bytes(), slabBytes);
    slabs.reset();
    EXPECT_EQ(Bytes(), slabBytes);
    first.reset();
    EXPECT_EQ(Bytes(), slabBytes);
    const CString copy = *second;
    second.reset();
    EXPECT_EQ(copy, _T("second"));
    EXPECT_EQ(Bytes(), slabBytes);
}

TEST_F(StringSlabs, TheBlockGoesWithItsCarverWhenAllStringsWentBefore)
{
    {
        xTStringSlabs slabs;
        static_cast<void>(slabs.Carve(_T("short-lived")));
        EXPECT_EQ(Bytes(), slabBytes);
    }
    EXPECT_EQ(Bytes(), 0u);
}

TEST_F(StringSlabs, AFullBlockGoesWhileTheNextIsBeingFilled)
{
    xTStringSlabs slabs;
    const CString line(_T('x'), 1000);
    for (int i = 0; i < 200; ++i)
        static_cast<void>(slabs.Carve(line));
    EXPECT_EQ(Bytes(), slabBytes);
}

TEST_F(StringSlabs, AChangedStringGetsABufferOfItsOwn)
{
    CString line;
    {
        xTStringSlabs slabs;
        line = slabs.Carve(_T("text"));
        EXPECT_EQ(Bytes(), slabBytes);
    }
    line.SetAt(0, _T('n'));
    EXPECT_EQ(line, _T("next"));
    EXPECT_EQ(Bytes(), 0u);
}

TEST_F(StringSlabs, AStringOutlivesItsCarver)
{
    CString line;
    {
        xTStringSlabs slabs;
        line = slabs.Carve(_T("text"));
    }
    EXPECT_EQ(line, _T("text"));
}

TEST_F(StringSlabs, EmptyTextsTakeNothing)
{
    xTStringSlabs slabs;
    EXPECT_TRUE(slabs.Carve(WStrView()).IsEmpty());
    EXPECT_EQ(Bytes(), 0u);
}

TEST_F(StringSlabs, AVeryLongTextGetsABufferOfItsOwn)
{
    xTStringSlabs slabs;
    const CString longText(_T('x'), 100000);
    EXPECT_EQ(slabs.Carve(longText), longText);
    EXPECT_EQ(Bytes(), 0u);
}

TEST_F(StringSlabs, CarvingMakesNoHeapBlockPerString)
{
    const CString line(_T('x'), 33);
    std::vector<CString> lines;
    lines.reserve(8000);
    xTStringSlabs slabs;
    EXPECT_LE(AllocationsIn([&] {
        for (int i = 0; i < 8000; ++i)
            lines.push_back(slabs.Carve(line));
    }), 8000 * 80 / static_cast<long long>(slabBytes) + 1);  // the blocks come from the same counted heap here
}

TEST_F(StringSlabs, ABlockThatCannotBeHadLeavesTheOthersWhole)
{
    ResetNativePlatform();
    xTStringSlabs slabs;
    const CString line(_T('x'), 4000);
    std::vector<CString> lines;
    NativePlatform().pagesBeforeFailure = 1;
    EXPECT_THROW(
        for (;;)
            lines.push_back(slabs.Carve(line)), std::bad_alloc);
    EXPECT_EQ(lines.size(), 8u);
    for (const auto& kept : lines)
        EXPECT_EQ(kept, line);
    lines.push_back(slabs.Carve(line));  // the next try goes well
    EXPECT_EQ(lines.back(), line);
    lines.clear();
    EXPECT_EQ(Bytes(), slabBytes);
}

TEST(SharedRuns, RunsOfOneLengthShareOneBuffer)
{
    const CString first = SharedRun(0x0001, 40);
    EXPECT_EQ(first, CString(0x0001, 40));
    EXPECT_TRUE(first.SharesBufferWith(SharedRun(0x0001, 40)));
    EXPECT_TRUE(SharedRun(0x0005, 40).SharesBufferWith(SharedRun(0x0005, 40)));
    EXPECT_FALSE(first.SharesBufferWith(SharedRun(0x0001, 41)));
    EXPECT_EQ(SharedRun(0x0005, 40), CString(0x0005, 40));
}

TEST(SharedRuns, EveryLengthIsServed)
{
    for (const std::int32_t length : {1, 2, 511, 512, 513, 5000})
        EXPECT_EQ(SharedRun(0x0001, length), CString(0x0001, length));
    EXPECT_TRUE(SharedRun(0x0001, 0).IsEmpty());
    EXPECT_TRUE(SharedRun(0x0001, -1).IsEmpty());
}

TEST(SharedRuns, OnlyTheTwoUsualWordsAreKept)
{
    EXPECT_EQ(SharedRun(0x0009, 7), CString(0x0009, 7));
    EXPECT_FALSE(SharedRun(0x0009, 7).SharesBufferWith(SharedRun(0x0009, 7)));
}

TEST(SharedRuns, AChangeLeavesTheKeptRunAlone)
{
    CString run = SharedRun(0x0001, 20);
    run.SetAt(3, 0x0009);
    run.Insert(0, 0x0004);
    EXPECT_EQ(SharedRun(0x0001, 20), CString(0x0001, 20));
}

TEST(SharedRuns, AKeptRunIsToldAndTurnedWithoutALookAtItsCharacters)
{
    CString run = SharedRun(0x0001, 40);
    EXPECT_TRUE(IsSharedRun(run, 0x0001));
    EXPECT_FALSE(IsSharedRun(run, 0x0005));
    EXPECT_FALSE(TurnSharedRun(run, 0x0005, 0x0001));
    EXPECT_TRUE(TurnSharedRun(run, 0x0001, 0x0005));
    EXPECT_TRUE(run.SharesBufferWith(SharedRun(0x0005, 40)));
    EXPECT_EQ(SharedRun(0x0001, 40), CString(0x0001, 40));
}

TEST(SharedRuns, OnlyAKeptRunIsTurned)
{
    for (CString run : {CString(), CString(0x0001, 40), SharedRun(0x0001, 513), SharedRun(0x0009, 7)}) {
        const CString before = run;
        EXPECT_FALSE(IsSharedRun(run, 0x0001));
        EXPECT_FALSE(TurnSharedRun(run, 0x0001, 0x0005));
        EXPECT_FALSE(IsSharedRun(run, 0x0009));
        EXPECT_TRUE(run.SharesBufferWith(before));
    }
}

TEST(SharedRuns, ARunThatCannotBeMadeIsMadeTheNextTime)
{
    // Other tests of this process make runs too: a length that none of them has asked for.
    std::int32_t length = 512;
    while (length > 0 && FailuresIn([=] { static_cast<void>(SharedRun(0x0005, length)); }, 0) == 0)
        --length;
    ASSERT_GT(length, 0);
    EXPECT_EQ(SharedRun(0x0005, length), CString(0x0005, length));
}

}  // namespace
