#include "editing/Insertion.h"

#include "editing/CommentUnits.h"
#include "store/MemStor.h"

#include <utility>

namespace {

// From so many characters on, the lines of an insertion are carved out of slabs like those of a load.
constexpr std::int64_t slabWorth = 16 * 1024;

}  // namespace

std::int32_t ExpandTabs(xTExtString& piece, const xTTabSettings* tabs)
{
    if (!tabs || tabs->m_keepTabs || piece.m_text.Find(_T('\t')) < 0)
        return 0;
    const std::int32_t before = piece.GetLength();
    piece.ReplaceTabs(WString(static_cast<std::size_t>(tabs->TabSpaces()), _T(' ')));
    return piece.GetLength() - before;
}

std::int32_t InsertAtCaret(xTMemStorage& store, xTExtString piece, std::int32_t& count)
{
    const xTPos pos = store.caret;
    const std::int32_t present = store.line_length(pos.line);
    store.insert_piece(count, pos, piece);
    const std::int32_t put = store.line_length(pos.line) - present;
    // A line without memory for the piece stays as it is, and the caret with it.
    const bool refused = put == 0 && pos.line >= 0 && pos.line < store.line_count();
    store.set_caret_raw({pos.line, pos.col + (refused ? 0 : piece.GetLength())});
    return put;
}

void BreakAtCaret(xTMemStorage& store)
{
    store.split_line(store.caret);
    store.wnd->Invalidate();
    xTPos next = store.caret;
    store.next_pos(next, true);
    store.set_caret_raw(next);
}

void xTLineFrame::Dress(xTExtString& line) const
{
    line.m_flags = m_flags;
    if (m_inComment)
        line.m_attrs = SharedRun(xTExtString::attrBase | xTExtString::attrComment, line.GetLength());
}

xTInsertion::xTInsertion(xTMemStorage& store, const CString& text, std::int32_t& count)
    : m_store(store), m_count(count), m_reader(text, count)
{}

void xTInsertion::Run()
{
    while (m_reader.Next()) {
        if (!FitPiece())
            return;  // what does not fit into a full line is dropped, and all behind it
        if (m_atNewLine && m_reader.IsBroken())
            PutWholeLine();
        else if (!PutPiece())
            return;
    }
}

// Folds a piece that would make the line too long. Returns false when nothing of it fits.
bool xTInsertion::FitPiece()
{
    const std::int64_t present = m_store.line_length(m_store.caret.line);
    // A break alone adds nothing to the line: it comes in whatever the length, as undoing a stopped join needs it.
    if (m_reader.Length() == 0 || present + m_reader.Length() <= xTMemStorage::insertLimit)
        return true;
    const auto room = static_cast<std::int32_t>(xTMemStorage::insertLimit - present);
    if (room <= 0)
        return false;
    m_reader.Fold(room);
    ++m_count;
    return true;
}

// Inserts the piece in the line of the caret. Returns false behind the last piece.
bool xTInsertion::PutPiece()
{
    const std::int32_t before = m_count;
    const std::int32_t put = InsertAtCaret(m_store, xTExtString(m_reader.Piece()), m_count);
    m_put += put;
    if (put < m_reader.Length() + m_count - before) {
        m_count = m_put;  // no memory for it, and the user has been told: undo takes out what has come in
        return false;
    }
    m_reader.Grow(m_count - before);
    if (!m_reader.IsBroken()) {
        m_store.wnd->InvalidateCaretLine();
        return false;
    }
    StepToNewLine();
    return true;
}

void xTInsertion::StepToNewLine()
{
    // A caret outside its line splits nothing and steps to the line that follows: the text goes on there.
    m_atNewLine = m_store.is_valid_pos(m_store.caret);
    BreakAtCaret(m_store);
    ++m_put;
    if (m_atNewLine)
        PrepareWholeLines();
}

// The caret stands before the tail of the line that was split. Each piece that a line feed ends becomes a line before it.
void xTInsertion::PrepareWholeLines()
{
    m_frame = xTLineFrame(m_store.lines[m_store.caret.line]);
    m_carves = m_reader.CharactersAhead() >= slabWorth;
    m_store.lines.Reserve(m_store.lines.GetSize() + m_reader.FeedsAhead());
}

void xTInsertion::PutWholeLine()
{
    xTExtString line(m_carves ? m_slabs.Carve(m_reader.Piece()) : CString(m_reader.Piece()));
    const std::int32_t growth = ExpandTabs(line, m_store.attribs);
    m_frame.Dress(line);
    if (m_store.comments_valid && HoldsCommentUnit(line.m_text))
        m_store.comments_valid = false;
    const std::int32_t at = m_store.caret.line;
    *m_store.lines.InsertAt(at) = std::move(line);
    m_store.note_change(at, at);
    m_put += m_store.line_length(at) + 1;
    m_count += growth;
    m_reader.Grow(growth);
    m_store.set_caret_raw({at + 1, 0});
}
