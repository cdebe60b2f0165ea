#include "appearance/ColorSelect.h"

#include "appearance/AttribData.h"
#include "diagnostics/Guarded.h"

#include <new>

namespace {

constexpr COLORREF black = 0x000000;
constexpr COLORREF white = 0xFFFFFF;
constexpr int frameInset = 2;  // pixels, from the cell's border to the frame of the focus

void ShowArrow() noexcept
{
    ::SetCursor(::LoadCursorW(nullptr, IDC_ARROW));  // the window class has no cursor of its own
}

}  // namespace

// ---- One cell

CColorCell::CColorCell(int number) noexcept
    : m_number(number), m_brush(::CreateSolidBrush(xTAttribData::ColorIndexToRef(number)))
{
}

bool CColorCell::Create(const RECT& place, HWND grid) noexcept
{
    return CreateWnd({0, nullptr, WS_CHILD | WS_VISIBLE | WS_BORDER, place, grid, m_number});
}

void CColorCell::OnFault() noexcept
{
    ReportCurrent({__FILE__, __LINE__});
}

void CColorCell::SetFlags(bool selected, bool focused) noexcept
{
    m_selected = selected;
    m_focused = focused;
    if (m_hWnd)
        ::InvalidateRect(m_hWnd, nullptr, FALSE);
}

LRESULT CColorCell::WindowProc(const xTMessage& message)
{
    switch (message.id) {
    case WM_PAINT:
        Paint();
        return 0;
    case WM_SETCURSOR:
        ShowArrow();
        return TRUE;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        if (auto* grid = CColorSelectCtrl::FromHandle(::GetParent(m_hWnd))) {
            const xTWndScope scope(*grid);
            grid->Choose(m_number);
        }
        return 0;
    case WM_GETDLGCODE:
    case WM_KEYDOWN:
        // A cell gets the keyboard only if somebody gives it; the keys do there what they do in the grid.
        return ::SendMessageW(::GetParent(m_hWnd), message.id, message.wParam, message.lParam);
    default:
        return Default(message);
    }
}

bool CColorCell::ShowsFocus() const noexcept
{
    const HWND focus = ::GetFocus();
    return m_focused && focus && (focus == m_hWnd || focus == ::GetParent(m_hWnd));
}

COLORREF CColorCell::Contrast() const noexcept
{
    return (m_number >= 3 && m_number <= 8) || m_number == 16 ? black : white;
}

void CColorCell::Paint() const
{
    const xTPaintDC dc(m_hWnd);
    RECT area{};
    ::GetClientRect(m_hWnd, &area);
    ::FillRect(dc.get(), &area, m_brush.get());
    if (ShowsFocus()) {
        const xTBrush frame(::CreateSolidBrush(Contrast()));
        RECT inner = area;
        ::InflateRect(&inner, -frameInset, -frameInset);
        ::FrameRect(dc.get(), &inner, frame.get());
    }
    if (!m_selected)
        return;
    ::SetBkMode(dc.get(), TRANSPARENT);
    ::SetTextColor(dc.get(), Contrast());
    // The dialog's own font, so that the mark grows with the resolution.
    const auto font = reinterpret_cast<HGDIOBJ>(::SendMessageW(::GetParent(::GetParent(m_hWnd)), WM_GETFONT, 0, 0));
    const xTSelect selected(dc.get(), font ? font : ::GetStockObject(DEFAULT_GUI_FONT));
    ::DrawTextW(dc.get(), L"x", 1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

// ---- The grid

bool CColorSelectCtrl::Create(const RECT& place, HWND parent, int id) noexcept
{
    const xTWndScope scope(*this);
    if (!CreateWnd({0, nullptr, WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN, place, parent, id}))
        return false;
    DeleteWithWindow();
    MakeCells();
    return m_hWnd != nullptr;
}

CColorSelectCtrl* CColorSelectCtrl::FromHandle(HWND wnd) noexcept
{
    return dynamic_cast<CColorSelectCtrl*>(CWnd::FromHandle(wnd));
}

void CColorSelectCtrl::OnFault() noexcept
{
    ReportCurrent({__FILE__, __LINE__});
}

// Each cell has a quarter of the width and of the height, truncated: what is left over stays at the right and below.
void CColorSelectCtrl::MakeCells() noexcept
{
    RECT area{};
    ::GetClientRect(m_hWnd, &area);
    const LONG width = area.right / rowLength;
    const LONG height = area.bottom / rowLength;
    for (int i = 0; i < cellCount; ++i) {
        auto* cell = new (std::nothrow) CColorCell(i + 1);
        if (!cell)
            return;
        const xTWndScope scope(*cell);
        const LONG left = i % rowLength * width;
        const LONG top = i / rowLength * height;
        if (cell->Create({left, top, left + width, top + height}, m_hWnd))
            cell->DeleteWithWindow();
        else
            cell->DeleteWhenUnwound();
    }
}

CColorCell* CColorSelectCtrl::Cell(int number) const noexcept
{
    return dynamic_cast<CColorCell*>(CWnd::FromHandle(::GetDlgItem(m_hWnd, number)));
}

int CColorSelectCtrl::Selected() const noexcept
{
    for (int number = 1; number <= cellCount; ++number)
        if (const CColorCell* cell = Cell(number); cell && cell->IsSelected())
            return number;
    return 0;
}

int CColorSelectCtrl::FocusedIndex() const noexcept
{
    for (int i = 0; i < cellCount; ++i)
        if (const CColorCell* cell = Cell(i + 1); cell && cell->IsFocused())
            return i;
    return 0;
}

void CColorSelectCtrl::Select(int number) noexcept
{
    for (int each = 1; each <= cellCount; ++each)
        if (CColorCell* cell = Cell(each))
            cell->SetFlags(each == number, each == number);
}

void CColorSelectCtrl::Choose(int number)
{
    Select(number);
    ::SetFocus(m_hWnd);  // never to the cell: the grid's keys are one thing
    if (m_hWnd)
        ::SendMessageW(::GetParent(m_hWnd), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(m_hWnd), chosen),
                       reinterpret_cast<LPARAM>(m_hWnd));
}

// Left and right run through all sixteen as one row, up and down stay in their column; both come round at the ends.
bool CColorSelectCtrl::MoveFocus(WPARAM key) noexcept
{
    const auto step = [&]() -> int {
        switch (key) {
        case VK_LEFT: return cellCount - 1;
        case VK_RIGHT: return 1;
        case VK_UP: return cellCount - rowLength;
        case VK_DOWN: return rowLength;
        default: return 0;
        }
    }();
    if (step == 0)
        return false;
    const int next = (FocusedIndex() + step) % cellCount;
    for (int i = 0; i < cellCount; ++i)
        if (CColorCell* cell = Cell(i + 1))
            cell->SetFlags(cell->IsSelected(), i == next);
    return true;
}

bool CColorSelectCtrl::OnKey(WPARAM key)
{
    if (key != VK_SPACE)
        return MoveFocus(key);
    Choose(FocusedIndex() + 1);
    return true;
}

// The frame is seen only while the grid has the keyboard; a grid that shows no colour starts at its first cell.
void CColorSelectCtrl::OnFocus() noexcept
{
    if (CColorCell* cell = Cell(FocusedIndex() + 1))
        cell->SetFlags(cell->IsSelected(), true);
}

LRESULT CColorSelectCtrl::WindowProc(const xTMessage& message)
{
    switch (message.id) {
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN:
        return OnKey(message.wParam) ? 0 : Default(message);
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        OnFocus();
        return Default(message);
    case WM_SETCURSOR:
        ShowArrow();
        return TRUE;
    case WM_ERASEBKGND: {
        // What the cells leave over is the dialog's; the class itself may have the null brush.
        RECT area{};
        ::GetClientRect(m_hWnd, &area);
        ::FillRect(reinterpret_cast<HDC>(message.wParam), &area, ::GetSysColorBrush(COLOR_BTNFACE));
        return TRUE;
    }
    default:
        return Default(message);
    }
}
