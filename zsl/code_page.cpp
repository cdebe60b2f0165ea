#include "zsl/code_page.h"

#include <algorithm>

namespace zsl {
namespace {

constexpr std::size_t maxSystemText = std::size_t{1} << 30;  // the system counts in signed 32 bits

}  // namespace

const code_page& code_page::of(xTCodePage page)
{
    static const code_page ansi(xTCodePage::ansi);
    static const code_page oem(xTCodePage::oem);
    return page == xTCodePage::oem ? oem : ansi;
}

code_page::code_page(xTCodePage page) : m_page(page), m_byte(0x10000)
{
    if (!fill_tables())
        m_byte.clear();
}

// False when a byte is no character by itself, or two are the same one.
bool code_page::fill_tables()
{
    WString wide;
    for (std::size_t value = 0; value < m_wide.size(); ++value) {
        const char byte = static_cast<char>(value);
        wide.clear();
        if (!PlatformToWide(m_page, {&byte, 1}, wide) || wide.size() != 1)
            return false;
        m_wide[value] = wide[0];
        char& place = m_byte[wide[0]];
        if (place != 0 || (wide[0] == 0) != (value == 0))
            return false;
        place = byte;
    }
    return true;
}

std::size_t code_page::whole(std::string_view bytes, std::size_t most) const noexcept
{
    if (bytes.size() <= most || !m_byte.empty())
        return std::min(bytes.size(), most);
    // A line feed is never the second byte of a character in any code page that a system runs with.
    const std::size_t feed = bytes.find('\n', most);
    return feed == bytes.npos ? bytes.size() : feed + 1;
}

bool code_page::append_wide(std::string_view bytes, WString& text) const
{
    if (m_byte.empty())
        return system_append_wide(bytes, text);
    constexpr std::size_t room = 8192;
    WCHAR piece[room];
    while (!bytes.empty()) {
        const std::size_t count = std::min(bytes.size(), room);
        for (std::size_t i = 0; i < count; ++i)
            piece[i] = m_wide[static_cast<unsigned char>(bytes[i])];
        text.append(piece, count);
        bytes.remove_prefix(count);
    }
    return true;
}

bool code_page::append_bytes(WStrView text, std::string& bytes) const
{
    if (m_byte.empty())
        return system_append_bytes(text, bytes);
    const std::size_t before = bytes.size();
    bytes.resize(before + text.size());
    char* out = bytes.data() + before;
    bool held = true;
    for (const WCHAR ch : text) {
        *out = m_byte[ch];
        held = held && (*out != 0 || ch == 0);
        ++out;
    }
    return held;
}

bool code_page::system_append_wide(std::string_view bytes, WString& text) const
{
    if (bytes.empty())
        return true;
    WString wide;
    std::string back;
    if (bytes.size() > maxSystemText || !PlatformToWide(m_page, bytes, wide)
        || !PlatformToBytes(m_page, wide, false, back) || back != bytes)
        return false;
    text += wide;
    return true;
}

bool code_page::system_append_bytes(WStrView text, std::string& bytes) const
{
    if (text.empty())
        return true;
    std::string narrow;
    WString back;
    if (!PlatformToBytes(m_page, text, false, narrow) || !PlatformToWide(m_page, narrow, back) || back != text)
        return false;
    bytes += narrow;
    return true;
}

}  // namespace zsl
