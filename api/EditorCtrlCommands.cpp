#include "api/PaintHold.h"

#include "editing/CaretSteps.h"
#include "editing/ClipboardText.h"
#include "include/scrivctl3.h"

#include <iterator>

/// The commands by their code. One that refuses to act still answers true, unless its function says otherwise; and what
/// can be executed is not always what a command asks for when it is. Both are required.
struct CEditorCtrl::xTCommands {
    struct xTRow {
        int code;
        bool (CEditorCtrl::*exec)();
        bool (CEditorCtrl::*can)() const;
    };
    using C = CEditorCtrl;

    static constexpr xTRow rows[] = {
        {ED_COMMAND_UNDO, &C::Undo, &C::CanUndo},
        {ED_COMMAND_REDO, &C::Redo, &C::CanRedo},
        {ED_COMMAND_FIND, &C::OpenFind, &C::Always},
        {ED_COMMAND_REPLACE, &C::OpenReplace, &C::IsEditable},
        {ED_COMMAND_CUT, &C::Cut, &C::CanCut},
        {ED_COMMAND_COPY, &C::Copy, &C::HasSelectionAndFocus},
        {ED_COMMAND_PASTE, &C::Paste, &C::CanPaste},
        {ED_COMMAND_SELECT_ALL, &C::SelectAll, &C::HasFocus},
        {ED_COMMAND_TOGGLE_OVERWRITE, &C::ToggleOverwrite, &C::HasFocus},
        {ED_COMMAND_FIND_NEXT, &C::FindNext, &C::CanFindNext},
        {ED_COMMAND_CLEAR_SELECTION, &C::ClearSelection, &C::HasSelectionAndFocus},
        {ED_COMMAND_SELECT_TO_LINE_END, &C::SelectRest, &C::Always},
        {ED_COMMAND_COPY_APPEND, &C::CopyAppend, &C::HasSelectionAndFocus},
    };

    /// The row of a code; null when there is none.
    static constexpr const xTRow* Find(int code) noexcept
    {
        return code >= 1 && code <= static_cast<int>(std::size(rows)) ? &rows[code - 1] : nullptr;
    }

    static constexpr bool InOrder() noexcept
    {
        for (const xTRow& row : rows)
            if (Find(row.code) != &row)
                return false;
        return true;
    }
};

bool CEditorCtrl::ExecCommand(int code)
{
    static_assert(xTCommands::InOrder());
    const auto* row = xTCommands::Find(code);
    return row && m_store && m_operations && (this->*row->exec)();
}

bool CEditorCtrl::CanExecCommand(int code) const
{
    const auto* row = xTCommands::Find(code);
    return row && (this->*row->can)();
}

bool CEditorCtrl::CanUndo() const
{
    return HasFocus() && m_operations && m_operations->can_undo();
}

bool CEditorCtrl::CanRedo() const
{
    return HasFocus() && m_operations && m_operations->can_redo();
}

bool CEditorCtrl::CanPaste() const
{
    return m_editable && HasFocus() && can_paste(m_hWnd);
}

bool CEditorCtrl::Undo()
{
    return StepBack(&xTOperStack::undo);
}

bool CEditorCtrl::Redo()
{
    return StepBack(&xTOperStack::redo);
}

// The view goes to the place of the step, then the text changes there: one paint shows both.
bool CEditorCtrl::StepBack(bool (xTOperStack::*step)())
{
    if (!HasFocus() || !m_operations)
        return false;
    bool done = false;
    xTOnePaint(*this).Around([&] { done = (m_operations.get()->*step)(); });
    if (done)
        NotifyHost(true, 0);
    return done;
}

bool CEditorCtrl::OpenFind()
{
    m_find.show_find();
    return true;
}

bool CEditorCtrl::OpenReplace()
{
    if (m_editable)
        m_find.show_replace();
    return true;
}

// What was searched for last is the same for all controls.
bool CEditorCtrl::CanFindNext() const
{
    return !xTFindReplace::last_find_text().IsEmpty();
}

bool CEditorCtrl::FindNext()
{
    return m_find.find_next();
}

bool CEditorCtrl::Cut()
{
    if (!CanCut())
        return true;
    m_store->copy_selection();
    AddKey(VK_DELETE);
    return true;
}

bool CEditorCtrl::Copy()
{
    if (HasFocus())
        m_store->copy_selection();
    return true;
}

bool CEditorCtrl::CopyAppend()
{
    if (HasFocus())
        m_store->append_selection();
    return true;
}

// Over a selection these are two steps of undo.
bool CEditorCtrl::Paste()
{
    if (!CanPaste())
        return true;
    if (HasSelection())
        AddKey(VK_DELETE);
    AddKey(xTOperStack::xTOperation::pasteCode);
    if (m_store)
        m_store->clear_selection();
    return true;
}

bool CEditorCtrl::SelectAll()
{
    if (!HasFocus())
        return false;
    m_store->select_range({0, 0}, m_store->end_pos());
    m_store->set_caret({0, 0});
    Invalidate();
    UpdateNow();
    return true;
}

// It does not ask for the focus, though it is reported as disabled without.
bool CEditorCtrl::ToggleOverwrite()
{
    m_overwrite = !m_overwrite;
    return true;
}

bool CEditorCtrl::ClearSelection()
{
    m_store->clear_selection();
    Invalidate();
    return true;
}

bool CEditorCtrl::SelectRest()
{
    SelectRestOfLine(*m_store);
    Invalidate();
    return true;
}

void CEditorCtrl::InsertText(const WCHAR* text)
{
    if (!text || !*text || !m_editable)
        return;
    if (HasSelection())
        AddKey(VK_DELETE);
    if (m_operations)
        m_operations->add_block(text, xTPos::none, xTPos::none, false);
    if (m_store)
        m_store->clear_selection();
}

void CEditorCtrl::CopyDataFrom(const CEditorCtrl& source)
{
    const xTPos caret = m_store->caret;
    m_store->copy_from(*source.m_store);
    m_fileEncoding = source.m_fileEncoding;  // mark and line ends belong to the text
    m_operations->clear_undo();
    m_operations->clear_redo();
    m_attribs->ReloadFonts(m_memDC.get());
    // The caret as it was before: the copy has brought the other's.
    MoveCaretTo(caret.line, caret.col, true, true, true);
}
