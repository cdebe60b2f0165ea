#pragma once

#include "framework/base/WinTypes.h"

#include <cstdint>
#include <string>

namespace zsl {

/// The character sets of text files. ANSI and OEM are the two 8-bit code pages of the system.
enum class E_CharSet : unsigned { none = 0, ansi = 1, oem = 2, utf8 = 4, utf16le = 5, utf16be = 6 };

/// How a text stands in a file: the character set, whether a byte order mark leads and whether lines end in CR LF.
/// The last two are facts of a file that was read; an encoding made from a number has plain line feeds, and a mark in
/// UTF-16 only.
class text_encoding {
public:
    static constexpr unsigned defaultValue = 256;

    /// The default encoding: leaves the choice to the file when reading, and is UTF-8 when writing.
    constexpr text_encoding() noexcept : text_encoding(defaultValue) {}

    /// @param value 256 for the default encoding, or the number of a character set; any other number, 0 among them,
    ///              is the system's ANSI code page under the character set number 0
    constexpr explicit text_encoding(unsigned value) noexcept
        : m_charset(known(value)), m_default(value == defaultValue), m_mark(is_utf16() ? E_Mark::usual : E_Mark::absent)
    {
    }
    constexpr explicit text_encoding(E_CharSet charset) noexcept : text_encoding(static_cast<unsigned>(charset)) {}

    /// The character set; UTF-8 for the default encoding, `none` for the one made from 0.
    [[nodiscard]] constexpr E_CharSet charset() const noexcept { return m_charset; }
    [[nodiscard]] constexpr bool is_default() const noexcept { return m_default; }
    [[nodiscard]] constexpr bool is_utf16() const noexcept
    {
        return m_charset == E_CharSet::utf16le || m_charset == E_CharSet::utf16be;
    }

    /// The character set that the bytes of a file in this encoding have: as `charset`, but never `none`.
    [[nodiscard]] constexpr E_CharSet stored_as() const noexcept
    {
        return m_charset == E_CharSet::none ? E_CharSet::ansi : m_charset;
    }

    /// True when a byte order mark stands before the text. 8-bit sets have none.
    [[nodiscard]] constexpr bool has_mark() const noexcept { return m_mark != E_Mark::absent; }
    /// True when the mark was seen in a file: an empty text keeps it too, where else it would give an empty file.
    [[nodiscard]] constexpr bool found_mark() const noexcept { return m_mark == E_Mark::found; }
    /// True when each line feed of the text is a CR LF in the file.
    [[nodiscard]] constexpr bool has_crlf() const noexcept { return m_crlf; }

    /// This encoding with the facts of a file that was read.
    [[nodiscard]] constexpr text_encoding with_facts(bool mark, bool crlf) const noexcept
    {
        text_encoding result = *this;
        result.m_mark = mark && stored_as() >= E_CharSet::utf8 ? E_Mark::found : E_Mark::absent;
        result.m_crlf = crlf;
        return result;
    }

    /// This encoding with CR LF line ends.
    [[nodiscard]] constexpr text_encoding with_crlf() const noexcept
    {
        text_encoding result = *this;
        result.m_crlf = true;
        return result;
    }

    /// The encoding to write with, where the text was read from a file in `file`: with the mark and the line ends of
    /// that file if the character set is the same, else as it is.
    [[nodiscard]] constexpr text_encoding as_before(const text_encoding& file) const noexcept
    {
        return stored_as() == file.stored_as() ? with_facts(file.has_mark(), file.has_crlf()) : *this;
    }

    friend constexpr bool operator==(const text_encoding&, const text_encoding&) = default;

private:
    enum class E_Mark : std::uint8_t { absent, usual, found };

    static constexpr E_CharSet known(unsigned value) noexcept
    {
        switch (value) {
        case 1: case 2: case 4: case 5: case 6: return static_cast<E_CharSet>(value);
        case defaultValue: return E_CharSet::utf8;
        default: return E_CharSet::none;
        }
    }

    E_CharSet m_charset;
    bool m_default;
    E_Mark m_mark;
    bool m_crlf = false;
};

/// The encoding of a code that hosts use, 0 to 5; any other code gives the zero encoding.
[[nodiscard]] text_encoding encoding_of_code(std::uint32_t code) noexcept;

/// The code of an encoding for hosts: 0 for the default encoding and for any that has no code.
[[nodiscard]] std::uint32_t code_of_encoding(const text_encoding& encoding) noexcept;

/// Converts a text into bytes of the encoding, without a mark and with the line ends as they are. A character that the
/// encoding cannot hold becomes '?', in UTF-8 U+FFFD.
/// @param text zero-terminated; null counts as empty
void wide_to_char(const WCHAR* text, std::string& out, const text_encoding& encoding);

}  // namespace zsl
