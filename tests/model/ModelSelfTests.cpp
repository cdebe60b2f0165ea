#include "tests/support/model/NaiveEditor.h"
#include "tests/support/model/ReadableText.h"
#include "tests/support/native/PlatformNative.h"

#include <gtest/gtest.h>

// The model is held against the listed edge cases by itself: what the engine is compared with has to be right.

namespace {

class ModelSelfTests : public testing::Test {
protected:
    ModelSelfTests() { ResetNativePlatform(); }

    [[nodiscard]] std::string Text() const
    {
        WString text;
        for (const xTNaiveLine& line : editor.store.lines)
            text += (&line == editor.store.lines.data() ? _T("") : _T("\n")) + line.text;
        return ReadableText(text);
    }
    [[nodiscard]] std::string Marks(std::size_t line) const
    {
        std::string marks;
        for (int col = 0; col < editor.store.lines[line].Length(); ++col)
            marks += editor.store.lines[line].IsMarked(col) ? '#' : '.';
        return marks;
    }
    void Load(const WString& text) { editor.LoadText(text); }
    void CaretAt(int line, int col) { editor.store.SetCaret(xTPos(line, col)); }
    void Select(xTPos from, xTPos behind) { editor.store.SelectRange(from, behind); }
    void Type(const WString& keys)
    {
        for (const WCHAR key : keys)
            editor.AddChar(key, false);
    }
    void Paste(const WString& text)
    {
        editor.clipboard = text;
        editor.AddKey(0x1001);
    }
    void Delete() { editor.AddKey(46); }

    xTNaiveEditor editor;
    xTNaiveStore& store = editor.store;
};

}  // namespace

TEST_F(ModelSelfTests, ALoadCutsLongRunsAndTheLastLineFeedOpensNoLine)
{
    Load(WString(1300, _T('x')));
    ASSERT_EQ(store.Count(), 3);
    EXPECT_EQ(store.Length(0), 512);
    EXPECT_EQ(store.Length(2), 276);
    Load(_T("a\nb\n"));
    EXPECT_EQ(store.Count(), 2);
    Load(_T("\n"));
    EXPECT_EQ(store.Count(), 1);
    Load({});
    EXPECT_EQ(store.Count(), 0);
    Load(_T("a\r\nb"));
    EXPECT_EQ(Text(), R"("a\x000D\nb")");
}

TEST_F(ModelSelfTests, WithoutKeptTabsATabOfALoadCountsAsItsSpaces)
{
    store.keepTabs = false;
    Load(WString(128, _T('\t')) + _T("x"));
    ASSERT_EQ(store.Count(), 2);
    EXPECT_EQ(store.Length(0), 512);
}

TEST_F(ModelSelfTests, TheEdgesOfACommentTakeNewCharactersAsTold)
{
    xTNaiveLine line(_T("/*x"));
    line.flags = xTNaiveLine::holdsComment;
    line.attrs = WString(3, WCHAR{5});
    EXPECT_FALSE(line.TakesComment(0));
    xTNaiveLine one(_T("x"));
    one.flags = xTNaiveLine::holdsComment;
    one.attrs = WString(1, WCHAR{5});
    EXPECT_FALSE(one.TakesComment(0));
    xTNaiveLine closed(_T("ab*/"));
    closed.flags = xTNaiveLine::holdsComment;
    closed.attrs = WString(4, WCHAR{5});
    EXPECT_FALSE(closed.TakesComment(4));
    xTNaiveLine pair(_T("*/"));
    pair.flags = xTNaiveLine::holdsComment;
    pair.attrs = WString(2, WCHAR{5});
    EXPECT_TRUE(pair.TakesComment(2));
}

TEST_F(ModelSelfTests, ADeletionAimedAtTheEndOfALineTakesItsStart)
{
    xTNaiveLine line(_T("abc"));
    line.Delete(3, 1);
    EXPECT_EQ(ReadableText(line.text), "\"bc\"");
    xTNaiveLine toEnd(_T("abc"));
    toEnd.Delete(1, -1);
    EXPECT_EQ(ReadableText(toEnd.text), "\"a\"");
}

TEST_F(ModelSelfTests, FiveHundredCharactersFoldIntoTwoLines)
{
    Load(_T("\n"));
    Paste(WString(500, _T('x')));
    ASSERT_EQ(store.Count(), 2);
    EXPECT_EQ(store.Length(0), 462);
    EXPECT_EQ(store.Length(1), 38);
    EXPECT_EQ(editor.undoList.front().count, 501);
    EXPECT_EQ(editor.undoList.front().text[462], _T('\n'));
    editor.Undo();
    EXPECT_EQ(Text(), "\"\"");
}

TEST_F(ModelSelfTests, AFullLineTakesNothingAndTheRestIsDropped)
{
    Load(WString(462, _T('x')) + _T("\nb"));
    CaretAt(0, 0);
    Paste(_T("one\ntwo"));
    EXPECT_EQ(Text(), "\"x{462}\\nb\"");
}

TEST_F(ModelSelfTests, AJoinStopsAtItsLimitAndItsUndoBringsTheLinesBack)
{
    Load(WString(300, _T('a')) + _T("\n") + WString(300, _T('b')));
    CaretAt(0, 300);
    Delete();
    EXPECT_EQ(store.Length(0), 512);
    EXPECT_EQ(store.Length(1), 88);
    EXPECT_TRUE(editor.undoList.front().split);
    editor.Undo();
    EXPECT_EQ(Text(), "\"a{300}\\nb{300}\"");
}

TEST_F(ModelSelfTests, DeletingAtTheVeryEndAddsNoStep)
{
    Load(_T("ab"));
    CaretAt(0, 2);
    Delete();
    EXPECT_TRUE(editor.undoList.empty());
    EXPECT_EQ(Text(), "\"ab\"");
}

TEST_F(ModelSelfTests, BackspaceAtTheStartAddsNoStepButEndsTheRedoChain)
{
    Load(_T("ab"));
    Type(_T("x"));
    editor.Undo();
    ASSERT_EQ(editor.redoList.size(), 1u);
    editor.AddChar(8, false);
    EXPECT_TRUE(editor.redoList.empty());
    EXPECT_TRUE(editor.undoList.empty());
}

TEST_F(ModelSelfTests, CopyingWithTheKeysEndsTheRedoChain)
{
    Load(_T("ab"));
    Type(_T("x"));
    editor.Undo();
    editor.controlDown = editor.insertDown = true;
    editor.AddKey(45);
    EXPECT_TRUE(editor.redoList.empty());
    EXPECT_TRUE(editor.undoList.empty());
}

TEST_F(ModelSelfTests, ThreeHundredStepsAreKept)
{
    Load(_T("\n"));
    Type(WString(301, _T('x')));
    int undone = 0;
    while (editor.Undo())
        ++undone;
    EXPECT_EQ(undone, 300);
    EXPECT_EQ(Text(), "\"x\"");
}

TEST_F(ModelSelfTests, OverwritingAtALineEndInserts)
{
    Load(_T("a\nb"));
    CaretAt(0, 1);
    editor.AddChar('x', true);
    EXPECT_EQ(Text(), R"("ax\nb")");
    EXPECT_EQ(editor.undoList.front().kind, xTNaiveOperation::insertKind);
    editor.Undo();
    EXPECT_EQ(Text(), R"("a\nb")");
}

TEST_F(ModelSelfTests, ARedoneOverwriteLeavesTheOldCharacterAndMovesOn)
{
    Load(_T("abc\nd"));
    editor.AddChar('x', true);
    EXPECT_EQ(Text(), R"("xbc\nd")");
    editor.Undo();
    editor.Redo();
    EXPECT_EQ(Text(), R"("abc\nd")");
    EXPECT_EQ(store.caret, xTPos(0, 1));
}

TEST_F(ModelSelfTests, TheLastLineIsNeverOverwrittenYetTheCaretMoves)
{
    Load(_T("abc"));
    editor.AddChar('x', true);
    EXPECT_EQ(Text(), "\"abc\"");
    EXPECT_EQ(store.caret, xTPos(0, 1));
}

TEST_F(ModelSelfTests, OnlyTheNewCharacterOfAnOverwriteEndsTheMarks)
{
    Load(_T("/* a\nb"));
    CaretAt(0, 1);
    editor.AddChar('a', true);
    EXPECT_EQ(Marks(1), "#");
    CaretAt(0, 1);
    editor.AddChar('/', true);
    EXPECT_EQ(Marks(1), ".");
}

TEST_F(ModelSelfTests, EnterBehindBlanksAloneCarriesNoIndent)
{
    Load(_T("    foo"));
    CaretAt(0, 4);
    Type(_T("\r"));
    EXPECT_EQ(Text(), R"("    \nfoo")");
}

TEST_F(ModelSelfTests, EnterLeavesTheBlanksOfTheTailBehind)
{
    Load(_T("  if  x"));
    CaretAt(0, 4);
    Type(_T("\r"));
    EXPECT_EQ(Text(), R"("  if  \n  x")");
    EXPECT_EQ(editor.undoList.front().pos, xTPos(0, 6));
    editor.Undo();
    EXPECT_EQ(Text(), R"("  if  x")");
    EXPECT_EQ(store.caret, xTPos(0, 6));
}

TEST_F(ModelSelfTests, BackspaceAtColumnZeroJoinsTheLines)
{
    Load(_T("ab\nc"));
    CaretAt(1, 0);
    editor.AddChar(8, false);
    EXPECT_EQ(Text(), "\"abc\"");
    EXPECT_EQ(editor.undoList.front().text, (WString{_T('\n'), WCHAR{0}}));
    editor.Undo();
    EXPECT_EQ(Text(), R"("ab\nc")");
}

TEST_F(ModelSelfTests, ATabBecomesSpacesAndTheStepCountsThem)
{
    store.keepTabs = false;
    Load(_T("ab"));
    Type(_T("\t"));
    EXPECT_EQ(Text(), "\"    ab\"");
    EXPECT_EQ(editor.undoList.front().count, 4);
    editor.Undo();
    EXPECT_EQ(Text(), "\"ab\"");
}

TEST_F(ModelSelfTests, ASelectionThatEndsBeforeALineTakesTheBreakAboveIt)
{
    Load(_T("ab\ncd"));
    Select(xTPos(0, 0), xTPos(1, 0));
    EXPECT_EQ(store.last, xTPos(1, -1));
    EXPECT_EQ(ReadableText(store.SelectedText()), R"("ab\n")");
    Delete();
    EXPECT_EQ(Text(), "\"cd\"");
}

TEST_F(ModelSelfTests, ADeletionThatIsUsedUpByABreakLeavesTwoLines)
{
    Load(_T("ab\ncd"));
    editor.AddDelete(xTPos(0, 1), xTPos(1, -1));
    EXPECT_EQ(editor.undoList.front().count, 2);
    EXPECT_EQ(Text(), R"("a\ncd")");
}

TEST_F(ModelSelfTests, ADeletionAheadOfTheSelectionShiftsIt)
{
    Load(_T("one\ntwo\nthree"));
    Select(xTPos(2, 1), xTPos(2, 3));
    editor.AddDelete(xTPos(0, 0), xTPos(1, -1));
    EXPECT_EQ(Text(), R"("two\nthree")");
    EXPECT_EQ(store.first, xTPos(1, 1));
    EXPECT_EQ(store.last, xTPos(1, 2));
    EXPECT_EQ(store.caret, xTPos(1, 3));
}

TEST_F(ModelSelfTests, ADeletionMakesTheMarksStaleWithoutARescan)
{
    Load(_T("/*\na\n*/"));
    editor.AddDelete(xTPos(0, 0), xTPos(0, 1));
    EXPECT_FALSE(store.commentsValid);
    EXPECT_EQ(Marks(1), "#");
    store.RescanComments();
    EXPECT_EQ(Marks(1), ".");
}

TEST_F(ModelSelfTests, ABackslashEndsTheMarksWhenItComesAndNotWhenItGoes)
{
    Load(_T("\\"));
    Delete();
    EXPECT_TRUE(store.commentsValid);
    Type(_T("\\"));
    EXPECT_TRUE(store.commentsValid);  // scanned anew at the end of the insertion
}

TEST_F(ModelSelfTests, EnterInACommentTakesAwayThatTheLineBeginsInside)
{
    Load(_T("/*\nabcd\n*/"));
    ASSERT_EQ(store.lines[1].flags, xTNaiveLine::holdsComment | xTNaiveLine::startsInside);
    CaretAt(1, 2);
    Type(_T("\r"));
    EXPECT_EQ(store.lines[1].flags, xTNaiveLine::holdsComment);
    EXPECT_EQ(store.lines[2].flags, xTNaiveLine::holdsComment);
    EXPECT_EQ(Marks(2), "##");
}

TEST_F(ModelSelfTests, ABreakPointStaysOnTheHeadOfASplitLine)
{
    Load(_T("ab"));
    ASSERT_EQ(store.SetBreakPoint(0), 1);
    store.TakeSnapshot();
    Type(_T("\r"));
    EXPECT_EQ(store.lines[0].flags, xTNaiveLine::breakPoint);
    EXPECT_EQ(store.lines[0].snapshot, 0);
    EXPECT_EQ(store.lines[1].flags, 0u);
    EXPECT_EQ(store.lines[1].snapshot, -1);
    EXPECT_EQ(store.RemoveBreakPoint(0), 1);
    EXPECT_EQ(store.lines[0].flags, xTNaiveLine::breakPoint) << "an empty line keeps it";
}

TEST_F(ModelSelfTests, BreakPointsAreCountedInLineOrder)
{
    Load(_T("a\nb\nc\n\n"));
    EXPECT_EQ(store.SetBreakPoint(3), 0);
    store.SetBreakPoint(0);
    store.SetBreakPoint(2);
    EXPECT_EQ(store.BreakPointCount(), 2);
    EXPECT_EQ(store.BreakPointLine(1), 2);
    EXPECT_EQ(store.BreakPointLine(2), -1);
    EXPECT_EQ(store.BreakPointLine(-1), 0);
    EXPECT_EQ(store.RemoveBreakPoint(4), 0);
    EXPECT_EQ(store.RemoveBreakPoint(-4), 1);
}

TEST_F(ModelSelfTests, AMovedExecPointIsSweptAway)
{
    Load(_T("a\nb"));
    ASSERT_TRUE(store.SetExecPoint(1));
    CaretAt(0, 0);
    Type(_T("\r"));
    EXPECT_EQ(store.execLine, 1);
    store.ClearExecPoint();
    EXPECT_EQ(store.lines[2].flags, 0u);
    EXPECT_FALSE(store.SetExecPoint(3));
    store.SetExecPoint(0);
    EXPECT_FALSE(store.SetExecPoint(-1));
    EXPECT_EQ(store.lines[0].flags, 0u);
}

TEST_F(ModelSelfTests, AMoveWithinTheTextReselectsItsSourceWhenUndone)
{
    Load(_T("one two\nthree"));
    CaretAt(1, 5);
    editor.AddBlock(_T("one"), xTPos(0, 0), xTPos(0, 2), true);
    EXPECT_EQ(Text(), R"(" two\nthreeone")");
    EXPECT_EQ(ReadableText(store.SelectedText()), "\"one\"");
    editor.Undo();
    EXPECT_EQ(Text(), R"("one two\nthree")");
    EXPECT_EQ(ReadableText(store.SelectedText()), "\"one\"");
    EXPECT_EQ(store.first, xTPos(0, 0));
}

TEST_F(ModelSelfTests, ADroppedTextLosesItsReturnsAndIsSelected)
{
    Load(_T("ab"));
    CaretAt(0, 1);
    editor.AddBlock(_T("x\r\ny"), xTPos::none, xTPos::none, false);
    EXPECT_EQ(Text(), R"("ax\nyb")");
    EXPECT_EQ(store.first, xTPos(0, 1));
    EXPECT_EQ(store.last, xTPos(1, 0));
    editor.Undo();
    EXPECT_EQ(Text(), "\"ab\"");
}

TEST_F(ModelSelfTests, IndentingWithSpacesSelectsWholeLines)
{
    store.keepTabs = false;
    Load(_T("ab\ncd\ne"));
    Select(xTPos(0, 1), xTPos(1, 1));
    editor.AddIndent(false);
    EXPECT_EQ(Text(), R"("    ab\n    cd\ne")");
    EXPECT_EQ(store.first, xTPos(0, 0));
    EXPECT_EQ(store.last, xTPos(1, 5));
    editor.Undo();
    EXPECT_EQ(Text(), R"("ab\ncd\ne")");
    editor.Redo();
    EXPECT_EQ(Text(), R"("    ab\n    cd\ne")");
}

TEST_F(ModelSelfTests, UnindentingTakesATabBehindSpaces)
{
    Load(_T(" \tab\nc"));
    Select(xTPos(0, 0), xTPos(0, 3));
    editor.AddIndent(true);
    EXPECT_EQ(Text(), R"("ab\nc")");
}

TEST_F(ModelSelfTests, IndentingOneEmptyLineSelectsItsBlanks)
{
    store.keepTabs = false;
    Load(_T("a\n\nb"));
    CaretAt(1, 0);
    store.first = store.last = xTPos(1, 0);
    editor.AddIndent(false);
    EXPECT_EQ(Text(), R"("a\n    \nb")");
    EXPECT_EQ(store.first, xTPos(1, 0));
    EXPECT_EQ(store.last, xTPos(1, 3));
}

TEST_F(ModelSelfTests, UncommentingSparesALineWithCodeAhead)
{
    Load(_T("a // b\n  // c\nd"));
    Select(xTPos(0, 0), xTPos(1, 3));
    editor.AddComment(1);
    EXPECT_EQ(Text(), R"("a // b\n   c\nd")");
    editor.AddComment(0);
    EXPECT_EQ(Text(), R"("//a // b\n//   c\nd")");
    editor.AddComment(7);
    EXPECT_EQ(editor.undoList.size(), 2u);
}

TEST_F(ModelSelfTests, LettersChangeCaseAndComeBack)
{
    Load(_T("aЖ\nb"));
    Select(xTPos(0, 0), xTPos(0, 2));
    editor.AddCase(true);
    EXPECT_EQ(Text(), R"("A\x0416\nb")");
    editor.AddCase(false);
    EXPECT_EQ(Text(), R"("a\x0436\nb")");
    editor.Undo();
    EXPECT_EQ(Text(), R"("A\x0416\nb")");
    store.ClearSelection();
    editor.AddCase(true);
    EXPECT_EQ(editor.undoList.size(), 1u) << "without a selection there is no step";
}

TEST_F(ModelSelfTests, LettersAreRetypedOnTheNextLayout)
{
    Load(_T("ghbdtn\n"));
    Select(xTPos(0, 0), xTPos(0, 6));
    editor.AddLayout();
    EXPECT_EQ(Text(), ReadableText(_T("привет")));
    EXPECT_EQ(NativePlatform().layouts.front(), layoutRussian);
}

TEST_F(ModelSelfTests, AReplaceWithoutAMatchSelectedOnlyFindsTheNext)
{
    Load(_T("x foo\nFOO"));
    editor.AddReplace(_T("foo"), _T("bar"), false, false, false);
    EXPECT_TRUE(editor.undoList.empty());
    EXPECT_EQ(store.first, xTPos(0, 2));
    EXPECT_EQ(store.caret, xTPos(0, 5));
    editor.AddReplace(_T("foo"), _T("quux"), false, false, false);
    EXPECT_EQ(Text(), R"("x quux\nFOO")");
    EXPECT_EQ(store.first, xTPos(1, 0));
    editor.AddReplace(_T("foo"), _T("z"), false, false, false);
    EXPECT_EQ(Text(), R"("x quux\nz")");
    EXPECT_EQ(store.boxes.size(), 1u);
    editor.Undo();
    EXPECT_EQ(Text(), R"("x quux\nFOO")");
}

TEST_F(ModelSelfTests, AReplaceOfNothingInNothingGoesToTheStart)
{
    Load(_T("abc"));
    CaretAt(0, 2);
    editor.AddReplace(_T("foo"), _T("bar"), false, false, false);
    EXPECT_EQ(store.caret, xTPos(0, 0));
    EXPECT_EQ(store.first, xTPos(0, 0));
    EXPECT_EQ(store.last, xTPos(0, -1));
}

TEST_F(ModelSelfTests, AHostThatSaysNoStopsTheRoundTrip)
{
    Load(_T("foo\nx"));
    CaretAt(1, 0);
    store.goRound = false;
    editor.AddReplace(_T("foo"), _T("bar"), false, false, false);
    EXPECT_EQ(store.caret, xTPos(1, 0));
    EXPECT_FALSE(store.HasSelection());
    EXPECT_TRUE(store.boxes.empty());
}

TEST_F(ModelSelfTests, AReplaceAllIsOneStepThatGoesBackAndForth)
{
    Load(_T("a a\nb a"));
    editor.AddReplace(_T("a"), _T("ab"), true, true, false);
    EXPECT_EQ(Text(), R"("ab ab\nb ab")");
    ASSERT_EQ(store.boxes.size(), 1u);
    EXPECT_EQ(store.boxes.front().replacements, 3);
    editor.Undo();
    EXPECT_EQ(Text(), R"("a a\nb a")");
    editor.Redo();
    EXPECT_EQ(Text(), R"("ab ab\nb ab")");
}

TEST_F(ModelSelfTests, AReplaceAllThatFindsNothingStillAddsAStep)
{
    Load(_T("x"));
    editor.AddReplace(_T("a"), _T("b"), true, false, false);
    EXPECT_EQ(editor.undoList.size(), 1u);
    EXPECT_EQ(store.boxes.front().string, 119u);
}

TEST_F(ModelSelfTests, ASearchFindsCyrillicInEitherCase)
{
    Load(_T("x ПРИВЕТ"));
    bool wrapped = false;
    EXPECT_EQ(store.FindText({_T("привет"), true, true, false, true}, &wrapped), xTPos(0, 2));
    EXPECT_EQ(store.FindText({_T("привет"), true, true, true, true}, &wrapped), xTPos::none);
    EXPECT_TRUE(wrapped);
}

TEST_F(ModelSelfTests, ASearchFromBelowTheTextEnds)
{
    Load(_T("x"));
    store.SetCaretRaw(xTPos(7, 0));
    EXPECT_EQ(store.FindText({_T("a")}), xTPos::none);
    EXPECT_EQ(store.FindText({_T("a"), false}), xTPos::none);
}

TEST_F(ModelSelfTests, TheSelectionTurnsOverUpwardsAcrossItsStart)
{
    Load(_T("abcd\nefgh\nijkl"));
    CaretAt(1, 2);
    store.ExtendSelection(1);
    store.ExtendSelection(2);
    EXPECT_EQ(store.first, xTPos(0, 3));
    EXPECT_EQ(store.last, xTPos(1, 1));
}

TEST_F(ModelSelfTests, ADownwardMoveOnTheLastLineGoesToTheEnd)
{
    Load(_T("abcd"));
    CaretAt(0, 1);
    store.ExtendSelection(3);
    EXPECT_EQ(store.caret, xTPos(0, 4));
    EXPECT_EQ(store.first, xTPos(0, 1));
    EXPECT_EQ(store.last, xTPos(0, 3));
}
