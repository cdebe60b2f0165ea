#include "appearance/AttribData.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <stdexcept>
#include <vector>

namespace {

using xTWords = std::vector<std::uint32_t>;

struct xTTestHook {
    std::function<void(WCHAR*, int)> body;
    int calls = 0;
    int insideComment = -1;
    [[nodiscard]] xTHighlightHook hook() { return {&xTTestHook::Call, this}; }

    static void Call(void* ctx, WCHAR* text, int inside)
    {
        auto* self = static_cast<xTTestHook*>(ctx);
        ++self->calls;
        self->insideComment = inside;
        if (self->body)
            self->body(text, inside);
    }
};

xTExtString Line(WStrView text, std::uint16_t flags = 0)
{
    xTExtString line(text);
    line.m_flags = flags;
    return line;
}

// Sets mark bits on the characters [from, to).
void Mark(xTExtString& line, WCHAR bit, std::int32_t from, std::int32_t to)
{
    for (std::int32_t i = from; i < to; ++i)
        line.m_attrs.SetAt(i, static_cast<WCHAR>(line.m_attrs.GetAt(i) | bit));
}

class Classification : public testing::Test {
protected:
    xTWords Classify(const xTExtString& line, const xTHighlightHook& hook = {}, std::int32_t count = -1,
                     std::uint32_t start = 6)
    {
        xTWords words(static_cast<std::size_t>(count < 0 ? line.GetLength() : count), start);
        table.ClassifyLine(line, hook, words);
        return words;
    }

    xTAttribData table;
    xTTestHook host;
};

TEST_F(Classification, EachCodeMapsToItsFlagAndAnyOtherToPlain)
{
    const std::vector<std::pair<unsigned, std::uint32_t>> known = {
        {2, 512}, {3, 8}, {4, 1024}, {5, 2048}, {6, 256}, {7, 16}, {8, 4096}, {9, 8192},
        {100, 65536}, {101, 131072}, {102, 262144}, {103, 524288}, {104, 1048576}};
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        std::uint32_t flag = 6;
        for (const auto& [value, itsFlag] : known)
            if (value == code)
                flag = itsFlag;
        host.body = [&](WCHAR* text, int) { text[0] = static_cast<WCHAR>(code); };
        ASSERT_EQ(Classify(Line(_T("x")), host.hook(), -1, 0)[0], flag) << code;
    }
}

TEST_F(Classification, ACharacterThatTheHookLeavesIsReadAsACode)
{
    // 'd' is 100, the first user class; 'x' is none.
    EXPECT_EQ(Classify(Line(_T("dx")), host.hook()), (xTWords{6 | ATTR_USER1, 6}));
}

TEST_F(Classification, TheHookGetsATerminatedCopyOfWhatIsAskedForAndItsContext)
{
    const xTExtString line = Line(_T("abcdef"));
    WString seen;
    host.body = [&](WCHAR* text, int) {
        seen = text;
        text[0] = 3;
    };
    Classify(line, host.hook(), 4);
    EXPECT_EQ(seen, _T("abcd"));
    EXPECT_EQ(line.m_text, _T("abcdef"));
    EXPECT_EQ(host.calls, 1);
}

TEST_F(Classification, TheHookLearnsWhetherTheLineBeginsInAComment)
{
    Classify(Line(_T("a"), xTExtString::flagStartsInside), host.hook());
    EXPECT_EQ(host.insideComment, 1);
    Classify(Line(_T("a"), xTExtString::flagHasComment | xTExtString::flagBreakPoint), host.hook());
    EXPECT_EQ(host.insideComment, 0);
}

TEST_F(Classification, AnEmptyLineAsksNobody)
{
    EXPECT_TRUE(Classify(Line(_T(""), xTExtString::flagBreakPoint), host.hook()).empty());
    EXPECT_TRUE(Classify(Line(_T("abc")), host.hook(), 0).empty());
    EXPECT_EQ(host.calls, 0);
}

TEST_F(Classification, MoreWordsThanCharactersStayAsTheyAre)
{
    EXPECT_EQ(Classify(Line(_T("ab"), xTExtString::flagBreakPoint), {}, 4), (xTWords{6 | 64, 6 | 64, 6, 6}));
}

TEST_F(Classification, MarksOfTheLineCoverAllItsCharacters)
{
    EXPECT_EQ(Classify(Line(_T("ab"), xTExtString::flagBreakPoint)), (xTWords{6 | 64, 6 | 64}));
    EXPECT_EQ(Classify(Line(_T("ab"), xTExtString::flagExecPoint)), (xTWords{6 | 128, 6 | 128}));
    EXPECT_EQ(Classify(Line(_T("a"), xTExtString::flagExecPoint | xTExtString::flagBreakPoint)), (xTWords{6 | 64 | 128}));
}

TEST_F(Classification, SelectionMarksItsCharacters)
{
    xTExtString line = Line(_T("abc"));
    Mark(line, xTExtString::attrSelected, 1, 2);
    EXPECT_EQ(Classify(line), (xTWords{6, 6 | 32, 6}));
}

TEST_F(Classification, WithANullHookCommentsStillShow)
{
    xTExtString line = Line(_T("abc"), xTExtString::flagHasComment);
    Mark(line, xTExtString::attrComment, 0, 2);
    EXPECT_EQ(Classify(line), (xTWords{6 | 16, 6 | 16, 6}));
}

TEST_F(Classification, WithHighlightingOffACommentIsPlainAndTheHookSilentButMarksShow)
{
    table.m_highlight = false;
    xTExtString line = Line(_T("abc"), xTExtString::flagHasComment | xTExtString::flagBreakPoint | xTExtString::flagExecPoint);
    Mark(line, xTExtString::attrComment, 0, 3);
    Mark(line, xTExtString::attrSelected, 2, 3);
    EXPECT_EQ(Classify(line, host.hook()), (xTWords{6 | 192, 6 | 192, 6 | 192 | 32}));
    EXPECT_EQ(host.calls, 0);
}

TEST_F(Classification, ALineWithABreakPointDoesNotShowItsComment)
{
    for (const std::uint16_t flag : {xTExtString::flagBreakPoint, xTExtString::flagExecPoint}) {
        xTExtString line = Line(_T("ab"), static_cast<std::uint16_t>(flag | xTExtString::flagHasComment));
        Mark(line, xTExtString::attrComment, 0, 2);
        host.body = [](WCHAR* text, int) { text[0] = text[1] = 3; };
        const std::uint32_t mark = flag == xTExtString::flagBreakPoint ? 64 : 128;
        EXPECT_EQ(Classify(line, host.hook()), (xTWords{6 | 8 | mark, 6 | 8 | mark}));
        EXPECT_TRUE(line.IsCommentAt(0));  // the marks stay on the line
    }
}

TEST_F(Classification, OnlyTheClassesAddFlagsToWordsThatStartAsNull)
{
    xTExtString line = Line(_T("abc"), xTExtString::flagHasComment);
    Mark(line, xTExtString::attrComment, 0, 1);
    EXPECT_EQ(Classify(line, {}, 3, 0), (xTWords{16, 0, 0}));
    host.body = [](WCHAR* text, int) { text[0] = 1; text[1] = 2; text[2] = 0; };
    EXPECT_EQ(Classify(line, host.hook(), 3, 0), (xTWords{16 | 6, 512, 6}));
}

TEST_F(Classification, AHookThatThrowsLeavesThePlainLine)
{
    xTExtString line = Line(_T("abc"), xTExtString::flagHasComment);
    Mark(line, xTExtString::attrComment, 2, 3);
    host.body = [](WCHAR* text, int) {
        text[0] = 3;
        throw std::runtime_error("host");
    };
    EXPECT_EQ(Classify(line, host.hook(), 3, 0), (xTWords{6, 6, 6 | 16}));
    host.body = [](WCHAR*, int) { throw 1; };
    EXPECT_EQ(Classify(line, host.hook(), 3, 0), (xTWords{6, 6, 6 | 16}));
    host.body = [](WCHAR* text, int) { text[0] = text[1] = text[2] = 3; };
    EXPECT_EQ(Classify(line, host.hook(), 3, 0), (xTWords{8, 8, 8 | 16}));  // and the next call is as good as ever
}

TEST_F(Classification, AHookMayWriteFarPastTheLineAndBeforeIt)
{
    const xTExtString line = Line(_T("abc"));
    host.body = [](WCHAR* text, int) {
        std::fill(text - 2000, text + 16000, WCHAR{3});
    };
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Classify(line, host.hook()), (xTWords{14, 14, 14}));
    EXPECT_EQ(line.m_text, _T("abc"));
}

TEST_F(Classification, AVeryLongLineHasItsSlackToo)
{
    const WString text(100000, _T('a'));
    host.body = [&](WCHAR* copy, int) { std::fill(copy, copy + text.size() + 16000, WCHAR{3}); };
    const xTWords words = Classify(Line(text), host.hook());
    EXPECT_EQ(std::count(words.begin(), words.end(), 14u), 100000);
}

TEST_F(Classification, AHookMayHaveAnotherLineClassifiedMeanwhile)
{
    xTTestHook inner;
    inner.body = [](WCHAR* text, int) { text[0] = 5; };
    xTWords innerWords;
    host.body = [&](WCHAR* text, int) {
        text[0] = 3;
        innerWords = Classify(Line(_T("y")), inner.hook());
        EXPECT_EQ(text[0], 3);
        text[1] = 2;
    };
    EXPECT_EQ(Classify(Line(_T("ab")), host.hook()), (xTWords{6 | 8, 6 | 512}));
    EXPECT_EQ(innerWords, (xTWords{6 | 2048}));
    EXPECT_EQ(Classify(Line(_T("ab")), host.hook()), (xTWords{6 | 8, 6 | 512}));
}

TEST_F(Classification, MarkingPassesTellWhetherTheyMarked)
{
    xTExtString line = Line(_T("ab"), xTExtString::flagHasComment);
    xTWords words(2, 0);
    EXPECT_FALSE(xTAttribData::MarkLineAttrs(line, ATTR_EXECPOINT, words));
    EXPECT_FALSE(xTAttribData::MarkLineAttrs(line, ATTR_BREAKPOINT, words));
    EXPECT_FALSE(xTAttribData::MarkLineAttrs(line, ATTR_SELECTION, words));
    EXPECT_FALSE(xTAttribData::MarkLineAttrs(line, ATTR_COMMENT, words));
    EXPECT_FALSE(xTAttribData::MarkLineAttrs(line, ATTR_KEYWORD, words));
    Mark(line, xTExtString::attrComment, 1, 2);
    Mark(line, xTExtString::attrSelected, 0, 1);
    line.m_flags |= xTExtString::flagExecPoint;
    EXPECT_TRUE(xTAttribData::MarkLineAttrs(line, ATTR_COMMENT, words));
    EXPECT_TRUE(xTAttribData::MarkLineAttrs(line, ATTR_SELECTION, words));
    EXPECT_TRUE(xTAttribData::MarkLineAttrs(line, ATTR_EXECPOINT, words));
    EXPECT_EQ(words, (xTWords{32 | 128, 16 | 128}));
}

// Runs

std::vector<CString> RunsOf(WStrView text, const xTWords& words)
{
    const xTExtString line{text};
    std::vector<CString> runs;
    std::int32_t i = 0;
    while (i < static_cast<std::int32_t>(words.size())) {
        xTExtString run;
        const std::int32_t first = i;
        xTAttribData::CollectRun(line, i, words, run);
        EXPECT_EQ(run.m_text, CString(text).Mid(first, i - first));
        EXPECT_EQ(run.m_attrs, CString(WCHAR{1}, i - first));
        if (i == first)
            break;
        runs.push_back(run.m_text);
    }
    return runs;
}

TEST(Runs, HoldOneWordAndAllTabsOrNone)
{
    EXPECT_EQ(RunsOf(_T("ab\t\tc\td"), xTWords(7, 6)),
              (std::vector<CString>{_T("ab"), _T("\t\t"), _T("c"), _T("\t"), _T("d")}));
    EXPECT_EQ(RunsOf(_T("abcd"), {6, 6, 8, 8}), (std::vector<CString>{_T("ab"), _T("cd")}));
    EXPECT_EQ(RunsOf(_T("\t\t\t"), {6, 38, 38}), (std::vector<CString>{_T("\t"), _T("\t\t")}));
}

TEST(Runs, EndWithTheWordsOrTheText)
{
    EXPECT_EQ(RunsOf(_T("abcd"), {6, 6}), (std::vector<CString>{_T("ab")}));
    EXPECT_EQ(xTAttribData::RunEnd(_T("ab"), 0, xTWords(9, 6)), 2);
    EXPECT_EQ(xTAttribData::RunEnd(_T("ab"), 2, xTWords(9, 6)), 2);
    EXPECT_EQ(xTAttribData::RunEnd(_T("ab"), 1, {}), 1);
    EXPECT_EQ(xTAttribData::RunEnd(_T("ab"), -1, xTWords(2, 6)), -1);
}

// The rules character by character, as they are told: what the fast ones are held against.
std::int32_t NaiveRunEnd(WStrView text, std::int32_t i, const xTWords& words)
{
    const std::uint32_t word = words[i];
    WString run;
    while (i < static_cast<std::int32_t>(words.size()) && i < static_cast<std::int32_t>(text.size()) && words[i] == word) {
        if (text[i] != _T('\t')) {
            run += text[i++];
            continue;
        }
        if (!run.empty())
            return i;
        while (i < static_cast<std::int32_t>(words.size()) && words[i] == word && text[i] == _T('\t'))
            ++i;
        return i;
    }
    return i;
}

xTWords NaiveWords(const xTExtString& line, const WString& codes, bool highlight, std::uint32_t start)
{
    xTWords words(line.GetLength(), start);
    const bool exec = line.m_flags & 16;
    const bool breakPoint = line.m_flags & 2;
    for (std::int32_t i = 0; i < line.GetLength(); ++i) {
        words[i] |= (exec ? 128u : 0u) | (breakPoint ? 64u : 0u) | (line.m_attrs.GetAt(i) & 8 ? 32u : 0u);
        if (!highlight)
            continue;
        switch (codes[i]) {
        case 2: words[i] |= 512; break;
        case 3: words[i] |= 8; break;
        case 104: words[i] |= 1048576; break;
        default: words[i] |= 6; break;
        }
        if (!exec && !breakPoint && (line.m_attrs.GetAt(i) & 4))
            words[i] |= 16;
    }
    return words;
}

TEST(ClassificationModel, RandomLinesAgreeWithTheRulesCharacterByCharacter)
{
    std::mt19937 random(20050413);
    const auto pick = [&](auto... options) {
        const WCHAR all[] = {static_cast<WCHAR>(options)...};
        return all[random() % sizeof...(options)];
    };
    for (int round = 0; round < 5000; ++round) {
        WString text;
        WString codes;
        for (std::size_t i = 0, n = random() % 40; i < n; ++i) {
            text += pick('a', 'b', '\t', ' ');
            codes += pick(0, 2, 3, 104, 65535);
        }
        xTExtString line = Line(text, static_cast<std::uint16_t>(random() % 64));
        for (std::int32_t i = 0; i < line.GetLength(); ++i)
            Mark(line, pick(0, 4, 8, 12), i, i + 1);
        xTTestHook host;
        host.body = [&](WCHAR* to, int) { std::copy(codes.begin(), codes.end(), to); };
        xTAttribData table;
        table.m_highlight = random() % 4 != 0;
        const std::uint32_t start = random() % 2 ? 6 : 0;
        xTWords words(line.GetLength(), start);
        table.ClassifyLine(line, host.hook(), words);
        ASSERT_EQ(words, NaiveWords(line, codes, table.m_highlight, start)) << "round " << round;
        for (std::int32_t i = 0; i < line.GetLength();) {
            const std::int32_t end = xTAttribData::RunEnd(text, i, words);
            ASSERT_EQ(end, NaiveRunEnd(text, i, words)) << "round " << round;
            ASSERT_GT(end, i);
            i = end;
        }
    }
}

}  // namespace
