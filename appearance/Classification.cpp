#include "appearance/AttribData.h"

#include "appearance/HookCall.h"
#include "diagnostics/Guarded.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

struct xTClassRow {
    WCHAR code;
    std::uint32_t flag;
};

// What the host's hook writes for a character, and what it means.
constexpr xTClassRow classRows[] = {
    {2, ATTR_IDENTIFIER}, {3, ATTR_KEYWORD},        {4, ATTR_SYMBOL},         {5, ATTR_STRING}, {6, ATTR_NUMBER},
    {7, ATTR_COMMENT},    {8, ATTR_STRING_SPECIAL}, {9, ATTR_STRING_KEYWORD}, {100, ATTR_USER1}, {101, ATTR_USER2},
    {102, ATTR_USER3},    {103, ATTR_USER4},        {104, ATTR_USER5},
};
constexpr std::size_t codeCount = 105;

constexpr auto flagOfCode = [] {
    std::array<std::uint32_t, codeCount> flags{};
    flags.fill(xTAttribData::plainWord);
    for (const xTClassRow& row : classRows)
        flags[row.code] = row.flag;
    return flags;
}();

constexpr std::uint32_t FlagOf(WCHAR code) noexcept
{
    return code < codeCount ? flagOfCode[code] : xTAttribData::plainWord;
}

bool MarkAll(std::uint32_t flag, std::span<std::uint32_t> attrs) noexcept
{
    for (std::uint32_t& word : attrs)
        word |= flag;
    return !attrs.empty();
}

bool MarkSelected(WStrView marks, std::span<std::uint32_t> attrs) noexcept
{
    bool marked = false;
    const std::size_t count = std::min(marks.size(), attrs.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (marks[i] & xTExtString::attrSelected) {
            attrs[i] |= ATTR_SELECTION;
            marked = true;
        }
    }
    return marked;
}

}  // namespace

bool xTAttribData::MarkLineAttrs(const xTExtString& str, std::uint32_t flag, std::span<std::uint32_t> attrs)
{
    switch (flag) {
    case ATTR_EXECPOINT: return (str.m_flags & xTExtString::flagExecPoint) && MarkAll(flag, attrs);
    case ATTR_BREAKPOINT: return (str.m_flags & xTExtString::flagBreakPoint) && MarkAll(flag, attrs);
    case ATTR_SELECTION: return MarkSelected(str.m_attrs, attrs);
    case ATTR_COMMENT: return str.CommentMask(attrs.data(), static_cast<std::int32_t>(attrs.size()));
    default: return false;
    }
}

void xTAttribData::ClassifyLine(const xTExtString& str, const xTHighlightHook& hook,
                                std::span<std::uint32_t> attrs) const
{
    const WStrView text = str.m_text.view().substr(0, attrs.size());
    attrs = attrs.first(text.size());
    if (attrs.empty())
        return;
    const bool execPoint = MarkLineAttrs(str, ATTR_EXECPOINT, attrs);
    const bool breakPoint = MarkLineAttrs(str, ATTR_BREAKPOINT, attrs);
    MarkLineAttrs(str, ATTR_SELECTION, attrs);
    if (!m_highlight)
        return;
    // A line that is classified from inside the hook itself, measured for a host that asks where the caret is, is plain.
    if (hook.fn && !xTHookCall::IsRunning(hook))
        AskHook(text, hook, (str.m_flags & xTExtString::flagStartsInside) != 0, attrs);
    // A line with a break point or the execution point does not show its comments: kept on purpose.
    if (!execPoint && !breakPoint)
        MarkLineAttrs(str, ATTR_COMMENT, attrs);
}

// The hook is the host's code: it may throw, write past the line, and call back into the control, so that another line
// is classified meanwhile. That one then gets a buffer of its own. A line without an answer is plain.
void xTAttribData::AskHook(WStrView text, const xTHighlightHook& hook, bool insideComment,
                           std::span<std::uint32_t> attrs) const
{
    xTHookBuffer buffer = std::exchange(m_hookBuffer, {});
    const WCHAR* const codes = Guarded<const WCHAR*>(nullptr, [&] {
        WCHAR* const copy = buffer.Fill(text);
        const xTHookCall call(hook);
        hook.fn(hook.ctx, copy, insideComment ? 1 : 0);
        return copy;
    });
    for (std::size_t i = 0; i < attrs.size(); ++i)
        attrs[i] |= codes ? FlagOf(codes[i]) : plainWord;
    m_hookBuffer = std::move(buffer);
}

std::int32_t xTAttribData::RunEnd(WStrView text, std::int32_t i, std::span<const std::uint32_t> attrs) noexcept
{
    const auto limit = static_cast<std::int32_t>(std::min(text.size(), attrs.size()));
    if (i < 0 || i >= limit)
        return i;
    const std::uint32_t word = attrs[i];
    const bool tabs = text[i] == _T('\t');
    std::int32_t end = i + 1;
    while (end < limit && attrs[end] == word && (text[end] == _T('\t')) == tabs)
        ++end;
    return end;
}

void xTAttribData::CollectRun(const xTExtString& str, std::int32_t& i, std::span<const std::uint32_t> attrs,
                              xTExtString& run)
{
    const std::int32_t end = RunEnd(str.m_text, i, attrs);
    run = xTExtString(str.m_text.Mid(i, end - i));
    i = end;
}
