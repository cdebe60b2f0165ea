#include "tests/support/RunLength.h"
#include "tests/support/model/Comparison.h"
#include "tests/support/model/Shrink.h"

#include <gtest/gtest.h>


// Every sequence of two commands out of forty on twelve texts, three with SCRIV_FULL=1, each gone back and forth.

namespace {

constexpr std::size_t longest = 510;

xTCommand Of(std::string_view name, xTCommand arguments = {})
{
    arguments.verb = CommandRow(name);
    return arguments;
}

const xTHistory& Commands()
{
    static const xTHistory commands = {
        Of("add_char", {.number = '*'}),
        Of("add_char", {.number = '/'}),
        Of("add_char", {.number = 'a', .flags = 1}),
        Of("add_char", {.number = '*', .flags = 1}),
        Of("add_char", {.number = 8}),
        Of("add_char", {.number = 9}),
        Of("add_char", {.number = 13}),
        Of("add_char", {.number = '\\'}),
        Of("add_key", {.number = 46}),
        Of("add_key", {.number = 0x1001, .text = _T("a\r\n*/\t")}),
        Of("add_key", {.number = 0x1001, .text = WString(300, _T('p'))}),
        Of("add_key", {.number = 45, .flags = keyControl | keyInsert}),
        Of("add_block", {.from = xTPos::none, .to = xTPos::none, .text = _T("/*\n\"")}),
        Of("add_block", {.flags = 1, .from = {0, 0}, .to = {0, 1}, .text = _T("mv")}),
        Of("add_block", {.flags = 1, .from = {0, 1}, .to = {1, -1}, .text = _T("mv\n")}),
        Of("add_delete", {.from = {0, 1}, .to = {1, 0}}),
        Of("add_case", {.flags = 1}),
        Of("add_case"),
        Of("add_layout"),
        Of("add_indent"),
        Of("add_indent", {.flags = 1}),
        Of("add_comment"),
        Of("add_comment", {.number = 1}),
        Of("add_replace", {.text = _T("a"), .other = _T("bA")}),
        Of("add_replace", {.flags = replaceEach, .text = _T("a"), .other = _T("*/")}),
        Of("add_replace", {.flags = replaceEach | replaceWholeWord, .text = _T("/"), .other = {}}),
        Of("undo"),
        Of("redo"),
        Of("set_caret", {.from = {0, 1}}),
        Of("set_caret", {.from = {1, 0}}),
        Of("set_caret", {.from = {0, 9999}}),
        Of("set_caret", {.from = {2, 9999}}),
        Of("select_range", {.from = {0, 0}, .to = {1, 0}}),
        Of("select_range", {.from = {0, 9}, .to = {0, 1}}),
        Of("extend_selection", {.number = 1}),
        Of("extend_selection", {.number = 3}),
        Of("extend_selection", {.number = 0}),
        Of("set_break_point", {.number = 1}),
        Of("keep_tabs"),
        Of("paint"),
    };
    return commands;
}

const WString texts[] = {
    {},
    _T("\n"),
    _T("a"),
    _T("a\nb"),
    _T("\n\n\n"),
    _T("/* a */ b\nc /* d\ne\n*/ f"),
    _T("/*\na\nb\n*/\n"),
    _T("\"/*\" // a /*\n  a \"*/\"\n\t//a\n"),
    _T("  \ta  b\n\t\tA a\n   \n"),
    _T("Привет a\nпривет A\n"),
    WString(longest, _T('w')) + _T("\n") + WString(300, _T('a')) + _T("\nend"),
    WString(461, _T('w')) + _T("\n\tq\\\n") + WString(462, _T('*')),
};

std::string RunOn(const WString& text, const xTHistory& commands)
{
    xTHistory history = {Of("load_text", {.text = text})};
    history.insert(history.end(), commands.begin(), commands.end());
    const std::string found = RunHistory(history);
    return found.empty() ? found : found + "\n" + Readable(history);
}

class ShortHistories : public testing::TestWithParam<std::size_t> {};

}  // namespace

TEST_P(ShortHistories, EverySequenceEndsAsInTheModel)
{
    ASSERT_EQ(Commands().size(), 40u);
    for (const xTCommand& first : Commands()) {
        for (const xTCommand& second : Commands()) {
            const std::string found = RunOn(texts[GetParam()], {first, second});
            ASSERT_EQ(found, "");
        }
    }
}

TEST_P(ShortHistories, EverySequenceOfThreeEndsAsInTheModel)
{
    if (!IsFullRun())
        GTEST_SKIP() << "SCRIV_FULL=1 runs it";
    for (const xTCommand& first : Commands()) {
        for (const xTCommand& second : Commands()) {
            for (const xTCommand& third : Commands()) {
                const std::string found = RunOn(texts[GetParam()], {first, second, third});
                ASSERT_EQ(found, "");
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(OnTwelveTexts, ShortHistories, testing::Range<std::size_t>(0, std::size(texts)));
static_assert(std::size(texts) == 12);
