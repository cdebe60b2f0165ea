#include "store/MyStr.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace {

TEST(LineWords, DelimitersAreTheFortyThreeInTheirOrder)
{
    constexpr std::array<unsigned, 43> codes = {
        0x7E, 0x08, 0x0C, 0x0A, 0x0D, 0x09, 0x0B, 0x27, 0x22, 0x5C, 0x20, 0x20, 0x20, 0x20, 0x20,
        0x60, 0x2F, 0x21, 0x40, 0x23, 0x24, 0x25, 0x5E, 0x26, 0x2A, 0x2B, 0x2116, 0x3B, 0x3A, 0x2D,
        0x3D, 0x7C, 0x3F, 0x3C, 0x3E, 0x2C, 0x2E, 0x7B, 0x7D, 0x5B, 0x5D, 0x28, 0x29};
    ASSERT_EQ(xTExtString::delimiters.size(), codes.size());
    for (std::size_t i = 0; i < codes.size(); ++i)
        EXPECT_EQ(static_cast<unsigned>(xTExtString::delimiters[i]), codes[i]) << i;
}

TEST(LineWords, WordCharactersAreAllButTheDelimitersAndZero)
{
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const auto ch = static_cast<WCHAR>(code);
        const bool delimiter = code == 0 || xTExtString::delimiters.find(ch) != WStrView::npos;
        ASSERT_EQ(xTExtString::IsWordChar(ch), !delimiter) << code;
    }
}

struct xTStopRow {
    const WCHAR* text;
    std::int32_t pos;
    bool forward;
    std::int32_t stop;
};

class LineWordStops : public testing::TestWithParam<xTStopRow> {};

TEST_P(LineWordStops, AreWhereTheWordKeysStop)
{
    const xTStopRow& row = GetParam();
    EXPECT_EQ(xTExtString(row.text).NextWordStop(row.pos, row.forward), row.stop);
}

INSTANTIATE_TEST_SUITE_P(Forward, LineWordStops, testing::Values(
    xTStopRow{_T("foo  bar"), 0, true, 5},
    xTStopRow{_T("foo  bar"), 3, true, 5},
    xTStopRow{_T("foo  bar"), 5, true, 8},
    xTStopRow{_T("foo  bar"), 8, true, 8},
    xTStopRow{_T("foo  bar"), 99, true, 8},
    xTStopRow{_T("==x"), 0, true, 2},
    xTStopRow{_T("== \t x"), 0, true, 5},
    xTStopRow{_T("foo   "), 0, true, 6},
    xTStopRow{_T("   "), 0, true, 3},
    xTStopRow{_T("foo"), -3, true, 0},  // before the line stands a 0, a delimiter
    xTStopRow{_T(""), 0, true, 0},
    xTStopRow{_T(""), 5, true, 0}));

INSTANTIATE_TEST_SUITE_P(Backward, LineWordStops, testing::Values(
    xTStopRow{_T("foo  bar"), 5, false, 0},
    xTStopRow{_T("foo  bar"), 8, false, 5},
    xTStopRow{_T("foo  bar"), 7, false, 5},
    xTStopRow{_T("==x"), 3, false, 2},
    xTStopRow{_T("==x"), 2, false, 0},
    xTStopRow{_T("a =="), 4, false, 2},
    xTStopRow{_T("   x"), 3, false, 0},
    xTStopRow{_T(" x"), 1, false, 0},
    xTStopRow{_T("foo"), 0, false, 0},
    xTStopRow{_T("foo"), -1, false, 0},
    xTStopRow{_T("foo"), 4, false, 3},     // behind the end stands a 0, a delimiter
    xTStopRow{_T("fo="), INT32_MAX, false, 2},
    xTStopRow{_T(""), 5, false, 0}));

struct xTBoundsRow {
    const WCHAR* text;
    std::int32_t pos;
    std::int32_t first, last;
};

class LineWordBounds : public testing::TestWithParam<xTBoundsRow> {};

TEST_P(LineWordBounds, SpanTheWordOrTheDelimiter)
{
    std::int32_t first = -7;
    std::int32_t last = -7;
    EXPECT_TRUE(xTExtString(GetParam().text).WordBounds(GetParam().pos, &first, &last));
    EXPECT_EQ(first, GetParam().first);
    EXPECT_EQ(last, GetParam().last);
}

INSTANTIATE_TEST_SUITE_P(Rows, LineWordBounds, testing::Values(
    xTBoundsRow{_T("a b"), 1, 1, 2},
    xTBoundsRow{_T("a b"), 0, 0, 1},
    xTBoundsRow{_T("a b"), 2, 2, 3},
    xTBoundsRow{_T("(word)"), 3, 1, 5},
    xTBoundsRow{_T("(word)"), 5, 5, 6},
    xTBoundsRow{_T("слово_1"), 4, 0, 7}));

TEST(LineWords, BoundsOutsideTheLineAreRefused)
{
    const xTExtString line(_T("ab"));
    std::int32_t first = -7;
    std::int32_t last = -7;
    EXPECT_FALSE(line.WordBounds(2, &first, &last));
    EXPECT_FALSE(line.WordBounds(-1, &first, &last));
    EXPECT_FALSE(line.WordBounds(0, &first, nullptr));
    EXPECT_EQ(first, -7);
    EXPECT_EQ(last, -7);
    EXPECT_TRUE(line.WordBounds(0, nullptr, &last));
    EXPECT_EQ(last, 2);
}

struct xTCodeRow {
    const WCHAR* text;
    const WCHAR* sub;
    std::int32_t start;
    bool startsInside;
    std::int32_t hit;
};

class LineFindInCode : public testing::TestWithParam<xTCodeRow> {};

TEST_P(LineFindInCode, PassesOverStrings)
{
    const xTCodeRow& row = GetParam();
    xTExtString line(row.text);
    line.m_flags = row.startsInside ? xTExtString::flagStartsInside : 0;
    EXPECT_EQ(line.FindInCode(row.sub, row.start), row.hit);
}

INSTANTIATE_TEST_SUITE_P(Rows, LineFindInCode, testing::Values(
    xTCodeRow{_T("\"//\""), _T("//"), 0, false, -1},
    xTCodeRow{_T("*/ //"), _T("//"), 0, true, 3},
    xTCodeRow{_T("\"a\" /*"), _T("/*"), 0, false, 4},
    xTCodeRow{_T("\"/*\" /*"), _T("/*"), 0, false, 5},
    xTCodeRow{_T("\"\\\"/*"), _T("/*"), 0, false, 3},     // a backslash escapes no quote
    xTCodeRow{_T("/* \" */ //"), _T("//"), 0, false, 8},   // a quote in a comment does not count
    xTCodeRow{_T("/* \" // */"), _T("//"), 0, false, 5},   // the hit itself may lie in a comment
    xTCodeRow{_T("\" */ //"), _T("//"), 0, true, 5},
    xTCodeRow{_T("\"/*\"\"//\""), _T("//"), 0, false, -1},  // no comment opens in a string
    xTCodeRow{_T("a//b//"), _T("//"), 2, false, 4},
    xTCodeRow{_T("a//b"), _T("//"), -9, false, 1},
    xTCodeRow{_T("a//b"), _T("//"), 99, false, -1},
    xTCodeRow{_T("\"abc\"abc"), _T("abc"), 0, false, 5},
    xTCodeRow{_T(""), _T("/*"), 0, false, -1}));

// The state is carried on from hit to hit; told is a scan from column 0 for each.
TEST(LineWords, FindInCodeEqualsAScanFromTheStartForEachHit)
{
    constexpr WStrView alphabet = _T("/*\"\" ax");
    std::mt19937 random(20150201);
    for (int round = 0; round < 20000; ++round) {
        WString text;
        for (std::size_t i = random() % 40; i > 0; --i)
            text += alphabet[random() % alphabet.size()];
        const bool startsInside = random() % 2 == 0;
        const auto start = static_cast<std::int32_t>(random() % 6);
        std::int32_t expected = -1;
        for (std::size_t hit = text.find(_T("/*"), static_cast<std::size_t>(start)); hit != WString::npos;
             hit = text.find(_T("/*"), hit + 1)) {
            bool inside = startsInside;
            int quotes = 0;
            for (std::size_t i = 0; i < hit; ++i) {
                const WString pair = text.substr(i, 2);
                if (inside ? pair == _T("*/") : quotes % 2 == 0 && pair == _T("/*")) {
                    inside = !inside;
                    ++i;
                } else if (!inside && text[i] == _T('"')) {
                    ++quotes;
                }
            }
            if (quotes % 2 == 0) {
                expected = static_cast<std::int32_t>(hit);
                break;
            }
        }
        xTExtString line{WStrView(text)};
        line.m_flags = startsInside ? xTExtString::flagStartsInside : 0;
        ASSERT_EQ(line.FindInCode(_T("/*"), start), expected) << "round " << round;
    }
}

struct xTLeadingRow {
    const WCHAR* text;
    std::int32_t column;
};

class LineLeadingComment : public testing::TestWithParam<xTLeadingRow> {};

TEST_P(LineLeadingComment, StandsBehindBlanksOnly)
{
    EXPECT_EQ(xTExtString(GetParam().text).FindLeadingLineComment(), GetParam().column);
}

INSTANTIATE_TEST_SUITE_P(Rows, LineLeadingComment, testing::Values(
    xTLeadingRow{_T("//x"), 0}, xTLeadingRow{_T(" \t //"), 3}, xTLeadingRow{_T("a //"), -1},
    xTLeadingRow{_T("/ /"), -1}, xTLeadingRow{_T(""), -1}, xTLeadingRow{_T("a // //"), -1}));

}  // namespace
