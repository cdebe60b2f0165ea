#include "Console.h"

#include <windows.h>

#include <string>

namespace scrivpad {

namespace {

/// @return the handle, taken from the console of the starting program where none was handed down; may be null
[[nodiscard]] HANDLE StandardHandle(DWORD which) noexcept
{
    const HANDLE handle = ::GetStdHandle(which);
    if (handle != nullptr && handle != INVALID_HANDLE_VALUE)
        return handle;
    return ::AttachConsole(ATTACH_PARENT_PROCESS) ? ::GetStdHandle(which) : nullptr;
}

[[nodiscard]] std::string ToUtf8(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');  // a UTF-16 unit takes at most three bytes
    const int written = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                              static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(written));
    return bytes;
}

void Write(DWORD which, std::wstring_view text)
{
    const HANDLE handle = StandardHandle(which);
    DWORD mode = 0;
    DWORD written = 0;
    if (::GetConsoleMode(handle, &mode)) {
        ::WriteConsoleW(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    } else {
        const std::string bytes = ToUtf8(text);
        ::WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    }
}

}  // namespace

void WriteError(std::wstring_view text)
{
    Write(STD_ERROR_HANDLE, text);
}

void WriteOutput(std::wstring_view text)
{
    Write(STD_OUTPUT_HANDLE, text);
}

}  // namespace scrivpad
