// Characters, up to what the host hears of them and sees of them.

#include "tests/control/keys/KeysFixture.h"

namespace {

using namespace keys;

struct CharCase {
    const char* name;
    wchar_t ch;
    unsigned held;
    const wchar_t* before;
    const wchar_t* after;
};

std::ostream& operator<<(std::ostream& out, const CharCase& row) { return out << row.name; }

const CharCase characters[] = {
    {"ALetter", L'x', none, L"a|b", L"ax|b"},
    {"ALetterWithShift", L'X', shift, L"a|b", L"aX|b"},
    {"ALetterOverASelection", L'x', none, L"a[bc]|d", L"ax|d"},
    {"Enter", L'\r', none, L"a|b", L"a\n|b"},
    {"EnterOverASelection", L'\r', none, L"a[bc]|d", L"a\n|d"},
    {"Backspace", L'\b', none, L"ab|c", L"a|c"},
    {"BackspaceWithASelectionOnlyRemovesIt", L'\b', none, L"a[bc]|d", L"a|d"},
    {"BackspaceAtTheStart", L'\b', none, L"|ab", L"|ab"},
    {"Tab", L'\t', none, L"a|b", L"a\t|b"},
    {"TabWithShift", L'\t', shift, L"a|b", L"a|b"},
    {"TabWithASelectionOverLines", L'\t', none, L"[a\nb]|", L"[a\nb]|"},
    {"TabWithASelectionInALine", L'\t', none, L"a[b]|c", L"a\t|c"},
    {"Escape", 27, none, L"a[b]|c", L"a[b]|c"},
    {"ControlAlone", 1, ctrl, L"a|b", L"a|b"},
    {"ControlWithAnyLetter", L'x', ctrl, L"a|b", L"a|b"},
    {"ControlWithAlt", L'@', ctrl | alt, L"a|b", L"a@|b"},
};

class Typing : public testing::TestWithParam<CharCase> {};

TEST_P(Typing, DoesWhatTheCharacterMeans)
{
    const CharCase& row = GetParam();
    ControlHost host;
    const HWND control = host.Show(L"");
    GivenMarked(control, row.before);
    Type(control, row.ch, row.held);
    EXPECT_EQ(Marked(control), row.after);
}

TEST_P(Typing, IsIgnoredByAReadOnlyControl)
{
    const CharCase& row = GetParam();
    ControlHost host;
    const HWND control = host.Show(L"", readOnlyParams());
    GivenMarked(control, row.before);
    host.Forget();
    Type(control, row.ch, row.held);
    EXPECT_EQ(Marked(control), row.before);
    EXPECT_EQ(host.Count(ED_NOTIFY_CARET), 0u);
}

INSTANTIATE_TEST_SUITE_P(Each, Typing, testing::ValuesIn(characters), [](const auto& info) { return info.param.name; });

TEST_F(Keys, TypingTellsTheHostOfEachChange)
{
    given(L"ab|\nc");
    host.Forget();
    Type(control, L'x');
    ASSERT_EQ(host.Count(ED_NOTIFY_CARET), 1u);
    EXPECT_EQ(host.Of(ED_NOTIFY_CARET)[0], (ControlHost::Message{ED_NOTIFY_CARET, 1, MAKELPARAM(0, 3)}));
}

TEST_F(Keys, TypingOverASelectionIsTwoSteps)
{
    given(L"a[b]|c");
    Type(control, L'x');
    edExecCommand(control, ED_COMMAND_UNDO);
    EXPECT_EQ(TextOf(control), L"ac");
    edExecCommand(control, ED_COMMAND_UNDO);
    EXPECT_EQ(TextOf(control), L"abc");
}

TEST_F(Keys, EscapeStillScrollsTheCaretIntoView)
{
    given(manyLines(300));
    edSetCaretPosition(control, 100, 0);
    edSetScrollPosition(control, 0, -1);
    ::UpdateWindow(control);
    Type(control, 27);
    EXPECT_LE(topLine(), 100);
    EXPECT_GT(topLine(), 0);
}

TEST_F(Keys, CyrillicIsTyped)
{
    given(L"|");
    Type(control, L"Жя№");
    EXPECT_EQ(TextOf(control), L"Жя№");
}

TEST_F(Keys, TheViewFollowsTypingBeyondItsRightEdge)
{
    given(L"|");
    Type(control, std::wstring(200, L'w'));
    edPoint view{};
    edGetPosition(control, ED_POSITION_VIEWPORT, &view);
    EXPECT_GT(view.x, 0);
}

}  // namespace
