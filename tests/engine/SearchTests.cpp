#include "editing/ClipboardText.h"
#include "editing/TextFinder.h"
#include "store/FoldCase.h"
#include "tests/support/EditingFixture.h"

#include <stdexcept>

namespace {

class Search : public xTEditingFixture {
protected:
    struct xTHow {
        bool down = true;
        bool word = false;
        bool match = false;
        bool fromCaret = false;
    };
    bool wrapped = false;

    /// Puts the caret where the mark is and looks; the line and column of the match.
    std::string find(std::string_view what, const xTHow& how)
    {
        wrapped = false;
        const xTPos hit = store.find_text(S(what), how.down, how.word, how.match, how.fromCaret, &wrapped);
        return hit == xTPos::none ? "none" : std::to_string(hit.line) + ":" + std::to_string(hit.col);
    }
    std::string find(std::string_view what) { return find(what, xTHow()); }
    xTSearchRequest request(std::string_view what, std::string_view by, DWORD flags)
    {
        return {S(what), S(by), flags};
    }
};

TEST_F(Search, GoesDownFromBehindTheCaret)
{
    given("|ab ab\nab");
    EXPECT_EQ(find("ab"), "0:3");
    EXPECT_EQ(find("ab", {.fromCaret = true}), "0:0");
    EXPECT_FALSE(wrapped);
}

TEST_F(Search, WrapsAtTheEndOfTheText)
{
    given("ab\nx\n|y");
    EXPECT_EQ(find("ab"), "0:0");
    EXPECT_TRUE(wrapped);
}

TEST_F(Search, ComesBackToTheStartLineAndEndsThere)
{
    given("x\nab |y ab\nz");
    EXPECT_EQ(find("ab"), "1:5");
    given("x\nab |y\nz");
    EXPECT_EQ(find("ab"), "1:0");
    EXPECT_TRUE(wrapped);
}

TEST_F(Search, WithoutAMatchEndsAfterOneRound)
{
    given("one\ntw|o\nthree");
    EXPECT_EQ(find("zzz"), "none");
    EXPECT_TRUE(wrapped);
    EXPECT_EQ(find("zzz", {.down = false}), "none");
}

TEST_F(Search, LeavesTheMarkAloneWhereNothingWrapped)
{
    given("|x ab");
    wrapped = true;
    EXPECT_NE(store.find_text(S("ab"), true, false, false, false, &wrapped), xTPos::none);
    EXPECT_TRUE(wrapped);
    EXPECT_EQ(store.find_text(S("ab"), true, false, false, false), xTPos(0, 2));
}

TEST_F(Search, UpwardsFindsTheNextOneToTheRightOnTheSameLineFirst)
{
    given("ab\nab |ab ab\nab");
    EXPECT_EQ(find("ab", {.down = false}), "1:6");
    given("ab\nab ab |ab\nab");
    EXPECT_EQ(find("ab", {.down = false}), "0:0");
}

TEST_F(Search, UpwardsWrapsToTheLastLine)
{
    given("|x\ny\nab");
    EXPECT_EQ(find("ab", {.down = false}), "2:0");
    EXPECT_TRUE(wrapped);
}

TEST_F(Search, WholeWordsAtBothEndsOfALine)
{
    given("|x\nword\nwords\nsword a word");
    EXPECT_EQ(find("word", {.word = true}), "1:0");
    given("x\nword|\nwords\nsword a word");
    EXPECT_EQ(find("word", {.word = true}), "3:8");
    EXPECT_EQ(find("word"), "2:0");
    EXPECT_EQ(find("swor", {.word = true}), "none");
}

TEST_F(Search, AnUnderscoreIsPartOfAWordAndTheNumeroSignIsNot)
{
    given("|");
    store.lines[0] = xTExtString(CString(_T(" _ab \x2116""ab")));
    EXPECT_EQ(find("ab", {.word = true}), "0:6");
}

TEST_F(Search, CaseMattersOnlyWhenAsked)
{
    given("|aBc");
    EXPECT_EQ(find("ABC", {.fromCaret = true}), "0:0");
    EXPECT_EQ(find("ABC", {.match = true, .fromCaret = true}), "none");
    EXPECT_EQ(find("aBc", {.match = true, .fromCaret = true}), "0:0");
}

TEST_F(Search, FindsCyrillicInTheOtherCase)
{
    given("|");
    store.lines[0] = xTExtString(CString(_T("это ПРИВЕТ")));
    EXPECT_EQ(store.find_text(CString(_T("привет")), true, false, false, true), xTPos(0, 4));
    EXPECT_EQ(store.find_text(CString(_T("Привет")), true, true, false, true), xTPos(0, 4));
    EXPECT_EQ(store.find_text(CString(_T("привет")), true, false, true, true), xTPos::none);
}

TEST_F(Search, ATextWithALineFeedOrAnEmptyOneIsFoundNowhere)
{
    given("|a\nb");
    EXPECT_EQ(find("a\nb", {.fromCaret = true}), "none");
    EXPECT_EQ(find("", {.fromCaret = true}), "none");
    store.reset();
    EXPECT_EQ(find("a"), "none");
    EXPECT_EQ(find("a", {.down = false}), "none");
}

TEST_F(Search, ACaretOutsideTheTextEndsAfterOneRoundToo)
{
    given("ab\ncd");
    store.set_caret_raw({100, 100});
    EXPECT_EQ(find("zz"), "none");
    EXPECT_EQ(find("zz", {.down = false}), "none");
    EXPECT_EQ(find("cd"), "1:0");
}

TEST_F(Search, FoldsAllUnitsAsTheSystemDoes)
{
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        WCHAR expected = static_cast<WCHAR>(unit);
        PlatformLowerCase(&expected, 1);
        ASSERT_EQ(FoldCase(static_cast<WCHAR>(unit)), expected) << unit;
    }
}

TEST_F(Search, FindsAtEveryPlaceOfALine)
{
    for (int place = 0; place < 60; ++place) {
        WString text(60, _T('k'));
        text.insert(static_cast<std::size_t>(place), W("KeY"));
        const xTTextFinder finder(S("key"), false, false);
        EXPECT_EQ(finder.FindIn(text, 0), place);
        EXPECT_EQ(finder.FindIn(text, place), place);
        EXPECT_EQ(finder.FindIn(text, place + 1), -1);
        EXPECT_EQ(finder.FindIn(text, 1000), -1);
    }
}

TEST_F(Search, ReplaceTakesTheSelectedMatchAndSelectsTheNext)
{
    given("[ab]| ab");
    stack.add_replace(request("ab", "xyz", xTSearchRequest::replace));
    EXPECT_EQ(marked(), "xyz [ab]|");
    ASSERT_EQ(stack.undoList.size(), 1u);
    stack.undo();
    EXPECT_EQ(line(0), "ab ab");
    EXPECT_FALSE(store.has_selection());
    stack.redo();
    EXPECT_EQ(line(0), "xyz ab");
}

TEST_F(Search, ReplaceWithNothingSelectedSelectsTheNextMatchAndLeavesNoStep)
{
    given("|x ab");
    stack.add_replace(request("ab", "xyz", xTSearchRequest::replace));
    EXPECT_EQ(marked(), "x [ab]|");
    EXPECT_FALSE(stack.can_undo());
}

TEST_F(Search, ReplaceKeepsTheSpellingForUndo)
{
    given("[aB]| c");
    stack.add_replace(request("AB", "x", xTSearchRequest::replace));
    EXPECT_EQ(line(0), "x c");
    EXPECT_EQ(stack.undoList.front().find_text, CString(_T("aB")));
    stack.undo();
    EXPECT_EQ(line(0), "aB c");
}

TEST_F(Search, ReplaceOfTheLastMatchSelectsTheReplacement)
{
    given("[ab]| c");
    stack.add_replace(request("ab", "xyz", xTSearchRequest::replace));
    EXPECT_EQ(marked(), "[xyz]| c");
    EXPECT_EQ(box(), Shown(_T("Соответствий не найдено")));
}

TEST_F(Search, ReplaceThatFindsNothingAtAllPutsTheCaretAtTheStart)
{
    given("one\ntw|o");
    stack.add_replace(request("zz", "y", xTSearchRequest::replace));
    EXPECT_EQ(store.caret, xTPos(0, 0));
    EXPECT_EQ(store.first(), xTPos(0, 0));
    EXPECT_EQ(store.last(), xTPos(0, -1));
    EXPECT_EQ(NativePlatform().boxCount, 1);
    EXPECT_EQ(NativePlatform().LastBox().icon, xTBoxIcon::information);
}

TEST_F(Search, ReplaceAsksTheHostBeforeItGoesOnFromTheTop)
{
    given("ab\nx [ab]|");
    window.confirmsWrap = false;
    stack.add_replace(request("ab", "y", xTSearchRequest::replace));
    EXPECT_EQ(window.questions, 1);
    EXPECT_EQ(line(1), "x y");
    EXPECT_EQ(store.caret, xTPos(1, 3)) << "where the replacement left it";
    EXPECT_TRUE(stack.can_undo());
    EXPECT_EQ(NativePlatform().boxCount, 0);
}

TEST_F(Search, ReplaceShowsNoMatchInAControlThatItsHostDestroyedWhenAsked)
{
    given("ab x\n[ab]|");
    window.goesWhenAsked = true;
    stack.add_replace(request("ab", "y", xTSearchRequest::replace));
    EXPECT_EQ(window.questions, 1);
    EXPECT_EQ(window.moved, 0);
    EXPECT_EQ(line(0), "ab x");
    EXPECT_EQ(line(1), "y");
    EXPECT_EQ(store.caret, xTPos(1, 1));
}

TEST_F(Search, ReplaceWithoutAWindowSelectsTheNextMatchButGoesNoFurtherThanTheEnd)
{
    given("|x ab\nab");
    store.wnd = nullptr;
    xTPos pos;
    CString what = S("ab");
    store.replace_and_next(pos, what, S("y"), false, true);
    EXPECT_EQ(store.first(), xTPos(0, 2));
    EXPECT_EQ(store.caret, xTPos(0, 4));
    store.clear_selection();
    store.set_caret({1, 2});
    store.replace_and_next(pos, what, S("y"), false, true);
    EXPECT_FALSE(store.has_selection()) << "there is nobody to ask";
    EXPECT_EQ(store.caret, xTPos(1, 2));
}

TEST_F(Search, ReplaceSearchesDownWhateverTheDirection)
{
    given("ab\n[ab]|\nab");
    stack.add_replace(request("ab", "y", xTSearchRequest::replace));
    EXPECT_EQ(marked(), "ab\\ny\\n[ab]|");
}

TEST_F(Search, ReplaceAllStartsAtTheCaretAndGoesRound)
{
    given("ab x\ny |ab z\nab");
    stack.add_replace(request("ab", "1234", xTSearchRequest::replaceAll));
    EXPECT_EQ(line(0), "1234 x");
    EXPECT_EQ(line(1), "y 1234 z");
    EXPECT_EQ(line(2), "1234");
    EXPECT_EQ(box(), Shown(_T("Поиск закончен. Произведено 3 замен(ы).")));
    EXPECT_EQ(window.questions, 0) << "the host is not asked";
    EXPECT_EQ(window.changes, 3);
    ASSERT_EQ(stack.undoList.size(), 1u);
    const auto& records = stack.undoList.front().replacements;
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0].pos, xTPos(1, 2));
    EXPECT_EQ(records[2].pos, xTPos(0, 0));
    stack.undo();
    EXPECT_EQ(Shown(store.lines[0].m_text) + line(1) + line(2), "ab xy ab zab");
    stack.redo();
    EXPECT_EQ(line(1), "y 1234 z");
}

TEST_F(Search, ReplaceAllOfTwoMatchesOnALineIsUndoneAndRedone)
{
    for (const char* by : {"12345", "", "9"}) {
        given("|x ab y AB z\nab.");
        stack.add_replace(request("ab", by, xTSearchRequest::replaceAll));
        const std::string replaced = std::string("x ") + by + " y " + by + " z";
        EXPECT_EQ(line(0), replaced);
        stack.undo();
        EXPECT_EQ(line(0), "x ab y AB z") << "each match as it was spelt";
        stack.redo();
        EXPECT_EQ(line(0), replaced);
        stack.undo();
        EXPECT_EQ(line(0), "x ab y AB z");
        EXPECT_EQ(line(1), "ab.");
    }
}

TEST_F(Search, ReplaceAllKeepsNoCopyOfAMatchThatIsSpeltAsWhatIsLookedFor)
{
    given("|ab AB ab");
    stack.add_replace(request("ab", "x", xTSearchRequest::replaceAll));
    const xTOperation& step = stack.undoList.front();
    ASSERT_EQ(step.replacements.size(), 3u);
    EXPECT_TRUE(step.replacements[0].old_text.SharesBufferWith(step.find_text));
    EXPECT_EQ(step.replacements[1].old_text, S("AB"));
    EXPECT_TRUE(step.replacements[2].old_text.SharesBufferWith(step.find_text));
}

// What a load has carved out of a slab stays there anyway, so the step shares it until the line has it back.
TEST_F(Search, UndoOfReplaceAllGivesEachLineItsOwnBufferBack)
{
    given("|ab x\nno\nx ab y AB\nab");
    std::vector<CString> before;
    for (std::int32_t i = 0; i < store.line_count(); ++i)
        before.push_back(store.lines[i].m_text);
    for (const char* by : {"longer", "xy", "9"}) {
        stack.add_replace(request("ab", by, xTSearchRequest::replaceAll));
        EXPECT_EQ(line(2), std::string("x ") + by + " y " + by);
        for (int round = 0; round < 2; ++round) {
            stack.undo();
            for (std::int32_t i = 0; i < store.line_count(); ++i)
                EXPECT_TRUE(store.lines[i].m_text.SharesBufferWith(before[static_cast<std::size_t>(i)])) << i << by;
            stack.redo();
            EXPECT_EQ(line(0), std::string(by) + " x");
        }
        stack.undo();
        store.set_caret({0, 0});
    }
}

// By as many characters: where columns move, what stands before the caret is not brought back.
TEST_F(Search, ReplaceAllFromTheMiddleOfALineIsUndoneAndRedone)
{
    given("ab AB ab |ab ab\nab");
    stack.add_replace(request("ab", "xy", xTSearchRequest::replaceAll));
    for (int round = 0; round < 3; ++round) {
        stack.undo();
        EXPECT_EQ(line(0), "ab AB ab ab ab");
        EXPECT_EQ(line(1), "ab");
        stack.redo();
        EXPECT_EQ(line(0), "xy xy xy xy xy");
    }
}

TEST_F(Search, LinesOfALargeReplaceAllAreCarvedOutOfSlabsWhichUndoGivesBack)
{
    given("|");
    const std::size_t atStart = xTStringSlabs::LiveBytes();
    for (std::int32_t i = 0; i < 1000; ++i)
        store.lines.Add(xTExtString(CString(_T("ab and more"))));
    stack.add_replace(request("ab", "xyz", xTSearchRequest::replaceAll));
    EXPECT_EQ(line(1000), "xyz and more");
    EXPECT_GT(xTStringSlabs::LiveBytes(), atStart);
    stack.undo();
    EXPECT_EQ(line(1000), "ab and more");
    EXPECT_EQ(xTStringSlabs::LiveBytes(), atStart);
    stack.redo();
    EXPECT_EQ(line(1000), "xyz and more");
    stack.undo();
    EXPECT_EQ(xTStringSlabs::LiveBytes(), atStart);
}

TEST_F(Search, ReplaceAllReadsATabOfAMatchAsSpacesWhereTabsBecomeThose)
{
    given("|a\tb");
    tabs.m_keepTabs = false;
    stack.add_replace(request("a\tb", "x", xTSearchRequest::replaceAll));
    EXPECT_EQ(stack.undoList.front().replacements[0].old_text, S("a    b"));
    stack.undo();
    EXPECT_EQ(line(0), "a    b");
}

// A replacement needs a character at its place, and behind the last one of a line there is none.
TEST_F(Search, ReplaceByNothingAtTheEndOfALineIsNotUndone)
{
    given("|x ab");
    stack.add_replace(request("ab", "", xTSearchRequest::replaceAll));
    EXPECT_EQ(line(0), "x ");
    stack.undo();
    EXPECT_EQ(line(0), "x ");
}

TEST_F(Search, ReplaceAllWithoutAMatchShowsThatAndLeavesAStep)
{
    given("on|e");
    stack.add_replace(request("zz", "y", xTSearchRequest::replaceAll));
    EXPECT_EQ(box(), Shown(_T("Соответствий не найдено")));
    EXPECT_EQ(stack.undoList.size(), 1u);
    EXPECT_EQ(marked(), "on|e");
    stack.undo();
    stack.redo();
    EXPECT_EQ(marked(), "on|e");
}

TEST_F(Search, ReplaceAllByTheSameWordAndALetterEnds)
{
    given("ab ab\nx |ab ab\nab");
    stack.add_replace(request("ab", "abc", xTSearchRequest::replaceAll));
    EXPECT_EQ(line(0), "abc abc");
    EXPECT_EQ(line(1), "x abc abc");
    EXPECT_EQ(line(2), "abc");
}

// Where no match is left from the first one on, the search comes round to those before it again and again.
TEST_F(Search, ReplaceAllOfAMatchInsideAnotherEndsWhenTheTextOnlyGrows)
{
    given("/|//*");
    stack.add_replace(request("//", "//x", xTSearchRequest::replaceAll));
    EXPECT_EQ(line(0), "//x/x*");
    EXPECT_EQ(box(), Shown(_T("Поиск закончен. Произведено 2 замен(ы).")));
}

TEST_F(Search, ReplaceAllOfAMatchInsideAnotherByItselfEnds)
{
    given("/|//*");
    stack.add_replace(request("//", "//", xTSearchRequest::replaceAll));
    EXPECT_EQ(line(0), "///*");
    stack.undo();
    EXPECT_EQ(line(0), "///*");
}

TEST_F(Search, ReplaceAllGoesRoundForAsLongAsTheTextGetsShorter)
{
    given("a        b\n|  c");
    stack.add_replace(request("  ", " ", xTSearchRequest::replaceAll));
    EXPECT_EQ(line(0), "a b") << "eight blanks, four, two, one";
    EXPECT_EQ(line(1), " c");
}

TEST_F(Search, ReplaceAllGoesRoundForAsLongAsItRewritesInTheSameLength)
{
    given("bbba\n|ba");
    stack.add_replace(request("ba", "ab", xTSearchRequest::replaceAll));
    EXPECT_EQ(line(0), "abbb");
    EXPECT_EQ(line(1), "ab");
}

// The column of the first match is not corrected for what grows before it on its line.
TEST_F(Search, ReplaceAllStopsEarlyOnTheStartLineWhenItGrows)
{
    given("a a a |a");
    stack.add_replace(request("a", "bbbbb", xTSearchRequest::replaceAll));
    EXPECT_EQ(line(0), "bbbbb a a bbbbb") << "the second match had moved past the first one's column";
}

TEST_F(Search, ReplaceAllOfWholeWordsOnly)
{
    given("|ab abc ab");
    stack.add_replace(request("ab", "x", xTSearchRequest::replaceAll | xTSearchRequest::wholeWord));
    EXPECT_EQ(line(0), "x abc x");
}

TEST_F(Search, ARequestForNeitherReplacesNothing)
{
    given("|ab");
    stack.add_replace(request("ab", "x", xTSearchRequest::findNext));
    EXPECT_EQ(marked(), "|ab");
    EXPECT_FALSE(stack.can_undo());
}

TEST_F(Search, ReplaceWinsOverReplaceAll)
{
    given("[ab]| ab");
    stack.add_replace(request("ab", "x", xTSearchRequest::replace | xTSearchRequest::replaceAll));
    EXPECT_EQ(line(0), "x ab");
    EXPECT_EQ(stack.undoList.front().kind, xTOperation::replace);
}

TEST_F(Search, ReplaceAllOfManyMatchesIsNotQuadratic)
{
    given("|");
    std::string text;
    for (int i = 0; i < 50000; ++i)
        text += "some word here\n";
    copy(text);
    press(keyPaste);
    store.set_caret({0, 0});
    stack.add_replace(request("word", "longer word", xTSearchRequest::replaceAll));
    EXPECT_EQ(stack.undoList.front().replacements.size(), 50000u);
    stack.undo();
    EXPECT_EQ(line(49999), "some word here");
}

TEST(LastSearchRecord, StartsEmptyAndIsShared)
{
    const xTSearchRecord fresh;
    EXPECT_TRUE(fresh.text.IsEmpty());
    EXPECT_TRUE(fresh.down);
    EXPECT_FALSE(fresh.whole_word);
    EXPECT_FALSE(fresh.match_case);
    SaveLastSearch({CString(_T("word")), false, true, true});
    EXPECT_EQ(LastSearch().text, CString(_T("word")));
    EXPECT_FALSE(LastSearch().down);
    EXPECT_TRUE(LastSearch().whole_word);
    EXPECT_TRUE(LastSearch().match_case);
    SaveLastSearch(fresh);
}

class ClipboardTexts : public xTEditingFixture {};

TEST_F(ClipboardTexts, CanPasteIsTrueForEitherTextFormat)
{
    EXPECT_FALSE(can_paste(nullptr));
    copy("x");
    EXPECT_TRUE(can_paste(nullptr));
    NativePlatform().clipboard = {{99, WString()}};
    EXPECT_FALSE(can_paste(nullptr));
    NativePlatform().clipboard = {{99, WString()}, {clipboardBytes, WString()}};
    EXPECT_TRUE(can_paste(nullptr));
    EXPECT_FALSE(NativePlatform().clipboardOpen);
}

TEST_F(ClipboardTexts, CanPasteRaisesWhenTheClipboardStaysHeld)
{
    NativePlatform().clipboardRefusals = 10;
    EXPECT_THROW(static_cast<void>(can_paste(nullptr)), std::runtime_error);
    EXPECT_EQ(NativePlatform().sleptMilliseconds, 500u);
}

TEST_F(ClipboardTexts, EveryCarriageReturnGoes)
{
    CString text(_T("\ra\r\nb\r\r"));
    strip_cr(text);
    EXPECT_EQ(text, CString(_T("a\nb")));
}

}  // namespace
