#include "tests/support/DecoderComparison.h"

#include "tests/support/NaiveDecoder.h"
#include "zsl/byte_order_mark.h"
#include "zsl/line_ends.h"
#include "zsl/text_decoder.h"
#include "zsl/text_encoder.h"

using namespace zsl;

namespace {

// The file that the text makes in the encoding it was found in; "?" when it cannot be made.
std::string FileAgain(const decoded_text& decoded)
{
    std::string bytes(decoded.encoding.found_mark() ? mark_of(decoded.encoding.stored_as()) : "");
    WString text;
    if (decoded.encoding.has_crlf())
        append_crlf(decoded.text, text);
    else
        text = decoded.text;
    return append_encoded(text, decoded.encoding.stored_as(), bytes) ? bytes : "?";
}

}  // namespace

unsigned NumberOf(const text_encoding& encoding)
{
    return encoding.is_default() ? text_encoding::defaultValue : static_cast<unsigned>(encoding.charset());
}

std::string DecoderDifference(std::string_view bytes, const text_encoding& asked)
{
    const auto decoded = decode_text(bytes, asked);
    const auto naive = NaiveDecode(bytes, NumberOf(asked));
    if (decoded.has_value() != naive.has_value())
        return decoded ? "taken, but to be refused" : "refused, but to be taken";
    if (!decoded)
        return {};
    if (decoded->text != naive->text)
        return "another text";
    if (NumberOf(decoded->encoding) != naive->charset)
        return "another encoding";
    if (decoded->encoding.has_mark() != naive->mark || decoded->encoding.has_crlf() != naive->crlf)
        return "another mark or other line ends";
    return FileAgain(*decoded) == bytes ? "" : "another file when it is written again";
}
