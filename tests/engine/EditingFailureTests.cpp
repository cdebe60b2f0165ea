#include "tests/support/EditingFixture.h"
#include "tests/support/FailingNew.h"
#include "tests/support/LogFile.h"

#include <functional>

namespace {

// A scene is brought about, then an action runs with its n-th allocation failing, for every n until none fails.
struct xTScene {
    const char* name;
    std::string given;
    std::function<void(xTMemStorage&, xTOperStack&)> action;
};

void PrintTo(const xTScene& scene, std::ostream* stream)
{
    *stream << scene.name;
}

CString Text(std::string_view text)
{
    return CString(WString(text.begin(), text.end()));
}

std::string LongText()
{
    std::string text;
    for (int i = 0; i < 40; ++i)
        text += "line /* " + std::to_string(i) + " */\n";
    return text + std::string(1000, 'x');
}

class FailingMemory : public xTEditingFixture, public testing::WithParamInterface<xTScene> {
protected:
    void SetUp() override
    {
        mayLoseWords = true;  // told so of a string that runs out of memory in the middle of an insertion
        tabs.m_keepTabs = false;
    }

    // The scene with all in order. What the last run left is freed.
    void Prepare()
    {
        stack.clear_undo();
        stack.clear_redo();
        given(GetParam().given);
        copy(LongText());
    }

    // Undo and redo, whatever the steps hold, leave the store whole.
    void WalkHistory()
    {
        for (int i = 0; i < 4; ++i)
            stack.undo();
        EXPECT_EQ(Faults(), "");
        for (int i = 0; i < 4; ++i)
            stack.redo();
        EXPECT_EQ(Faults(), "");
    }

    // Runs the scene for every n. Returns how many allocations it makes.
    int RunAll(xTFailingNew::xTHowLong howLong)
    {
        int n = 0;
        for (int failures = 1; failures > 0 && n < 5000; ++n) {
            Prepare();
            {
                const xTFailingNew failing(n, howLong);
                GetParam().action(store, stack);
                failures = xTFailingNew::Failures();
            }
            EXPECT_EQ(Faults(), "") << "with failure " << n;
            WalkHistory();
            if (HasFailure())
                return n;
        }
        return n;
    }

    xTLogFile log;
};

TEST_P(FailingMemory, OnceLeavesTheStoreWholeAndTheStepsUsable)
{
    const int made = RunAll(xTFailingNew::xTHowLong::once);
    EXPECT_GT(made, 1) << "the scene makes no allocation at all";
    EXPECT_LT(made, 5000);
}

TEST_P(FailingMemory, FromThenOnLeavesTheStoreWholeAndTheStepsUsable)
{
    EXPECT_LT(RunAll(xTFailingNew::xTHowLong::fromThenOn), 5000);
}

// Text whose words were lost in an earlier failure does not end any operation early.
TEST_P(FailingMemory, WorksOnLinesWithoutTheirWords)
{
    Prepare();
    for (std::int32_t i = 0; i < store.line_count(); ++i)
        store.lines[i].m_attrs = store.lines[i].m_attrs.Left(1);
    GetParam().action(store, stack);
    EXPECT_EQ(Faults(), "");
    WalkHistory();
}

constexpr const char* threeLines = "one /* two\nth[r\tee\nfour */ fi]|ve\nsix\n";

// Made before anything fails: a failure of its own making must not be taken for one of the scene.
const CString blockText = Text("ef\ngh");
const xTSearchRequest replaceOne{Text("AB"), Text("xyz"), xTSearchRequest::replace};
const xTSearchRequest replaceEach{Text("ab"), Text("xyz"), xTSearchRequest::replaceAll};
const xTSearchRequest removeEach{Text("ab"), CString(), xTSearchRequest::replaceAll};

const xTScene scenes[] = {
    {"Typing", "a|b\nc", [](auto&, auto& stack) { stack.add_char('x', false); }},
    {"TypingATab", "a|b\nc", [](auto&, auto& stack) { stack.add_char('\t', false); }},
    {"Overwriting", "a|b\nc", [](auto&, auto& stack) { stack.add_char('/', true); }},
    {"Backspace", "ab\n|c", [](auto&, auto& stack) { stack.add_char(8, false); }},
    {"Enter", "  ab|  c\nd", [](auto&, auto& stack) { stack.add_char(13, false); }},
    {"DeleteCharacter", "a|b\nc", [](auto&, auto& stack) { stack.add_key(46); }},
    {"DeleteSelection", threeLines, [](auto&, auto& stack) { stack.add_key(46); }},
    {"Paste", "ab|cd\nef", [](auto&, auto& stack) { stack.add_key(0x1001); }},
    {"DeleteRange", threeLines, [](auto&, auto& stack) { stack.add_delete({0, 1}, {2, 0}); }},
    {"MoveABlock", "ab|c\ndef\nghi",
     [](auto&, auto& stack) { stack.add_block(blockText, {1, 1}, {2, 1}, true); }},
    {"ChangeCase", threeLines, [](auto&, auto& stack) { stack.add_case(true); }},
    {"SwitchLayout", threeLines, [](auto&, auto& stack) { stack.add_layout(); }},
    {"Indent", threeLines, [](auto&, auto& stack) { stack.add_indent(false); }},
    {"Unindent", "[  ab\n\tc]|\nd", [](auto&, auto& stack) { stack.add_indent(true); }},
    {"Comment", threeLines, [](auto&, auto& stack) { stack.add_comment(0); }},
    {"Uncomment", "[//ab\n //c]|\nd", [](auto&, auto& stack) { stack.add_comment(1); }},
    {"Replace", "[ab]| ab", [](auto&, auto& stack) { stack.add_replace(replaceOne); }},
    {"ReplaceAll", "ab |ab\nab ab", [](auto&, auto& stack) { stack.add_replace(replaceEach); }},
    {"ReplaceAllByNothing", "ab |ab\nab ab", [](auto&, auto& stack) { stack.add_replace(removeEach); }},
    {"UndoAndRedo", threeLines,
     [](auto&, auto& stack) {
         stack.add_key(46);
         stack.add_char('x', false);
         stack.undo();
         stack.undo();
         stack.redo();
     }},
    {"CopyOfAStack", "ab|",
     [](auto&, auto& stack) {
         stack.add_char('x', false);
         const xTOperStack copy(stack);
     }},
    {"Search", "ab |ab",
     [](auto& store, auto& stack) {
         stack.add_char('x', false);
         static_cast<void>(store.find_text(store.lines[0].m_text, true, true, false, false));
     }},
    {"ExtendSelection", "ab\n|cd",
     [](auto& store, auto& stack) {
         for (int direction = 0; direction < 4; ++direction)
             store.extend_selection(direction);
         stack.add_char('x', false);
     }},
    {"StoppedJoin", std::string(300, 'a') + "|\n" + std::string(301, 'b'),
     [](auto&, auto& stack) { stack.add_key(46); }},
};

INSTANTIATE_TEST_SUITE_P(Scenes, FailingMemory, testing::ValuesIn(scenes),
                         [](const auto& info) { return std::string(info.param.name); });

class Failures : public xTEditingFixture {
protected:
    [[nodiscard]] std::string text() const
    {
        std::string all = line(0);
        for (std::int32_t i = 1; i < store.line_count(); ++i)
            all += "\n" + line(i);
        return all;
    }

    xTLogFile log;
};

TEST_F(Failures, AStepThatCannotBeBuiltLeavesTheRedoList)
{
    given("|");
    type("a");
    stack.undo();
    {
        const xTFailingNew failing(0);
        stack.add_char('x', false);
    }
    EXPECT_TRUE(stack.can_redo());
    EXPECT_NE(log.Bytes().find("Out of memory"), std::string::npos) << log.Bytes();
}

// The one match in front of the start would be come round to for ever.
TEST_F(Failures, ReplaceAllEndsAtAMatchThatThereIsNoMemoryFor)
{
    for (int n = 0; n < 40; ++n) {
        stack.clear_undo();
        given("ab\n|ab ab");
        {
            const xTFailingNew failing(n, xTFailingNew::xTHowLong::fromThenOn);
            stack.add_replace(replaceEach);
        }
        stack.undo();
        EXPECT_EQ(line(0) + "\n" + line(1), "ab\nab ab") << "with memory out from " << n << " on";
        EXPECT_LE(log.Records().size(), 2u * static_cast<unsigned>(n + 1)) << log.Bytes();
    }
}

// What memory was too short for the first time comes back the next time: the step still has all of it.
TEST_F(Failures, LinesThatCouldNotBePutBackComeBackTheNextTime)
{
    const std::function<void()> edits[] = {[&] { press(keyDelete); }, [&] { stack.add_delete({0, 1}, {4, 0}); }};
    constexpr const char* text = "a[1\nb2\n/* c3\nd4\ne5]|6";
    for (const auto& edit : edits) {
        for (int n = 0; n < 40; ++n) {
            stack.clear_undo();
            given(text);
            edit();
            {
                const xTFailingNew failing(n, xTFailingNew::xTHowLong::fromThenOn);
                stack.undo();
            }
            stack.redo();
            stack.undo();
            EXPECT_EQ(lengths(), "2 2 5 2 3") << "edit " << &edit - edits << ", with memory out from " << n << " on";
        }
    }
}

// Of a block that is changed both the old and the new text are kept. One that cannot be had must not cost the other.
TEST_F(Failures, ABlockThatWasChangedCanBeUndoneWhereverMemoryHasFailed)
{
    const std::function<void(xTOperStack&)> changes[] = {
        [](auto& s) { s.add_case(true); },      [](auto& s) { s.add_layout(); },   [](auto& s) { s.add_indent(true); },
        [](auto& s) { s.add_indent(false); },   [](auto& s) { s.add_comment(0); }, [](auto& s) { s.add_comment(1); },
    };
    const std::string before = "  ab\n  //cd\n  //ef\ngh";
    for (const auto& change : changes) {
        given("  ab\n  //[cd\n  //]|ef\ngh");
        change(stack);
        const std::string whole = text();
        for (int n = 0, failures = 1; failures > 0; ++n) {
            stack.clear_undo();
            given("  ab\n  //[cd\n  //]|ef\ngh");
            {
                const xTFailingNew failing(n);
                change(stack);
                failures = xTFailingNew::Failures();
            }
            const std::string changed = text();
            stack.undo();
            EXPECT_EQ(text(), before) << n << " of change " << &change - changes;
            stack.redo();
            EXPECT_TRUE(text() == changed || text() == whole) << text() << n << " of change " << &change - changes;
        }
    }
}

// A tab for whose blanks there is no memory stays a tab, and the text behind it still comes in.
TEST_F(Failures, TabsThatCannotBecomeBlanksStayAndAreUndone)
{
    tabs.m_keepTabs = false;
    const CString inserted = S("12\n3\t4\n5\t");
    for (int n = 0, failures = 1; failures > 0; ++n) {
        stack.clear_undo();
        given("ab|cd");
        {
            const xTFailingNew failing(n);
            stack.add_block(inserted, xTPos::none, xTPos::none, false);
            failures = xTFailingNew::Failures();
        }
        stack.undo();
        std::string left = text();  // undo leaves the break that an insertion ends with, whatever the memory: required
        std::erase(left, '\n');
        EXPECT_EQ(left, "abcd") << n;
    }
}

TEST_F(Failures, AFailedEditIsKeptAsAStep)
{
    given("[ab]|");
    store.selection.last = {3, 0};  // the text ends before it
    stack.add_case(true);
    EXPECT_EQ(line(0), "AB");
    EXPECT_TRUE(stack.can_undo());
    EXPECT_NE(log.Bytes().find("operations.cpp"), std::string::npos) << log.Bytes();
}

TEST_F(Failures, ARejoinWithoutANextLineIsReportedOnce)
{
    given("ab");
    insert({0, 1}, "x", true);
    EXPECT_EQ(line(0), "axb");
    EXPECT_EQ(log.Records().size(), 1u) << log.Bytes();
    EXPECT_NE(log.Bytes().find("MemStorOpers.cpp"), std::string::npos) << log.Bytes();
}

TEST_F(Failures, EnterFromBehindTheEndOfALineChangesNothingAndIsNoFault)
{
    given("  ab\ncd");
    store.set_caret_raw({0, 9});
    type("\n");
    EXPECT_EQ(marked().find("  ab"), 0u);
    EXPECT_EQ(line(1), "cd");
    EXPECT_TRUE(log.Records().empty()) << log.Bytes();
}

TEST_F(Failures, AHeldClipboardIsReported)
{
    given("|");
    NativePlatform().clipboardRefusals = 10;
    press(keyPaste);
    EXPECT_NE(log.Bytes().find("can't open clipboard"), std::string::npos) << log.Bytes();
}

}  // namespace
