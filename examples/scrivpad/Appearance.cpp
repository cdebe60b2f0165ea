#include "Appearance.h"

#include "Failure.h"

#include <fstream>
#include <iterator>
#include <utility>

namespace scrivpad {

namespace {

constexpr std::streamoff mostBytes = 65536;  // a block has a few hundred
constexpr int idTheme = 1011;                // the list of themes on the library's page: its place is a theme's number

/// A window that nobody sees, for a page that nobody is to see.
class HiddenWindow {
public:
    HiddenWindow() noexcept
        : m_window(::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr))
    {
    }
    ~HiddenWindow() { ::DestroyWindow(m_window); }
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;
    [[nodiscard]] HWND Handle() const noexcept { return m_window; }

private:
    HWND m_window;
};

}  // namespace

Appearance::Appearance(UINT32 theme, std::wstring file) : m_file(std::move(file)), m_fallback(theme), m_theme(theme) {}

void Appearance::Load()
{
    if (m_file.empty())
        return;
    std::ifstream file(m_file.c_str(), std::ios::binary | std::ios::ate);
    const std::streamoff size = file ? static_cast<std::streamoff>(file.tellg()) : 0;
    if (size <= 0 || size > mostBytes)
        return;
    std::vector<char> bytes(static_cast<std::size_t>(size));
    file.seekg(0);
    if (!file.read(bytes.data(), size))
        return;
    // The library refuses what is no block, and shows the theme instead.
    m_block.assign(bytes.begin(), bytes.end());
    m_theme = 0;
}

void Appearance::Take(std::vector<BYTE> block, UINT32 theme)
{
    m_block = std::move(block);
    m_theme = theme;
    Keep();
}

void Appearance::Keep() const
{
    if (m_file.empty())
        return;
    std::ofstream file(m_file.c_str(), std::ios::binary);
    const std::vector<char> bytes(m_block.begin(), m_block.end());
    if (!file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush())
        throw Failure(L"не удалось сохранить настройки в " + m_file);
}

edSettingsBlock Appearance::Block() noexcept
{
    return {m_block.empty() ? nullptr : m_block.data(), static_cast<UINT32>(m_block.size())};
}

std::wstring SettingsFileOfUser()
{
    wchar_t folder[MAX_PATH] = {};
    const DWORD length = ::GetEnvironmentVariableW(L"APPDATA", folder, static_cast<DWORD>(std::size(folder)));
    if (length == 0 || length >= std::size(folder))
        return {};
    const std::wstring own = std::wstring(folder) + L"\\Scrivpad";
    ::CreateDirectoryW(own.c_str(), nullptr);
    return own + L"\\settings";
}

std::vector<BYTE> TunedBlock()
{
    edSettingsBlock block = {};
    std::vector<BYTE> bytes(edApplyTuningChanges(&block));  // no room yet: the call tells how much is needed
    block = {bytes.data(), static_cast<UINT32>(bytes.size())};
    edApplyTuningChanges(&block);
    return bytes;
}

// The block is the library's own affair, so the theme is chosen as a user does it: on the page, which nobody sees here.
std::vector<BYTE> BlockOfTheme(const edSettingsBlock& from, UINT32 theme)
{
    const HiddenWindow parent;
    const HWND page = edCreateHighlightTuneDialog(parent.Handle(), nullptr, &from, nullptr);
    const HWND list = ::GetDlgItem(page, idTheme);
    ::SendMessageW(list, CB_SETCURSEL, theme, 0);
    ::SendMessageW(page, WM_COMMAND, MAKEWPARAM(idTheme, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
    return page != nullptr ? TunedBlock() : std::vector<BYTE>();
}

}  // namespace scrivpad
