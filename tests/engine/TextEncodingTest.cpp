#include "zsl/text_encoding.h"

#include <gtest/gtest.h>

using namespace zsl;

namespace {

std::string in(const WCHAR* text, const text_encoding& encoding)
{
    std::string bytes = "old";
    wide_to_char(text, bytes, encoding);
    return bytes;
}

}  // namespace

TEST(TextEncoding, IsTheDefaultOneMadeFrom256AndFromNothing)
{
    EXPECT_TRUE(text_encoding().is_default());
    EXPECT_TRUE(text_encoding(256u).is_default());
    EXPECT_EQ(text_encoding(), text_encoding(256u));
    EXPECT_FALSE(text_encoding(0u).is_default());
    EXPECT_FALSE(text_encoding(E_CharSet::utf8).is_default());
}

TEST(TextEncoding, TellsItsCharacterSet)
{
    for (const unsigned number : {1u, 2u, 4u, 5u, 6u}) {
        EXPECT_EQ(static_cast<unsigned>(text_encoding(number).charset()), number);
        EXPECT_EQ(text_encoding(number), text_encoding(static_cast<E_CharSet>(number)));
    }
    EXPECT_EQ(text_encoding().charset(), E_CharSet::utf8);
}

TEST(TextEncoding, CountsAnyOtherNumberAsZeroWhichIsStoredAsAnsi)
{
    for (const unsigned number : {0u, 3u, 7u, 255u, 257u, 0xffffffffu}) {
        EXPECT_EQ(text_encoding(number).charset(), E_CharSet::none);
        EXPECT_EQ(text_encoding(number).stored_as(), E_CharSet::ansi);
        EXPECT_FALSE(text_encoding(number).is_default());
    }
}

TEST(TextEncoding, HasAMarkOfItsOwnInUtf16Only)
{
    for (std::uint32_t code = 0; code <= 6; ++code) {
        EXPECT_EQ(encoding_of_code(code).has_mark(), code == 4 || code == 5) << code;
        EXPECT_FALSE(encoding_of_code(code).found_mark());
        EXPECT_FALSE(encoding_of_code(code).has_crlf());
    }
}

TEST(TextEncoding, GoesFromTheCodesOfHostsAndBack)
{
    const struct {
        std::uint32_t code;
        text_encoding encoding;
        std::uint32_t back;
    } rows[] = {
        {0, text_encoding(256u), 0},         {1, text_encoding(E_CharSet::ansi), 1},
        {2, text_encoding(E_CharSet::utf8), 2}, {3, text_encoding(E_CharSet::oem), 3},
        {4, text_encoding(E_CharSet::utf16le), 4}, {5, text_encoding(E_CharSet::utf16be), 5},
        {6, text_encoding(0u), 0},           {0xffffffff, text_encoding(0u), 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(encoding_of_code(row.code), row.encoding) << row.code;
        EXPECT_EQ(code_of_encoding(row.encoding), row.back) << row.code;
    }
}

TEST(TextEncoding, KeepsItsCodeWithTheFactsOfAFile)
{
    for (std::uint32_t code = 0; code <= 5; ++code)
        EXPECT_EQ(code_of_encoding(encoding_of_code(code).with_facts(true, true)), code);
}

TEST(TextEncoding, TakesOverMarkAndLineEndsUnderTheSameCharacterSetOnly)
{
    const text_encoding file = text_encoding(E_CharSet::utf8).with_facts(true, true);
    EXPECT_EQ(text_encoding(E_CharSet::utf8).as_before(file), file);
    EXPECT_TRUE(text_encoding().as_before(file).has_mark());  // the default encoding is UTF-8 when written
    EXPECT_TRUE(text_encoding().as_before(file).has_crlf());
    EXPECT_TRUE(text_encoding().as_before(file).is_default());
    EXPECT_EQ(text_encoding(E_CharSet::ansi).as_before(file), text_encoding(E_CharSet::ansi));
    EXPECT_EQ(text_encoding(E_CharSet::utf16le).as_before(file), text_encoding(E_CharSet::utf16le));
    const text_encoding bare = text_encoding(E_CharSet::utf16le).with_facts(false, false);
    EXPECT_FALSE(text_encoding(E_CharSet::utf16le).as_before(bare).has_mark());
    EXPECT_TRUE(text_encoding(E_CharSet::utf16be).as_before(bare).has_mark());
    const text_encoding ansi = text_encoding(E_CharSet::ansi).with_crlf();
    EXPECT_TRUE(text_encoding(0u).as_before(ansi).has_crlf());
}

TEST(TextEncoding, GivesAMarkToNo8BitSet)
{
    EXPECT_FALSE(text_encoding(E_CharSet::ansi).with_facts(true, false).has_mark());
    EXPECT_FALSE(text_encoding(E_CharSet::oem).with_facts(true, false).has_mark());
}

TEST(WideToChar, GivesTheBytesOfEachEncodingWithoutAMark)
{
    EXPECT_EQ(in(_T("a\u0416"), text_encoding()), "a\xd0\x96");
    EXPECT_EQ(in(_T("a\u0416"), text_encoding(E_CharSet::utf8)), "a\xd0\x96");
    EXPECT_EQ(in(_T("a\u0416"), text_encoding(E_CharSet::utf16le)), std::string("a\0\x16\x04", 4));
    EXPECT_EQ(in(_T("a\u0416"), text_encoding(E_CharSet::utf16be)), std::string("\0a\x04\x16", 4));
    EXPECT_EQ(in(_T("\xd83d\xde00"), text_encoding()), "\xf0\x9f\x98\x80");
    EXPECT_EQ(in(_T("a\nb"), text_encoding().with_crlf()), "a\nb");
}

TEST(WideToChar, PutsAQuestionMarkForWhatTheCodePageCannotHold)
{
    EXPECT_EQ(in(_T("a\u4e2d" "b"), text_encoding(0u)), "a?b");
    EXPECT_EQ(in(_T("a\u4e2d" "b"), text_encoding(E_CharSet::oem)), "a?b");
    EXPECT_EQ(in(_T("a\xd83d"), text_encoding()), "a\xef\xbf\xbd");
}

#ifndef _WIN32
TEST(WideToChar, WritesTheZeroEncodingInTheAnsiCodePage)
{
    EXPECT_EQ(in(_T("\u041f\u0440\u0438"), text_encoding(0u)), "\xcf\xf0\xe8");
    EXPECT_EQ(in(_T("\u041f\u0440\u0438"), text_encoding(E_CharSet::oem)), "\x8f\xe0\xa8");
}
#endif

TEST(WideToChar, TakesNullAsEmpty)
{
    EXPECT_EQ(in(nullptr, text_encoding()), "");
    EXPECT_EQ(in(_T(""), text_encoding(0u)), "");
}
