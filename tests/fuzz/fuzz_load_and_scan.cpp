#include "store/MemStor.h"
#include "tests/support/NaiveComments.h"
#include "tests/support/NaiveText.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

// Any characters as a text: cutting, comment marks after the load and after a rescan, and reading it back whole are
// checked against oracles that share nothing with the store.

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

void RequireOracle(const xTMemStorage& store, const xTNaiveComments& oracle)
{
    Require(store.line_count() == static_cast<std::int32_t>(oracle.lines.size()));
    for (std::int32_t i = 0; i < store.line_count(); ++i) {
        const xTExtString& line = store.lines[i];
        const auto& expected = oracle.lines[static_cast<std::size_t>(i)];
        Require(line.m_text == WStrView(expected.text) && line.m_attrs.GetLength() == line.GetLength());
        const std::uint16_t flags = (expected.holdsComment ? xTExtString::flagHasComment : 0) |
                                    (expected.startsInside ? xTExtString::flagStartsInside : 0);
        Require(line.m_flags == flags);
        for (std::int32_t col = 0; col < line.GetLength(); ++col)
            Require(line.IsCommentAt(col) == expected.inComment[static_cast<std::size_t>(col)]);
    }
}

// Of itself the fuzzer seldom hits a delimiter or a break; this map makes them frequent.
WString TextOf(const std::uint8_t* data, std::size_t size)
{
    constexpr WStrView frequent = _T("/*\"\n\\\t");
    WString text;
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] >= 0xF8)
            text.append(450 + (data[i] & 7) * 10u, _T('x'));  // towards the limits of a line
        else if (data[i] >= 0x80)
            text += static_cast<WCHAR>(data[i] * 0x1B5);  // letters and halves of pairs
        else
            text += data[i] < 0x20 ? frequent[data[i] % frequent.size()] : static_cast<WCHAR>(data[i]);
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1 || size > 1024)
        return 0;
    const WString text = TextOf(data + 1, size - 1);
    xTTabSettings tabs;
    tabs.m_keepTabs = (data[0] & 1) != 0;
    tabs.m_tabSize = data[0] >> 4;
    xTMemStorage store(nullptr, &tabs);
    Require(store.load_text(text.c_str(), static_cast<std::int32_t>(text.size())));

    WString expanded;
    for (const WCHAR ch : text) {
        if (ch == _T('\t') && !tabs.m_keepTabs)
            expanded.append(static_cast<std::size_t>(tabs.m_tabSize), _T(' '));
        else
            expanded += ch;
    }
    const xTNaiveComments oracle(NaiveLines(expanded));
    RequireOracle(store, oracle);

    for (std::int32_t i = 0; i < store.line_count(); i += 1 + (data[0] & 7))
        store.lines[i].MarkCommentRun(i % 7, i % 11, (i & 1) != 0);
    store.note_change(0, store.line_count());
    store.comments_valid = false;
    store.rescan_comments();
    RequireOracle(store, oracle);

    std::vector<WString> lines;
    for (const auto& line : oracle.lines)
        lines.push_back(line.text);
    CString whole;
    xTPos end = store.end_pos();
    store.get_text({0, 0}, end, whole);
    Require(whole == WStrView(Joined(lines)));
    xTMemStorage copy(nullptr, nullptr);
    copy.copy_from(store);
    RequireOracle(copy, oracle);
    return 0;
}
