#include "editing/HeldText.h"

#include "tests/support/EditingFixture.h"

#include <limits>

// A deleted block is held as the lines that it was, and comes back as those.

namespace {

class HeldText : public xTEditingFixture {
protected:
    [[nodiscard]] bool isHeld() const { return stack.undoList.front().held != nullptr; }
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
    EXPECT_EQ(stack.undoList.front().Text(), CString(WStrView(_T("b\ncd\n\ne\0"), 8)));
    EXPECT_EQ(stack.undoList.front().count, 7);
    stack.undo();
    stack.add_delete({0, 1}, {3, 0});
    ASSERT_TRUE(isHeld());
    EXPECT_EQ(stack.undoList.front().Text(), CString(_T("b\ncd\n\ne")));
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
    EXPECT_FALSE(stack.redoList.front().held);
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
    EXPECT_EQ(stack.undoList.front().Text(), S("b\ncd\nef"));
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
        given("a\nb\nc|");
        CString line = S("bb");
        line.Insert(1, parting);
        store.lines[1] = xTExtString(line);
        erase({0, 0}, {2, 1});
        EXPECT_FALSE(isHeld());
        given("");
    }
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
    ASSERT_TRUE(stack.redoList.front().held);
    EXPECT_EQ(stack.redoList.front().Text(), S("1\nof its own\n\n2"));
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
    EXPECT_FALSE(stack.redoList.front().held);
    EXPECT_EQ(stack.redoList.front().text, S("1\n2\n3"));
    tabs.m_keepTabs = false;
    copy("1\n\t\n3");
    press(keyPaste);
    stack.undo();
    EXPECT_FALSE(stack.redoList.front().held);
    EXPECT_EQ(stack.redoList.front().text, S("1\n\t\n3"));
}

TEST_F(HeldText, IsSpeltInTheCopyOfAStack)
{
    given("a\nb\nc|");
    erase({0, 0}, {2, 1});
    ASSERT_TRUE(isHeld());
    const xTOperStack copy(stack);
    EXPECT_FALSE(copy.undoList.front().held);
    EXPECT_EQ(copy.undoList.front().text, CString(WStrView(_T("a\nb\nc\0"), 6)));
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
