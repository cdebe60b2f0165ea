#pragma once

#include "editing/PieceReader.h"

#include <cstdint>

class xTExtString;
class xTMemStorage;
struct xTTabSettings;

/// Replaces the tabs of a piece where tabs become spaces.
/// @return by how much it grew; below 0 where a tab becomes nothing
std::int32_t ExpandTabs(xTExtString& piece, const xTTabSettings* tabs);

/// One insertion of a counted text at the caret of a store, in the pieces that line feeds part it into.
class xTInsertion {
public:
    /// @param count grows with folds and tabs as the insertion goes on
    xTInsertion(xTMemStorage& store, const CString& text, std::int32_t& count);

    void Run();
    /// Writes the folds made so far into the text that was given.
    void WriteFolds(CString& text) const { m_reader.WriteFolds(text); }

private:
    bool FitPiece();
    bool PutPiece();
    void StepToNewLine();
    void PrepareWholeLines();
    void PutWholeLine();

    xTMemStorage& m_store;
    std::int32_t& m_count;
    xTPieceReader m_reader;
    xTStringSlabs m_slabs;
    bool m_carves = false;
    bool m_atNewLine = false;   // the caret is at the start of the tail of a line that was split
    bool m_inComment = false;   // text put there lies in a comment
    std::uint16_t m_flags = 0;  // those of the tail
};
