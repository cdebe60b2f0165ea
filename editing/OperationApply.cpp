#include "editing/ReplacedText.h"
#include "editing/SearchMessages.h"
#include "editing/SearchRounds.h"
#include "editing/TextFinder.h"
#include "editing/operations.h"
#include "store/MemStor.h"

#include <algorithm>
#include <cstring>
#include <utility>

// How an operation is done the first time, by its kind.

namespace {

constexpr bool IsBlank(WCHAR ch) noexcept { return ch == _T(' ') || ch == _T('\t'); }

// Blanks alone are no indent: Enter in or behind them carries none to the next line. Required.
std::size_t LeadingBlanks(WStrView text) noexcept
{
    std::size_t blanks = 0;
    while (blanks < text.size() && IsBlank(text[blanks]))
        ++blanks;
    return blanks == text.size() ? 0 : blanks;
}

// From the start of a line through `to`, each break counted as one character.
std::int32_t LengthThrough(const xTMemStorage& store, std::int32_t line, const xTPos& to)
{
    std::int32_t length = std::min(to.col + 1, store.line_length(to.line));
    for (; line < to.line; ++line)
        length += store.line_length(line) + 1;
    return length;
}

}  // namespace

void xTOperation::apply_overwrite()
{
    const WCHAR ch = store->char_at(pos);
    if (ch == _T('\n') || ch == _T('\r')) {  // at the end of a line overwriting becomes inserting
        text.Insert(*store, pos, count);
        kind = insert;
        return;
    }
    const std::int32_t counted = std::exchange(count, 0);  // no step when what is replaced cannot be kept for undo
    CString replaced(ch, 1);
    count = counted;
    store->set_caret(pos);
    store->overwrite_at_caret(text.FirstCharacter());
    text = std::move(replaced);
}

// What took nothing away leaves no step: undoing it would put the text there a second time.
void xTOperation::apply_delete_range()
{
    if (!text.Delete(*store, pos, count))
        count = 0;
}

void xTOperation::apply_backspace()
{
    if (!store->delete_text(pos, count, &split))
        count = 0;
    store->set_caret(pos);
    if (text.FirstCharacter() == _T('\n'))
        invalidate();
}

void xTOperation::apply_enter()
{
    count = 0;  // no step when the indent cannot be had
    auto_indent();
    count = text.String().GetLength();
    text.Insert(*store, pos, count);
}

void xTOperation::auto_indent()
{
    xTExtString line;
    store->get_line(pos.line, line);
    if (pos.col < 0 || pos.col > line.GetLength())
        return;
    const auto column = static_cast<std::size_t>(pos.col);
    const WStrView head = line.m_text.view().substr(0, column);
    const WStrView tail = line.m_text.view().substr(column);
    // The blanks ahead of the break stay on the old line, and undo puts the caret behind them: required.
    pos.col += static_cast<std::int32_t>(LeadingBlanks(tail));
    text.String().Append(head.substr(0, LeadingBlanks(head)));
}

// The earlier of the two places in the text is touched last, so that no position needs adjusting by hand.
void xTOperation::apply_block()
{
    // No memory for it at its new place: it stays at its old one, since there will be no step to bring it back by.
    const auto noneCameIn = [&, wanted = count] { return wanted > 0 && count == 0; };
    after_source = pos >= from;
    if (after_source) {
        text.Insert(*store, pos, count);
        store->select_range(pos, store->caret);
        move = move && !noneCameIn();
    }
    if (move && from != xTPos::none && to != xTPos::none)
        move = text2.Delete(*store, from, count2);
    if (!after_source) {
        text.Insert(*store, pos, count);
        store->select_range(pos, store->caret);
        if (move && noneCameIn())
            text2.Insert(*store, from, count2);
    }
    ensure_caret_visible();
    invalidate();
}

bool xTOperation::apply_replace()
{
    store->replace_and_next(pos, find_text, replace_text, whole_word, match_case);
    invalidate();
    update_now();
    return pos != xTPos::none;  // nothing replaced: no step, though the search has happened all the same
}

void xTOperation::apply_replace_all()
{
    clear_selection();
    replace_matches();
    invalidate();
    update_now();
}

// From the caret to the end of the text, round to the top and on to the first match. The start is not corrected for
// what changes on its line, where the stop may come early or late by that: required.
void xTOperation::replace_matches()
{
    const xTTextFinder finder(find_text, whole_word, match_case);
    const xTPos start = finder.Search(*store, true, true, nullptr);
    const bool holdsTab = find_text.Find(_T('\t')) >= 0;
    xTStringSlabs slabs;
    xTSearchRounds rounds(find_text.view().size(), replace_text.view().size());
    for (xTPos at = start; at != xTPos::none && (!rounds.HasWrapped() || at < start) && !rounds.IsEndless();) {
        rounds.Replace(!match_reads(at, replace_text));
        // The search would come round for ever to a match that could not be replaced, as long as there is no memory.
        if (!replace_match(at, holdsTab, slabs))
            break;
        store->set_caret({at.line, at.col + replace_text.GetLength()});
        bool wrapped = false;
        at = finder.Search(*store, true, true, &wrapped);
        if (wrapped)
            rounds.ComeRound();
    }
    ShowReplaceCount(window, static_cast<std::int32_t>(replacements.size()));
}

// Returns false, with nothing done and nothing recorded, when there is no memory for it.
bool xTOperation::replace_match(const xTPos& at, bool holdsTab, xTStringSlabs& slabs)
{
    CString present;
    if (!match_text(at, holdsTab, present))
        return false;
    const bool isFirst = replacements.empty() || replacements.back().pos.line != at.line;
    replacements.push_back({at, std::move(present), {}});
    xTReplacedText texts;
    if (isFirst) {
        texts.slabs = replacements.size() > xTReplacedText::slabWorth ? &slabs : nullptr;
        texts.before = &replacements.back().line;
    }
    if (store->replace_at(at, find_text, replace_text, texts))
        return true;
    replacements.pop_back();  // it stands as it stood: undo has to leave it alone
    return false;
}

// Most matches are spelt as what was looked for, and share its buffer. One with a tab may read otherwise than it stands.
// Returns false when there was no memory for it.
bool xTOperation::match_text(const xTPos& at, bool holdsTab, CString& present) const
{
    if (!holdsTab && match_reads(at, find_text)) {
        present = find_text;
        return true;
    }
    xTPos end{at.line, at.col + find_text.GetLength() - 1};
    std::int32_t length = 0;
    return store->take_text(at, end, present, length);
}

// Whether the characters of a match are those of `text`.
bool xTOperation::match_reads(const xTPos& at, WStrView text) const
{
    // Compared as bytes: the library compares wide units one by one. A match lies within its line.
    const WCHAR* const match = store->lines[at.line].m_text.c_str() + at.col;
    return text.size() == find_text.view().size() && std::memcmp(match, text.data(), text.size() * sizeof(WCHAR)) == 0;
}

void xTOperation::apply_to_selection()
{
    from = store->first();
    to = store->last();
    pos = from;
    if (!text.Read(*store, from, store->selection.last, count))
        return;  // nothing is changed that could not be undone
    transform_selection();
    invalidate();
}

void xTOperation::transform_selection()
{
    if (kind == change_case)
        store->change_case(to_upper, from, to);
    else
        store->switch_layout(from, to);
}

// Records whole lines, through the first character of the line behind them, which does no harm since undo and redo
// swap the two texts whole.
void xTOperation::apply_to_lines()
{
    changed = store->selection;
    pos = {store->first().line, 0};
    xTPos end{store->last().line + 1, 0};
    // The end is clipped to the text as it is now and stays there: when the last line of the text grows, the text behind
    // the change is recorded only so far. Required.
    if (!text.Read(*store, pos, end, count))
        return;  // nothing is changed that could not be undone
    transform_lines();
    if (!text2.Read(*store, pos, end, count2))
        count2 = LengthThrough(*store, pos.line, end);  // all that undo needs
}

void xTOperation::transform_lines()
{
    switch (kind) {
    case unindent: store->unindent_block(); break;
    case indent: store->indent_block(); break;
    case comment: store->comment_block(false); break;
    default: store->comment_block(true); break;
    }
}

void xTOperation::insert_and_show()
{
    text.Insert(*store, pos, count);
    ensure_caret_visible();
    invalidate();
}

void xTOperation::clear_selection()
{
    store->clear_selection();
}

void xTOperation::invalidate() const
{
    if (window)
        window->Invalidate();
}

void xTOperation::update_now() const
{
    if (window)
        window->UpdateNow();
}

void xTOperation::ensure_caret_visible() const
{
    if (window)
        window->EnsureCaretVisible();
}
