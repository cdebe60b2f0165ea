#include "tests/control/files/NaiveFile.h"

#include <windows.h>

namespace {

void AppendUtf8(std::string& bytes, unsigned code)
{
    if (code < 0x80) {
        bytes += static_cast<char>(code);
        return;
    }
    const int more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    const unsigned lead[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += static_cast<char>(lead[more] | code >> 6 * more);
    for (int i = more - 1; i >= 0; --i)
        bytes += static_cast<char>(0x80 | (code >> 6 * i & 0x3F));
}

std::string Utf8Of(const std::wstring& text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned unit = text[i];
        const unsigned next = i + 1 < text.size() ? text[i + 1] : 0u;
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        if (high && next >= 0xDC00 && next < 0xE000) {
            AppendUtf8(bytes, 0x10000 + (unit - 0xD800) * 0x400 + (next - 0xDC00));
            ++i;
        } else {
            AppendUtf8(bytes, unit >= 0xD800 && unit < 0xE000 ? 0xFFFD : unit);
        }
    }
    return bytes;
}

std::string Utf16Of(const std::wstring& text, bool big)
{
    std::string bytes;
    for (const wchar_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        bytes += big ? high : low;
        bytes += big ? low : high;
    }
    return bytes;
}

std::string EightBitOf(const std::wstring& text, int code)
{
    std::string bytes(text.size(), '\0');
    ::WideCharToMultiByte(code == oem ? CP_OEMCP : CP_ACP, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

std::string Encoded(const std::wstring& text, int code)
{
    switch (code) {
    case ansi:
    case oem: return EightBitOf(text, code);
    case le:
    case be: return Utf16Of(text, code == be);
    default: return Utf8Of(text);
    }
}

}  // namespace

std::wstring EightBitText(std::string_view bytes, int code)
{
    std::wstring text(bytes.size(), L'\0');
    ::MultiByteToWideChar(code == oem ? CP_OEMCP : CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                          static_cast<int>(text.size()));
    return text;
}

std::wstring AsLoaded(const std::wstring& text)
{
    constexpr std::size_t longest = 512;
    std::wstring lines;
    std::size_t length = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        lines += text[i];
        length = text[i] == L'\n' ? 0 : length + 1;
        // A line feed that follows ends this line; only more characters begin the next one.
        if (length == longest && i + 1 < text.size() && text[i + 1] != L'\n') {
            lines += L'\n';
            length = 0;
        }
    }
    if (!lines.empty() && lines.back() != L'\n')
        lines += L'\n';
    if (lines.size() > 1)
        lines.pop_back();
    return lines;
}

std::wstring AsSaved(const std::wstring& text)
{
    return text == L"\n" ? std::wstring() : AsLoaded(text);
}

std::string FileOf(const std::wstring& text, int code, bool mark, bool crlf)
{
    std::wstring wide = mark ? L"\xFEFF" : L"";
    for (const wchar_t ch : text) {
        if (ch == L'\n' && crlf)
            wide += L'\r';
        wide += ch;
    }
    return Encoded(wide, code);
}
