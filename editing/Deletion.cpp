#include "editing/Deletion.h"

#include "editing/CommentUnits.h"
#include "editing/HeldText.h"
#include "framework/base/Exceptions.h"
#include "store/MemStor.h"

#include <utility>

void xTDeletion::Run(bool& begun)
{
    if (m_held && m_held->IsWholeText()) {
        TakeWholeText();
        begun = true;
    }
    while (m_count >= 1 && m_cursor.line < m_store.line_count()) {
        if (!TakeWholeLines())
            Round();
        begun = true;
    }
}

void xTDeletion::Round()
{
    xTExtString line = m_store.lines[m_cursor.line];
    const std::int64_t rest = std::int64_t{line.GetLength()} - m_cursor.col;
    if (HoldsCommentMark(line.m_text))
        m_store.comments_valid = false;
    if (rest == 0 && m_held && m_held->FirstLine() == m_cursor.line + 1) {
        StepToHeldLines(line);
    } else if (rest == 0) {
        JoinNextLine(line);
    } else {
        if (rest >= m_count)
            EndInLine(line);
        else
            TakeTail(line);
        Finish(1 + rest);
    }
    m_firstRound = false;
}

void xTDeletion::Finish(std::int64_t taken)
{
    m_count -= taken;
    m_cursor.col = 0;
}

// The cursor stands on a line break.
void xTDeletion::JoinNextLine(xTExtString& line)
{
    const std::int32_t next = m_cursor.line + 1;
    if (next >= m_store.line_count()) {
        // The break at the end of the text is never removed. In an empty line nothing more can change.
        Finish(line.GetLength() == 0 ? m_count : 1);
        return;
    }
    m_shift = line.GetLength();
    line.Append(m_store.lines[next]);
    if (line.GetLength() <= xTMemStorage::joinLimit) {
        Store(m_cursor.line, line);
        m_store.remove_line(next);
    } else {
        // The two lines stay two lines and the characters move across the break.
        xTExtString rest = m_store.lines[next];
        const xTExtString behind = line.RightPart(xTMemStorage::joinLimit);
        rest.m_text = behind.m_text;
        rest.m_attrs = behind.m_attrs;
        line.m_text = line.m_text.Left(xTMemStorage::joinLimit);
        line.m_attrs = line.m_attrs.Left(xTMemStorage::joinLimit);
        Store(m_cursor.line, line);
        Store(next, rest);
        if (m_split)
            *m_split = true;
    }
    m_count -= 1;
    m_cursor.col = m_shift;
}

// The deletion ends in this line. No limit holds for the join with the line where it began.
void xTDeletion::EndInLine(xTExtString& line)
{
    const std::int32_t before = line.GetLength();
    RemoveFrom(line, static_cast<std::int32_t>(m_count));
    if (!m_firstRound && m_cursor.line > m_start.line) {
        xTExtString head = m_store.lines[m_start.line];
        head.Append(line);
        Store(m_start.line, head);
        m_store.remove_line(m_cursor.line);
    } else {
        Store(m_cursor.line, line);
    }
    m_shift = line.GetLength() - before;
}

// Takes the line from the cursor on. Its break is counted, but goes only when a later round joins what is left of the
// last line to the line where the deletion began: one that begins inside a line and ends on a break leaves that break.
// Required. A line that goes from its first character on is never met here: it goes as a whole.
void xTDeletion::TakeTail(xTExtString& line)
{
    if (m_cursor.col < 0)
        return;
    if (m_cursor.col < line.GetLength())  // a cursor behind the end of its line has nothing to take
        RemoveFrom(line, line.GetLength() - m_cursor.col);
    Store(m_cursor.line, line);
    ++m_cursor.line;
}

// From the cursor on. The line is a copy, so one that has no memory for the change stays in the text as it is.
void xTDeletion::RemoveFrom(xTExtString& line, std::int32_t count) const
{
    const std::int32_t before = line.GetLength();
    line.DeleteSubString(m_cursor.col, count);
    if (before > 0 && line.GetLength() == before)
        ThrowMemoryException();
}

void xTDeletion::Store(std::int32_t index, const xTExtString& line)
{
    m_store.lines[index].copy_data(line);
    m_store.note_change(index, index);
}

// What doing the rounds of all lines comes to where none is too long to be joined: the last line stays, for the round
// that takes its characters, with the marks of the empty lines before it that it was joined to.
void xTDeletion::TakeWholeText()
{
    const std::int32_t last = m_store.line_count() - 1;
    std::int32_t heir = last;
    while (heir > 0 && m_store.line_length(heir - 1) == 0)
        --heir;
    m_store.lines[last].m_flags = m_store.lines[heir].m_flags;
    m_store.lines[last].m_snapshotLine = m_store.lines[heir].m_snapshotLine;
    for (std::int32_t line = 0; line < last && m_store.comments_valid; ++line)
        m_store.comments_valid = !HoldsCommentMark(m_store.lines[line].m_text);
    std::exchange(m_held, nullptr)->TakeLines(m_store.lines);
    m_store.note_change(0, 0);
    m_count = m_store.line_length(0);
    m_firstRound = false;
}

// Does the rounds of all lines from the cursor's on that go as a whole, and removes their records in one block.
// Returns false when there is no such line.
bool xTDeletion::TakeWholeLines()
{
    if (m_cursor.col != 0)
        return false;
    std::int32_t heir = -1;  // the empty line that the next one was joined to: its record is the one that stays
    std::int32_t behind = m_cursor.line;
    while (m_count >= 1) {
        if (m_held && m_held->FirstLine() == behind)
            behind += StepOverHeldLines(heir);
        else if (StepOverWholeLine(behind, heir))
            ++behind;
        else
            break;
    }
    if (behind == m_cursor.line)
        return false;
    if (heir >= 0) {
        xTExtString& kept = m_store.lines[behind];
        kept.m_flags = m_store.lines[heir].m_flags;
        kept.m_snapshotLine = m_store.lines[heir].m_snapshotLine;
    }
    RemoveLines(behind - m_cursor.line);
    m_firstRound = false;
    return true;
}

void xTDeletion::RemoveLines(std::int32_t count)
{
    if (xTHeldText* const held = std::exchange(m_held, nullptr)) {
        held->TakeLines(m_store.lines);
        count -= held->LineCount();
    }
    m_store.lines.RemoveAt(m_cursor.line, count);
    m_store.note_change(m_cursor.line, m_cursor.line);
}

// The deletion begins on a break. The joins that it would make one by one, taking each line again behind them, come to
// the lines going as a whole.
void xTDeletion::StepToHeldLines(const xTExtString& line)
{
    m_shift = line.GetLength();
    m_count -= 1;
    m_cursor = {m_cursor.line + 1, 0};
}

// Of the lines that are held all is known that stepping over them one by one would tell.
std::int32_t xTDeletion::StepOverHeldLines(std::int32_t& heir)
{
    const std::int32_t behind = m_held->FirstLine() + m_held->LineCount();
    const std::int32_t empty = m_held->EmptyAtEnd();
    if (empty < m_held->LineCount())
        heir = -1;
    if (empty > 0) {
        heir = heir < 0 ? behind - empty : heir;
        m_shift = 0;
    }
    if (m_held->HoldsMark())
        m_store.comments_valid = false;
    m_count -= m_held->WholeLength();
    return m_held->LineCount();
}

bool xTDeletion::StepOverWholeLine(std::int32_t index, std::int32_t& heir)
{
    if (index >= m_store.line_count())
        return false;
    const xTExtString& line = m_store.lines[index];
    const std::int32_t length = line.GetLength();
    if (length >= m_count && length > 0)
        return false;  // the deletion ends in it
    if (length == 0) {
        // An empty line takes over the next one, which is too long to be joined at all when it is past the limit.
        if (index + 1 >= m_store.line_count() || m_store.line_length(index + 1) > xTMemStorage::joinLimit)
            return false;
        heir = heir < 0 ? index : heir;
        m_shift = 0;
    } else {
        if (m_store.comments_valid && HoldsCommentMark(line.m_text))
            m_store.comments_valid = false;
        heir = -1;
    }
    m_count -= 1 + length;
    return true;
}
