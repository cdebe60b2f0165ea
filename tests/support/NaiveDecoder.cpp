#include "tests/support/NaiveDecoder.h"

#include "framework/base/Platform.h"


namespace {

constexpr unsigned ansi = 1, oem = 2, utf8 = 4, utf16le = 5, utf16be = 6;

unsigned At(std::string_view bytes, std::size_t place)
{
    return place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0x100;
}

// By the arithmetic of the form itself: decode, then see whether the shortest form was used.
std::optional<WString> FromUtf8(std::string_view bytes)
{
    WString text;
    for (std::size_t i = 0; i < bytes.size();) {
        const unsigned lead = At(bytes, i);
        int more = 0;
        unsigned code = lead;
        if (lead >= 0x80) {
            if (lead < 0xc0 || lead > 0xf7)
                return std::nullopt;
            more = lead < 0xe0 ? 1 : lead < 0xf0 ? 2 : 3;
            code = lead & (0x3fu >> more);
        }
        for (int k = 1; k <= more; ++k) {
            const unsigned next = At(bytes, i + static_cast<unsigned>(k));
            if (next < 0x80 || next > 0xbf)
                return std::nullopt;
            code = code * 64 + (next - 0x80);
        }
        const unsigned least[] = {0, 0x80, 0x800, 0x10000};
        if (code < least[more] || code > 0x10ffff || (code >= 0xd800 && code <= 0xdfff))
            return std::nullopt;
        if (code >= 0x10000) {
            text.push_back(static_cast<WCHAR>(0xd800 + (code - 0x10000) / 0x400));
            text.push_back(static_cast<WCHAR>(0xdc00 + (code - 0x10000) % 0x400));
        } else {
            text.push_back(static_cast<WCHAR>(code));
        }
        i += static_cast<std::size_t>(more) + 1;
    }
    return text;
}

std::optional<WString> FromUtf16(std::string_view bytes, bool big)
{
    if (bytes.size() % 2 != 0)
        return std::nullopt;
    WString text;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const unsigned low = At(bytes, big ? i + 1 : i);
        const unsigned high = At(bytes, big ? i : i + 1);
        text.push_back(static_cast<WCHAR>(high * 256 + low));
    }
    return text;
}

std::optional<WString> From8Bit(std::string_view bytes, unsigned charset)
{
    WString text;
    for (const char byte : bytes) {
        WString one;
        if (!PlatformToWide(charset == oem ? xTCodePage::oem : xTCodePage::ansi, std::string_view(&byte, 1), one))
            return std::nullopt;
        text += one;
    }
    return text;
}

bool AllAscii(std::string_view bytes)
{
    for (const char byte : bytes) {
        if (static_cast<unsigned char>(byte) > 127)
            return false;
    }
    return true;
}

std::optional<WString> Decode(std::string_view bytes, unsigned asked, unsigned& charset, bool& mark)
{
    charset = asked;
    mark = true;
    if (bytes.empty()) {
        mark = asked == utf16le || asked == utf16be;  // the mark that a text would get
        return WString();
    }
    const bool little = At(bytes, 0) == 0xff && At(bytes, 1) == 0xfe;
    const bool big = At(bytes, 0) == 0xfe && At(bytes, 1) == 0xff;
    if (little || big) {
        charset = big ? utf16be : utf16le;
        return FromUtf16(bytes.substr(2), big);
    }
    if (At(bytes, 0) == 0xef && At(bytes, 1) == 0xbb && At(bytes, 2) == 0xbf) {
        charset = utf8;
        if (auto text = FromUtf8(bytes.substr(3)))
            return text;
    }
    mark = false;
    charset = asked;
    if (asked == utf16le || asked == utf16be)
        return FromUtf16(bytes, asked == utf16be);
    if (auto text = FromUtf8(bytes)) {
        charset = AllAscii(bytes) ? asked : utf8;
        return text;
    }
    charset = asked == oem ? oem : ansi;
    return From8Bit(bytes, charset);
}

}  // namespace

std::optional<xTNaiveText> NaiveDecode(std::string_view bytes, unsigned asked)
{
    xTNaiveText result;
    const auto text = Decode(bytes, asked, result.charset, result.mark);
    if (!text)
        return std::nullopt;
    bool feeds = false;
    bool others = false;
    for (std::size_t i = 0; i < text->size(); ++i) {
        const WCHAR ch = (*text)[i];
        const WCHAR before = i > 0 ? (*text)[i - 1] : WCHAR{};
        const WCHAR behind = i + 1 < text->size() ? (*text)[i + 1] : WCHAR{};
        if (ch == 0)
            return std::nullopt;
        feeds = feeds || ch == 10;
        others = others || (ch == 10 && before != 13) || (ch == 13 && behind != 10);
    }
    result.crlf = feeds && !others;
    for (const WCHAR ch : *text) {
        if (!result.crlf || ch != 13)
            result.text.push_back(ch);
    }
    return result;
}
