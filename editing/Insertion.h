#pragma once

#include "editing/PieceReader.h"
#include "store/MyStr.h"

#include <cstdint>

class xTMemStorage;
struct xTTabSettings;

/// Replaces the tabs of a piece where tabs become spaces.
/// @return by how much it grew; below 0 where a tab becomes nothing
std::int32_t ExpandTabs(xTExtString& piece, const xTTabSettings* tabs);

/// Inserts a piece without line feeds in the line of the caret, which ends behind it; it stays where the line has no memory
/// for the piece, of which the user is told.
/// @param count grows by what tabs became
/// @return how many characters have come into the line
std::int32_t InsertAtCaret(xTMemStorage& store, xTExtString piece, std::int32_t& count);

/// Breaks the line at the caret and puts the caret at the start of the new one.
void BreakAtCaret(xTMemStorage& store);

/// What the lines have that come in before the tail of a line that was split: what inserting each there and splitting
/// behind it gives, without moving the tail each time.
class xTLineFrame {
public:
    xTLineFrame() = default;
    explicit xTLineFrame(const xTExtString& tail) : m_inComment(tail.IsInComment(0)), m_flags(tail.m_flags) {}
    /// Gives an untouched line what it has there.
    void Dress(xTExtString& line) const;

private:
    bool m_inComment = false;   // text put there lies in a comment
    std::uint16_t m_flags = 0;  // those of the tail
};

/// One insertion of a counted text at the caret of a store, in the pieces that line feeds part it into.
class xTInsertion {
public:
    /// @param count grows with folds and tabs as the insertion goes on
    xTInsertion(xTMemStorage& store, const CString& text, std::int32_t& count);

    void Run();
    /// Writes the folds made so far into the text that was given.
    void WriteFolds(CString& text) const { m_reader.WriteFolds(text); }
    /// How many characters have come into the text so far.
    [[nodiscard]] std::int32_t Put() const noexcept { return m_put; }

private:
    bool FitPiece();
    bool PutPiece();
    void StepToNewLine();
    void PrepareWholeLines();
    void PutWholeLine();

    xTMemStorage& m_store;
    std::int32_t& m_count;
    std::int32_t m_put = 0;
    xTPieceReader m_reader;
    xTStringSlabs m_slabs;
    bool m_carves = false;
    bool m_atNewLine = false;   // the caret is at the start of the tail of a line that was split
    xTLineFrame m_frame;
};
