#include "tests/engine/HostileFiles.h"
#include "tests/support/DecoderComparison.h"
#include "zsl/text_decoder.h"

#include <gtest/gtest.h>

#include <random>

using namespace zsl;

namespace {

void expect_as_naive(std::string_view bytes, const text_encoding& asked)
{
    EXPECT_EQ(DecoderDifference(bytes, asked), "");
}

class HostileFile : public testing::TestWithParam<xTHostileFile> {};

}  // namespace

TEST_P(HostileFile, ReadsAsItHasTo)
{
    const xTHostileFile& file = GetParam();
    const auto decoded = decode_text(file.bytes, encoding_of_code(file.asked));
    ASSERT_EQ(decoded.has_value(), file.found >= 0);
    if (!decoded)
        return;
    EXPECT_EQ(code_of_encoding(decoded->encoding), static_cast<std::uint32_t>(file.found));
    EXPECT_EQ(decoded->encoding.has_mark(), file.mark);
    EXPECT_EQ(decoded->encoding.has_crlf(), file.crlf);
    if (file.text) {
        EXPECT_TRUE(decoded->text == file.text);
    }
}

TEST_P(HostileFile, ReadsAsTheNaiveReaderHasItAndIsWrittenAgainTheSame)
{
    for (std::uint32_t code = 0; code <= 6; ++code)
        expect_as_naive(GetParam().bytes, encoding_of_code(code));
}

INSTANTIATE_TEST_SUITE_P(Table, HostileFile, testing::ValuesIn(hostileFiles),
                         [](const auto& info) { return std::string(info.param.name); });

#ifndef _WIN32
TEST(TextDecoder, ReadsAnsiAsCodePage1251AndOemAs866InTheNativeBuild)
{
    const auto inAnsi = decode_text("\xcf\xf0\xe8", text_encoding(E_CharSet::ansi));
    ASSERT_TRUE(inAnsi);
    EXPECT_TRUE(inAnsi->text == _T("\u041f\u0440\u0438"));
    const auto inOem = decode_text("\x8f\xe0\xa8", text_encoding(E_CharSet::oem));
    ASSERT_TRUE(inOem);
    EXPECT_TRUE(inOem->text == _T("\u041f\u0440\u0438"));
}
#endif

TEST(TextDecoder, EveryByteOfTheCodePagesComesBackTheSame)
{
    std::string bytes;
    for (int value = 1; value < 256; ++value)
        bytes.push_back(static_cast<char>(value));
    expect_as_naive(bytes, text_encoding(E_CharSet::ansi));
    expect_as_naive(bytes, text_encoding(E_CharSet::oem));
}

TEST(TextDecoder, SeesALineEndAtEveryPlace)
{
    for (std::size_t place = 0; place < 200; ++place) {
        expect_as_naive(std::string(place, 'a') + "\r\n" + std::string(70, 'b'), text_encoding());
        expect_as_naive(std::string(place, 'a') + "\r\nb", text_encoding(E_CharSet::ansi));
        expect_as_naive(std::string(place, 'a') + "\n" + std::string(70, 'b') + "\r\n", text_encoding());
    }
    for (std::size_t place = 32760; place < 32775; ++place) {  // where the pieces of the decoder meet
        expect_as_naive(std::string(place, 'a') + "\r\n", text_encoding());
        expect_as_naive(std::string(place, 'a') + "\xf0\x9f\x98\x80\r\n", text_encoding());
    }
}

TEST(TextDecoder, RefusesMoreCharactersThanTheLimit)
{
    const text_encoding asked;
    EXPECT_TRUE(decode_text("12345", asked, 5));
    EXPECT_FALSE(decode_text("123456", asked, 5));
    EXPECT_TRUE(decode_text("\xf0\x9f\x98\x80", asked, 2));
    EXPECT_FALSE(decode_text("\xf0\x9f\x98\x80", asked, 1));
    EXPECT_TRUE(decode_text("\xff\xfe\x61\x01", asked, 1));
    EXPECT_FALSE(decode_text("\xff\xfe\x61\x01\x61\x01", asked, 1));
    EXPECT_FALSE(decode_text("\xe1\xe2\xe3", asked, 2));
}

TEST(TextDecoder, ReadsRandomTextsAsTheNaiveReaderDoes)
{
    constexpr unsigned seed = 20240607;
    std::mt19937 random(seed);
    constexpr std::string_view pieces[] = {"a",  "0123456789012345678901234567890123456789", "\n", "\r\n", "\r", "\t",
                                           "\xd0\x96", "\xe2\x82\xac", "\xf0\x9f\x98\x80", "\xff", "\xed\xa0\x80", " "};
    for (int round = 0; round < 3000; ++round) {
        std::string bytes;
        const std::size_t kinds = 1 + random() % std::size(pieces);  // few kinds: most texts are good ones
        const int count = static_cast<int>(random() % (round % 100 == 0 ? 4000 : 60));
        for (int i = 0; i < count; ++i)
            bytes += pieces[random() % kinds];
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", round " << round);
        expect_as_naive(bytes, encoding_of_code(random() % 7));
    }
}
