#include "zsl/text_decoder.h"

namespace zsl {

std::optional<decoded_text> decode_text(std::string_view bytes, const text_encoding& asked, std::size_t limit)
{
    std::optional<text_pieces> pieces = text_pieces::of(bytes, asked, limit);
    if (!pieces)
        return std::nullopt;
    return decoded_text{pieces->rest(), pieces->encoding()};
}

}  // namespace zsl
