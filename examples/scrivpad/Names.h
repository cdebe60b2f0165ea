#pragma once

#include "scrivctl3.h"

namespace scrivpad {

inline constexpr const wchar_t* programName = L"Scrivpad";

/// The name of an encoding code and of a theme, in the order of the numbers.
struct NumberName {
    UINT32 number;
    const wchar_t* name;
};

inline constexpr NumberName encodings[] = {
    {ED_ENCODING_DEFAULT, L"По умолчанию (UTF-8)"},
    {ED_ENCODING_ANSI, L"ANSI"},
    {ED_ENCODING_UTF8, L"UTF-8"},
    {ED_ENCODING_OEM, L"OEM"},
    {ED_ENCODING_UTF16LE, L"UTF-16 LE"},
    {ED_ENCODING_UTF16BE, L"UTF-16 BE"},
};

inline constexpr NumberName themes[] = {
    {ED_THEME_CLASSIC, L"Классическая"},
    {ED_THEME_TIBERITE, L"Тиберит"},
    {ED_THEME_OCEAN, L"Океан"},
    {ED_THEME_DUSK, L"Сумерки"},
    {ED_THEME_MIRANA, L"Мирана"},
};

/// @return the name, null for a code that is none
[[nodiscard]] constexpr const wchar_t* EncodingName(UINT32 code) noexcept
{
    for (const NumberName& row : encodings) {
        if (row.number == code)
            return row.name;
    }
    return nullptr;
}

}  // namespace scrivpad
