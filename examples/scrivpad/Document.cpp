#include "Document.h"

namespace scrivpad {

std::wstring Document::Name() const
{
    return path.empty() ? L"Без имени" : path.substr(path.find_last_of(L"\\/") + 1);
}

std::wstring WholePath(const std::wstring& name)
{
    std::wstring whole(::GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
    const DWORD length = ::GetFullPathNameW(name.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
    if (length == 0 || length >= whole.size())
        return name;  // whoever opens the file says what is wrong with the name
    whole.resize(length);
    return whole;
}

bool IsReadOnlyFile(const std::wstring& path) noexcept
{
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

}  // namespace scrivpad
