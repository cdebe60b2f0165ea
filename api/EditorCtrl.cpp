#include "api/EditorCtrl.h"

#include "diagnostics/Guarded.h"
#include "framework/win/Resource.h"
#include "include/scrivctl3.h"

namespace {

constexpr UINT_PTR scrollTimerId = 3501;
constexpr UINT tickMs = 500;
constexpr UINT scrollMs = 100;
constexpr std::uint32_t bitmapIdleMs = 1000;
constexpr int childWindowId = 103;

// One byte for all controls of the process. Not a scope guard: an exception leaves it set, and every control then skips
// its timer work. Kept on purpose.
bool timerBusy = false;

// What the system's find dialog sends to the control, registered once at load.
const UINT findMessage = ::RegisterWindowMessageW(L"commdlg_FindReplace");

}  // namespace

const xTMessageRow<CEditorCtrl> CEditorCtrl::messages[] = {
    {WM_CREATE, &CEditorCtrl::OnCreate},
    {WM_DESTROY, &CEditorCtrl::OnDestroy},
    {WM_SIZE, &CEditorCtrl::OnSize},
    {WM_SHOWWINDOW, &CEditorCtrl::OnShowWindow},
    {WM_PAINT, &CEditorCtrl::OnPaint},
    {WM_SETFOCUS, &CEditorCtrl::OnSetFocus},
    {WM_KILLFOCUS, &CEditorCtrl::OnKillFocus},
    {WM_TIMER, &CEditorCtrl::OnTimer},
    {WM_GETDLGCODE, &CEditorCtrl::OnGetDlgCode},
    {WM_KEYDOWN, &CEditorCtrl::OnKeyDown},
    {WM_KEYUP, &CEditorCtrl::OnKeyUp},
    {WM_CHAR, &CEditorCtrl::OnChar},
    {WM_SYSKEYDOWN, &CEditorCtrl::OnSysKeyDown},
    {WM_SYSCHAR, &CEditorCtrl::OnSysChar},
    {WM_LBUTTONDOWN, &CEditorCtrl::OnLButtonDown},
    {WM_LBUTTONUP, &CEditorCtrl::OnLButtonUp},
    {WM_LBUTTONDBLCLK, &CEditorCtrl::OnLButtonDblClk},
    {WM_MOUSEMOVE, &CEditorCtrl::OnMouseMove},
    {WM_CAPTURECHANGED, &CEditorCtrl::OnCaptureChanged},
    {WM_VSCROLL, &CEditorCtrl::OnVScroll},
    {WM_HSCROLL, &CEditorCtrl::OnHScroll},
    {WM_MOUSEWHEEL, &CEditorCtrl::OnMouseWheel},
    {ED_DRAG_SCROLL, &CEditorCtrl::OnDragScroll},
    {ED_AFTER_PAINT, &CEditorCtrl::OnAfterPaint},
};

LRESULT CEditorCtrl::WindowProc(const xTMessage& message)
{
    if (message.id == findMessage)
        return m_find.on_find_message(message.lParam);
    const auto* row = FindRow(messages, message.id);
    return row ? (this->*row->handler)(message) : Default(message);
}

void CEditorCtrl::OnFault() noexcept
{
    ReportCurrent({__FILE__, __LINE__});
}

CEditorCtrl::CEditorCtrl(const xTHighlightHook* hook, const xTSettingsBlock& settings, bool editable,
                         std::uint32_t defaultTheme)
    : xTDDWnd(editable),  // a read-only control accepts no drops
      m_settings(settings),
      m_highlightHook(hook ? *hook : xTHighlightHook{}),
      m_editable(editable),
      m_defaultTheme(defaultTheme)
{
}

CEditorCtrl::~CEditorCtrl()
{
    m_caret.Destroy();
}

bool CEditorCtrl::Create(const RECT& rect, HWND parent, const WCHAR* caption) noexcept
{
    const xTResource resources;
    // Without WS_VISIBLE: the control is born hidden, and paints itself only once its host has shown it.
    return CreateWnd({WS_EX_CLIENTEDGE, caption, WS_CHILD | WS_VSCROLL | WS_HSCROLL, rect, parent, childWindowId});
}

CEditorCtrl* CEditorCtrl::FromHandle(HWND control) noexcept
{
    return dynamic_cast<CEditorCtrl*>(CWnd::FromHandle(control));  // a colour cell is a window of ours too
}

LRESULT CEditorCtrl::OnCreate(const xTMessage& message)
{
    if (Default(message) == -1)
        return -1;
    if (std::exchange(m_partsMade, true))
        return 0;  // not the system's message: somebody sent it to a living window
    // After a fault a half-built control goes on living; whoever uses a part asks whether it is there.
    return Guarded(LRESULT{0}, [&]() -> LRESULT {
        StartDrops();
        return m_hWnd && MakeParts() ? 0 : -1;
    });
}

bool CEditorCtrl::MakeParts()
{
    m_caret.SetOwner(this);
    m_ticker = ::SetTimer(m_hWnd, m_ticker, tickMs, nullptr);
    m_scrollTimer = ::SetTimer(m_hWnd, scrollTimerId, scrollMs, nullptr);
    const xTClientDC client(m_hWnd);
    m_memDC.reset(new (std::nothrow) CDC);
    if (!m_memDC)
        return false;
    // The off-screen picture brings the background, so erasing must paint nothing. It holds for all controls: the brush
    // belongs to the class.
    const auto nullBrush = reinterpret_cast<LONG_PTR>(::GetStockObject(NULL_BRUSH));
    if (const auto old = ::SetClassLongPtrW(m_hWnd, GCLP_HBRBACKGROUND, nullBrush))
        ::DeleteObject(reinterpret_cast<HGDIOBJ>(old));
    m_memDC->CreateCompatible(client.get());
    m_attribs = std::make_unique<xTAttribTable>(m_memDC.get(), &m_settings, m_defaultTheme);
    m_store = std::make_unique<xTMemStorage>(this, m_attribs.get());
    m_operations = std::make_unique<xTOperStack>(this, m_store.get());
    UpdateScrollBars(3);
    m_attribs->ApplyAttr(ATTR_BACKGROUND, this, m_memDC.get());
    m_attribs->ApplyAttr(ATTR_TEXT, this, m_memDC.get());
    return true;
}

LRESULT CEditorCtrl::OnDestroy(const xTMessage& message)
{
    Guarded([&] {
        if (m_ticker)
            ::KillTimer(m_hWnd, m_ticker);  // the other timer dies with the window
        EndDrops();
        m_caret.Destroy();
        RetireParts();
    });
    return Default(message);
}

// The parts leave use at once, but die only when no handler is left that may hold one of them: a host may destroy the
// control from inside the highlight hook, in the middle of a paint.
void CEditorCtrl::RetireParts() noexcept
{
    if (!m_memDC)
        return;  // somebody sent the message to a window whose parts are retired already
    m_retired.operations = std::move(m_operations);
    m_retired.store = std::move(m_store);
    DropPaintBitmap();
    if (m_previousBitmap) {
        ::DeleteObject(m_previousBitmap);
        m_previousBitmap = nullptr;
    }
    m_retired.attribs = std::move(m_attribs);
    m_retired.memDC = std::move(m_memDC);
}

void CEditorCtrl::OnUnwound() noexcept
{
    m_caret.ForgetForeign();
    m_invalid.Forget();
    m_clientSeen.reset();
    m_retired.operations.reset();
    m_retired.store.reset();
    m_retired.attribs.reset();
    m_retired.memDC.reset();
    if (std::exchange(m_repaintWhenUnwound, false) && m_hWnd)
        Invalidate();
}

LRESULT CEditorCtrl::OnSetFocus(const xTMessage& message)
{
    Guarded([&] {
        Default(message);
        Invalidate();
        UpdateNow();
        m_caret.Create(nullptr);
        PlaceCaretImage();
        NotifyHost(false, 0);
    });
    return 0;
}

LRESULT CEditorCtrl::OnKillFocus(const xTMessage& message)
{
    Guarded([&] {
        if (::GetCapture() == m_hWnd)
            ::ReleaseCapture();
        m_caret.Destroy();
        Default(message);
        m_mouseState = xTMouseState::idle;
        // A host hears nothing when the focus goes to another control: that one reports its own caret.
        if (!FromHandle(reinterpret_cast<HWND>(message.wParam)))
            NotifyHost(false, -1);
    });
    return 0;
}

LRESULT CEditorCtrl::OnTimer(const xTMessage& message)
{
    Guarded([&] {
        if (timerBusy)
            return;
        timerBusy = true;
        if (message.wParam == m_ticker)
            FreeIdleBitmap();
        if (message.wParam == m_scrollTimer && m_mouseState == xTMouseState::selecting)
            FollowHeldPointer();
        timerBusy = false;
    });
    return Default(message);
}

void CEditorCtrl::FreeIdleBitmap()
{
    m_idleMs += tickMs;
    if (m_idleMs >= bitmapIdleMs)
        DropPaintBitmap();
}

LPARAM CEditorCtrl::PackedCaret() const noexcept
{
    if (!m_store)
        return 0;
    const xTPos& caret = m_store->caret;
    return MAKELPARAM(static_cast<WORD>(caret.line), static_cast<WORD>(caret.col));
}

void CEditorCtrl::NotifyHost(bool changed, std::int32_t value)
{
    TellParent(ED_NOTIFY_CARET, changed, value ? value : PackedCaret());
}

// A parent that has gone, or none at all, gets nothing: the sending itself asks whether it is a window.
void CEditorCtrl::TellParent(UINT message, WPARAM wParam, LPARAM lParam)
{
    ::SendNotifyMessageW(::GetParent(m_hWnd), message, wParam, lParam);
    m_invalid.Forget();
}

bool CEditorCtrl::ConfirmWrap()
{
    const bool goesOn = m_find.confirm_wrap();
    m_caret.Forget();  // a host that asks its user has let other windows work with their carets
    m_invalid.Forget();
    return goesOn;
}
