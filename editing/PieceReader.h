#pragma once

#include "framework/base/CString.h"

#include <algorithm>
#include <vector>

/// Reads a counted text in the pieces between its line feeds, and folds pieces that are too long: a line feed comes in
/// and the rest is the next piece. Folds are noted and written into the text at the end, once for all of them.
///
/// A line feed at the index of the count itself is still seen. A zero ends the text, like the end of the buffer: the
/// count may be larger than the text, since it grows with tabs while the text does not.
class xTPieceReader {
public:
    xTPieceReader(const CString& text, std::int32_t count) noexcept;

    /// @return false when the count is used up
    bool Next() noexcept;
    [[nodiscard]] std::int32_t Length() const noexcept { return static_cast<std::int32_t>(m_stop - m_start); }
    [[nodiscard]] WStrView Piece() const noexcept;
    /// True when the piece is ended by a line feed, be it one that folding puts in.
    [[nodiscard]] bool IsBroken() const noexcept { return m_broken; }

    /// Keeps the first `room` characters of the piece, above 0, and reads the others again.
    void Fold(std::int32_t room);
    /// The count changes by what tabs became.
    void Grow(std::int32_t growth) noexcept { m_limit += growth; }

    [[nodiscard]] std::int64_t FeedsAhead() const noexcept;  ///< line feeds still to come, but for folds
    [[nodiscard]] std::int64_t CharactersAhead() const noexcept { return std::max<std::int64_t>(m_end - m_offset, 0); }

    /// Writes the folds into `text`, which must be the text that was read.
    void WriteFolds(CString& text) const;

private:
    CString m_source;
    std::int64_t m_limit;       // the count, less the folds
    std::int64_t m_end;         // the first zero, or the end of the text
    std::int64_t m_offset = 0;  // one past the last character looked at
    std::int64_t m_start = 0;
    std::int64_t m_stop = 0;
    std::int64_t m_runEnd = 0;  // the line feed behind the run that is being read: a long run is searched once
    bool m_broken = false;
    std::vector<std::int64_t> m_folds;  // in the text as it was given, ascending
};
