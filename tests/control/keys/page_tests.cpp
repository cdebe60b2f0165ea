// The keys that move by a page.

#include "tests/control/keys/KeysFixture.h"

namespace {

using namespace keys;

TEST_F(Keys, PagesMoveTheViewAndTheCaretAlike)
{
    given(manyLines(500));
    RECT client{};
    ::GetClientRect(control, &client);
    const int page = client.bottom / 15;
    edSetCaretPosition(control, 3, 2);
    Press(control, VK_NEXT);
    edPoint caret{};
    edGetPosition(control, ED_POSITION_CARET, &caret);
    EXPECT_EQ(topLine(), page);
    EXPECT_EQ(caret.y, 3 + page);
    EXPECT_EQ(caret.x, 2);
    Press(control, VK_PRIOR);
    edGetPosition(control, ED_POSITION_CARET, &caret);
    EXPECT_EQ(topLine(), 0);
    EXPECT_EQ(caret.y, 3);
}

TEST_F(Keys, PageDownAtTheEndOfTheScrollRangeGoesToTheEndOfTheText)
{
    given(manyLines(100));
    edSetCaretPosition(control, 90, 0);
    edSetScrollPosition(control, 99, -1);
    Press(control, VK_NEXT);
    edPoint caret{};
    edGetPosition(control, ED_POSITION_CARET, &caret);
    EXPECT_EQ(caret.y, 99);
    EXPECT_EQ(caret.x, 7);
}

TEST_F(Keys, ShiftPageDownInsideASelectionLosesItsLastCharacter)
{
    // The caret at the first of a selection that reaches beyond the page: its end is the last character, not behind it.
    given(manyLines(200));
    edSetCaretPosition(control, 150, 3);
    edSetCaretPositionAdv(control, 0, 0, ED_CARET_REDRAW | ED_CARET_FOCUS | ED_CARET_SELECT);
    edPoint before{};
    edPoint after{};
    edGetPosition(control, ED_POSITION_SELECTION_LAST, &before);
    Press(control, VK_NEXT, shift);
    edGetPosition(control, ED_POSITION_SELECTION_LAST, &after);
    EXPECT_EQ(after.y, before.y);
    EXPECT_EQ(after.x, before.x - 1);
}

}  // namespace
