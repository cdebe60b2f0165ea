#include "api/EditorCtrl.h"

// What the keys that change the text or the clipboard do.

void CEditorCtrl::IndentKey(const xTPress& press)
{
    if (!press.shift && !HasSelection())
        return;  // the character that follows types the tab
    // Within a line, and with no selection at all, the rest of the caret's line is indented.
    if (m_store->first().line == m_store->last().line)
        SelectRestFromHome();
    if (m_operations)
        m_operations->add_indent(press.shift);
}

void CEditorCtrl::CommentKey(const xTPress& press)
{
    if (m_store->first().line == m_store->last().line)
        SelectRestFromHome();
    if (m_operations)
        m_operations->add_comment(press.shift ? 1 : 0);
}

void CEditorCtrl::CaseKey(const xTPress& press)
{
    if (HasSelection())
        m_operations->add_case(press.shift);
}

void CEditorCtrl::LayoutKey(const xTPress&)
{
    if (HasSelection())
        m_operations->add_layout();
}

void CEditorCtrl::InsertKey(const xTPress& press)
{
    m_overwrite = !m_overwrite;
    PasteKey(press);  // which pastes only with Shift held
}

void CEditorCtrl::CopyKey(const xTPress& press)
{
    Copy();
    AddKey(press.key);  // changes nothing, and ends the redo chain: required
}

void CEditorCtrl::PasteKey(const xTPress& press)
{
    if (HasSelection())
        AddKey(VK_DELETE);
    AddKey(press.key);
}

void CEditorCtrl::DeleteKey(const xTPress&)
{
    AddKey(VK_DELETE);
}

void CEditorCtrl::CutKey(const xTPress&)
{
    Copy();
    AddKey(VK_DELETE);
}

void CEditorCtrl::OtherKey(const xTPress& press)
{
    // Only with one of these held such a key does anything; asking for them one by one costs more than the rest of it.
    if (press.insertOrDelete)
        AddKey(press.key);
}

void CEditorCtrl::ShowModeIn(HWND label) const
{
    ::SetWindowTextW(label, m_overwrite ? L"ЗАБ" : L"ВСТ");
    ::InvalidateRect(label, nullptr, TRUE);
}
