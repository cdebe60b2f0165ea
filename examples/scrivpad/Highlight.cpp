#include "Highlight.h"

#include <algorithm>

namespace scrivpad {

namespace {

struct Extension {
    std::wstring_view name;  ///< in small letters, without the point
    Highlighter highlighter;
};

constexpr Extension extensions[] = {
    {L"c", HighlightCpp},   {L"h", HighlightCpp},   {L"cpp", HighlightCpp}, {L"hpp", HighlightCpp},
    {L"cc", HighlightCpp},  {L"hh", HighlightCpp},  {L"cxx", HighlightCpp}, {L"hxx", HighlightCpp},
    {L"inl", HighlightCpp}, {L"ssl", HighlightSsl},
};

[[nodiscard]] constexpr bool SameIgnoringCase(wchar_t written, wchar_t small) noexcept
{
    return written == small || (written >= L'A' && written <= L'Z' && written - L'A' + L'a' == small);
}

[[nodiscard]] std::wstring_view ExtensionOf(std::wstring_view path) noexcept
{
    const std::size_t folder = path.find_last_of(L"\\/:");
    const std::wstring_view name = folder == std::wstring_view::npos ? path : path.substr(folder + 1);
    const std::size_t point = name.rfind(L'.');
    return point == std::wstring_view::npos ? std::wstring_view() : name.substr(point + 1);
}

}  // namespace

Highlighter HighlighterOf(std::wstring_view path) noexcept
{
    const std::wstring_view written = ExtensionOf(path);
    for (const Extension& extension : extensions) {
        if (std::equal(written.begin(), written.end(), extension.name.begin(), extension.name.end(), SameIgnoringCase))
            return extension.highlighter;
    }
    return nullptr;
}

}  // namespace scrivpad
