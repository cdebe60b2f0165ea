#include "editing/HeldText.h"

#include "editing/CommentUnits.h"
#include "editing/Insertion.h"
#include "store/MemStor.h"
#include "store/WideScan.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace {

constexpr std::int32_t longestText = std::numeric_limits<std::int32_t>::max() / 4;

bool TabsStay(const xTMemStorage& store) noexcept
{
    return !store.attribs || store.attribs->m_keepTabs;
}

// Would a string of it, inserted, be parted where this text is not: by a line feed, which a replacement may have
// brought in, or by a zero, where it ends?
bool IsParted(WStrView text) noexcept
{
    constexpr WCHAR parting[] = {_T('\n'), 0};
    return FindAnyUnit(text, parting, 0) < text.size();
}

// The last of `count` characters from a place on, a break being one.
xTPos LastOf(const xTMemStorage& store, const xTPos& from, std::int64_t count)
{
    xTPos at = from;
    for (std::int64_t rest = store.line_length(at.line) - at.col; count > rest && at.line < store.line_count();
         rest = store.line_length(at.line)) {
        count -= rest + 1;
        at = {at.line + 1, 0};
    }
    return {at.line, at.col + static_cast<std::int32_t>(count) - 1};
}

// Takes a piece off the beginning of a text. Returns false when the text does not begin with it.
bool TakeOff(WStrView& text, WStrView piece) noexcept
{
    // Compared as bytes: the library compares wide units one by one.
    if (piece.size() > text.size() || std::memcmp(text.data(), piece.data(), piece.size() * sizeof(WCHAR)) != 0)
        return false;
    text.remove_prefix(piece.size());
    return true;
}

// Gives a new line the characters of another, and its comment marks if they are wanted.
void ShareLine(xTExtString& line, xTExtString& other, bool withMarks) noexcept
{
    line.m_text = other.m_text.Share();
    if (!withMarks)
        return;
    line.m_attrs = other.m_attrs;
    line.m_flags = other.m_flags & xTExtString::commentFlags;
    line.m_beganInside = other.m_beganInside;
}

bool FitsInLine(std::int32_t present, std::int32_t added) noexcept
{
    return added == 0 || present + added <= xTMemStorage::insertLimit;
}

}  // namespace

// A text without its whole lines. Null where there are none.
std::shared_ptr<xTHeldText> xTHeldText::Ends(const xTMemStorage& store, const xTPos& from, const xTPos& last)
{
    if (!store.is_valid_pos(from) || last.line - from.line < 2)
        return nullptr;
    std::shared_ptr<xTHeldText> text(new xTHeldText);
    text->m_head = store.lines[from.line].m_text.Mid(from.col);
    text->m_tail = store.lines[last.line].m_text.Left(std::min(last.col, store.line_length(last.line)) + 1);
    text->m_firstLine = from.line + 1;
    text->m_lineCount = last.line - from.line - 1;
    text->m_marksRight = !store.stale.Meets(from.line + 1, last.line - 1, store.line_count());
    return text;
}

// What the range is, its lines not being in here yet; null when that has to be a string.
std::shared_ptr<xTHeldText> xTHeldText::LookAt(const xTMemStorage& store, const xTPos& from, const xTPos& to)
{
    std::shared_ptr<xTHeldText> text = Ends(store, from, std::min(to, store.end_pos()));
    if (!text)
        return nullptr;
    text->m_facts = text->LookAtLines(store.lines, text->m_firstLine);
    const bool readsAsItIs = !text->m_facts->isParted && (!text->m_facts->holdsTab || TabsStay(store));
    return readsAsItIs ? std::move(text) : nullptr;
}

std::shared_ptr<xTHeldText> xTHeldText::Plan(const xTMemStorage& store, const xTPos& from, const xTPos& to)
{
    const xTPos end = store.end_pos();
    if (from == xTPos(0, 0) && to.line >= end.line && (to.line > end.line || to.col >= end.col - 1)) {
        if (std::shared_ptr<xTHeldText> text = PlanWholeText(store))
            return text;
    }
    return PlanLines(store, from, to);
}

std::shared_ptr<xTHeldText> xTHeldText::PlanLines(const xTMemStorage& store, const xTPos& from, const xTPos& to)
{
    std::shared_ptr<xTHeldText> text = LookAt(store, from, to);
    if (!text || !text->GoesLineByLine(store, from))
        return nullptr;
    store.lines.ReserveForTakeOut(text->m_lineCount, text->m_lines);
    return text;
}

// Null where only a look at each line could tell whether it is held, and what its deletion leaves.
std::shared_ptr<xTHeldText> xTHeldText::PlanWholeText(const xTMemStorage& store)
{
    constexpr std::int32_t mostLines = longestText / (xTMemStorage::joinLimit + 1);
    if (!TabsStay(store) || !store.has_short_lines() || store.line_count() > mostLines)
        return nullptr;
    std::shared_ptr<xTHeldText> text = Ends(store, {0, 0}, store.end_pos());
    if (!text)
        return nullptr;
    text->m_isWholeText = true;
    text->m_ahead = 1;  // the first line goes with the others: its characters are the head
    store.lines.ReserveForTakeOut(text->m_lineCount + text->m_ahead, text->m_lines);
    return text;
}

std::shared_ptr<xTHeldText> xTHeldText::Plan(const xTMemStorage& store, const xTPos& from, std::int32_t count,
                                             const CString& text)
{
    if (!store.is_valid_pos(from) || count != text.GetLength())
        return nullptr;
    std::shared_ptr<xTHeldText> planned = PlanLines(store, from, LastOf(store, from, count));
    const bool same = planned && planned->Length() == count && planned->Spells(text, store.lines, planned->m_firstLine);
    return same ? std::move(planned) : nullptr;
}

std::shared_ptr<xTHeldText> xTHeldText::Share(xTMemStorage& store, const xTPos& from, const xTPos& to)
{
    std::shared_ptr<xTHeldText> text = LookAt(store, from, to);
    if (!text)
        return nullptr;
    xTExtString* const held = text->m_lines.InsertAt(0, text->m_lineCount);
    const bool withMarks = text->BringsMarks();
    for (std::int32_t i = 0; i < text->m_lineCount; ++i)
        ShareLine(held[i], store.lines[text->m_firstLine + i], withMarks);
    text->m_isTaken = true;
    return text;
}

// With its whole lines being those of an array from `first` on.
bool xTHeldText::Spells(WStrView text, const CArray<xTExtString>& lines, std::int32_t first) const
{
    constexpr WStrView lineFeed = _T("\n");
    bool same = TakeOff(text, m_head) && TakeOff(text, lineFeed);
    for (std::int32_t line = first; same && line < first + m_lineCount; ++line)
        same = TakeOff(text, lines[line].m_text) && TakeOff(text, lineFeed);
    return same && TakeOff(text, m_tail) && text.empty();
}

// An empty line takes over the next one, and so does a line that a deletion begins at the end of. Where a join would
// stop at the limit, or take a break more than the whole lines have, the lines do not go one by one.
bool xTHeldText::GoesLineByLine(const xTMemStorage& store, const xTPos& from) const
{
    const std::int32_t first = store.line_length(from.line);
    const std::int32_t longest = std::max(Facts().longest, store.line_length(m_firstLine + m_lineCount));
    if (from.col == 0)
        return std::max(first, longest) <= xTMemStorage::joinLimit;
    if (m_head.IsEmpty())
        return first + longest <= xTMemStorage::joinLimit && !m_tail.IsEmpty();
    return longest <= xTMemStorage::joinLimit;
}

const xTHeldText::xTFacts& xTHeldText::Facts() const
{
    if (!m_facts)
        m_facts = LookAtLines(m_lines, m_ahead);
    return *m_facts;
}

// The whole lines are those of an array from `first` on.
xTHeldText::xTFacts xTHeldText::LookAtLines(const CArray<xTExtString>& lines, std::int32_t first) const
{
    xTFacts facts;
    facts.LookAt(m_head);
    facts.LookAt(m_tail);
    std::int64_t length = 0;
    for (std::int32_t index = first; index < first + m_lineCount; ++index) {
        const xTExtString& line = lines[index];
        const CString& text = line.m_text;
        facts.LookAt(text);
        length += text.GetLength() + 1;
        facts.longest = std::max(facts.longest, text.GetLength());
        facts.emptyAtEnd = text.IsEmpty() ? facts.emptyAtEnd + 1 : 0;
        facts.hasAllWords = facts.hasAllWords && line.m_attrs.GetLength() == text.GetLength();
    }
    facts.wholeLength = static_cast<std::int32_t>(std::min<std::int64_t>(length, longestText));
    facts.isParted = facts.isParted || length >= longestText;
    return facts;
}

void xTHeldText::xTFacts::LookAt(WStrView text)
{
    if (!holdsMark && HoldsCommentUnit(text)) {
        holdsUnit = true;
        holdsMark = HoldsCommentMark(text);
    }
    if (!AnyUnitUpTo(text, _T('\r')))
        return;  // nearly every line
    const std::size_t indent = std::min(text.find_first_not_of(_T('\t')), text.size());
    const WStrView rest = text.substr(indent);
    holdsTab = holdsTab || indent > 0 || FindUnit(rest, _T('\t'), 0) < rest.size();
    isParted = isParted || (AnyUnitUpTo(rest, _T('\r')) && IsParted(rest));
}

bool xTHeldText::FitsAt(const xTMemStorage& store, const xTPos& pos) const
{
    const xTFacts& facts = Facts();
    if (!store.is_valid_pos(pos) || facts.isParted || (facts.holdsTab && !TabsStay(store)))
        return false;
    const std::int32_t present = store.line_length(pos.line);
    const std::int32_t behind = present - pos.col;  // all but the first piece comes in before the rest of the line
    return FitsInLine(present, m_head.GetLength()) && FitsInLine(behind, std::max(facts.longest, m_tail.GetLength()));
}

bool xTHeldText::PutBack(xTMemStorage& store)
{
    std::int32_t growth = 0;  // stays: nothing that fits is folded or expanded
    if (InsertAtCaret(store, xTExtString(m_head), growth) < m_head.GetLength())
        return false;
    BreakAtCaret(store);
    PutLines(store);
    if (m_tail.IsEmpty())
        return true;
    const bool isIn = InsertAtCaret(store, xTExtString(m_tail), growth) == m_tail.GetLength();
    store.wnd->InvalidateCaretLine();
    return isIn;
}

// What inserting each line before the rest of the caret's line and splitting behind it gives.
void xTHeldText::PutLines(xTMemStorage& store)
{
    if (Facts().holdsUnit)
        store.comments_valid = false;
    const std::int32_t at = store.caret.line;
    if (BringsMarks())
        PutMarkedLines(store, at);
    else
        PutPlainLines(store, at);
}

// A scan follows. What it would make of the lines they bring along, if only the first begins as it did.
void xTHeldText::PutMarkedLines(xTMemStorage& store, std::int32_t at)
{
    xTExtString* const lines = store.lines.InsertAt(at, m_lineCount);
    const std::int32_t count = m_lineCount;
    const std::int32_t ahead = m_ahead;
    for (std::int32_t i = 0; i < count; ++i)
        ShareLine(lines[i], m_lines[ahead + i], true);
    store.stale.Insert(at, m_lineCount, store.line_count());
    store.set_caret_raw({at + m_lineCount, 0});
}

void xTHeldText::PutPlainLines(xTMemStorage& store, std::int32_t at)
{
    const xTLineFrame frame(store.lines[at]);
    store.lines.Reserve(store.lines.GetSize() + m_lineCount);
    for (std::int32_t i = 0; i < m_lineCount; ++i) {
        xTExtString line(m_lines[m_ahead + i].m_text.Share());
        frame.Dress(line);
        *store.lines.InsertAt(at + i) = std::move(line);
        store.note_change(at + i, at + i);
        store.set_caret_raw({at + i + 1, 0});
    }
}

CString xTHeldText::Spelt() const
{
    CString text = CString::Unwritten(Length(), 1);  // the room is for the zero that a deletion puts behind it
    WCHAR* place = text.OwnBuffer();
    const auto put = [&](WStrView piece) {
        place = std::char_traits<WCHAR>::copy(place, piece.data(), piece.size()) + piece.size();
    };
    put(m_head);
    *place++ = _T('\n');
    for (std::int32_t line = 0; line < m_lineCount; ++line) {
        put(m_lines[m_ahead + line].m_text);
        *place++ = _T('\n');
    }
    put(m_tail);
    return text;
}
