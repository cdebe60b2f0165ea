// Any bytes read as a file in any encoding: the text is that of the plain reader, and it writes the same bytes again.

#include "tests/support/NaiveDecoder.h"
#include "zsl/byte_order_mark.h"
#include "zsl/line_ends.h"
#include "zsl/text_decoder.h"
#include "zsl/text_encoder.h"

#include <cstdint>
#include <cstdlib>

using namespace zsl;

namespace {

void must(bool holds)
{
    if (!holds)
        std::abort();
}

unsigned number_of(const text_encoding& encoding)
{
    return encoding.is_default() ? text_encoding::defaultValue : static_cast<unsigned>(encoding.charset());
}

// The pieces that a stream writes are cut at the same places in all encodings; here they are cut at random.
std::string file_again(const decoded_text& decoded, std::size_t piece)
{
    std::string bytes(decoded.encoding.found_mark() ? mark_of(decoded.encoding.stored_as()) : "");
    WString text = decoded.text;
    if (decoded.encoding.has_crlf()) {
        text.clear();
        append_crlf(decoded.text, text);
    }
    for (WStrView rest = text; !rest.empty();) {
        std::size_t count = std::min(piece, rest.size());
        if (count < rest.size() && (rest[count - 1] & 0xfc00) == 0xd800)
            ++count;
        must(append_encoded(rest.substr(0, count), decoded.encoding.stored_as(), bytes));
        rest.remove_prefix(count);
    }
    return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const text_encoding asked = encoding_of_code(data[0] % 7);
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);

    const auto decoded = decode_text(bytes, asked);
    const auto naive = NaiveDecode(bytes, number_of(asked));
    must(decoded.has_value() == naive.has_value());
    if (!decoded)
        return 0;
    must(decoded->text == naive->text);
    must(number_of(decoded->encoding) == naive->charset);
    must(decoded->encoding.has_mark() == naive->mark);
    must(decoded->encoding.has_crlf() == naive->crlf);
    must(file_again(*decoded, 1 + data[1] % 64u) == bytes);
    must(!decode_text(bytes, asked, 0).has_value() || naive->text.empty());
    return 0;
}
