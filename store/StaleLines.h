#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// Lines from `first` to `last`, both inclusive.
struct xTLineRange {
    std::int32_t first;
    std::int32_t last;
};

/// The lines whose comment marks may differ from those that a scan of the whole text would give. Changes far apart stay
/// apart, so that the scan that follows looks at the changed places and not at all that lies between them. It starts
/// with every line in doubt. Nothing here allocates or fails.
class xTStaleLines {
public:
    static constexpr std::size_t mostRanges = 32;  ///< of more places the two nearest become one

    /// The marks of all `lineCount` lines are right.
    void Clear(std::int32_t lineCount) noexcept
    {
        m_count = 0;
        m_latest = -1;
        m_near = 0;
        m_leastGap = unknownGap;
        m_lineCount = lineCount;
    }

    /// The lines from `first`, at least 0, to `last`, as they are numbered now, are new or changed. A text that has
    /// become longer or shorter has done so within them: they stand where fewer or more lines stood.
    void Note(std::int32_t first, std::int32_t last, std::int32_t lineCount) noexcept;

    /// `count` lines whose marks are right, if only the first of them begins as it did, came in before line `first`.
    void Insert(std::int32_t first, std::int32_t count, std::int32_t lineCount) noexcept;

    /// True when a line from `first` to `last` may have wrong marks.
    [[nodiscard]] bool Meets(std::int32_t first, std::int32_t last, std::int32_t lineCount) const noexcept;
    /// True when any line may have wrong marks, as for a text that was never scanned.
    [[nodiscard]] bool IsWholeText(std::int32_t lineCount) const noexcept { return m_lineCount != lineCount; }
    /// The one line that was told of last, -1 when that was more than one.
    [[nodiscard]] std::int32_t Latest() const noexcept { return m_latest; }
    /// Ascending, with at least one line between two of them; the last may reach past the end of the text.
    [[nodiscard]] std::span<const xTLineRange> Ranges() const noexcept { return std::span(m_ranges).first(m_count); }

private:
    static constexpr std::int32_t unknown = -1;
    static constexpr std::int32_t unknownGap = 0;  // below any gap that there is

    [[nodiscard]] bool NoteNear(std::int32_t first, std::int32_t last) noexcept;
    void JoinNearest() noexcept;

    std::array<xTLineRange, mostRanges + 1> m_ranges{};
    std::size_t m_count = 0;
    std::size_t m_near = 0;  // the range told of last: the next place is mostly in it or behind it
    // From the last line of a range to the first of the next it is no less, but for that behind the range told of last.
    std::int32_t m_leastGap = unknownGap;
    std::int32_t m_latest = -1;
    std::int32_t m_lineCount = unknown;  // the lines of the text that the ranges are told of
};
