#include "tests/support/StoreFixture.h"
#include "tests/support/TestFolder.h"
#include "zsl/text_decoder.h"
#include "zsl/text_file_stream.h"

#include <random>

// A file that is cut into lines as it is decoded gives the store that its whole text gives.

namespace {

using zsl::file_stream_mode;
using zsl::text_encoding;
using zsl::text_file_stream;

class StoreFileLoad : public xTStoreFixture {
protected:
    void LoadFile(std::string_view bytes, std::uint32_t asked = 0)
    {
        folder.put("t", bytes);
        text_file_stream stream(folder.file("t"), file_stream_mode::read, zsl::encoding_of_code(asked));
        ASSERT_TRUE(stream.is_open());
        ASSERT_TRUE(store.load_text(stream));
        ASSERT_FALSE(stream.has_text());
    }

    void ExpectAsItsText(const std::string& bytes, std::uint32_t asked = 0)
    {
        const auto decoded = zsl::decode_text(bytes, zsl::encoding_of_code(asked));
        ASSERT_TRUE(decoded);
        xTMemStorage expected(nullptr, &tabs);
        ASSERT_TRUE(expected.load_text(decoded->text.c_str(), 1));
        LoadFile(bytes, asked);
        ASSERT_EQ(store.line_count(), expected.line_count());
        for (std::int32_t i = 0; i < store.line_count(); ++i) {
            ASSERT_EQ(store.lines[i].m_text, expected.lines[i].m_text) << i;
            ASSERT_EQ(store.lines[i].m_attrs, expected.lines[i].m_attrs) << i;
            ASSERT_EQ(store.lines[i].m_flags, expected.lines[i].m_flags) << i;
        }
        ASSERT_EQ(store.comments_valid, expected.comments_valid);
    }

    xTTestFolder folder;
};

TEST_F(StoreFileLoad, GivesTheLinesOfTheText)
{
    for (const bool keepTabs : {true, false}) {
        tabs.m_keepTabs = keepTabs;
        ExpectAsItsText("one\n\ttwo /* a\n\nb */ three\n\n");
        ExpectAsItsText("one\r\n\ttwo\r\n\r\n");
        ExpectAsItsText("one\r\ntwo\nthree\r");
        ExpectAsItsText("\xef\xbb\xbf\xd0\x96\n\xe2\x82\xac\xf0\x9f\x98\x80");
        ExpectAsItsText("\n");
        ExpectAsItsText("a\tb\nc", 1);
        ExpectAsItsText(std::string("a\0\n\0b\0*\0", 8), 4);
        ExpectAsItsText(std::string("\xfe\xff\0\n\0b", 6));
    }
}

TEST_F(StoreFileLoad, CutsRunsOf512CharactersAcrossThePiecesOfTheDecoder)
{
    for (const std::size_t before : {0u, 1u, 511u, 512u, 32000u, 32767u, 32768u, 32769u, 70000u}) {
        for (const std::string_view end : {"", "\n", "\nx", "\r\n"}) {
            ExpectAsItsText(std::string(before, 'a') + std::string(end));
            ExpectAsItsText("short\n" + std::string(before, 'a') + "\xd0\x96" + std::string(end) + std::string(600, 'b'));
        }
    }
}

TEST_F(StoreFileLoad, EqualsTheTextForRandomFiles)
{
    std::mt19937 random(23);
    constexpr std::string_view pieces[] = {"a", "0123456789012345678901234567890123456789", "\n", "\r\n", "\t", "/*", "*/",
                                           "\xd0\x96", "\xe2\x82\xac", "\xf0\x9f\x98\x80", "// x", "\r"};
    for (int round = 0; round < 60; ++round) {
        tabs.m_keepTabs = round % 2 == 0;
        const std::size_t kinds = 3 + random() % (std::size(pieces) - 2);
        std::string bytes = "x";
        for (std::size_t length = random() % (round % 4 == 0 ? 150'000 : 3000); bytes.size() < length;)
            bytes += pieces[random() % kinds];
        SCOPED_TRACE(round);
        ExpectAsItsText(bytes, random() % 4);
    }
}

TEST_F(StoreFileLoad, MakesRoomForTheLinesOnce)
{
    std::string bytes;
    for (int i = 0; i < 50'000; ++i)
        bytes += "line\n";
    LoadFile(bytes + "last");
    EXPECT_EQ(store.line_count(), 50'001);
    EXPECT_EQ(store.lines.GetCapacity(), 50'001);
}

TEST_F(StoreFileLoad, ReplacesTheTextAndAllThatBelongsToIt)
{
    Load(_T("old\ntext"));
    store.select_range({0, 0}, {1, 2});
    store.set_caret({1, 3});
    LoadFile("new");
    EXPECT_EQ(Text(), "new");
    EXPECT_FALSE(store.has_selection());
    EXPECT_EQ(Shown(store.caret), "(0,0)");
    EXPECT_TRUE(store.comments_valid);
}

TEST_F(StoreFileLoad, OfAStreamThatIsNotOpenEmptiesTheStore)
{
    Load(_T("old"));
    text_file_stream stream(folder.file("missing"), file_stream_mode::read, text_encoding());
    EXPECT_FALSE(stream.has_text());
    EXPECT_TRUE(stream.read_piece().empty());
    EXPECT_TRUE(store.load_text(stream));
    EXPECT_EQ(store.line_count(), 0);
}

TEST_F(StoreFileLoad, PiecesAndTheRestOfTheTextGiveAllOfIt)
{
    const std::string line = "0123456789 \xd0\x96\r\n";
    std::string bytes;
    while (bytes.size() < 100'000)
        bytes += line;
    folder.put("t", bytes);
    text_file_stream stream(folder.file("t"), file_stream_mode::read, text_encoding());
    EXPECT_EQ(stream.feeds(), bytes.size() / line.size());
    WString text(stream.read_piece());
    EXPECT_LT(text.size(), 33'000u);
    EXPECT_EQ(text.back(), _T('\n'));
    WString rest;
    EXPECT_TRUE(stream.read_solid_text(rest));
    EXPECT_EQ(text + rest, zsl::decode_text(bytes, text_encoding())->text);
    EXPECT_FALSE(stream.has_text());
    EXPECT_TRUE(stream.read_piece().empty());
}

}  // namespace
