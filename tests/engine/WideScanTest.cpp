#include "store/WideScan.h"

#include "store/LineCutter.h"
#include "tests/support/ExactText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

namespace {

WString RandomText(std::mt19937& random, std::size_t longest)
{
    constexpr WStrView alphabet = _T("aaaaaaa\n\t*/\xFFFF\x8000");
    WString text;
    for (std::size_t left = random() % (longest + 1); left > 0; --left)
        text += alphabet[random() % (alphabet.size() - (longest > 200 ? 6 : 0))];
    return text;
}

TEST(WideScan, SurveyTellsTheFactsAtEveryLengthAndOffset)
{
    std::mt19937 random(3);
    for (std::size_t round = 0; round < 2000; ++round) {
        const WString text = RandomText(random, round % 10 == 0 ? 5000 : 90);
        const xTExactText exact(text, round % 17);
        const xTTextFacts facts = SurveyText(exact.c_str(), 512);
        ASSERT_EQ(facts.length, text.size());
        ASSERT_EQ(facts.hasTab, text.find(_T('\t')) != WString::npos);
        ASSERT_EQ(facts.hasStar, text.find(_T('*')) != WString::npos);
    }
}

TEST(WideScan, SurveyFindsASingleUnitAtEveryPlace)
{
    for (std::size_t length = 1; length < 80; ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            WString text(length, _T('a'));
            text[at] = _T('*');
            ASSERT_TRUE(SurveyText(xTExactText(text, at % 9).c_str(), 512).hasStar) << at << " of " << length;
            text[at] = _T('\t');
            ASSERT_TRUE(SurveyText(xTExactText(text, at % 9).c_str(), 512).hasTab) << at << " of " << length;
        }
    }
}

TEST(WideScan, SurveyCountsFoldedLines)
{
    EXPECT_EQ(SurveyText(_T(""), 512).lines, 0);
    EXPECT_EQ(SurveyText(_T("\n"), 512).lines, 1);
    EXPECT_EQ(SurveyText(_T("a\n"), 512).lines, 1);
    EXPECT_EQ(SurveyText(_T("aaaa\naaaaa\naaaaaaaaa"), 4).lines, 6);
    EXPECT_EQ(SurveyText(WString(1024, _T('a')).c_str(), 512).lines, 2);
    EXPECT_EQ(SurveyText(WString(100'001, _T('a')).c_str(), 512).lines, 196);
}

TEST(WideScan, UnitSearchEqualsThePlainOne)
{
    std::mt19937 random(5);
    for (std::size_t round = 0; round < 5000; ++round) {
        const WString text = RandomText(random, 70);
        const std::size_t from = random() % (text.size() + 1);
        const xTExactText exact(text, round % 9);
        const std::size_t expected = std::min(text.find(_T('\n'), from), text.size());
        ASSERT_EQ(FindUnit({exact.c_str(), text.size()}, _T('\n'), from), expected);
    }
}

TEST(WideScan, PairSearchEqualsThePlainOne)
{
    std::mt19937 random(6);
    for (std::size_t round = 0; round < 5000; ++round) {
        const WString text = RandomText(random, 70);
        const auto from = static_cast<std::int32_t>(random() % 80) - 4;
        const xTExactText exact(text, round % 9);
        const std::size_t expected = text.find(_T("*/"), static_cast<std::size_t>(std::max(from, 0)));
        const std::int32_t hit = FindPair({exact.c_str(), text.size()}, _T('*'), _T('/'), from);
        ASSERT_EQ(hit, static_cast<std::int32_t>(expected));
    }
}

TEST(WideScan, AWalkTellsEveryPlaceOnce)
{
    std::mt19937 random(8);
    for (std::size_t round = 0; round < 3000; ++round) {
        const WString text = RandomText(random, round % 10 == 0 ? 400 : 70);
        const xTExactText exact(text, round % 9);
        xTUnitWalk walk({exact.c_str(), text.size()}, _T('\n'));
        for (std::size_t at = text.find(_T('\n')); at != WString::npos; at = text.find(_T('\n'), at + 1))
            ASSERT_EQ(walk.Next(), at);
        ASSERT_EQ(walk.Next(), text.size());
        ASSERT_EQ(walk.Next(), text.size());
    }
}

TEST(WideScan, UnitQuestionsHoldAtEveryPlace)
{
    for (std::size_t length = 0; length < 70; ++length) {
        WString text(length, WCHAR(0x8001));
        ASSERT_TRUE(AllUnitsAre(text, 0x8001));
        ASSERT_FALSE(AnyUnitHas(text, 0x0004));
        ASSERT_EQ(AnyUnitHas(text, 0x8000), length > 0);
        ASSERT_FALSE(AnyUnitUpTo(text, 0x0020));
        for (std::size_t at = 0; at < length; ++at) {
            text[at] = 0x0005;
            ASSERT_FALSE(AllUnitsAre(text, 0x8001));
            ASSERT_TRUE(AnyUnitHas(text, 0x0004));
            ASSERT_TRUE(AnyUnitUpTo(text, 0x0020));
            text[at] = 0x8001;
        }
    }
}

}  // namespace
