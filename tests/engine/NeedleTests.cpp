#include "store/Needle.h"

#include "store/FoldCase.h"
#include "tests/support/ExactText.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

// A look for one text in another, against the plainest one, at every place, length and offset.

namespace {

WString Folded(WStrView text, bool match_case)
{
    WString units(text);
    for (WCHAR& ch : units)
        ch = match_case ? ch : FoldCase(ch);
    return units;
}

WString RandomOf(std::mt19937& random, WStrView letters, std::size_t length)
{
    WString text;
    while (text.size() < length)
        text += letters[random() % letters.size()];
    return text;
}

// Three units fold to k, four bits part the Cyrillic ones, and what is no letter at all may have the bits of one.
class Needle : public testing::TestWithParam<WStrView> {};

TEST_P(Needle, FindsWhatAPlainLookFinds)
{
    std::mt19937 random(17);
    for (std::size_t round = 0; round < 8000; ++round) {
        const WString text = RandomOf(random, GetParam(), random() % (round % 10 == 0 ? 300 : 50));
        const WString what = RandomOf(random, GetParam(), 1 + random() % (round % 3 == 0 ? 12 : 3));
        const std::size_t from = random() % (text.size() + 3);
        const bool match_case = round % 2 == 0;
        const xTExactText exact(text, round % 9);
        const xTNeedle needle{CString(what), match_case};
        const std::size_t expected = Folded(text, match_case).find(Folded(what, match_case), from);
        ASSERT_EQ(needle.FindIn({exact.c_str(), text.size()}, from), expected) << round;
    }
}

constexpr WCHAR surrogates[] = {'a', 0xD800, 0xD801, 0xDC00, 0xDFFF, 0xD801};
constexpr WCHAR heads[] = {'a', 'A', 0, 1, 2, 0xFFFF, 0xFFFE};

INSTANTIATE_TEST_SUITE_P(Letters, Needle,
                         testing::Values(WStrView(_T("abABkK\x212A ")), WStrView(_T("\x440\x420\x400\x460\x410\x430\x450")),
                                         WStrView(_T("[{@`sS\x17F\x01\x21")), WStrView(_T("\x3A3\x3C3\x3C2\xB5\x3BC\x39C")),
                                         WStrView(surrogates, std::size(surrogates)), WStrView(heads, std::size(heads))));

TEST(Needle, OfEveryUnitIsFoundInEveryCase)
{
    const WStrView table = FoldTable();
    for (std::size_t unit = 1; unit < table.size(); ++unit) {
        if (table[unit] == unit && unit % 64 != 0)
            continue;  // most units are their own lower case; all others are looked for
        const auto ch = static_cast<WCHAR>(unit);
        const xTNeedle needle{CString(WStrView(&ch, 1)), false};
        ASSERT_EQ(needle.FindIn(WStrView(&ch, 1), 0), 0u) << unit;
        ASSERT_EQ(needle.FindIn(WStrView(&table[unit], 1), 0),
                  table[table[unit]] == table[unit] ? 0u : xTNeedle::none) << unit;
    }
}

TEST(Needle, StandsAtEveryPlaceOfATextOfEveryLength)
{
    const xTNeedle needle{CString(_T("xyz")), true};
    for (std::size_t length = 3; length < 90; ++length) {
        for (std::size_t at = 0; at + 3 <= length; ++at) {
            WString text(length, _T('x'));
            text.replace(at, 3, _T("xyz"));
            const xTExactText exact(text, at % 9);
            ASSERT_EQ(needle.FindIn({exact.c_str(), length}, 0), at) << length;
            ASSERT_EQ(needle.FindIn({exact.c_str(), length}, at), at) << length;
            ASSERT_EQ(needle.FindIn({exact.c_str(), length}, at + 1), xTNeedle::none) << length;
        }
    }
}

TEST(Needle, OfNothingOrLongerThanTheTextIsNowhere)
{
    EXPECT_EQ(xTNeedle(CString(), true).FindIn(_T("abc"), 0), xTNeedle::none);
    EXPECT_EQ(xTNeedle(CString(), false).FindIn(WStrView(), 0), xTNeedle::none);
    EXPECT_EQ(xTNeedle(CString(_T("abcd")), true).FindIn(_T("abc"), 0), xTNeedle::none);
    EXPECT_EQ(xTNeedle(CString(_T("a")), true).FindIn(WStrView(), 0), xTNeedle::none);
    EXPECT_EQ(xTNeedle(CString(_T("a")), true).FindIn(_T("a"), 100), xTNeedle::none);
}

}  // namespace
