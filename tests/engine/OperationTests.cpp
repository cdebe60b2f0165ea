#include "tests/support/EditingFixture.h"

#include <functional>
#include <set>
#include <vector>

namespace {

class Operations : public xTEditingFixture {
protected:
    [[nodiscard]] const xTOperation& newest() const { return stack.undoList.front(); }
    void undo(int times = 1)
    {
        for (int i = 0; i < times; ++i)
            EXPECT_TRUE(stack.undo());
    }
    void redo(int times = 1)
    {
        for (int i = 0; i < times; ++i)
            EXPECT_TRUE(stack.redo());
    }
};

TEST_F(Operations, InsertWithShiftAloneIsNoKeyAndKeepsWhatCanBeRedone)
{
    given("a|b");
    type("x");
    undo();
    NativePlatform().keysDown = {0x10};  // Shift; the Insert key itself is not down
    stack.add_key(45);
    EXPECT_TRUE(stack.can_redo());
    redo();
    EXPECT_EQ(marked(), "ax|b");
}

TEST_F(Operations, ATypedCharacterIsOneStep)
{
    given("a|b");
    type("xy");
    EXPECT_EQ(marked(), "axy|b");
    ASSERT_EQ(stack.undoList.size(), 2u);
    EXPECT_EQ(newest().kind, xTOperation::insert);
    EXPECT_EQ(newest().text.Spelt(), CString(WStrView(_T("y\0"), 2)));
    undo();
    EXPECT_EQ(marked(), "ax|b");
    undo();
    EXPECT_EQ(marked(), "a|b");
    redo(2);
    EXPECT_EQ(marked(), "axy|b");
}

TEST_F(Operations, ShiftAloneIsNoStep)
{
    given("a|b");
    type("\x10");
    EXPECT_EQ(marked(), "a|b");
    EXPECT_TRUE(stack.undoList.empty());
}

TEST_F(Operations, ShiftAloneIsNoStepWhenOverwritingEither)
{
    given("a|b\nc");
    stack.add_char(16, true);
    EXPECT_TRUE(stack.undoList.empty());
}

TEST_F(Operations, ATabThatBecomesSpacesIsUndoneInOneStep)
{
    given("a|b");
    tabs.m_keepTabs = false;
    type("\t");
    EXPECT_EQ(marked(), "a    |b");
    EXPECT_EQ(newest().count, 4);
    undo();
    EXPECT_EQ(marked(), "a|b");
}

// The text keeps its tab and the count what it had grown to, so doing it again makes the count grow anew.
TEST_F(Operations, RedoOfATabGrowsTheCountAgain)
{
    given("a|bcdef");
    tabs.m_keepTabs = false;
    type("\t");
    undo();
    redo();
    EXPECT_EQ(marked(), "a    |bcdef");
    EXPECT_EQ(newest().count, 7);
    undo();
    EXPECT_EQ(marked(), "a|ef");
}

TEST_F(Operations, OverwritingAtTheEndOfALineInserts)
{
    given("ab|\nx");
    overwriting = true;
    type("c");
    EXPECT_EQ(marked(), "abc|\\nx");
    EXPECT_EQ(newest().kind, xTOperation::insert);
    undo();
    EXPECT_EQ(marked(), "ab|\\nx");
}

TEST_F(Operations, OverwritingACarriageReturnInsertsBeforeIt)
{
    given("ab|\r\nx");
    overwriting = true;
    type("c");
    EXPECT_EQ(line(0), "abc\\x000D");
}

TEST_F(Operations, UndoOfAnOverwriteBringsTheCharacterBack)
{
    given("a|bc\nx");
    overwriting = true;
    type("z");
    EXPECT_EQ(newest().text.Spelt(), CString(_T("b")));
    undo();
    EXPECT_EQ(marked(), "a|bc\\nx");
    EXPECT_EQ(stack.redoList.front().text.Spelt(), CString(_T("bz")));
}

TEST_F(Operations, RedoOfAnOverwriteWritesTheOldCharacterAndStepsOn)
{
    given("a|bc\nx");
    overwriting = true;
    type("z");
    undo();
    redo();
    EXPECT_EQ(marked(), "ab|c\\nx") << "the typed character does not return";
    EXPECT_EQ(newest().text.Spelt(), CString(_T("b")));
    undo();
    EXPECT_EQ(marked(), "a|bc\\nx");
}

TEST_F(Operations, BackspaceTakesTheCharacterBefore)
{
    given("ab|c");
    press(keyBack);
    EXPECT_EQ(marked(), "a|c");
    EXPECT_EQ(newest().pos, xTPos(0, 1));
    undo();
    EXPECT_EQ(marked(), "ab|c");
    redo();
    EXPECT_EQ(marked(), "a|c");
}

TEST_F(Operations, BackspaceAtTheVeryStartIsNoStep)
{
    given("|ab");
    press(keyBack);
    EXPECT_EQ(marked(), "|ab");
    EXPECT_TRUE(stack.undoList.empty());
}

TEST_F(Operations, BackspaceAtColumnZeroJoinsTheLines)
{
    given("ab\n|cd");
    press(keyBack);
    EXPECT_EQ(marked(), "ab|cd");
    EXPECT_EQ(newest().text.Spelt(), CString(WStrView(_T("\n\0"), 2)));
    undo();
    EXPECT_EQ(marked(), "ab\\n|cd");
}

TEST_F(Operations, EnterCarriesTheIndentOfTheLine)
{
    given("  if|x");
    type("\n");
    EXPECT_EQ(marked(), "  if\\n  |x");
    EXPECT_EQ(newest().count, 3);
    undo();
    EXPECT_EQ(marked(), "  if|x");
    redo();
    EXPECT_EQ(marked(), "  if\\n  |x");
}

TEST_F(Operations, EnterBehindBlanksAloneCarriesNoIndent)
{
    given("    |foo");
    type("\n");
    EXPECT_EQ(marked(), "    \\n|foo");
}

TEST_F(Operations, EnterLeavesTheBlanksAheadOfTheTailOnTheOldLine)
{
    given("  if|  x");
    type("\n");
    EXPECT_EQ(marked(), "  if  \\n  |x");
    EXPECT_EQ(newest().pos, xTPos(0, 6));
    undo();
    EXPECT_EQ(marked(), "  if  |x") << "not at the column where Enter was pressed";
}

TEST_F(Operations, EnterBeforeBlanksToTheEndOfTheLineMovesThem)
{
    given("  if|  ");
    type("\n");
    EXPECT_EQ(marked(), "  if\\n  |  ");
}

TEST_F(Operations, DeleteOfASelectionDoesNotComeBackSelected)
{
    given("a[bc\nd]|e");
    press(keyDelete);
    undo();
    EXPECT_EQ(marked(), "abc\\nd|e");
    redo();
    EXPECT_EQ(marked(), "a|e");
}

TEST_F(Operations, DeleteStoppedByTheJoinLimitIsUndoneToTheTwoLines)
{
    given(std::string(300, 'a') + "|\n" + std::string(300, 'b') + "\nrest");
    press(keyDelete);
    EXPECT_EQ(lengths(), "512 88 4");
    EXPECT_TRUE(newest().split);
    undo();
    EXPECT_EQ(lengths(), "300 300 4");
    EXPECT_EQ(line(0), std::string(300, 'a'));
    redo();
    EXPECT_EQ(lengths(), "512 88 4");
}

TEST_F(Operations, BackspaceStoppedByTheJoinLimitIsUndoneToo)
{
    given(std::string(300, 'a') + "\n|" + std::string(300, 'b') + "\nrest");
    press(keyBack);
    EXPECT_EQ(lengths(), "512 88 4");
    undo();
    EXPECT_EQ(lengths(), "300 300 4");
}

TEST_F(Operations, DeleteOfARangeAndItsUndo)
{
    given("one\ntwo|");
    stack.add_delete({0, 1}, {1, 0});
    EXPECT_EQ(line(0), "owo");
    EXPECT_EQ(window.changes, 1);
    undo();
    EXPECT_EQ(marked(), "one\\nt|wo");
    redo();
    EXPECT_EQ(line(0), "owo");
}

TEST_F(Operations, PasteDropsCarriageReturns)
{
    given("a|b");
    copy("x\r\ny\rz");
    press(keyPaste);
    EXPECT_EQ(marked(), "ax\\nyz|b");
    EXPECT_EQ(newest().kind, xTOperation::paste);
    EXPECT_FALSE(NativePlatform().clipboardOpen);
    undo();
    EXPECT_EQ(marked(), "a|b");
    redo();
    EXPECT_EQ(marked(), "ax\\nyz|b");
}

TEST_F(Operations, PasteTakesTheFormatThatIsListedFirst)
{
    given("|");
    NativePlatform().clipboard = {{99, WString()}, {clipboardBytes, W("bytes")}, {clipboardWide, W("wide")}};
    press(keyPaste);
    EXPECT_EQ(marked(), "bytes|");
}

TEST_F(Operations, PasteWithoutATextIsNoStep)
{
    given("a|b");
    NativePlatform().clipboard = {{99, W("x")}};
    press(keyPaste);
    EXPECT_EQ(marked(), "a|b");
    EXPECT_TRUE(stack.undoList.empty());
    EXPECT_FALSE(NativePlatform().clipboardOpen);
}

TEST_F(Operations, PasteFromAClipboardThatStaysHeldIsNoStep)
{
    given("a|b");
    copy("x");
    NativePlatform().clipboardRefusals = 10;
    press(keyPaste);
    EXPECT_EQ(marked(), "a|b");
    EXPECT_TRUE(stack.undoList.empty());
    EXPECT_EQ(NativePlatform().sleptMilliseconds, 500u);
    NativePlatform().clipboardRefusals = 9;
    press(keyPaste);
    EXPECT_EQ(marked(), "ax|b");
}

TEST_F(Operations, PasteOfALongRunIsFoldedAndUndoneWhole)
{
    given("ab|cd\nnext");
    copy(std::string(1200, 'x'));
    press(keyPaste);
    EXPECT_EQ(lengths(), "460 460 284 4") << "each piece leaves room for the tail of the line";
    EXPECT_EQ(newest().count, 1202);
    undo();
    EXPECT_EQ(marked(), "ab|cd\\nnext");
    redo();
    EXPECT_EQ(lengths(), "460 460 284 4");
}

TEST_F(Operations, TextFromOutsideIsSelectedAndGoesWithItsUndo)
{
    given("one|\ntwo");
    stack.add_block(S("1\r\n2"), xTPos::none, xTPos::none, false);
    EXPECT_EQ(marked(), "one[1\\n2]|\\ntwo");
    EXPECT_EQ(window.changes, 1);
    undo();
    EXPECT_EQ(line(0), "one");
    EXPECT_EQ(store.line_count(), 2);
    EXPECT_EQ(store.caret, xTPos(0, 3));
}

TEST_F(Operations, ABlockMovedDownComesBackSelected)
{
    given("one two\nthree|");
    stack.add_block(S("one"), {0, 0}, {0, 2}, true);
    EXPECT_EQ(marked(), " two\\nthree[one]|");
    EXPECT_TRUE(newest().after_source);
    undo();
    EXPECT_EQ(line(0), "one two");
    EXPECT_EQ(line(1), "three");
    EXPECT_EQ(store.first(), xTPos(0, 0));
    EXPECT_EQ(store.last(), xTPos(0, 2));
    redo();
    EXPECT_EQ(marked(), " two\\nthree[one]|");
}

TEST_F(Operations, ABlockMovedUpComesBackSelected)
{
    given("on|e\ntwo\nthree");
    stack.add_block(S("thr"), {2, 0}, {2, 2}, true);
    EXPECT_EQ(marked(), "on[thr]|e\\ntwo\\nee");
    EXPECT_FALSE(newest().after_source);
    undo();
    EXPECT_EQ(line(0), "one");
    EXPECT_EQ(line(2), "three");
    EXPECT_EQ(store.first(), xTPos(2, 0));
    EXPECT_EQ(store.last(), xTPos(2, 2));
}

// What the step records is spelt with the tabs of that time and goes in with those of the undo: both are required, so
// the undo is exact only while the settings stay, and while tabs that are to be spaces do not stand in the text.
TEST_F(Operations, UndoOfAnIndentPutsItsLinesInWithTheTabsOfThatMoment)
{
    given("[\ta]|\nb");
    stack.add_indent(false);
    EXPECT_EQ(line(0), "\\x0009\\x0009a");
    tabs.m_keepTabs = false;
    undo();
    EXPECT_EQ(line(0), "    a") << "the tab that stood there before has become spaces";
    EXPECT_EQ(line(1), "b");
}

TEST_F(Operations, UndoOfAnIndentTakesAsManyCharactersAsItsTabsReadAs)
{
    given("[\ta]|\nbcdef");
    tabs.m_keepTabs = false;
    stack.add_indent(false);
    EXPECT_EQ(line(0), "    \\x0009a");
    EXPECT_EQ(newest().text2.Spelt(), CString(_T("        a\nb")));
    undo();
    EXPECT_EQ(line(0), "    a");
    EXPECT_EQ(line(1), "bf") << "the tab was read as four spaces, and three more characters went for that";
}

TEST_F(Operations, UndoOfAnIndentIsExactWithAnotherTabSizeWhereTheTextHasNoTabs)
{
    given("[a]|\nb");
    tabs.m_keepTabs = false;
    stack.add_indent(false);
    EXPECT_EQ(line(0), "    a");
    tabs.m_tabSize = 8;
    undo();
    EXPECT_EQ(line(0), "a");
    redo();
    EXPECT_EQ(line(0), "    a");
}

TEST_F(Operations, ABlockMovedWithinItsLineIsCorrectedByTheDeletion)
{
    given("abcdef|g");
    stack.add_block(S("bc"), {0, 1}, {0, 2}, true);
    EXPECT_EQ(marked(), "adef[bc]|g");
    undo();
    EXPECT_EQ(line(0), "abcdefg");
}

TEST_F(Operations, AnEmptyBlockIsNoStep)
{
    given("a|b");
    stack.add_block(S("\r"), xTPos::none, xTPos::none, false);
    EXPECT_TRUE(stack.undoList.empty());
    EXPECT_EQ(window.changes, 1) << "the host is told whether or not a step was kept";
}

TEST_F(Operations, CaseOfTheSelection)
{
    given("a[bc\nd]|e");
    stack.add_case(true);
    EXPECT_EQ(line(0), "aBC");
    EXPECT_EQ(line(1), "De");
    EXPECT_EQ(newest().text.Spelt(), CString(_T("bc\nd")));
    EXPECT_TRUE(store.has_selection());
    undo();
    EXPECT_EQ(line(0), "abc");
    EXPECT_EQ(store.caret, xTPos(1, 1));
    redo();
    EXPECT_EQ(line(0), "aBC");
    EXPECT_EQ(line(1), "De");
}

TEST_F(Operations, CaseWithoutASelectionIsNoStep)
{
    given("ab|");
    stack.add_case(true);
    EXPECT_EQ(marked(), "ab|");
    EXPECT_TRUE(stack.undoList.empty());
}

TEST_F(Operations, LayoutOfTheSelection)
{
    given("[qw]|e");
    stack.add_layout();
    EXPECT_TRUE(store.lines[0].m_text == _T("йцe"));
    undo();
    EXPECT_EQ(line(0), "qwe");
    redo();
    EXPECT_EQ(line(0), "qwe") << "the layout has moved on to English, whose next one is Russian: q has no key there";
}

TEST_F(Operations, IndentAndItsUndoSwapWholeLines)
{
    given("a\n[b\nc]|\nd");
    stack.add_indent(false);
    EXPECT_EQ(line(1), "\\x0009b");
    EXPECT_EQ(newest().count, 5) << "b, c, two breaks and the first character behind them";
    undo();
    EXPECT_EQ(Shown(Marked(store)), "a\\nb\\nc\\nd|") << "the selection is gone";
    redo();
    EXPECT_EQ(line(1), "\\x0009b");
    EXPECT_EQ(line(2), "\\x0009c");
    EXPECT_EQ(line(3), "d");
}

// The end of the recorded text is clipped before the change and not anew behind it, so the text behind the change is
// recorded only as far as the old text went.
TEST_F(Operations, IndentOfTheLastLineRecordsTheNewTextOnlyAsFarAsTheOldOneWent)
{
    given("[abc]|");
    stack.add_indent(false);
    EXPECT_EQ(newest().text.Spelt(), CString(_T("abc")));
    EXPECT_EQ(newest().text2.Spelt(), CString(_T("\tabc")));
    given("[abc]|");
    tabs.m_keepTabs = false;
    stack.add_indent(false);
    EXPECT_EQ(newest().text2.Spelt(), CString(_T("    ")));
    undo();
    EXPECT_EQ(line(0), "abcabc");
}

TEST_F(Operations, UnindentAndComments)
{
    given("[\ta\n\tb]|\nc");
    stack.add_indent(true);
    EXPECT_EQ(line(0), "a");
    stack.add_comment(0);
    EXPECT_EQ(line(1), "//b");
    stack.add_comment(1);
    EXPECT_EQ(line(1), "b");
    undo(3);
    EXPECT_EQ(line(0), "\\x0009a");
    EXPECT_EQ(line(1), "\\x0009b");
    EXPECT_EQ(line(2), "c");
    redo(3);
    EXPECT_EQ(line(0), "a");
    EXPECT_EQ(line(1), "b");
}

TEST_F(Operations, UnindentOfTheOnlyLineThatIsATabIsUndone)
{
    given("[\t]|");
    stack.add_indent(true);
    EXPECT_EQ(line(0), "");
    undo();
    EXPECT_EQ(line(0), "\\x0009");
}

TEST_F(Operations, AnUnknownCommentModeIsNoStep)
{
    given("[a]|");
    stack.add_comment(2);
    EXPECT_EQ(line(0), "a");
    EXPECT_TRUE(stack.undoList.empty());
    EXPECT_EQ(window.changes, 1);
}

TEST_F(Operations, BlockKindsWithoutASelectionLeaveAStepThatDoesNothing)
{
    given("ab|\ncd");
    stack.add_indent(false);
    EXPECT_EQ(marked(), "ab|\\ncd");
    ASSERT_EQ(stack.undoList.size(), 1u);
    undo();
    redo();
    EXPECT_EQ(line(0), "ab");
    EXPECT_EQ(line(1), "cd");
}

TEST_F(Operations, AKindBeyondTheLastDoesNothing)
{
    given("ab");
    xTOperation operation(xTOperation::xTLayout{}, &window, &store);
    operation.kind = 17;
    EXPECT_FALSE(operation.apply());
    operation.undo();
    operation.redo();
    EXPECT_EQ(line(0), "ab");
}

TEST_F(Operations, AReplacementWithoutAPlaceIsNeitherUndoneNorRedone)
{
    given("[ab]|");
    xTOperation operation(xTSearchRequest{S("ab"), S("x"), xTSearchRequest::replace}, &window, &store);
    operation.pos = xTPos::none;
    operation.undo();
    operation.redo();
    EXPECT_EQ(marked(), "[ab]|") << "the selection stays too";
    EXPECT_EQ(window.ensured, 0);
}

using xTAction = std::function<void(xTMemStorage&, xTOperStack&)>;

const CString movedText(_T("ab\nc"));
const xTSearchRequest longer{CString(_T("c")), CString(_T("zz")), xTSearchRequest::replaceAll};

const xTAction oneOfEachKind[] = {
    [](auto&, auto& stack) { stack.add_char(13, false); },
    [](auto&, auto& stack) { stack.add_char(8, false); },
    [](auto&, auto& stack) { stack.add_char('e', false); },
    [](auto&, auto& stack) { stack.add_char('f', true); },
    [](auto&, auto& stack) { stack.add_key(xTOperation::pasteCode); },
    [](auto&, auto& stack) { stack.add_key(46); },
    [](auto&, auto& stack) { stack.add_block(movedText, {1, 0}, {1, 1}, true); },
    [](auto&, auto& stack) { stack.add_delete({0, 1}, {0, 2}); },
    [](auto& store, auto&) { store.select_range({0, 0}, {1, 2}); },
    [](auto&, auto& stack) { stack.add_case(true); },
    [](auto&, auto& stack) { stack.add_layout(); },
    [](auto&, auto& stack) { stack.add_indent(false); },
    [](auto&, auto& stack) { stack.add_indent(true); },
    [](auto&, auto& stack) { stack.add_comment(0); },
    [](auto&, auto& stack) { stack.add_comment(1); },
    [](auto& store, auto&) { store.set_caret({0, 0}); },
    [](auto&, auto& stack) { stack.add_replace(longer); },
};

// What the lines hold while the actions are done, undone and done again.
std::vector<std::string> TextsOnTheWay(xTStoreWindow* window, xTMemStorage& store)
{
    xTOperStack stack(window, &store);
    std::vector<std::string> texts;
    const auto note = [&] {
        std::string& text = texts.emplace_back();
        for (std::int32_t i = 0; i < store.line_count(); ++i)
            text += Shown(store.lines[i].m_text) + "\n";
    };
    for (const xTAction& action : oneOfEachKind) {
        action(store, stack);
        note();
    }
    while (stack.undo())
        note();
    while (stack.redo())
        note();
    return texts;
}

TEST_F(Operations, AStackWithoutAWindowBringsAboutTheSameTexts)
{
    copy("x\ny");
    given("  ab|  cd\nef cc gh\nij");
    const std::vector<std::string> shown = TextsOnTheWay(&window, store);
    given("  ab|  cd\nef cc gh\nij");
    EXPECT_EQ(TextsOnTheWay(nullptr, store), shown);
    EXPECT_GT(std::set<std::string>(shown.begin(), shown.end()).size(), 12u) << "the steps change something";
}

TEST_F(Operations, WithoutAStoreEveryKindIsNone)
{
    const xTSearchRequest request;
    xTOperation operations[] = {
        {xTOperation::xTTyped{65, false}, nullptr, nullptr}, {xTOperation::xTKey{46}, nullptr, nullptr},
        {xTOperation::xTBlock{S("x"), {}, {}, true}, nullptr, nullptr}, {xTOperation::xTRange{}, nullptr, nullptr},
        {xTOperation::xTCase{true}, nullptr, nullptr}, {xTOperation::xTLayout{}, nullptr, nullptr},
        {xTOperation::xTIndent{true}, nullptr, nullptr}, {xTOperation::xTComment{0}, nullptr, nullptr},
        {request, nullptr, nullptr}};
    for (xTOperation& operation : operations) {
        EXPECT_EQ(operation.kind, xTOperation::none);
        EXPECT_EQ(operation.count, 0);
        EXPECT_FALSE(operation.apply());
        operation.undo();
        operation.redo();
    }
}

TEST_F(Operations, UndoAndRedoSendTheViewToThePlaceFirst)
{
    given("ab|\ncd");
    type("x");
    const int before = window.moved;
    undo();
    EXPECT_EQ(window.moved, before + 1);
    redo();
    EXPECT_EQ(window.moved, before + 2);
}

TEST_F(Operations, AReinsertedLineComesBackWithoutItsMarks)
{
    given("a\n[b\n]|c");
    store.set_break_point(1);
    press(keyDelete);
    undo();
    EXPECT_EQ(store.line_count(), 3);
    EXPECT_EQ(store.break_point_count(), 0);
}

TEST_F(Operations, AHundredThousandLinesComeAndGo)
{
    given("head|tail\nend");
    std::string text;
    for (int i = 0; i < 100000; ++i)
        text += "line " + std::to_string(i) + '\n';
    text += "x";
    copy(text);
    press(keyPaste);
    EXPECT_EQ(store.line_count(), 100002);
    undo();
    EXPECT_EQ(marked(), "head|tail\\nend");
    redo();
    EXPECT_EQ(store.line_count(), 100002);
    EXPECT_EQ(line(100000), "xtail");
    undo();
    EXPECT_EQ(marked(), "head|tail\\nend");
}

class Stack : public xTEditingFixture {};

TEST_F(Stack, TheThreeHundredAndFirstStepDropsTheFirst)
{
    given("|");
    for (int i = 0; i < 301; ++i)
        type("x");
    for (int i = 0; i < 300; ++i)
        ASSERT_TRUE(stack.undo()) << i;
    EXPECT_FALSE(stack.undo());
    EXPECT_EQ(marked(), "x|");
    for (int i = 0; i < 300; ++i)
        ASSERT_TRUE(stack.redo()) << i;
    EXPECT_FALSE(stack.redo());
    EXPECT_EQ(store.line_length(0), 301);
}

TEST_F(Stack, TheRedoListHoldsAsManyAndLosesItsTail)
{
    given("|");
    stack.capacity = 2;
    type("ab");
    stack.undo();
    stack.undo();
    xTOperStack other(stack);
    EXPECT_EQ(other.redoList.size(), 2u);
    stack.redo();
    stack.redo();
    EXPECT_EQ(marked(), "ab|");
    EXPECT_FALSE(stack.redo());
}

TEST_F(Stack, AKeyEmptiesTheRedoList)
{
    given("|");
    type("abc");
    for (int i = 0; i < 3; ++i)
        stack.undo();
    type("x");
    EXPECT_FALSE(stack.can_redo());
    EXPECT_FALSE(stack.redo());
}

TEST_F(Stack, AKeyThatChangesNothingEmptiesTheRedoList)
{
    given("|");
    type("a");
    stack.undo();
    press(keyBack);
    EXPECT_FALSE(stack.can_redo());
    EXPECT_FALSE(stack.can_undo());
}

TEST_F(Stack, DeleteAtTheVeryEndIsNoStep)
{
    given("ab|");
    press(keyDelete);
    EXPECT_FALSE(stack.can_undo());
    EXPECT_EQ(window.changes, 1);
}

TEST_F(Stack, ControlInsertEmptiesTheRedoListThoughItChangesNothing)
{
    given("|");
    type("a");
    stack.undo();
    NativePlatform().keysDown = {0x11, 45};
    press(45);
    EXPECT_FALSE(stack.can_redo());
    EXPECT_EQ(marked(), "|");
    EXPECT_EQ(window.changes, 1);
}

TEST_F(Stack, OtherKeysLeaveTheRedoList)
{
    given("|");
    type("a");
    stack.undo();
    press(45);
    press(37);
    EXPECT_TRUE(stack.can_redo());
    EXPECT_EQ(window.changes, 0);
}

TEST_F(Stack, ShiftInsertPastes)
{
    given("|");
    copy("x");
    NativePlatform().keysDown = {0x10, 45};
    press(45);
    EXPECT_EQ(marked(), "x|");
    NativePlatform().keysDown = {0x10, 0x11, 45};
    press(45);
    EXPECT_EQ(marked(), "x|") << "not while Control is down";
}

TEST_F(Stack, ClearingEmptiesOneList)
{
    given("|");
    type("ab");
    stack.undo();
    stack.clear_redo();
    EXPECT_TRUE(stack.can_undo());
    EXPECT_FALSE(stack.can_redo());
    stack.clear_undo();
    EXPECT_FALSE(stack.can_undo());
}

TEST_F(Stack, ACopyIsDeepAndHoldsWhatItIsToldTo)
{
    given("[ab]|");
    stack.add_case(true);
    type("x");
    stack.undo();
    xTOperStack copy(stack);
    ASSERT_EQ(copy.undoList.size(), 1u);
    ASSERT_EQ(copy.redoList.size(), 1u);
    EXPECT_EQ(copy.undoList.front().kind, xTOperation::change_case);
    EXPECT_EQ(copy.undoList.front().text.Spelt(), CString(_T("ab")));
    EXPECT_EQ(copy.undoList.front().count, 2);
    EXPECT_FALSE(copy.undoList.front().to_upper) << "not among what a copy holds";
    EXPECT_EQ(copy.store, &store);
    EXPECT_EQ(copy.window, &window);
    stack.clear_undo();
    EXPECT_EQ(copy.undoList.size(), 1u);
    xTOperStack assigned(nullptr, nullptr);
    assigned = copy;
    EXPECT_EQ(assigned.redoList.size(), 1u);
    assigned = *&assigned;
    EXPECT_EQ(assigned.redoList.size(), 1u);
}

TEST_F(Stack, ACopyHoldsTheNewestStepsThatTheCapacityAllows)
{
    given("|");
    type("abc");
    stack.capacity = 2;
    const xTOperStack copy(stack);
    ASSERT_EQ(copy.undoList.size(), 2u);
    EXPECT_EQ(copy.undoList.front().pos, xTPos(0, 2));
    EXPECT_EQ(copy.undoList.back().pos, xTPos(0, 1));
}

TEST_F(Stack, WithoutAStoreNothingIsKept)
{
    xTOperStack empty(nullptr, nullptr);
    empty.add_char('a', false);
    empty.add_key(keyDelete);
    empty.add_indent(false);
    empty.add_replace({});
    EXPECT_FALSE(empty.can_undo());
    EXPECT_FALSE(empty.undo());
    EXPECT_FALSE(empty.redo());
}

}  // namespace
