// Any bytes read as a file in any encoding, and its text loaded: the text is that of the plain reader and makes the same
// bytes again, and the lines, their comment marks and what is read out of them are those of oracles that share nothing
// with the store.

#include "store/MemStor.h"
#include "tests/fuzz/Require.h"
#include "tests/support/DecoderComparison.h"
#include "tests/support/NaiveComments.h"
#include "tests/support/NaiveText.h"
#include "zsl/text_decoder.h"
#include "zsl/text_encoder.h"

#include <cstdint>
#include <vector>

using namespace zsl;

namespace {

// The pieces that a stream writes are cut at the same places in all encodings; here they are cut at random.
void RequireSameInPieces(const decoded_text& decoded, std::size_t piece)
{
    std::string whole;
    Require(append_encoded(decoded.text, decoded.encoding.stored_as(), whole));
    std::string bytes;
    for (WStrView rest = decoded.text; !rest.empty();) {
        std::size_t count = std::min(piece, rest.size());
        if (count < rest.size() && (rest[count - 1] & 0xfc00) == 0xd800)
            ++count;
        Require(append_encoded(rest.substr(0, count), decoded.encoding.stored_as(), bytes));
        rest.remove_prefix(count);
    }
    Require(bytes == whole);
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
    constexpr std::size_t enough = 2500;  // the oracle is slow
    constexpr WStrView frequent = _T("/*\"\n\\\t");
    WString text;
    for (std::size_t i = 0; i < size && text.size() < enough; ++i) {
        if (data[i] >= 0xF8)
            text.append(450 + (data[i] & 7) * 10u, _T('x'));  // towards the limits of a line
        else if (data[i] >= 0x80)
            text += static_cast<WCHAR>(data[i] * 0x1B5);  // letters and halves of pairs
        else
            text += data[i] < 0x20 ? frequent[data[i] % frequent.size()] : static_cast<WCHAR>(data[i]);
    }
    return text;
}

void RequireLoads(const WString& text, unsigned choices)
{
    xTTabSettings tabs;
    tabs.m_keepTabs = (choices & 1) != 0;
    tabs.m_tabSize = choices >> 4;
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

    for (std::int32_t i = 0; i < store.line_count(); i += 1 + (choices & 7))
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
}

// The bytes of a file behind two that say how it is read.
void ReadAFile(const std::uint8_t* data, std::size_t size)
{
    const text_encoding asked = encoding_of_code(data[0] % 7);
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);
    Require(DecoderDifference(bytes, asked).empty());
    const auto decoded = decode_text(bytes, asked);
    Require(!decoded || !decode_text(bytes, asked, 0).has_value() || decoded->text.empty());
    if (!decoded)
        return;
    RequireSameInPieces(*decoded, 1 + data[1] % 64u);
    RequireLoads(decoded->text, data[1]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr unsigned asCharacters = 0x80;
    if (size < 2 || size > 1024)
        return 0;
    if (data[0] & asCharacters)
        RequireLoads(TextOf(data + 2, size - 2), data[1]);
    else
        ReadAFile(data, size);
    return 0;
}
