#pragma once

#include "store/Positions.h"

#include <cstdint>

class xTExtString;
class xTMemStorage;

/// One deletion of counted text, in rounds: each takes what it can of the line that the cursor stands in.
class xTDeletion {
public:
    /// @param split may be null; set when a join stopped at the limit
    xTDeletion(xTMemStorage& store, const xTPos& start, std::int32_t count, bool* split) noexcept
        : m_store(store), m_start(start), m_cursor(start), m_count(count), m_split(split)
    {}

    void Run();
    /// By how many characters the deletion moved what stood behind it in its line, as the last round saw it.
    [[nodiscard]] std::int32_t Shift() const noexcept { return m_shift; }

private:
    void Round();
    void JoinNextLine(xTExtString& line);
    void EndInLine(xTExtString& line);
    void TakeTail(xTExtString& line, std::int64_t rest);
    void Finish(std::int64_t taken);
    bool TakeWholeLines();
    bool StepOverWholeLine(std::int32_t line, std::int32_t& heir);
    void Store(std::int32_t index, const xTExtString& line);

    xTMemStorage& m_store;
    xTPos m_start;
    xTPos m_cursor;
    std::int64_t m_count;
    bool* m_split;
    std::int32_t m_shift = 0;
    bool m_firstRound = true;
};
