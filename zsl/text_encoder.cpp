#include "zsl/text_encoder.h"

#include "zsl/code_page.h"
#include "zsl/utf16.h"
#include "zsl/utf8.h"

namespace zsl {

bool append_encoded(WStrView text, E_CharSet storedAs, std::string& bytes)
{
    switch (storedAs) {
    case E_CharSet::utf8:
        append_utf8(text, bytes);
        return true;
    case E_CharSet::utf16le:
    case E_CharSet::utf16be:
        append_utf16(text, byte_order_of(storedAs), bytes);
        return true;
    default:
        return code_page::of(code_page_of(storedAs)).append_bytes(text, bytes);
    }
}

}  // namespace zsl
