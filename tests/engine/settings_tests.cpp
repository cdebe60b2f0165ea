#include "appearance/AttribData.h"
#include "appearance/FontScale.h"
#include "appearance/LastBlock.h"
#include "tests/support/SettingsBytes.h"
#include "tests/support/native/PlatformNative.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <numeric>

namespace {

// A table with nothing at its initial value, so that what a load leaves alone can be seen.
void Disturb(xTAttribData& table)
{
    table.m_highlight = false;
    table.m_count = 3;
    for (std::uint32_t i = 0; i < 30; ++i) {
        table.m_flags[i] = 0xF0 + i;
        table.m_colors[i] = 0xC0 + i;
        table.m_bold[i] = table.m_italic[i] = table.m_underline[i] = true;
    }
    table.m_logFont.lfHeight = -55;
    table.m_logFont.lfFaceName[0] = _T('Z');
    table.m_keepTabs = false;
    table.m_tabSize = 11;
}

bool SameNumbers(const xTAttribData& a, const xTAttribData& b)
{
    return a.m_highlight == b.m_highlight && a.m_count == b.m_count && std::equal(a.m_flags, a.m_flags + 30, b.m_flags)
        && std::equal(a.m_colors, a.m_colors + 30, b.m_colors) && std::equal(a.m_bold, a.m_bold + 30, b.m_bold)
        && std::equal(a.m_italic, a.m_italic + 30, b.m_italic)
        && std::equal(a.m_underline, a.m_underline + 30, b.m_underline)
        && std::memcmp(&a.m_logFont, &b.m_logFont, sizeof a.m_logFont) == 0 && a.m_keepTabs == b.m_keepTabs
        && a.m_tabSize == b.m_tabSize;
}

std::vector<std::uint8_t> Saved(const xTAttribData& table)
{
    xTSettingsBlock block;
    std::vector<std::uint8_t> bytes(table.SaveSettings(&block));
    block = {bytes.data(), static_cast<std::uint32_t>(bytes.size())};
    EXPECT_EQ(table.SaveSettings(&block), bytes.size());
    return bytes;
}

class Settings : public testing::Test {
protected:
    void SetUp() override { ResetNativePlatform(); }
    void TearDown() override { ResetNativePlatform(); }

    bool Load(xTSettingsBytes& bytes)
    {
        const xTSettingsBlock block = bytes.Block();
        return table.LoadSettings(&block);
    }
    // @return true when the load was refused and nothing changed
    bool RefusedWhole(xTSettingsBytes bytes)
    {
        Disturb(table);
        xTAttribData before;
        Disturb(before);
        return !Load(bytes) && SameNumbers(table, before);
    }

    xTAttribData table;
};

TEST_F(Settings, ThemeOneInCourierNewHas266BytesAndIsTheGoldenBlock)
{
    table.FillTheme(1);
    table.m_logFont.lfHeight = -13;
    table.m_logFont.lfWeight = 400;
    table.m_logFont.lfCharSet = 1;
    table.m_logFont.lfOutPrecision = 7;
    constexpr WStrView face = _T("Courier New");
    std::copy(face.begin(), face.end(), table.m_logFont.lfFaceName);
    const auto bytes = Saved(table);
    EXPECT_EQ(bytes.size(), 266u);
    EXPECT_EQ(bytes, xTSettingsBytes::Golden().bytes());
}

TEST_F(Settings, TheGoldenBlockIsReadBack)
{
    xTSettingsBytes golden = xTSettingsBytes::Golden();
    ASSERT_TRUE(Load(golden));
    xTAttribData theme;
    theme.FillTheme(1);
    EXPECT_EQ(table.m_count, 18);
    EXPECT_TRUE(std::equal(theme.m_flags, theme.m_flags + 18, table.m_flags));
    EXPECT_TRUE(std::equal(theme.m_colors, theme.m_colors + 18, table.m_colors));
    EXPECT_TRUE(std::equal(theme.m_bold, theme.m_bold + 18, table.m_bold));
    EXPECT_EQ(table.m_logFont.lfHeight, -13);
    EXPECT_EQ(table.m_logFont.lfWeight, 400);
    EXPECT_EQ(table.m_logFont.lfOutPrecision, 7);
    EXPECT_EQ(WStrView(table.m_logFont.lfFaceName), _T("Courier New"));
    EXPECT_TRUE(table.m_keepTabs);
    EXPECT_EQ(table.m_tabSize, 4);
    EXPECT_EQ(Saved(table), golden.bytes());
}

TEST_F(Settings, FewerOrMoreEntriesThanEighteenLoadAsTheyAre)
{
    for (const std::uint32_t count : {1u, 19u, 30u}) {
        xTSettingsBytes block;
        block.Number(xTSettingsBytes::magic).Number(count).Byte(0);
        for (std::uint32_t i = 0; i < count; ++i)
            block.Entry(i % 2 != 0, i % 3 == 0, i % 5 == 0, 0x010203 * i, i);
        block.Font(20, 9, _T("F")).Tail(false, 8);
        ASSERT_TRUE(Load(block));
        EXPECT_EQ(table.m_count, static_cast<std::int32_t>(count));
        EXPECT_FALSE(table.m_highlight);
        EXPECT_EQ(Saved(table), block.bytes());
    }
}

TEST_F(Settings, ANullOrEmptyBlockIsRefused)
{
    xTSettingsBytes golden = xTSettingsBytes::Golden();
    const xTSettingsBlock noData{nullptr, 266};
    const xTSettingsBlock noSize{golden.bytes().data(), 0};
    const xTSettingsBlock empty;
    for (const xTSettingsBlock* block : {static_cast<const xTSettingsBlock*>(nullptr), &noData, &noSize, &empty}) {
        Disturb(table);
        xTAttribData before;
        Disturb(before);
        EXPECT_FALSE(table.LoadSettings(block));
        EXPECT_TRUE(SameNumbers(table, before));
    }
}

TEST_F(Settings, AWrongMagicLeavesTheTableUnchanged)
{
    xTSettingsBytes block = xTSettingsBytes::Golden();
    block.bytes()[0] ^= 1;
    EXPECT_TRUE(RefusedWhole(block));
}

TEST_F(Settings, ACountOfNullIsRefusedAndStands)
{
    Disturb(table);
    xTSettingsBytes block;
    block.Number(xTSettingsBytes::magic).Number(0).Byte(1);
    EXPECT_FALSE(Load(block));
    EXPECT_EQ(table.m_count, 0);
    EXPECT_FALSE(table.m_highlight);  // nothing further was read
}

TEST_F(Settings, ACountBelowNullOrAboveThirtyIsRefusedBeforeAnythingChanges)
{
    for (const std::uint32_t count : {31u, 32u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        xTSettingsBytes block;
        block.Number(xTSettingsBytes::magic).Number(count);
        block.bytes().resize(2000, 1);
        EXPECT_TRUE(RefusedWhole(block)) << count;
    }
}

TEST_F(Settings, ABlockThatEndsInItsCountIsRefused)
{
    for (std::size_t size = 1; size < 8; ++size) {
        xTSettingsBytes block = xTSettingsBytes::Golden();
        block.bytes().resize(size);
        EXPECT_TRUE(RefusedWhole(block)) << size;
    }
}

TEST_F(Settings, AShortReadLeavesColoursAndFlagsAndClearsBooleansAndFont)
{
    Disturb(table);
    xTSettingsBytes block;
    block.Number(xTSettingsBytes::magic).Number(3).Byte(7);
    block.Entry(true, false, true, 0xABCDEF, 4).Byte(1).Byte(1).Byte(1).Byte(0x55);  // cut in the second colour
    ASSERT_TRUE(Load(block));
    EXPECT_EQ(table.m_count, 3);
    EXPECT_TRUE(table.m_highlight);
    EXPECT_EQ(table.m_flags[0], 4u);
    EXPECT_EQ(table.m_colors[0], 0xABCDEFu);
    EXPECT_TRUE(table.m_bold[1]);
    EXPECT_EQ(table.m_colors[1], 0xC1u);
    EXPECT_EQ(table.m_flags[1], 0xF1u);
    EXPECT_FALSE(table.m_bold[2]);
    EXPECT_EQ(table.m_colors[2], 0xC2u);
    EXPECT_EQ(table.m_logFont.lfHeight, 0);
    EXPECT_EQ(table.m_logFont.lfFaceName[0], 0);
    EXPECT_FALSE(table.m_keepTabs);
    EXPECT_EQ(table.m_tabSize, 11);
}

TEST_F(Settings, AnyByteOtherThanNullIsTrue)
{
    xTSettingsBytes block;
    block.Number(xTSettingsBytes::magic).Number(1).Byte(0x80).Byte(2).Byte(0xFF).Byte(0x10).Number(1).Number(4);
    block.Font(1, 0, _T("F")).Byte(0x40).Number(4);
    ASSERT_TRUE(Load(block));
    EXPECT_TRUE(table.m_highlight && table.m_bold[0] && table.m_italic[0] && table.m_underline[0] && table.m_keepTabs);
    EXPECT_EQ(Saved(table)[8], 1);  // written back as 1
}

TEST_F(Settings, AFaceOfThirtyTwoCharactersGoesThroughAndALongerOneIsCut)
{
    const WString longFace(40, _T('y'));
    xTSettingsBytes block;
    block.Number(xTSettingsBytes::magic).Number(1).Byte(1).Entry(false, false, false, 1, 4);
    block.Font(5, 0, longFace).Tail(true, 9);
    ASSERT_TRUE(Load(block));
    EXPECT_EQ(WStrView(table.m_logFont.lfFaceName, 32), WStrView(longFace).substr(0, 32));
    EXPECT_EQ(table.m_tabSize, 9);  // the rest of the face was read over
    xTAttribData second;
    auto bytes = Saved(table);
    const xTSettingsBlock saved{bytes.data(), static_cast<std::uint32_t>(bytes.size())};
    ASSERT_TRUE(second.LoadSettings(&saved));
    EXPECT_TRUE(SameNumbers(table, second));
}

TEST_F(Settings, AFaceLengthOfNullOrBelowMeansNoFace)
{
    for (const std::uint32_t length : {0u, 0xFFFFFFFFu, 0x80000000u}) {
        Disturb(table);
        xTSettingsBytes block;
        block.Number(xTSettingsBytes::magic).Number(1).Byte(1).Entry(false, false, false, 1, 4).Font(5, 0, _T(""));
        std::fill_n(block.bytes().end() - 4, 4, std::uint8_t{0});
        block.bytes().resize(block.bytes().size() - 4);
        block.Number(length).Tail(true, 6);
        ASSERT_TRUE(Load(block));
        EXPECT_EQ(table.m_logFont.lfFaceName[0], 0);
        EXPECT_EQ(table.m_tabSize, 6);
    }
}

TEST_F(Settings, AHugeFaceLengthEndsWithTheBlock)
{
    xTSettingsBytes block;
    block.Number(xTSettingsBytes::magic).Number(1).Byte(1).Entry(false, false, false, 1, 4).Font(5, 0, _T(""));
    block.bytes().resize(block.bytes().size() - 4);
    block.Number(0x7FFFFFFF).Byte('q').Byte(0);
    ASSERT_TRUE(Load(block));
    EXPECT_EQ(WStrView(table.m_logFont.lfFaceName), _T("q"));
    EXPECT_FALSE(table.m_keepTabs);
}

TEST_F(Settings, ABlockExactlyAsBigAsTheDataTakesItAll)
{
    xTSettingsBytes golden = xTSettingsBytes::Golden();
    ASSERT_TRUE(Load(golden));
    std::vector<std::uint8_t> room(266, 0xEE);
    xTSettingsBlock block{room.data(), 266};
    EXPECT_EQ(table.SaveSettings(&block), 266u);
    EXPECT_EQ(room, golden.bytes());
}

TEST_F(Settings, ATooSmallBlockStaysUnchangedAndLearnsTheSize)
{
    xTSettingsBytes golden = xTSettingsBytes::Golden();
    ASSERT_TRUE(Load(golden));
    std::vector<std::uint8_t> room(265, 0xEE);
    xTSettingsBlock block{room.data(), 265};
    EXPECT_EQ(table.SaveSettings(&block), 266u);
    EXPECT_EQ(room, std::vector<std::uint8_t>(265, 0xEE));
    EXPECT_EQ(block.size, 265u);
}

TEST_F(Settings, ALargerBlockKeepsItsSizeAndItsRest)
{
    xTSettingsBytes golden = xTSettingsBytes::Golden();
    ASSERT_TRUE(Load(golden));
    std::vector<std::uint8_t> room(300, 0xEE);
    xTSettingsBlock block{room.data(), 300};
    EXPECT_EQ(table.SaveSettings(&block), 266u);
    EXPECT_EQ(block.size, 300u);
    EXPECT_EQ(room[265], 0);
    EXPECT_EQ(room[266], 0xEE);
}

TEST_F(Settings, SavingIntoNothingTellsTheSizeOrNull)
{
    table.FillTheme(1);
    xTSettingsBlock noData{nullptr, 1000};
    EXPECT_EQ(table.SaveSettings(&noData), 244u);  // no face
    EXPECT_EQ(table.SaveSettings(nullptr), 0u);
}

TEST_F(Settings, TheFontGoesThroughUnchangedAtNinetySixDotsPerInch)
{
    table.FillTheme(1);
    table.m_logFont.lfHeight = -13;
    table.m_logFont.lfWidth = 7;
    auto bytes = Saved(table);
    const xTSettingsBlock block{bytes.data(), static_cast<std::uint32_t>(bytes.size())};
    xTAttribData other;
    ASSERT_TRUE(other.LoadSettings(&block));
    EXPECT_EQ(other.m_logFont.lfHeight, -13);
    EXPECT_EQ(other.m_logFont.lfWidth, 7);
}

struct xTScaleRow {
    xTResolution dpi;
    std::int32_t height, width;
    std::int32_t heightTo96, widthTo96;      // as written
    std::int32_t heightFrom96, widthFrom96;  // as read
};

class FontScaling : public testing::TestWithParam<xTScaleRow> {
protected:
    void TearDown() override { ResetNativePlatform(); }
};

TEST_P(FontScaling, RoundsToTheNearestAndHalvesAwayFromNull)
{
    const xTScaleRow& row = GetParam();
    NativePlatform().resolution = row.dpi;
    LOGFONTW lf{};
    lf.lfHeight = row.height;
    lf.lfWidth = row.width;
    LOGFONTW from = lf;
    ScaleFontTo96(lf);
    EXPECT_EQ(lf.lfHeight, row.heightTo96);
    EXPECT_EQ(lf.lfWidth, row.widthTo96);
    ScaleFontFrom96(from);
    EXPECT_EQ(from.lfHeight, row.heightFrom96);
    EXPECT_EQ(from.lfWidth, row.widthFrom96);
}

INSTANTIATE_TEST_SUITE_P(
    All, FontScaling,
    testing::Values(xTScaleRow{{96, 96}, -13, 7, -13, 7, -13, 7},
                    xTScaleRow{{120, 120}, -16, 10, -13, 8, -20, 13},     // 12.8, 8, 20, 12.5
                    xTScaleRow{{144, 144}, -15, 9, -10, 6, -23, 14},      // 10, 6, 22.5, 13.5
                    xTScaleRow{{144, 96}, -15, 9, -15, 9, -15, 9},        // the vertical one alone decides
                    xTScaleRow{{96, 192}, 10, 9, 5, 9, 20, 9},            // the width goes by the horizontal one
                    xTScaleRow{{192, 192}, 1, 0, 1, 0, 2, 0},             // 0.5 away from null; a width of 0 stays
                    xTScaleRow{{0, 0}, -13, 7, -13, 7, -13, 7},           // a screen that does not tell
                    xTScaleRow{{192, 192}, 2147483647, -2147483647, 1073741824, -1073741824, 2147483647,
                               -2147483647 - 1}));

class SettingsAtResolution : public testing::TestWithParam<int> {
protected:
    void TearDown() override { ResetNativePlatform(); }
};

TEST_P(SettingsAtResolution, ARoundTripDiffersByNoMoreThanTheRounding)
{
    NativePlatform().resolution = {GetParam(), GetParam()};
    for (std::int32_t height = -100; height <= 100; ++height) {
        xTAttribData table;
        table.FillTheme(3);
        table.m_logFont.lfHeight = height;
        table.m_logFont.lfWidth = height / 2;
        auto bytes = Saved(table);
        const xTSettingsBlock block{bytes.data(), static_cast<std::uint32_t>(bytes.size())};
        xTAttribData other;
        ASSERT_TRUE(other.LoadSettings(&block));
        EXPECT_LE(std::abs(other.m_logFont.lfHeight - height), 1);
        EXPECT_LE(std::abs(other.m_logFont.lfWidth - height / 2), 1);
        // What was stored once is the same again: the rounding does not creep.
        EXPECT_EQ(Saved(other), bytes);
    }
}

INSTANTIATE_TEST_SUITE_P(All, SettingsAtResolution, testing::Values(96, 120, 144));

TEST_F(Settings, TheLastBlockIsKeptWithOneByteMoreUntilTheLastTableDies)
{
    if (xTAttribData::LivingTables() != 1)
        GTEST_SKIP() << "another table lives";
    ReleaseLastBlock();
    {
        xTAttribData own;
        xTSettingsBytes golden = xTSettingsBytes::Golden();
        xTSettingsBlock block = golden.Block();
        own.LoadSettings(&block);
        EXPECT_EQ(LastBlockBytes(), 267u);
        std::vector<std::uint8_t> room(300);
        block = {room.data(), 300};
        own.SaveSettings(&block);
        EXPECT_EQ(LastBlockBytes(), 301u);  // the size of the host's block, not of the data
    }
    EXPECT_EQ(LastBlockBytes(), 301u);  // `table` lives
    std::uint8_t junk = 1;
    const xTSettingsBlock wrong{&junk, 1};
    EXPECT_FALSE(table.LoadSettings(&wrong));
    EXPECT_EQ(LastBlockBytes(), 2u);  // a block that is refused is kept too
}

TEST(SettingsRecord, GoesWithTheLastTable)
{
    if (xTAttribData::LivingTables() != 0)
        GTEST_SKIP() << "another table lives";
    std::uint8_t junk[5] = {};
    const xTSettingsBlock block{junk, 5};
    {
        xTAttribData table;
        table.LoadSettings(&block);
        EXPECT_EQ(LastBlockBytes(), 6u);
    }
    EXPECT_EQ(LastBlockBytes(), 0u);
}

// Whatever the block says: no overrun (the sanitizers watch), a count within the arrays, and what was read can be saved
// and read again to the same table.
void ExpectSafe(std::vector<std::uint8_t> bytes)
{
    xTAttribData table;
    table.FillTheme(5);
    bytes.shrink_to_fit();
    const xTSettingsBlock block{bytes.data(), static_cast<std::uint32_t>(bytes.size())};
    const bool loaded = table.LoadSettings(&block);
    ASSERT_GE(table.m_count, 0);
    ASSERT_LE(table.m_count, 30);
    if (!loaded)
        return;
    xTSettingsBlock none;
    std::vector<std::uint8_t> again(table.SaveSettings(&none));
    xTSettingsBlock room{again.data(), static_cast<std::uint32_t>(again.size())};
    ASSERT_EQ(table.SaveSettings(&room), again.size());
    xTAttribData other;
    ASSERT_TRUE(other.LoadSettings(&room));
    ASSERT_EQ(other.m_count, table.m_count);
    ASSERT_TRUE(std::equal(table.m_flags, table.m_flags + table.m_count, other.m_flags));
    ASSERT_EQ(other.m_tabSize, table.m_tabSize);
}

TEST_F(Settings, EachByteMayHaveEachValue)
{
    const auto golden = xTSettingsBytes::Golden().bytes();
    for (std::size_t place = 0; place < golden.size(); ++place) {
        for (unsigned value = 0; value < 256; ++value) {
            auto bytes = golden;
            bytes[place] = static_cast<std::uint8_t>(value);
            ASSERT_NO_FATAL_FAILURE(ExpectSafe(bytes)) << place << " = " << value;
        }
    }
}

TEST_F(Settings, CountAndFaceLengthMayBeAnything)
{
    constexpr std::uint32_t counts[] = {0, 1, 17, 18, 19, 29, 30, 31, 32, 255, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    constexpr std::uint32_t lengths[] = {0, 1, 10, 11, 12, 31, 32, 33, 1000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    const auto golden = xTSettingsBytes::Golden().bytes();
    for (const std::uint32_t count : counts) {
        for (const std::uint32_t length : lengths) {
            auto bytes = golden;
            // Where the face begins if the count is believed, and where it begins in truth.
            for (const std::uint64_t place : {9 + std::uint64_t{count} * 11 + 28, std::uint64_t{9 + 18 * 11 + 28}})
                for (unsigned i = 0; i < 4 && place + i < bytes.size(); ++i)
                    bytes[place + i] = static_cast<std::uint8_t>(length >> 8 * i);
            for (unsigned i = 0; i < 4; ++i)
                bytes[4 + i] = static_cast<std::uint8_t>(count >> 8 * i);
            ASSERT_NO_FATAL_FAILURE(ExpectSafe(bytes)) << count << " entries, a face of " << length;
        }
    }
}

TEST_F(Settings, TheBlockMayEndAnywhere)
{
    const auto golden = xTSettingsBytes::Golden().bytes();
    for (std::size_t size = 0; size <= golden.size(); ++size)
        ASSERT_NO_FATAL_FAILURE(ExpectSafe({golden.begin(), golden.begin() + static_cast<std::ptrdiff_t>(size)})) << size;
}

}  // namespace
