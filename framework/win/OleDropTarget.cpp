#include "framework/win/OleDropTarget.h"

#include "diagnostics/Guarded.h"
#include "framework/win/CWnd.h"

#include <ole2.h>

#include <utility>

namespace {

[[nodiscard]] constexpr DWORD Allowed(DWORD wanted, DWORD allowed) noexcept
{
    if (wanted & allowed)
        return wanted;
    const DWORD other = wanted == DROPEFFECT_COPY ? DROPEFFECT_MOVE : wanted == DROPEFFECT_MOVE ? DROPEFFECT_COPY : 0;
    return other & allowed;
}

}  // namespace

/// The object that the system knows. The host may destroy the window in the middle of each call: the window object lives
/// on through it, this one too, and the target has let go of it then.
class COleDropTarget::xTSink final : public xTComObject<IDropTarget> {
public:
    xTSink(COleDropTarget& target, CWnd& wnd) noexcept : m_target(&target), m_wnd(&wnd) {}

    void CutOff() noexcept
    {
        m_target = nullptr;
        m_data.reset();
    }
    [[nodiscard]] HWND Window() const noexcept { return m_wnd->m_hWnd; }

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) noexcept override
    {
        m_data = Shared(data);
        return Ask(at, effect, [&](POINT point) { return m_target->OnDragEnter(m_wnd, data, keys, point); });
    }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL at, DWORD* effect) noexcept override
    {
        const auto data = Shared(m_data.get());
        return Ask(at, effect, [&](POINT point) { return m_target->OnDragOver(m_wnd, data.get(), keys, point); });
    }
    HRESULT STDMETHODCALLTYPE DragLeave() noexcept override
    {
        m_data.reset();
        DWORD none = DROPEFFECT_NONE;
        return Ask({}, &none, [&](POINT) {
            m_target->OnDragLeave(m_wnd);
            return DWORD{DROPEFFECT_NONE};
        });
    }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) noexcept override
    {
        m_data.reset();
        const DWORD allowed = effect ? *effect : DWORD{DROPEFFECT_NONE};
        return Ask(at, effect, [&](POINT point) {
            const DWORD doing = Allowed(m_target->EffectOf(keys), allowed);
            const bool taken = doing != DROPEFFECT_NONE && m_target->OnDrop(m_wnd, data, doing, point);
            return taken ? doing : DWORD{DROPEFFECT_NONE};
        });
    }

private:
    template <typename Body>
    HRESULT Ask(POINTL at, DWORD* effect, Body&& body) noexcept
    {
        if (!effect)
            return E_INVALIDARG;
        const DWORD allowed = std::exchange(*effect, DWORD{DROPEFFECT_NONE});
        return Guarded(HRESULT{E_UNEXPECTED}, [&] {
            if (!m_target)
                return S_OK;
            const auto self = Shared(this);
            const xTWndScope scope(*m_wnd);
            POINT point{at.x, at.y};
            ::ScreenToClient(m_wnd->m_hWnd, &point);
            const DWORD answer = body(point);
            // A window that is gone has taken nothing: the source keeps what it has.
            *effect = m_target ? Allowed(answer, allowed) : DWORD{DROPEFFECT_NONE};
            return S_OK;
        });
    }

    COleDropTarget* m_target;
    CWnd* m_wnd;
    xTComPtr<IDataObject> m_data;  // of the drag that is over the window
};

COleDropTarget::COleDropTarget() = default;

COleDropTarget::~COleDropTarget()
{
    Revoke();
}

bool COleDropTarget::Register(CWnd& wnd)
{
    Revoke();
    m_sink.reset(new xTSink(*this, wnd));
    if (SUCCEEDED(::RegisterDragDrop(wnd.m_hWnd, m_sink.get())))
        return true;
    m_sink.reset();
    return false;
}

void COleDropTarget::Revoke() noexcept
{
    const auto sink = std::move(m_sink);
    if (!sink)
        return;
    sink->CutOff();
    if (const HWND wnd = sink->Window())
        ::RevokeDragDrop(wnd);
}
