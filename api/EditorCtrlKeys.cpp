#include "api/PaintHold.h"

#include "diagnostics/Guarded.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <ranges>

// Which key does what, and typing. The moves of the caret stand in EditorCtrlCaretKeys, what changes the text or the
// clipboard in EditorCtrlEditKeys.

namespace {

constexpr WCHAR backspace = 8;
constexpr WCHAR tab = 9;
constexpr WCHAR escape = 27;
constexpr WORD altDown = 0x2000;  // in the high word of a character's lParam

/// The keys that go with another one, asked for in one call.
struct xTHeld {
    bool shift;
    bool ctrl;
    bool insertOrDelete;
};

xTHeld HeldKeys() noexcept
{
    std::array<BYTE, 256> state{};
    ::GetKeyboardState(state.data());
    const auto isDown = [&](std::size_t key) { return (state[key] & 0x80) != 0; };
    return {isDown(VK_SHIFT), isDown(VK_CONTROL), isDown(VK_INSERT) || isDown(VK_DELETE)};
}

// With Alt down a key types one of these; 0 leaves the key to the system. For the comma, the period and the quotation
// mark the two are the other way round than in the other rows, and '5' is not here: required.
struct xTAltRow {
    UINT key;
    WCHAR plain;
    WCHAR shifted;
};

constexpr xTAltRow altRows[] = {
    {'2', L'@', 0},
    {'3', L'#', 0},
    {'4', L'$', 0},
    {'6', L'^', 0},
    {'7', L'&', 0},
    {VK_OEM_1, L';', L':'},
    {VK_OEM_COMMA, L'<', L','},
    {VK_OEM_PERIOD, L'>', L'.'},
    {VK_OEM_3, L'`', L'~'},
    {VK_OEM_4, L'[', L'{'},
    {VK_OEM_6, L']', L'}'},
    {VK_OEM_7, L'"', L'\''},
};

WCHAR AltCharacter(UINT key, bool shift)
{
    const auto* row = std::ranges::find(altRows, key, &xTAltRow::key);
    return row == std::end(altRows) ? WCHAR{0} : shift ? row->shifted : row->plain;
}

}  // namespace

/// The key map. Rows are tried from the top; the first that fits the key, the modifiers and the control is the one.
struct CEditorCtrl::xTKeyMap {
    enum xTMods : unsigned { plain = 1, shift = 2, ctrl = 4, ctrlShift = 8, any = 15 };
    enum class xTNeeds { nothing, editable, readOnly };
    static constexpr UINT anyKey = ~0U;

    using xTStep = void (CEditorCtrl::*)();
    using xTClosing = std::array<xTStep, 4>;  // done in this order, up to the first null

    struct xTRow {
        UINT key;
        unsigned mods;  // xTMods
        xTNeeds needs;
        void (CEditorCtrl::*effect)(const xTPress&);  // null: nothing
        xTClosing closing;

        [[nodiscard]] constexpr bool Fits(UINT pressed, unsigned held, bool isEditable) const noexcept
        {
            return (key == pressed || key == anyKey) && (mods & held) != 0 &&
                   (needs == xTNeeds::nothing || (needs == xTNeeds::editable) == isEditable);
        }
    };

    using enum xTNeeds;
    static constexpr xTClosing none{};
    static constexpr xTClosing shown{&CEditorCtrl::UpdateNow, &CEditorCtrl::EnsureCaretVisible};
    static constexpr xTClosing lineShown{&CEditorCtrl::UpdateNow, &CEditorCtrl::EnsureCaretVisible,
                                         &CEditorCtrl::InvalidateCaretLine};
    static constexpr xTClosing stepShown{&CEditorCtrl::ShowStep, &CEditorCtrl::EnsureCaretVisible,
                                         &CEditorCtrl::InvalidateCaretLine, &CEditorCtrl::NotifyCaret};
    static constexpr xTClosing told{&CEditorCtrl::NotifyCaret};
    static constexpr xTClosing repainted{&CEditorCtrl::Invalidate};

    enum xTDirection : int { left, right, up, down };
    using C = CEditorCtrl;

    // Kept though they look like slips: Insert alone deletes a selection while it flips the mode, on a read-only control
    // it is the left arrow, and the letters are taken by either of two numbers, so that F6 is U and Separator is L.
    static constexpr xTRow rows[] = {
        {VK_SHIFT, any, nothing, nullptr, none},
        {VK_CONTROL, any, nothing, nullptr, none},
        {VK_MENU, any, nothing, nullptr, none},
        {VK_TAB, plain | shift, editable, &C::IndentKey, none},
        {VK_LEFT, ctrl | ctrlShift, nothing, &C::WordLeftKey, shown},
        {VK_LEFT, shift, nothing, &C::ExtendKey<left>, shown},
        {VK_LEFT, plain, nothing, &C::CaretKey<left>, shown},
        {VK_RIGHT, ctrl | ctrlShift, nothing, &C::WordRightKey, shown},
        {VK_RIGHT, shift, nothing, &C::ExtendKey<right>, shown},
        {VK_RIGHT, plain, nothing, &C::CaretKey<right>, shown},
        {VK_UP, shift, nothing, &C::ExtendKey<up>, lineShown},
        {VK_UP, plain, nothing, &C::CaretKey<up>, lineShown},
        {VK_DOWN, shift, nothing, &C::ExtendKey<down>, lineShown},
        {VK_DOWN, plain, nothing, &C::CaretKey<down>, lineShown},
        {VK_HOME, plain | shift, nothing, &C::HomeKey, stepShown},
        {VK_HOME, ctrl | ctrlShift, nothing, &C::DocumentStartKey, told},
        {VK_END, plain | shift, nothing, &C::EndKey, stepShown},
        {VK_END, ctrl | ctrlShift, nothing, &C::DocumentEndKey, told},
        {VK_PRIOR, plain | shift, nothing, &C::PageKey<false>, repainted},
        {VK_NEXT, plain | shift, nothing, &C::PageKey<true>, repainted},
        {VK_INSERT, plain, editable, &C::InsertKey, none},
        {VK_INSERT, ctrl, editable, &C::CopyKey, none},
        {VK_INSERT, shift | ctrlShift, editable, &C::PasteKey, none},
        {VK_INSERT, ctrl | ctrlShift, readOnly, &C::WordLeftKey, shown},
        {VK_INSERT, shift, readOnly, &C::ExtendKey<left>, shown},
        {VK_INSERT, plain, readOnly, &C::CaretKey<left>, shown},
        {VK_DELETE, plain | ctrl, editable, &C::DeleteKey, none},
        {VK_DELETE, shift, editable, &C::CutKey, none},
        {VK_DIVIDE, ctrl | ctrlShift, editable, &C::CommentKey, none},
        {'U', ctrl | ctrlShift, editable, &C::CaseKey, none},
        {VK_F6, ctrl | ctrlShift, editable, &C::CaseKey, none},
        {'L', ctrl | ctrlShift, editable, &C::LayoutKey, none},
        {VK_SEPARATOR, ctrl | ctrlShift, editable, &C::LayoutKey, none},
        {anyKey, any, editable, &C::OtherKey, none},
        {anyKey, any, readOnly, nullptr, none},
    };

    static constexpr unsigned ModsOf(bool shiftHeld, bool ctrlHeld) noexcept
    {
        return ctrlHeld ? (shiftHeld ? ctrlShift : ctrl) : (shiftHeld ? shift : plain);
    }

    static constexpr const xTRow& RowOf(UINT key, unsigned held, bool isEditable) noexcept
    {
        const xTRow* row = rows;
        while (!row->Fits(key, held, isEditable))
            ++row;  // the last rows fit anything
        return *row;
    }

    /// No row stands behind another that takes its key in the same state.
    static constexpr bool EachStateOnce() noexcept
    {
        for (const xTRow& row : rows) {
            for (const unsigned held : {plain, shift, ctrl, ctrlShift})
                for (const bool isEditable : {false, true})
                    if (row.Fits(row.key, held, isEditable) && &RowOf(row.key, held, isEditable) != &row)
                        return false;
        }
        return true;
    }
};

LRESULT CEditorCtrl::OnGetDlgCode(const xTMessage&)
{
    static_assert((DLGC_WANTCHARS | DLGC_WANTALLKEYS | DLGC_WANTTAB) == 0x86);
    return DLGC_WANTCHARS | DLGC_WANTALLKEYS | DLGC_WANTTAB;
}

LRESULT CEditorCtrl::OnKeyDown(const xTMessage& message)
{
    const LRESULT result = Default(message);
    Guarded([&] {
        const xTHeld held = HeldKeys();
        InvalidateRect(CaretBlockingRect());
        PressKey({static_cast<UINT>(message.wParam), held.shift, held.insertOrDelete}, held.ctrl);
    });
    return result;
}

void CEditorCtrl::PressKey(const xTPress& press, bool ctrl)
{
    static_assert(xTKeyMap::EachStateOnce());
    const auto& row = xTKeyMap::RowOf(press.key, xTKeyMap::ModsOf(press.shift, ctrl), m_editable);
    if (!row.effect || !m_store || !m_operations)
        return;
    const auto work = [&] {
        (this->*row.effect)(press);
        for (const auto step : row.closing) {
            if (!step || !m_store)
                return;  // a host may have destroyed the control in answer to what the key did
            (this->*step)();
        }
    };
    // What moves the caret is painted once. What changes the text leaves its paint to the system.
    if (row.closing[0])
        xTOnePaint(*this).Around(work);
    else
        work();
}

LRESULT CEditorCtrl::OnKeyUp(const xTMessage& message)
{
    if (message.wParam == VK_CONTROL)
        m_controlKey = false;
    return Default(message);
}

LRESULT CEditorCtrl::OnChar(const xTMessage& message)
{
    const LRESULT result = Default(message);
    Guarded([&] {
        if (!m_editable || !m_store)
            return;
        const auto ch = static_cast<WCHAR>(message.wParam);
        const xTHeld held = HeldKeys();
        // Such a tab has been an indent already.
        if (ch == tab && (m_store->last().line > m_store->first().line || held.shift))
            return;
        // Control alone never types, Control with Alt does.
        if (!(HIWORD(message.lParam) & altDown) && held.ctrl)
            return;
        TypeChar(ch);
        EnsureCaretVisible();
    });
    return result;
}

void CEditorCtrl::TypeChar(WCHAR ch)
{
    InvalidateCaretLine();
    if (ch == escape)
        return;
    if (HasSelection()) {
        AddKey(VK_DELETE);
        if (ch == backspace)
            return;
        InvalidateCaretLine();
    }
    AddChar(ch);
}

// One keystroke, shown and told.
void CEditorCtrl::AddChar(WCHAR ch)
{
    if (m_operations)
        m_operations->add_char(ch, m_overwrite);
    NotifyHost(true, 0);
    UpdateNow();
}

void CEditorCtrl::AddKey(UINT key)
{
    if (m_operations)
        m_operations->add_key(key);
}

LRESULT CEditorCtrl::OnSysKeyDown(const xTMessage& message)
{
    const xTHeld held = HeldKeys();
    const WCHAR ch = AltCharacter(static_cast<UINT>(message.wParam), held.shift);
    if (!m_editable || held.ctrl || ch == 0)
        return Default(message);
    Guarded([&] {
        // A selection stays where it is, unlike when a character is typed.
        InvalidateCaretLine();
        AddChar(ch);
        EnsureCaretVisible();
    });
    return 0;
}

// Swallowed: what such a character would do was done when its key went down.
LRESULT CEditorCtrl::OnSysChar(const xTMessage&)
{
    return 0;
}
