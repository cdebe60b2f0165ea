#include "api/PaintHold.h"

#include "editing/CaretSteps.h"

// What the keys that move the caret do. Where it goes and what becomes of the selection is the store's to say.

namespace {

enum xTDirection : int { left, right, up, down };

}  // namespace

void CEditorCtrl::StepCaret(int direction)
{
    m_store->move_caret(direction);  // asks for the paint that puts the caret image in place
    NotifyHost(false, 0);
}

template <int direction>
void CEditorCtrl::CaretKey(const xTPress&)
{
    constexpr bool vertical = direction == up || direction == down;
    if (vertical)
        m_store->clear_selection();
    if (vertical || !HasSelection()) {
        StepCaret(direction);
    } else if (direction == left) {
        m_store->set_caret(m_store->first());
    } else {
        m_store->set_caret({m_store->last().line, m_store->last().col + 1});
    }
    if (m_store)
        m_store->clear_selection();
}

template <int direction>
void CEditorCtrl::ExtendKey(const xTPress&)
{
    m_store->extend_selection(direction);
}

template <bool down>
void CEditorCtrl::PageKey(const xTPress& press)
{
    const std::int32_t top = m_topLine;
    const xTPos old = m_store->caret;
    // The view scrolls, the caret goes along, a selection changes: it is all painted in one go at the end.
    const xTPaintHold hold(*this, xTLater::picture);
    Invalidate();
    ScrollPage(down ? 1 : 0);
    if (m_store)
        PageStep(*m_store, down, m_topLine - top, old, press.shift);
}

template void CEditorCtrl::CaretKey<left>(const xTPress&);
template void CEditorCtrl::CaretKey<right>(const xTPress&);
template void CEditorCtrl::CaretKey<up>(const xTPress&);
template void CEditorCtrl::CaretKey<down>(const xTPress&);
template void CEditorCtrl::ExtendKey<left>(const xTPress&);
template void CEditorCtrl::ExtendKey<right>(const xTPress&);
template void CEditorCtrl::ExtendKey<up>(const xTPress&);
template void CEditorCtrl::ExtendKey<down>(const xTPress&);
template void CEditorCtrl::PageKey<false>(const xTPress&);
template void CEditorCtrl::PageKey<true>(const xTPress&);

void CEditorCtrl::WordLeftKey(const xTPress& press)
{
    if (press.shift)
        InvalidateStrip(1, 0);
    WordLeft(*m_store, press.shift);
}

void CEditorCtrl::WordRightKey(const xTPress& press)
{
    if (press.shift)
        InvalidateStrip(0, 1);
    WordRight(*m_store, press.shift);
}

void CEditorCtrl::HomeKey(const xTPress& press)
{
    HomeStep(*m_store, press.shift);
}

void CEditorCtrl::EndKey(const xTPress& press)
{
    EndStep(*m_store, press.shift);
}

void CEditorCtrl::DocumentStartKey(const xTPress& press)
{
    DocumentKey({0, 0}, press.shift);
}

void CEditorCtrl::DocumentEndKey(const xTPress& press)
{
    DocumentKey(m_store->end_pos(), press.shift);
}

void CEditorCtrl::DocumentKey(const xTPos& target, bool shift)
{
    if (shift)
        m_store->select_range(m_store->caret, target);
    else
        m_store->clear_selection();
    MoveCaretTo(target.line, target.col, true, false, true);
}

// What follows a Home or End step: the caret goes where the step has left it.
void CEditorCtrl::ShowStep()
{
    m_caret.Hide();
    m_store->set_caret(m_store->caret);
    m_caret.Show();
    Invalidate();
    UpdateNow();
}

// Unlike the command that selects the rest of the line, this leaves the caret at the home position.
void CEditorCtrl::SelectRestFromHome()
{
    const xTPos caret = m_store->caret;
    SelectRestOfLine(*m_store);
    m_store->home_caret(caret);
    Invalidate();
    UpdateNow();
}
