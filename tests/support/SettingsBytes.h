#pragma once

#include "appearance/AttribData.h"

#include <vector>

/// A settings block put together byte by byte from the format's description: little endian, no padding.
class xTSettingsBytes {
public:
    static constexpr std::uint32_t magic = 0x13042005;

    xTSettingsBytes& Byte(unsigned value)
    {
        m_bytes.push_back(static_cast<std::uint8_t>(value));
        return *this;
    }
    xTSettingsBytes& Number(std::uint32_t value)
    {
        for (int shift = 0; shift < 32; shift += 8)
            Byte(value >> shift & 0xFF);
        return *this;
    }
    xTSettingsBytes& Entry(bool bold, bool italic, bool underline, COLORREF color, std::uint32_t flag)
    {
        return Byte(bold).Byte(italic).Byte(underline).Number(color).Number(flag);
    }
    xTSettingsBytes& Font(std::int32_t height, std::int32_t width, WStrView face);
    xTSettingsBytes& Tail(bool keepTabs, std::int32_t tabSize)
    {
        return Byte(keepTabs).Number(static_cast<std::uint32_t>(tabSize));
    }

    [[nodiscard]] std::vector<std::uint8_t>& bytes() noexcept { return m_bytes; }
    [[nodiscard]] xTSettingsBlock Block() noexcept { return {m_bytes.data(), static_cast<std::uint32_t>(m_bytes.size())}; }

    /// The block of theme 1 with "Courier New" of 13 pixels, tabs kept, width 4: 266 bytes.
    [[nodiscard]] static xTSettingsBytes Golden();

private:
    std::vector<std::uint8_t> m_bytes;
};

inline xTSettingsBytes& xTSettingsBytes::Font(std::int32_t height, std::int32_t width, WStrView face)
{
    Number(static_cast<std::uint32_t>(height)).Number(static_cast<std::uint32_t>(width));
    Number(0).Number(0).Number(400);
    Byte(0).Byte(0).Byte(0).Byte(1).Byte(7).Byte(0).Byte(0).Byte(0);
    Number(static_cast<std::uint32_t>(face.size()));
    for (const WCHAR ch : face)
        Byte(ch & 0xFF).Byte(ch >> 8);
    return *this;
}

inline xTSettingsBytes xTSettingsBytes::Golden()
{
    xTSettingsBytes block;
    block.Number(magic).Number(18).Byte(1);
    block.Entry(false, false, false, 0xFFFFFF, 2).Entry(false, false, false, 0x000000, 4);
    block.Entry(false, false, false, 0xFF0000, 8).Entry(false, false, false, 0x808080, 16);
    block.Entry(false, false, false, 0xC0C0C0, 32).Entry(false, false, false, 0x0000FF, 64);
    block.Entry(false, false, false, 0x00FF00, 128).Entry(false, false, false, 0x0000FF, 256);
    block.Entry(false, false, false, 0x008000, 512).Entry(false, false, false, 0xFF00FF, 1024);
    block.Entry(false, false, false, 0x808000, 2048).Entry(true, false, false, 0x808000, 4096);
    block.Entry(true, false, true, 0x808000, 8192);
    for (std::uint32_t user = 65536; user <= 1048576; user *= 2)
        block.Entry(false, false, false, 0x008000, user);
    block.Font(-13, 0, _T("Courier New")).Tail(true, 4);
    return block;
}
