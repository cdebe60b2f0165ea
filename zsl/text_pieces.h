#pragma once

#include "zsl/text_encoding.h"

#include <memory>
#include <optional>
#include <string_view>

namespace zsl {

/// A text of more characters than this is not read.
inline constexpr std::size_t maxTextLength = std::size_t{1} << 30;

/// The text of the bytes of a whole file, with plain line feeds where the file has nothing but CR LF. UTF-8 is decoded
/// piece by piece as it is asked for, so that no room is needed for all of the text.
class text_pieces {
public:
    /// Finds out how the bytes are encoded. A byte order mark decides; else UTF-16 if `asked` is that; else what is valid
    /// UTF-8 is UTF-8, plain ASCII counting as `asked`; else they are in the 8-bit set that was asked for, or in ANSI. A
    /// UTF-8 mark before something else than UTF-8 is not a mark.
    /// @param bytes have to outlive the pieces
    /// @param limit the most characters, each CR of a line end counted
    /// @return nothing when the bytes cannot be shown as text: a zero character, UTF-16 of an odd number of bytes, bytes
    ///         that the code page does not know, more characters than `limit`
    [[nodiscard]] static std::optional<text_pieces> of(std::string_view bytes, const text_encoding& asked,
                                                       std::size_t limit = maxTextLength);

    /// The encoding that the bytes were found to be in.
    [[nodiscard]] const text_encoding& encoding() const noexcept { return m_encoding; }
    /// How many line feeds the text has.
    [[nodiscard]] std::size_t feeds() const noexcept { return m_feeds; }
    [[nodiscard]] bool at_end() const noexcept { return m_rest.empty() && (m_given || m_whole.empty()); }

    /// The next piece of the text, which ends behind a line feed or with the text. It stands until the next call.
    /// @return nothing at the end of the text
    [[nodiscard]] WStrView next();
    /// All of the text that is left.
    [[nodiscard]] WString rest();

private:
    text_pieces(std::string_view bytes, const text_encoding& encoding, std::size_t feeds, std::size_t units) noexcept
        : m_rest(bytes), m_encoding(encoding), m_feeds(feeds), m_units(units)
    {}
    [[nodiscard]] static std::optional<text_pieces> decoded(std::string_view bytes, const text_encoding& encoding);
    void make_room(std::size_t units);

    std::string_view m_rest;          // UTF-8: what has not been decoded yet
    WString m_whole;                  // any other text: all of it is one piece
    bool m_given = false;             // that piece was handed over
    std::unique_ptr<WCHAR[]> m_room;  // of the piece
    std::size_t m_roomUnits = 0;
    text_encoding m_encoding;
    std::size_t m_feeds;
    std::size_t m_units;  // of the text, carriage returns that are dropped counted too
};

}  // namespace zsl
