#include "framework/base/Platform.h"

#include <windows.h>

#include <array>
#include <cstring>
#include <limits>
#include <memory>

// The questions about letters, code pages and files, put to the system. They need no user, so tests ask them too.

namespace {

constexpr std::size_t longestInput = std::numeric_limits<int>::max();

UINT Number(xTCodePage page) noexcept
{
    return page == xTCodePage::ansi ? ::GetACP() : ::GetOEMCP();
}

struct xTCloseFile {
    void operator()(HANDLE file) const noexcept { ::CloseHandle(file); }
};
using xTFile = std::unique_ptr<void, xTCloseFile>;

bool Write(HANDLE file, std::string_view bytes) noexcept
{
    DWORD written = 0;
    const auto size = static_cast<DWORD>(bytes.size());
    return size == 0 || (::WriteFile(file, bytes.data(), size, &written, nullptr) && written == size);
}

}  // namespace

void PlatformLowerCase(WCHAR* text, std::int32_t length) noexcept
{
    ::CharLowerBuffW(text, static_cast<DWORD>(length));
}

void PlatformUpperCase(WCHAR* text, std::int32_t length) noexcept
{
    ::CharUpperBuffW(text, static_cast<DWORD>(length));
}

bool PlatformToWide(xTCodePage page, std::string_view bytes, WString& text)
{
    text.clear();
    if (bytes.empty())
        return true;
    if (bytes.size() > longestInput)
        return false;
    const UINT number = Number(page);
    const auto size = static_cast<int>(bytes.size());
    const int length = ::MultiByteToWideChar(number, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
    if (length <= 0)
        return false;
    text.resize(static_cast<std::size_t>(length));
    return ::MultiByteToWideChar(number, MB_ERR_INVALID_CHARS, bytes.data(), size, text.data(), length) == length;
}

bool PlatformToBytes(xTCodePage page, WStrView text, bool lossy, std::string& bytes)
{
    bytes.clear();
    if (text.empty())
        return true;
    if (text.size() > longestInput)
        return false;
    const UINT number = Number(page);
    // UTF-8 as the system's code page knows neither look-alikes nor a default character.
    const bool utf8 = number == CP_UTF8;
    const DWORD flags = !utf8 ? WC_NO_BEST_FIT_CHARS : lossy ? 0 : WC_ERR_INVALID_CHARS;
    const char* replacement = utf8 ? nullptr : "?";
    BOOL replaced = FALSE;
    BOOL* tell = utf8 ? nullptr : &replaced;
    const auto length = static_cast<int>(text.size());
    const int size = ::WideCharToMultiByte(number, flags, text.data(), length, nullptr, 0, replacement, tell);
    if (size <= 0 || (replaced && !lossy))
        return false;
    bytes.resize(static_cast<std::size_t>(size));
    return ::WideCharToMultiByte(number, flags, text.data(), length, bytes.data(), size, replacement, tell) == size;
}

bool PlatformAppendText(const WCHAR* path, std::string_view text) noexcept
{
    // By its 8-bit name, as required: a folder whose name has no place in the code page is not found.
    std::array<char, 1024> name{};
    if (::WideCharToMultiByte(CP_ACP, 0, path, -1, name.data(), static_cast<int>(name.size()), nullptr, nullptr) == 0)
        return false;
    const HANDLE opened = ::CreateFileA(name.data(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                        OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE)
        return false;
    const xTFile file(opened);
    while (!text.empty()) {
        const std::size_t line = text.find('\n');
        if (!Write(file.get(), text.substr(0, line)))
            return false;
        if (line == std::string_view::npos)
            return true;
        if (!Write(file.get(), "\r\n"))
            return false;
        text.remove_prefix(line + 1);
    }
    return true;
}
