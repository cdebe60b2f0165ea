#include "appearance/AttribData.h"

#include "appearance/LastBlock.h"
#include "appearance/Themes.h"

#include <algorithm>
#include <atomic>
#include <iterator>

namespace {

std::atomic<int> livingTables{0};

constexpr LONG maxFontPixels = 1000;
constexpr std::int32_t maxLayoutTab = 256;
constexpr LONG weightNormal = 400;
constexpr LONG weightBold = 700;

}  // namespace

const COLORREF xTAttribData::m_palette[16] = {
    0x000000, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
    0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0x808080, 0xC0C0C0,
};

xTAttribData::xTAttribData() noexcept
{
    livingTables.fetch_add(1);
}

xTAttribData::~xTAttribData()
{
    if (livingTables.fetch_sub(1) == 1)
        ReleaseLastBlock();
}

int xTAttribData::LivingTables() noexcept
{
    return livingTables.load();
}

COLORREF xTAttribData::ColorIndexToRef(int number) noexcept
{
    constexpr COLORREF white = 0xFFFFFF;
    return number >= 1 && number <= static_cast<int>(std::size(m_palette)) ? m_palette[number - 1] : white;
}

int xTAttribData::ColorRefToIndex(COLORREF color) noexcept
{
    const auto* found = std::find(std::begin(m_palette), std::end(m_palette), color);
    return found == std::end(m_palette) ? 0 : static_cast<int>(found - m_palette) + 1;
}

std::int32_t xTAttribData::FindEntry(std::uint32_t flag) const noexcept
{
    for (std::int32_t i = 0; i < m_count; ++i)
        if (m_flags[i] == flag)
            return i;
    return -1;
}

void xTAttribData::SetAttrColor(std::uint32_t flag, int number) noexcept
{
    const std::int32_t entry = FindEntry(flag);
    if (entry >= 0 && number >= 1 && number <= static_cast<int>(std::size(m_palette)))
        m_colors[entry] = m_palette[number - 1];
}

std::int32_t xTAttribData::LayoutTabSize() const noexcept
{
    return std::clamp(m_tabSize, 1, maxLayoutTab);
}

void xTAttribData::GetAttrFont(std::uint32_t flag, LOGFONTW* out) const noexcept
{
    if (!out)
        return;
    *out = m_logFont;
    const std::int32_t entry = FindEntry(flag);
    if (entry < 0)
        return;
    out->lfWeight = m_bold[entry] ? weightBold : weightNormal;
    out->lfItalic = m_italic[entry];
    out->lfUnderline = m_underline[entry];
}

DWORD xTAttribData::EntryStyle(std::int32_t entry) const noexcept
{
    return (m_italic[entry] ? FONT_ITALIC : 0) | (m_bold[entry] ? FONT_BOLD : 0)
         | (m_underline[entry] ? FONT_UNDERLINE : 0);
}

LOGFONTW xTAttribData::UsableFont(LOGFONTW lf) noexcept
{
    lf.lfHeight = std::clamp(lf.lfHeight, -maxFontPixels, maxFontPixels);
    lf.lfWidth = std::clamp(lf.lfWidth, -maxFontPixels, maxFontPixels);
    lf.lfFaceName[std::size(lf.lfFaceName) - 1] = 0;
    return lf;
}

DWORD xTAttribData::FontKey(const LOGFONTW& lf) noexcept
{
    return (lf.lfItalic ? FONT_ITALIC : 0) | (lf.lfWeight == weightBold ? FONT_BOLD : 0)
         | (lf.lfUnderline ? FONT_UNDERLINE : 0);
}

void xTAttribData::FillTheme(std::uint32_t theme) noexcept
{
    m_count = 0;
    for (const xTThemeEntry& entry : ThemeEntries(theme))
        AddEntry(entry.flag, entry.color, entry.bold, entry.italic, entry.underline);
}

void xTAttribData::AddEntry(std::uint32_t flag, COLORREF color, bool bold, bool italic, bool underline) noexcept
{
    if (m_count >= maxEntries)
        return;
    m_flags[m_count] = flag;
    m_colors[m_count] = color;
    m_bold[m_count] = bold;
    m_italic[m_count] = italic;
    m_underline[m_count] = underline;
    ++m_count;
}
