#pragma once

#include "appearance/AttribLook.h"
#include "appearance/HighlightHook.h"
#include "appearance/HookBuffer.h"
#include "store/MyStr.h"
#include "store/TabSettings.h"

#include <cstdint>
#include <span>

namespace zsl {
class IMemoryStream;
}

/// One bit per token class. A drawn character carries a word of them; 6 is plain text.
enum : std::uint32_t {
    ATTR_BACKGROUND = 2,
    ATTR_TEXT = 4,
    ATTR_KEYWORD = 8,
    ATTR_COMMENT = 16,
    ATTR_SELECTION = 32,
    ATTR_BREAKPOINT = 64,
    ATTR_EXECPOINT = 128,
    ATTR_NUMBER = 256,
    ATTR_IDENTIFIER = 512,
    ATTR_SYMBOL = 1024,
    ATTR_STRING = 2048,
    ATTR_STRING_SPECIAL = 4096,
    ATTR_STRING_KEYWORD = 8192,
    ATTR_USER1 = 65536,
    ATTR_USER2 = 131072,
    ATTR_USER3 = 262144,
    ATTR_USER4 = 524288,
    ATTR_USER5 = 1048576,
};

/// The engine's view of the host's settings block: bytes that the host keeps.
struct xTSettingsBlock {
    void* data = nullptr;
    std::uint32_t size = 0;
};

/// Everything of the attribute table that is mere numbers: entries, colours, styles, base font, tabs. It needs no
/// device context. xTAttribTable adds the fonts and the drawing.
class xTAttribData : public xTTabSettings {
public:
    static constexpr std::int32_t maxEntries = 30;
    static constexpr std::uint32_t plainWord = ATTR_BACKGROUND | ATTR_TEXT;

    // Keys of the eight style combinations of the base font.
    static constexpr DWORD FONT_BOLD = 1;
    static constexpr DWORD FONT_ITALIC = 2;
    static constexpr DWORD FONT_UNDERLINE = 4;

    xTAttribData() noexcept;
    xTAttribData(const xTAttribData&) = delete;
    xTAttribData& operator=(const xTAttribData&) = delete;
    ~xTAttribData();  ///< the last one of the process frees the copy of the last settings block

    /// How many tables live in the process.
    [[nodiscard]] static int LivingTables() noexcept;

    /// The colours of the palette numbers 1 to 16, which stand at the indexes 0 to 15.
    static const COLORREF m_palette[16];

    /// @param number 1 to 16; any other gives white
    [[nodiscard]] static COLORREF ColorIndexToRef(int number) noexcept;
    /// @return 1 to 16, or 0 for a colour outside the palette
    [[nodiscard]] static int ColorRefToIndex(COLORREF color) noexcept;

    /// @return the entry's index, -1 when the flag has none
    [[nodiscard]] std::int32_t FindEntry(std::uint32_t flag) const noexcept;
    /// Gives the entry of `flag` a colour of the palette; no entry or a number outside 1 to 16: nothing happens.
    void SetAttrColor(std::uint32_t flag, int number) noexcept;
    [[nodiscard]] std::int32_t GetTabSize() const noexcept { return m_tabSize; }
    /// The tab width as layout uses it, in characters: any m_tabSize held to 1 to 256.
    [[nodiscard]] std::int32_t LayoutTabSize() const noexcept;
    /// The base font with weight 700 or 400, italic and underline as the entry of `flag` says; with no entry it is the
    /// plain base font. A null `out` does nothing.
    void GetAttrFont(std::uint32_t flag, LOGFONTW* out) const noexcept;
    /// @return the FONT_ bits of an entry's font; `entry` must be below m_count
    [[nodiscard]] DWORD EntryStyle(std::int32_t entry) const noexcept;
    /// What a word, or one flag, makes of a device context. A flag without an entry leaves it as it is.
    [[nodiscard]] xTLook LookOf(std::uint32_t word) const noexcept;
    [[nodiscard]] xTLook LookOfFlag(std::uint32_t flag) const noexcept;
    /// A description as the system may be given it: sizes held to 1000 pixels, the face name terminated. A settings
    /// block may put anything into m_logFont, and 32 characters of face with no terminator.
    [[nodiscard]] static LOGFONTW UsableFont(LOGFONTW lf) noexcept;
    /// @return the FONT_ bits of a description; bold is a weight of exactly 700
    [[nodiscard]] static DWORD FontKey(const LOGFONTW& lf) noexcept;

    /// Fills the entries with theme 1 to 5; any other number leaves the table empty. Font and tabs stay.
    void FillTheme(std::uint32_t theme) noexcept;
    /// Adds an entry; past the thirtieth nothing happens.
    void AddEntry(std::uint32_t flag, COLORREF color, bool bold, bool italic, bool underline) noexcept;

    /// Takes entries, base font and tab settings out of a block; the fonts are not rebuilt.
    /// @return false when the block was not applied: null, empty, of another format, or with a count outside 1 to 30
    bool LoadSettings(const xTSettingsBlock* block);
    /// @return the bytes written, or the bytes needed when the block is too small (it is then unchanged); 0 for a null
    /// block or after a failure
    std::uint32_t SaveSettings(xTSettingsBlock* block) const;

    /// Adds to each of `attrs` the flags of its character, in the order that drawing relies on. The host is called once.
    void ClassifyLine(const xTExtString& str, const xTHighlightHook& hook, std::span<std::uint32_t> attrs) const;
    /// One marking pass. @return true if it marked anything
    static bool MarkLineAttrs(const xTExtString& str, std::uint32_t flag, std::span<std::uint32_t> attrs);
    /// @return where the run that begins at `i` ends: characters of one word, all tabs or no tab; `i` past the text or
    /// past the words gives `i`
    [[nodiscard]] static std::int32_t RunEnd(WStrView text, std::int32_t i, std::span<const std::uint32_t> attrs) noexcept;
    /// Copies the run that begins at index `i` out of `str` and steps `i` behind it.
    static void CollectRun(const xTExtString& str, std::int32_t& i, std::span<const std::uint32_t> attrs, xTExtString& run);

    bool m_highlight = true;
    std::uint32_t m_flags[maxEntries] = {};
    std::int32_t m_count = 0;
    bool m_bold[maxEntries] = {};
    bool m_italic[maxEntries] = {};
    bool m_underline[maxEntries] = {};
    COLORREF m_colors[maxEntries] = {};
    LOGFONTW m_logFont = {};  ///< the base font as it was given; UsableFont before the system gets it

private:
    void AddToLook(const xTApplyRow& row, xTLook& look) const noexcept;
    void AskHook(WStrView text, const xTHighlightHook& hook, bool insideComment, std::span<std::uint32_t> attrs) const;
    bool ReadSettings(const xTSettingsBlock& block);
    void WriteSettings(zsl::IMemoryStream& bytes) const;

    mutable xTHookBuffer m_hookBuffer;
};
