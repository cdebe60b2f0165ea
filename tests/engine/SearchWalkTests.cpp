#include "editing/TextFinder.h"
#include "store/FoldCase.h"
#include "tests/support/EditingFixture.h"

#include <random>

namespace {

// The walk of a search told in the plainest way: line by line, each from left to right.
xTPos PlainSearch(const xTMemStorage& store, const WString& what, bool down, bool matchCase, bool fromCaret)
{
    const auto folded = [=](WStrView text) {
        WString units(text);
        for (WCHAR& ch : units)
            ch = matchCase ? ch : FoldCase(ch);
        return units;
    };
    const WString wanted = folded(what);
    const xTPos start = store.caret;
    xTPos at(start.line, fromCaret ? start.col : start.col + 1);
    for (bool passed = false;;) {
        const auto from = static_cast<std::size_t>(std::max(at.col, 0));
        const std::size_t hit = folded(store.lines[at.line].m_text).find(wanted, from);
        if (hit != WString::npos)
            return {at.line, static_cast<std::int32_t>(hit)};
        std::int32_t next = at.line + (down ? 1 : -1);
        if (passed && (xTPos(next, 0) > start) == down)
            return xTPos::none;
        if (next < 0 || next >= store.line_count()) {
            if (passed)
                return xTPos::none;
            passed = true;
            next = down ? 0 : store.line_count() - 1;
        }
        at = {next, 0};
    }
}

// The Kelvin sign folds to k, so that an end may be any of three units.
constexpr WStrView letters = _T("abABkK\x212A ");

WString RandomWord(std::mt19937& random, std::size_t length)
{
    WString word;
    while (word.size() < length)
        word += letters[random() % letters.size()];
    return word;
}

class SearchWalk : public xTEditingFixture {
protected:
    // A short text of lines below `longest` characters; the caret stands anywhere in it, before a line too.
    void givenRandom(std::mt19937& random, std::size_t longest)
    {
        WString text = RandomWord(random, random() % longest);
        for (std::size_t count = random() % 8; count > 0; --count)
            text += _T('\n') + RandomWord(random, random() % longest);
        store.load_text(text.c_str(), 1);
        if (store.line_count() == 0)
            store.load_text(_T("a"), 1);
        const auto line = static_cast<std::int32_t>(random() % static_cast<unsigned>(store.line_count()));
        const auto length = static_cast<unsigned>(store.lines[line].GetLength());
        store.caret = {line, static_cast<std::int32_t>(random() % (length + 2)) - 1};
    }
};

TEST_F(SearchWalk, EqualsThePlainOneInBothDirections)
{
    std::mt19937 random(11);
    for (int round = 0; round < 20000; ++round) {
        givenRandom(random, 45);
        const WString what = RandomWord(random, 1 + random() % 12 % (2 + random() % 11));
        const bool down = random() % 2 == 0;
        const bool matchCase = random() % 2 == 0;
        const bool fromCaret = random() % 2 == 0;
        ASSERT_EQ(store.find_text(CString(what), down, false, matchCase, fromCaret),
                  PlainSearch(store, what, down, matchCase, fromCaret))
            << round;
        store.set_caret({0, 0});
    }
}

TEST_F(SearchWalk, UpwardsEndsBeforeTheStartLineIsComeBackTo)
{
    given("x\nab |y\nz");
    EXPECT_EQ(store.find_text(S("ab"), false, false, true, false), xTPos::none);
    store.caret = {1, -1};
    EXPECT_EQ(store.find_text(S("ab"), false, false, true, false), xTPos(1, 0));
    store.set_caret({1, 0});
}

TEST_F(SearchWalk, PassesOverLinesThatHoldOnlyTheEndsOfTheText)
{
    given("|axb\naxxb\nab\n\nacb");
    EXPECT_EQ(store.find_text(S("acb"), true, false, true, true), xTPos(4, 0));
    EXPECT_EQ(store.find_text(S("ACB"), true, false, false, true), xTPos(4, 0));
    EXPECT_EQ(store.find_text(S("adb"), true, false, true, true), xTPos::none);
}

}  // namespace
