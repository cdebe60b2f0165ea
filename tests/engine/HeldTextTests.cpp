#include "editing/HeldText.h"

#include "tests/support/EditingFixture.h"

#include <limits>

// A deleted block is held as the lines that it was, and comes back as those.

namespace {

class HeldText : public xTEditingFixture {
protected:
    [[nodiscard]] bool isHeld() const { return stack.undoList.front().text.IsHeld(); }
    void erase(const xTPos& from, const xTPos& behind)
    {
        store.select_range(from, behind);
        press(keyDelete);
    }
    // A line whose buffer no other string of the test has.
    void put(std::int32_t index, const CString& text)
    {
        store.lines[index] = xTExtString(text);
        store.note_change(index, index);
    }
};

TEST_F(HeldText, GoesAndComesBackWithoutACopyOfItsCharacters)
{
    given("a\nxx\ncc\nd|");
    const CString unique = S("of its own");
    put(1, unique);
    erase({0, 0}, {3, 1});
    ASSERT_TRUE(isHeld());
    EXPECT_EQ(marked(), "|");
    stack.undo();
    EXPECT_EQ(marked(), "a\\nof its own\\ncc\\nd|");
    EXPECT_TRUE(store.lines[1].m_text.SharesBufferWith(unique));
    stack.redo();
    EXPECT_EQ(marked(), "|");
    stack.undo();
    EXPECT_TRUE(store.lines[1].m_text.SharesBufferWith(unique));
}

TEST_F(HeldText, SpellsWhatTheStepRecords)
{
    given("ab\ncd\n\nef|");
    erase({0, 1}, {3, 1});
    ASSERT_TRUE(isHeld());
    EXPECT_EQ(stack.undoList.front().text.Spelt(), CString(WStrView(_T("b\ncd\n\ne\0"), 8)));
    EXPECT_EQ(stack.undoList.front().count, 7);
    stack.undo();
    stack.add_delete({0, 1}, {3, 0});
    ASSERT_TRUE(isHeld());
    EXPECT_EQ(stack.undoList.front().text.Spelt(), CString(_T("b\ncd\n\ne")));
}

TEST_F(HeldText, OfADeletedRangeComesBackToo)
{
    given("ab\ncd\n\nef|");
    stack.add_delete({0, 1}, {3, 0});
    EXPECT_EQ(line(0), "af");
    stack.undo();
    EXPECT_EQ(marked(), "ab\\ncd\\n\\ne|f");
    stack.redo();
    EXPECT_EQ(line(0), "af");
    stack.undo();
    EXPECT_EQ(marked(), "ab\\ncd\\n\\ne|f");
}

TEST_F(HeldText, LosesFlagsAndSnapshotNumbers)
{
    given("a\nb\nc|");
    store.take_snapshot();
    store.set_break_point(1);
    erase({0, 0}, {2, 1});
    ASSERT_TRUE(isHeld());
    stack.undo();
    EXPECT_FALSE(store.has_break_point(1));
    EXPECT_EQ(store.snapshot_old_line(1), -1);
}

TEST_F(HeldText, LinesThatWouldBeFoldedComeBackFolded)
{
    given("a\nb\nc|");
    put(1, Filled('x', 463));
    erase({0, 0}, {2, 1});
    ASSERT_TRUE(isHeld());
    stack.undo();
    EXPECT_FALSE(stack.redoList.front().text.IsHeld());
    EXPECT_EQ(lengths(), "1 462 1 1");
    EXPECT_EQ(stack.redoList.front().count, 468);
}

TEST_F(HeldText, TabsThatBecomeSpacesMeanwhileDoSo)
{
    given("a\n\tb\nc|");
    erase({0, 0}, {2, 1});
    ASSERT_TRUE(isHeld());
    tabs.m_keepTabs = false;
    stack.undo();
    EXPECT_EQ(line(1), "    b");
}

TEST_F(HeldText, ThatEndsFarBehindItsLastLineEndsWithThat)
{
    given("ab\ncd\nef\ngh|");
    stack.add_delete({0, 1}, {2, std::numeric_limits<std::int32_t>::max()});
    ASSERT_TRUE(isHeld());
    EXPECT_EQ(stack.undoList.front().text.Spelt(), S("b\ncd\nef"));
    stack.undo();
    EXPECT_EQ(marked(), "ab\\ncd\\nef|\\ngh");
}

TEST_F(HeldText, IsNoneWhereTabsReadAsSpaces)
{
    given("a\n\tb\nc|");
    tabs.m_keepTabs = false;
    erase({0, 0}, {2, 1});
    EXPECT_FALSE(isHeld());
    EXPECT_EQ(stack.undoList.front().count, 9) << "four spaces for one tab";
}

TEST_F(HeldText, IsNoneWhereALineHoldsALineFeedOrAZero)
{
    for (const WCHAR parting : {WCHAR{'\n'}, WCHAR{0}}) {
        given("a\nb\ncd|");
        CString line = S("bb");
        line.Insert(1, parting);
        store.lines[1] = xTExtString(line);
        erase({0, 0}, {2, 1});
        EXPECT_FALSE(isHeld());
        given("");
    }
}

// Nothing is asked of its lines when it goes: what it is shows when it is wanted back.
TEST_F(HeldText, OfAWholeTextWithALineFeedInALineComesBackAsAString)
{
    given("a\nb\nc|");
    put(1, S("b\nb"));
    erase({0, 0}, {2, 1});
    EXPECT_TRUE(isHeld());
    EXPECT_EQ(marked(), "|");
    stack.undo();
    EXPECT_FALSE(stack.redoList.front().text.IsHeld());
    EXPECT_EQ(marked(), "a\\nb\\nb\\nc|");
    stack.redo();
    EXPECT_EQ(marked(), "|");
}

TEST_F(HeldText, OfAWholeTextIsCountedWhenThatIsAskedFor)
{
    given("ab\n\ncd\n|");
    erase({0, 0}, {3, 0});
    ASSERT_TRUE(isHeld());
    EXPECT_EQ(marked(), "|");
    EXPECT_EQ(stack.undoList.front().Count(), 7);
    EXPECT_EQ(stack.undoList.front().text.Spelt(), CString(WStrView(_T("ab\n\ncd\n\0"), 8)));
    stack.undo();
    EXPECT_EQ(stack.redoList.front().count, 7);
    EXPECT_EQ(marked(), "ab\\n\\ncd\\n|");
    stack.redo();
    EXPECT_EQ(marked(), "|");
}

// The line that stays is the last one, but with the marks of the first of the empty lines that it is joined to.
TEST_F(HeldText, OfAWholeTextLeavesTheMarksThatItsDeletionLineByLineDoes)
{
    for (const std::int32_t marks : {1, 2, 3, 4}) {
        given("ab\nx\nx\nx\ncd|");
        store.take_snapshot();
        for (std::int32_t i = marks; i < 4; ++i) {
            store.lines[i].m_text.Empty();
            store.lines[i].m_attrs.Empty();
            store.note_change(i, i);
        }
        store.lines[marks].m_flags |= xTExtString::flagBreakPoint;
        erase({0, 0}, {4, 2});
        ASSERT_TRUE(isHeld());
        EXPECT_TRUE(store.has_break_point(0)) << marks;
        EXPECT_EQ(store.snapshot_old_line(0), marks);
    }
}

TEST_F(HeldText, OfAWholeTextIsLookedAtBeforeWhereALineHasBeenTooLong)
{
    given("a\n\nb\nc|");
    put(2, Filled('x', 513));
    erase({0, 0}, {3, 1});
    EXPECT_FALSE(isHeld());
    EXPECT_EQ(line(0), "c") << "the join that stops at the limit leaves one character";
    store.load_text(_T("a\nb\nc"), 1);
    erase({0, 0}, {2, 1});
    EXPECT_TRUE(isHeld());
}

TEST_F(HeldText, IsNoneWhereAJoinWouldStopAtTheLimit)
{
    given("a\n\nb\nc|");
    put(2, Filled('x', 513));
    erase({0, 1}, {3, 1});
    EXPECT_FALSE(isHeld());
    stack.undo();
    EXPECT_EQ(line(0), "a");
}

TEST_F(HeldText, ThatBeginsOnABreakIsTaken)
{
    given("ab\n\ncd\nef|");
    erase({0, 2}, {3, 1});
    EXPECT_TRUE(isHeld());
    EXPECT_EQ(marked(), "ab|f");
    stack.undo();
    EXPECT_EQ(marked(), "ab\\n\\ncd\\ne|f");
}

TEST_F(HeldText, BringsItsCommentMarksBackAndSeesThatTheyChange)
{
    given("/*\na /* b\nc */ d\ne|");
    store.rescan_comments();
    erase({0, 2}, {3, 1});
    ASSERT_TRUE(isHeld());
    store.rescan_comments();
    stack.undo();
    EXPECT_TRUE(store.lines[1].IsCommentAt(0)) << "as it began inside";
    EXPECT_TRUE(store.lines[2].IsCommentAt(3));
    EXPECT_FALSE(store.lines[2].IsCommentAt(5));
    stack.redo();
    store.lines[0] = xTExtString(S("no"));
    store.note_change(0, 0);
    stack.undo();
    EXPECT_FALSE(store.lines[1].IsCommentAt(0)) << "it begins outside now";
    EXPECT_TRUE(store.lines[1].IsCommentAt(2));
}

TEST_F(HeldText, APasteThatIsUndoneGoesAndComesBackAsLines)
{
    given("a|b");
    copy("1\nof its own\n\n2");
    press(keyPaste);
    const CString pasted = store.lines[1].m_text;
    stack.undo();
    EXPECT_EQ(marked(), "a|b");
    ASSERT_TRUE(stack.redoList.front().text.IsHeld());
    EXPECT_EQ(stack.redoList.front().text.Spelt(), S("1\nof its own\n\n2"));
    stack.redo();
    EXPECT_EQ(marked(), "a1\\nof its own\\n\\n2|b");
    EXPECT_TRUE(store.lines[1].m_text.SharesBufferWith(pasted));
    stack.undo();
    EXPECT_EQ(marked(), "a|b");
}

TEST_F(HeldText, APasteThatStandsThereNoMoreAsItCameStaysAString)
{
    given("a|b");
    copy("1\n2\n3");
    press(keyPaste);
    put(1, S("X"));
    stack.undo();
    EXPECT_FALSE(stack.redoList.front().text.IsHeld());
    EXPECT_EQ(stack.redoList.front().text.Spelt(), S("1\n2\n3"));
    tabs.m_keepTabs = false;
    copy("1\n\t\n3");
    press(keyPaste);
    stack.undo();
    EXPECT_FALSE(stack.redoList.front().text.IsHeld());
    EXPECT_EQ(stack.redoList.front().text.Spelt(), S("1\n\t\n3"));
}

TEST_F(HeldText, AnInsertedTextThatIsUndoneGoesAndComesBackAsLines)
{
    given("a|b");
    stack.add_block(S("1\nof its own\n\n2"), xTPos::none, xTPos::none, false);
    const CString inserted = store.lines[1].m_text;
    EXPECT_FALSE(isHeld());
    stack.undo();
    EXPECT_EQ(line(0), "ab");
    ASSERT_TRUE(stack.redoList.front().text.IsHeld());
    stack.redo();
    EXPECT_EQ(marked(), "a[1\\nof its own\\n\\n2]|b");
    EXPECT_TRUE(store.lines[1].m_text.SharesBufferWith(inserted));
}

TEST_F(HeldText, ABlockThatIsDraggedGoesAndComesAsLines)
{
    for (const xTPos& place : {xTPos(0, 1), xTPos(4, 2)}) {
        given("ab\ncd\nxx\nef\ngh|");
        const CString unique = S("of its own");
        put(2, unique);
        store.set_caret(place);
        stack.add_block(S("d\nof its own\ne"), {1, 1}, {3, 0}, true);
        const char* const moved = place.line == 0 ? "a[d\\nof its own\\ne]|b\\ncf\\ngh" : "ab\\ncf\\ngh[d\\nof its own\\ne]|";
        const std::int32_t at = place.line == 0 ? 1 : 3;
        EXPECT_EQ(marked(), moved);
        EXPECT_TRUE(store.lines[at].m_text.SharesBufferWith(unique));
        stack.undo();
        EXPECT_EQ(marked(), "ab\\nc[d\\nof its own\\ne]|f\\ngh");
        EXPECT_TRUE(store.lines[2].m_text.SharesBufferWith(unique));
        stack.redo();
        EXPECT_EQ(marked(), moved);
        EXPECT_TRUE(store.lines[at].m_text.SharesBufferWith(unique));
        EXPECT_EQ(stack.undoList.front().text2.Spelt(), S("d\nof its own\ne"));
    }
}

// A move from outside takes the range of an old drag away, wherever the text comes in: required.
TEST_F(HeldText, ABlockDroppedIntoTheRangeThatItTakesAwayShiftsIt)
{
    given("ab\nc|d\nef\ngh");
    stack.add_block(S("1\n2\n3"), {0, 1}, {3, 0}, true);
    EXPECT_EQ(line(0), "a") << "as many characters as the range had, counted from its start";
    EXPECT_EQ(line(1), "ef");
    EXPECT_EQ(stack.undoList.front().text2.Spelt(), S("b\ncd\nef\ng"));
}

TEST_F(HeldText, LinesBeforeAndBehindAnIndentAreKeptAsLines)
{
    given("ab\n[xx\ncd\nef]|\ngh");
    const CString unique = S("of its own");
    put(2, unique);
    stack.add_indent(false);
    const CString indented = store.lines[2].m_text;
    EXPECT_TRUE(isHeld());
    EXPECT_TRUE(stack.undoList.front().text2.IsHeld());
    stack.undo();
    EXPECT_EQ(marked(), "ab\\nxx\\nof its own\\nef\\ng|h");
    EXPECT_TRUE(store.lines[2].m_text.SharesBufferWith(unique));
    stack.redo();
    EXPECT_EQ(marked(), "ab\\n\\x0009xx\\n\\x0009of its own\\n\\x0009ef\\ng|h");
    EXPECT_TRUE(store.lines[2].m_text.SharesBufferWith(indented));
    stack.undo();
    EXPECT_EQ(marked(), "ab\\nxx\\nof its own\\nef\\ng|h");
}

TEST_F(HeldText, TheLinesBeforeAChangeOfCaseComeBackAsTheyWere)
{
    given("ab\nx[x\ncd\nef]|\ngh");
    const CString unique = S("of its own");
    put(2, unique);
    stack.add_case(true);
    EXPECT_EQ(line(2), "OF ITS OWN");
    EXPECT_TRUE(isHeld());
    stack.undo();
    EXPECT_EQ(line(2), "of its own");
    EXPECT_TRUE(store.lines[2].m_text.SharesBufferWith(unique));
}

TEST_F(HeldText, IsSharedByTheCopyOfAStack)
{
    given("a\nb\nc|");
    erase({0, 0}, {2, 1});
    ASSERT_TRUE(isHeld());
    const xTOperStack copy(stack);
    stack.undo();
    stack.redo();
    EXPECT_TRUE(copy.undoList.front().text.IsHeld());
    EXPECT_EQ(copy.undoList.front().text.Spelt(), CString(WStrView(_T("a\nb\nc\0"), 6)));
}

TEST_F(HeldText, ComesNotBackWithoutAWindowThatHasAHandle)
{
    given("a\nb\nc|");
    erase({0, 0}, {2, 1});
    window.hasHandle = false;
    stack.undo();
    EXPECT_EQ(marked(), "|");
}

}  // namespace
