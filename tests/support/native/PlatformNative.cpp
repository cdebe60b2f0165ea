#include "tests/support/native/PlatformNative.h"

#include <algorithm>
#include <new>

namespace {

constexpr std::align_val_t pageAlignment{64 * 1024};

xTNativePlatform AtStart()
{
    xTNativePlatform start;
    start.strings = {
        {118, _T("Поиск закончен. Произведено %d замен(ы).")},
        {119, _T("Соответствий не найдено")},
    };
    start.layouts = {layoutEnglish, layoutRussian};
    return start;
}

// A key that types: what it types in English and in Russian, each without and with Shift.
struct xTKeyRow {
    std::uint8_t key;
    std::uint8_t scanCode;
    WStrView english;
    WStrView russian;
};
constexpr xTKeyRow keyRows[] = {
    {0x31, 0x02, _T("1!"), _T("1!")}, {0x32, 0x03, _T("2@"), _T("2\"")},
    {0x33, 0x04, _T("3#"), _T("3№")}, {0x34, 0x05, _T("4$"), _T("4;")},
    {0x35, 0x06, _T("5%"), _T("5%")}, {0x36, 0x07, _T("6^"), _T("6:")},
    {0x37, 0x08, _T("7&"), _T("7?")}, {0x38, 0x09, _T("8*"), _T("8*")},
    {0x39, 0x0A, _T("9("), _T("9(")}, {0x30, 0x0B, _T("0)"), _T("0)")},
    {0xBD, 0x0C, _T("-_"), _T("-_")}, {0xBB, 0x0D, _T("=+"), _T("=+")},
    {0x51, 0x10, _T("qQ"), _T("йЙ")}, {0x57, 0x11, _T("wW"), _T("цЦ")},
    {0x45, 0x12, _T("eE"), _T("уУ")}, {0x52, 0x13, _T("rR"), _T("кК")},
    {0x54, 0x14, _T("tT"), _T("еЕ")}, {0x59, 0x15, _T("yY"), _T("нН")},
    {0x55, 0x16, _T("uU"), _T("гГ")}, {0x49, 0x17, _T("iI"), _T("шШ")},
    {0x4F, 0x18, _T("oO"), _T("щЩ")}, {0x50, 0x19, _T("pP"), _T("зЗ")},
    {0xDB, 0x1A, _T("[{"), _T("хХ")}, {0xDD, 0x1B, _T("]}"), _T("ъЪ")},
    {0x41, 0x1E, _T("aA"), _T("фФ")}, {0x53, 0x1F, _T("sS"), _T("ыЫ")},
    {0x44, 0x20, _T("dD"), _T("вВ")}, {0x46, 0x21, _T("fF"), _T("аА")},
    {0x47, 0x22, _T("gG"), _T("пП")}, {0x48, 0x23, _T("hH"), _T("рР")},
    {0x4A, 0x24, _T("jJ"), _T("оО")}, {0x4B, 0x25, _T("kK"), _T("лЛ")},
    {0x4C, 0x26, _T("lL"), _T("дД")}, {0xBA, 0x27, _T(";:"), _T("жЖ")},
    {0xDE, 0x28, _T("'\""), _T("эЭ")}, {0xC0, 0x29, _T("`~"), _T("ёЁ")},
    {0xDC, 0x2B, _T("\\|"), _T("\\/")}, {0x5A, 0x2C, _T("zZ"), _T("яЯ")},
    {0x58, 0x2D, _T("xX"), _T("чЧ")}, {0x43, 0x2E, _T("cC"), _T("сС")},
    {0x56, 0x2F, _T("vV"), _T("мМ")}, {0x42, 0x30, _T("bB"), _T("иИ")},
    {0x4E, 0x31, _T("nN"), _T("тТ")}, {0x4D, 0x32, _T("mM"), _T("ьЬ")},
    {0xBC, 0x33, _T(",<"), _T("бБ")}, {0xBE, 0x34, _T(".>"), _T("юЮ")},
    {0xBF, 0x35, _T("/?"), _T(".,")}, {0x20, 0x39, _T("  "), _T("  ")},
};

WStrView Typed(const xTKeyRow& row, xTKeyLayout layout) noexcept
{
    if (layout == layoutGerman && (row.key == 0x59 || row.key == 0x5A))
        return row.key == 0x59 ? _T("zZ") : _T("yY");
    return layout == layoutEnglish || layout == layoutGerman ? row.english
           : layout == layoutRussian                         ? row.russian
                                                             : WStrView();
}

const xTKeyRow* RowOf(unsigned key) noexcept
{
    const auto* const found = std::find_if(std::begin(keyRows), std::end(keyRows), [&](auto& row) { return row.key == key; });
    return found == std::end(keyRows) ? nullptr : found;
}

template <std::size_t Room>
void CopyCut(std::array<WCHAR, Room>& to, const WCHAR* from) noexcept
{
    const WStrView text = WStrView(from ? from : _T("")).substr(0, Room - 1);
    *std::copy(text.begin(), text.end(), to.begin()) = 0;
}

}  // namespace

const xTNativePlatform::xTBox& xTNativePlatform::LastBox() const noexcept
{
    static constexpr xTBox none;
    return boxCount == 0 ? none : boxes[static_cast<std::size_t>(std::min(boxCount, boxRoom) - 1)];
}

xTNativePlatform& NativePlatform()
{
    static xTNativePlatform platform = AtStart();
    return platform;
}

void ResetNativePlatform()
{
    NativePlatform() = AtStart();
}

void* PlatformAllocPages(std::size_t bytes)
{
    int& left = NativePlatform().pagesBeforeFailure;
    if (left >= 0 && left-- == 0)
        throw std::bad_alloc();
    return ::operator new(bytes, pageAlignment);
}

void PlatformFreePages(void* pages, std::size_t) noexcept
{
    ::operator delete(pages, pageAlignment);
}

bool PlatformKeyDown(int key) noexcept
{
    return NativePlatform().keysDown.contains(key);
}

xTKeyLayout PlatformKeyLayout() noexcept
{
    const auto& layouts = NativePlatform().layouts;
    return layouts.empty() ? 0 : layouts.front();
}

void PlatformNextKeyLayout() noexcept
{
    auto& layouts = NativePlatform().layouts;
    if (!layouts.empty())
        std::rotate(layouts.begin(), layouts.begin() + 1, layouts.end());
}

std::uint16_t PlatformKeyScan(WCHAR ch, xTKeyLayout layout) noexcept
{
    for (const auto& row : keyRows)
        if (const auto shift = Typed(row, layout).find(ch); shift != WStrView::npos)
            return static_cast<std::uint16_t>(row.key | shift << 8);
    return 0xFFFF;
}

unsigned PlatformScanCode(unsigned key, xTKeyLayout) noexcept
{
    const auto* row = RowOf(key);
    return row ? row->scanCode : 0;
}

int PlatformKeyText(unsigned key, unsigned scanCode, std::span<const BYTE, 256> state, xTKeyLayout layout,
                    std::span<WCHAR, 2> text) noexcept
{
    constexpr BYTE down = 0x80;
    const auto* row = RowOf(key);
    const bool control = (state[0x11] & down) != 0;
    if (!row || row->scanCode != scanCode || control || Typed(*row, layout).empty())
        return 0;
    text[0] = Typed(*row, layout)[(state[0x10] & down) != 0 ? 1 : 0];
    return 1;
}

bool PlatformOpenClipboard(HWND) noexcept
{
    auto& platform = NativePlatform();
    if (platform.clipboardOpen || (platform.clipboardRefusals > 0 && platform.clipboardRefusals-- > 0))
        return false;
    platform.clipboardOpen = true;
    return true;
}

void PlatformCloseClipboard() noexcept
{
    NativePlatform().clipboardOpen = false;
}

unsigned PlatformNextClipboardFormat(unsigned format) noexcept
{
    const auto& platform = NativePlatform();
    if (!platform.clipboardOpen)
        return 0;
    const auto& held = platform.clipboard;
    auto next = held.begin();
    if (format != 0) {
        next = std::find_if(held.begin(), held.end(), [&](auto& item) { return item.first == format; });
        if (next != held.end())
            ++next;
    }
    return next == held.end() ? 0 : next->first;
}

bool PlatformReadClipboard(unsigned format, CString& text)
{
    const auto& platform = NativePlatform();
    if (!platform.clipboardOpen)
        return false;
    for (const auto& [heldFormat, held] : platform.clipboard) {
        if (heldFormat != format)
            continue;
        WString wide = held;
        if (format == clipboardBytes && !PlatformToWide(xTCodePage::ansi, std::string(held.begin(), held.end()), wide))
            return false;
        text = CString(wide.c_str());
        return true;
    }
    return false;
}

void PlatformWriteClipboard(WStrView text) noexcept
{
    auto& platform = NativePlatform();
    if (!platform.clipboardOpen || platform.clipboardNoMemory)
        return;
    try {
        platform.clipboard = {{clipboardWide, WString(text)}};
    } catch (const std::bad_alloc&) {
        return;  // what it held stays
    }
}

void PlatformSleep(unsigned milliseconds) noexcept
{
    NativePlatform().sleptMilliseconds += milliseconds;
}

void PlatformMessageBox(const WCHAR* text, const WCHAR* caption, xTBoxIcon icon) noexcept
{
    auto& platform = NativePlatform();
    const int at = std::min(platform.boxCount++, xTNativePlatform::boxRoom - 1);
    auto& box = platform.boxes[static_cast<std::size_t>(at)];
    CopyCut(box.textRoom, text);
    CopyCut(box.captionRoom, caption);
    box.icon = icon;
}

void PlatformNotice(HWND, const WCHAR* text, xTBoxIcon icon) noexcept
{
    PlatformMessageBox(text, _T(""), icon);
}

CString PlatformString(unsigned id)
{
    const auto& strings = NativePlatform().strings;
    const auto found = strings.find(id);
    return found == strings.end() ? CString() : CString(found->second);
}

std::int32_t PlatformExecutablePath(WCHAR* path, std::int32_t room) noexcept
{
    const WStrView told = WStrView(NativePlatform().executablePath).substr(0, static_cast<std::size_t>(room) - 1);
    *std::copy(told.begin(), told.end(), path) = 0;
    return static_cast<std::int32_t>(told.size());
}

xTResolution PlatformScreenResolution() noexcept
{
    return NativePlatform().resolution;
}

xTLocalTime PlatformLocalTime() noexcept
{
    return NativePlatform().time;
}
