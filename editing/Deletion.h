#pragma once

#include "store/Positions.h"

#include <cstdint>

class xTExtString;
class xTHeldText;
class xTMemStorage;

/// One deletion of counted text, in rounds: each takes what it can of the line that the cursor stands in.
class xTDeletion {
public:
    /// @param split may be null; set when a join stopped at the limit
    /// @param held  may be null; planned for just this deletion, it takes the lines that go as a whole
    xTDeletion(xTMemStorage& store, const xTPos& start, std::int32_t count, bool* split, xTHeldText* held) noexcept
        : m_store(store), m_start(start), m_cursor(start), m_count(count), m_split(split), m_held(held)
    {}

    /// @param begun set as soon as something of the text has changed
    void Run(bool& begun);
    /// By how many characters the deletion moved what stood behind it in its line, as the last round saw it.
    [[nodiscard]] std::int32_t Shift() const noexcept { return m_shift; }

private:
    void Round();
    void JoinNextLine(xTExtString& line);
    void EndInLine(xTExtString& line);
    void TakeTail(xTExtString& line);
    void RemoveFrom(xTExtString& line, std::int32_t count) const;
    void Finish(std::int64_t taken);
    void TakeWholeText();
    bool TakeWholeLines();
    bool StepOverWholeLine(std::int32_t index, std::int32_t& heir);
    void StepToHeldLines(const xTExtString& line);
    std::int32_t StepOverHeldLines(std::int32_t& heir);
    void RemoveLines(std::int32_t count);
    void Store(std::int32_t index, const xTExtString& line);

    xTMemStorage& m_store;
    xTPos m_start;
    xTPos m_cursor;
    std::int64_t m_count;
    bool* m_split;
    xTHeldText* m_held;
    std::int32_t m_shift = 0;
    bool m_firstRound = true;
};
