#include "appearance/AttribData.h"
#include "appearance/FontScale.h"
#include "appearance/LastBlock.h"
#include "diagnostics/Guarded.h"
#include "zsl/memory_stream.h"

#include <algorithm>
#include <iterator>

// The settings block: a flat little-endian record with no padding and no version. Reader and writer walk the same
// fields in the same order.

namespace {

constexpr std::uint32_t blockMagic = 0x13042005;
constexpr std::int32_t faceRoom = static_cast<std::int32_t>(std::size(LOGFONTW{}.lfFaceName));

class xTFieldReader {
public:
    explicit xTFieldReader(zsl::memory_stream& stream) noexcept : m_stream(stream) {}

    /// @return the next field, or `otherwise` when the block ends before or within it
    template <typename Field>
    [[nodiscard]] Field Read(Field otherwise)
    {
        Field field{};
        std::size_t got = 0;
        m_stream.read(&field, sizeof field, &got);
        m_short = got != sizeof field;
        return m_short ? otherwise : field;
    }
    [[nodiscard]] bool ReadBool() { return Read<BYTE>(0) != 0; }
    /// True when the last field was cut or absent.
    [[nodiscard]] bool IsShort() const noexcept { return m_short; }

private:
    bool m_short = false;
    zsl::memory_stream& m_stream;
};

class xTFieldWriter {
public:
    explicit xTFieldWriter(zsl::IMemoryStream& stream) noexcept : m_stream(stream) {}

    template <typename Field>
    void Write(Field field) { m_stream.write(&field, sizeof field); }
    void WriteBool(bool field) { Write<BYTE>(field ? 1 : 0); }

private:
    zsl::IMemoryStream& m_stream;
};

// The fields of the font header in their own order.
constexpr LONG LOGFONTW::* fontNumbers[] = {
    &LOGFONTW::lfHeight, &LOGFONTW::lfWidth, &LOGFONTW::lfEscapement, &LOGFONTW::lfOrientation, &LOGFONTW::lfWeight,
};
constexpr BYTE LOGFONTW::* fontBytes[] = {
    &LOGFONTW::lfItalic,       &LOGFONTW::lfUnderline,     &LOGFONTW::lfStrikeOut, &LOGFONTW::lfCharSet,
    &LOGFONTW::lfOutPrecision, &LOGFONTW::lfClipPrecision, &LOGFONTW::lfQuality,   &LOGFONTW::lfPitchAndFamily,
};

// The face may be longer than a description has room for: the rest is read and dropped. It may lack a terminator.
void ReadFace(xTFieldReader& in, LOGFONTW& lf)
{
    std::fill(std::begin(lf.lfFaceName), std::end(lf.lfFaceName), WCHAR{0});
    const auto length = in.Read<std::int32_t>(0);
    for (std::int32_t i = 0; i < length && !in.IsShort(); ++i) {
        const auto unit = in.Read<std::uint16_t>(0);
        if (i < faceRoom)
            lf.lfFaceName[i] = static_cast<WCHAR>(unit);
    }
}

void ReadFont(xTFieldReader& in, LOGFONTW& lf)
{
    for (const auto field : fontNumbers)
        lf.*field = in.Read<std::int32_t>(0);
    for (const auto field : fontBytes)
        lf.*field = in.Read<BYTE>(0);
    ReadFace(in, lf);
}

void WriteFont(xTFieldWriter& out, const LOGFONTW& lf)
{
    for (const auto field : fontNumbers)
        out.Write<std::int32_t>(lf.*field);
    for (const auto field : fontBytes)
        out.Write<BYTE>(lf.*field);
    const auto* end = std::find(std::begin(lf.lfFaceName), std::end(lf.lfFaceName), WCHAR{0});
    out.Write(static_cast<std::int32_t>(end - lf.lfFaceName));
    std::for_each(lf.lfFaceName, end, [&](WCHAR ch) { out.Write(static_cast<std::uint16_t>(ch)); });
}

}  // namespace

bool xTAttribData::LoadSettings(const xTSettingsBlock* block)
{
    return Guarded(false, [&] {
        if (!block)
            return false;
        KeepLastBlock(*block);
        return block->data && block->size != 0 && ReadSettings(*block);
    });
}

// A block that ends early leaves colours, flags, count and tab size as they were; booleans and font fields that are
// cut or absent become 0.
bool xTAttribData::ReadSettings(const xTSettingsBlock& block)
{
    zsl::memory_stream stream(block.data, block.size);
    if (!stream.ok())
        return false;
    xTFieldReader in(stream);
    if (in.Read<std::uint32_t>(0) != blockMagic)
        return false;
    const auto count = in.Read<std::int32_t>(-1);
    if (count < 0 || count > maxEntries)
        return false;
    m_count = count;
    if (count == 0)
        return false;
    m_highlight = in.ReadBool();
    for (std::int32_t i = 0; i < count; ++i) {
        m_bold[i] = in.ReadBool();
        m_italic[i] = in.ReadBool();
        m_underline[i] = in.ReadBool();
        m_colors[i] = in.Read<std::uint32_t>(m_colors[i]);
        m_flags[i] = in.Read<std::uint32_t>(m_flags[i]);
    }
    ReadFont(in, m_logFont);
    ScaleFontFrom96(m_logFont);
    m_keepTabs = in.ReadBool();
    m_tabSize = in.Read<std::int32_t>(m_tabSize);
    return true;
}

void xTAttribData::WriteSettings(zsl::IMemoryStream& bytes) const
{
    xTFieldWriter out(bytes);
    out.Write(blockMagic);
    out.Write(m_count);
    out.WriteBool(m_highlight);
    for (std::int32_t i = 0; i < m_count; ++i) {
        out.WriteBool(m_bold[i]);
        out.WriteBool(m_italic[i]);
        out.WriteBool(m_underline[i]);
        out.Write<std::uint32_t>(m_colors[i]);
        out.Write(m_flags[i]);
    }
    LOGFONTW lf = m_logFont;
    ScaleFontTo96(lf);
    WriteFont(out, lf);
    out.WriteBool(m_keepTabs);
    out.Write(m_tabSize);
}

std::uint32_t xTAttribData::SaveSettings(xTSettingsBlock* block) const
{
    return Guarded(0u, [&] {
        zsl::memory_stream stream;
        zsl::IMemoryStream* bytes = stream.get_interface();
        if (!block || !bytes)
            return 0u;
        WriteSettings(*bytes);
        const std::size_t size = bytes->size();
        if (!block->data || size > block->size)
            return static_cast<std::uint32_t>(size);
        std::size_t got = 0;
        bytes->read(block->data, block->size, &got);
        KeepLastBlock(*block);
        return static_cast<std::uint32_t>(got);
    });
}
