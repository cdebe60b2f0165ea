#pragma once

#include "TokenClass.h"

#include <cstddef>
#include <string_view>

namespace scrivpad {

[[nodiscard]] constexpr bool IsDigit(wchar_t ch) noexcept
{
    return ch >= L'0' && ch <= L'9';
}

[[nodiscard]] constexpr bool IsHexDigit(wchar_t ch) noexcept
{
    return IsDigit(ch) || (ch >= L'a' && ch <= L'f') || (ch >= L'A' && ch <= L'F');
}

[[nodiscard]] constexpr bool IsBlank(wchar_t ch) noexcept
{
    return ch == L' ' || (ch >= L'\t' && ch <= L'\r') || ch == 0x00A0;
}

/// Letters of any script, roughly: from U+00C0 on all but the two operators and the punctuation blocks.
[[nodiscard]] constexpr bool IsWordStart(wchar_t ch) noexcept
{
    if (ch < 0x80)
        return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z') || ch == L'_' || ch == L'$';
    const bool operatorSign = ch == 0x00D7 || ch == 0x00F7;
    const bool punctuation = (ch >= 0x2000 && ch < 0x2C00) || (ch >= 0x3000 && ch < 0x3040);
    return ch >= 0x00C0 && !operatorSign && !punctuation;
}

[[nodiscard]] constexpr bool IsWordPart(wchar_t ch) noexcept
{
    return IsWordStart(ch) || IsDigit(ch);
}

/// Walks one line from left to right and overwrites it by class codes as it goes. It looks only ahead, so what is
/// overwritten is never read again. The line ends at its terminator, which stays.
class LineScanner {
public:
    explicit LineScanner(wchar_t* text) noexcept : m_rest(text), m_end(text + std::wstring_view(text).size()) {}

    [[nodiscard]] bool AtEnd() const noexcept { return m_rest == m_end; }
    [[nodiscard]] std::wstring_view Rest() const noexcept { return {m_rest, static_cast<std::size_t>(m_end - m_rest)}; }
    /// @return the character `ahead` of the place, 0 from the end of the line on
    [[nodiscard]] wchar_t Peek(std::size_t ahead = 0) const noexcept
    {
        return ahead < Rest().size() ? m_rest[ahead] : L'\0';
    }
    /// @return the length of the word that begins `from` characters ahead
    [[nodiscard]] std::size_t WordLength(std::size_t from = 0) const noexcept;

    /// Gives the next `count` characters, held to the end of the line, their class and goes past them.
    void Mark(std::size_t count, TokenClass code) noexcept;
    void MarkRest(TokenClass code) noexcept { Mark(Rest().size(), code); }
    /// Up to and with `end`, or to the end of the line.
    /// @param skip  characters at the start in which `end` is not looked for
    void MarkThrough(std::wstring_view end, TokenClass code, std::size_t skip = 0) noexcept;

    /// Takes what every language here has in common: blanks, `//` and block comments.
    /// @return false when the place holds something else
    [[nodiscard]] bool TakeBlankOrComment() noexcept;

private:
    wchar_t* m_rest;
    wchar_t* m_end;
};

}  // namespace scrivpad
