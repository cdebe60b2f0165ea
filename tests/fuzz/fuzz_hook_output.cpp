// A host's hook that leaves any codes, writes around the line, throws or calls back: the words of the line are those of
// the rules told character by character, and its runs cover it.

#include "appearance/AttribData.h"
#include "tests/fuzz/Require.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace {

constexpr std::size_t slackBefore = 1000, slackBehind = 16000;  // characters that the hook may spoil

/// What the bytes say: the hook's behaviour, and three bytes for each character.
struct xTInput {
    unsigned behaviour;
    xTExtString line;
    WString codes;
};

WCHAR CodeOf(std::uint8_t byte)
{
    constexpr WCHAR frequent[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 99, 100, 101, 102, 103, 104, 105, 0xFF, 0xFFFF};
    return byte < 0x80 ? frequent[byte % std::size(frequent)] : static_cast<WCHAR>(byte * 0x101);
}

xTInput Read(const std::uint8_t* data, std::size_t size)
{
    xTInput input{data[0], {}, {}};
    WString text;
    WString marks;
    for (std::size_t i = 2; i + 2 < size; i += 3) {
        text += data[i] % 4 == 0 ? _T('\t') : static_cast<WCHAR>(1 + data[i]);
        marks += static_cast<WCHAR>(1 | (data[i + 1] & 0xC));
        input.codes += CodeOf(data[i + 2]);
    }
    input.line = xTExtString(WStrView(text));
    input.line.m_flags = data[1];
    for (std::size_t i = 0; i < marks.size(); ++i)
        input.line.m_attrs.SetAt(static_cast<std::int32_t>(i), marks[i]);
    return input;
}

struct xTHost {
    const xTInput& input;
    const xTAttribData& table;
    int calls = 0;

    static void Call(void* ctx, WCHAR* text, int insideComment)
    {
        auto& host = *static_cast<xTHost*>(ctx);
        ++host.calls;
        const WString& codes = host.input.codes;
        Require(WStrView(text) == host.input.line.m_text);
        Require((insideComment == 1) == ((host.input.line.m_flags & xTExtString::flagStartsInside) != 0));
        if (host.input.behaviour & 1)
            std::fill(text - slackBefore, text + codes.size() + slackBehind, WCHAR{3});
        if (host.input.behaviour & 2) {
            const xTExtString other(WStrView(_T("another line")));
            std::vector<std::uint32_t> words(12, 0);
            host.table.ClassifyLine(other, {&xTHost::Call, ctx}, words);  // the same hook: it is not asked again
            Require(std::count(words.begin(), words.end(), 0u) == 12);
        }
        std::copy(codes.begin(), codes.end(), text);
        if (host.input.behaviour & 4)
            throw std::runtime_error("of the host");
    }
};

std::uint32_t FlagOf(WCHAR code)
{
    switch (code) {
    case 2: return ATTR_IDENTIFIER;
    case 3: return ATTR_KEYWORD;
    case 4: return ATTR_SYMBOL;
    case 5: return ATTR_STRING;
    case 6: return ATTR_NUMBER;
    case 7: return ATTR_COMMENT;
    case 8: return ATTR_STRING_SPECIAL;
    case 9: return ATTR_STRING_KEYWORD;
    case 100: return ATTR_USER1;
    case 101: return ATTR_USER2;
    case 102: return ATTR_USER3;
    case 103: return ATTR_USER4;
    case 104: return ATTR_USER5;
    default: return xTAttribData::plainWord;
    }
}

std::uint32_t WordAt(const xTInput& input, std::size_t i, bool highlight)
{
    const unsigned flags = input.line.m_flags;
    const WCHAR mark = input.line.m_attrs.view()[i];
    const bool execPoint = flags & xTExtString::flagExecPoint;
    const bool breakPoint = flags & xTExtString::flagBreakPoint;
    std::uint32_t word = (execPoint ? ATTR_EXECPOINT : 0u) | (breakPoint ? ATTR_BREAKPOINT : 0u);
    word |= mark & xTExtString::attrSelected ? ATTR_SELECTION : 0u;
    if (!highlight)
        return word;
    word |= input.behaviour & 4 ? xTAttribData::plainWord : FlagOf(input.codes[i]);
    return word | (!execPoint && !breakPoint && (mark & xTExtString::attrComment) ? ATTR_COMMENT : 0u);
}

void RequireRuns(const xTExtString& line, const std::vector<std::uint32_t>& words)
{
    WString all;
    for (std::int32_t i = 0; i < line.GetLength();) {
        const std::int32_t first = i;
        xTExtString run;
        xTAttribData::CollectRun(line, i, words, run);
        Require(i > first && i <= line.GetLength() && run.GetLength() == i - first);
        for (std::int32_t k = first; k < i; ++k)
            Require(words[static_cast<std::size_t>(k)] == words[static_cast<std::size_t>(first)]);
        const auto tabs = std::count(run.m_text.view().begin(), run.m_text.view().end(), _T('\t'));
        Require(tabs == 0 || tabs == run.GetLength());
        all += run.m_text.view();
    }
    Require(line.m_text == WStrView(all));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const xTInput input = Read(data, size);
    xTAttribData table;
    table.m_highlight = (input.behaviour & 8) == 0;
    xTHost host{input, table};
    std::vector<std::uint32_t> words(input.codes.size(), 0);
    for (int again = 0; again < 2; ++again) {  // a call that failed leaves the next one as good as ever
        std::fill(words.begin(), words.end(), 0u);
        table.ClassifyLine(input.line, {&xTHost::Call, &host}, words);
        for (std::size_t i = 0; i < words.size(); ++i)
            Require(words[i] == WordAt(input, i, table.m_highlight));
    }
    Require(host.calls == (table.m_highlight && !words.empty() ? 2 : 0));
    RequireRuns(input.line, words);
    return 0;
}
