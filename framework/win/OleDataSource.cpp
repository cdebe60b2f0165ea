#include "framework/win/OleDataSource.h"

#include "diagnostics/Guarded.h"

#include <ole2.h>
#include <shlobj.h>

#include <cstring>
#include <new>
#include <utility>
#include <vector>

namespace {

[[nodiscard]] constexpr FORMATETC GlobalFormat(CLIPFORMAT format) noexcept
{
    return {format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

/// Ends the drag when the button that carries it is let go, and cancels it on Esc and on another button.
class xTDropSource final : public xTComObject<IDropSource> {
public:
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escapePressed, DWORD keys) noexcept override
    {
        constexpr DWORD otherButtons = MK_RBUTTON | MK_MBUTTON;
        // With the button up from the start nothing carries the drag: a drop would land wherever the pointer happens
        // to be.
        if (escapePressed || !m_buttonWasDown || (keys & otherButtons))
            return DRAGDROP_S_CANCEL;
        return keys & MK_LBUTTON ? S_OK : DRAGDROP_S_DROP;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) noexcept override { return DRAGDROP_S_USEDEFAULTCURSORS; }

private:
    // The button by which the user drags is the primary one, which may be the right one of the device.
    const bool m_buttonWasDown = ::GetKeyState(VK_LBUTTON) < 0;
};

}  // namespace

class COleDataSource::xTData final : public xTComObject<IDataObject> {
public:
    void Put(CLIPFORMAT format, xTGlobal block)
    {
        for (xTEntry& entry : m_entries) {
            if (entry.format.cfFormat == format) {
                entry.block = std::move(block);
                return;
            }
        }
        m_entries.push_back({GlobalFormat(format), std::move(block)});
    }
    void Clear() noexcept { m_entries.clear(); }

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* wanted, STGMEDIUM* medium) noexcept override
    {
        if (!wanted || !medium)
            return E_INVALIDARG;
        *medium = {};
        const xTEntry* entry = Find(*wanted);
        if (!entry)
            return DV_E_FORMATETC;
        xTGlobal copy = CopyGlobal(entry->block.get());
        if (!copy)
            return STG_E_MEDIUMFULL;
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = copy.release();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* wanted) noexcept override
    {
        if (!wanted)
            return E_INVALIDARG;
        return Find(*wanted) ? S_OK : DV_E_FORMATETC;
    }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** out) noexcept override
    {
        if (!out)
            return E_INVALIDARG;
        *out = nullptr;
        if (direction != DATADIR_GET)
            return E_NOTIMPL;
        return Guarded(HRESULT{E_OUTOFMEMORY}, [&] {
            std::vector<FORMATETC> formats;
            for (const xTEntry& entry : m_entries)
                formats.push_back(entry.format);
            return ::SHCreateStdEnumFmtEtc(static_cast<UINT>(formats.size()), formats.data(), out);
        });
    }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC* out) noexcept override
    {
        if (!out)
            return E_INVALIDARG;
        out->ptd = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) noexcept override
    {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) noexcept override { return OLE_E_ADVISENOTSUPPORTED; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) noexcept override { return OLE_E_ADVISENOTSUPPORTED; }

private:
    struct xTEntry {
        FORMATETC format;
        xTGlobal block;
    };

    [[nodiscard]] const xTEntry* Find(const FORMATETC& wanted) const noexcept
    {
        for (const xTEntry& entry : m_entries) {
            const bool fits = entry.format.cfFormat == wanted.cfFormat && entry.format.dwAspect == wanted.dwAspect &&
                              (wanted.tymed & TYMED_HGLOBAL);
            if (fits)
                return &entry;
        }
        return nullptr;
    }

    std::vector<xTEntry> m_entries;
};

void COleDataSource::CacheGlobalData(CLIPFORMAT format, xTGlobal block)
{
    if (!m_object) {
        m_data = new xTData;
        m_object.reset(m_data);
    }
    m_data->Put(format, std::move(block));
}

DWORD COleDataSource::DoDragDrop(DWORD effects)
{
    if (!m_object || std::exchange(m_dragging, true))
        return DROPEFFECT_NONE;
    // The loop hands control to everybody: references of our own last through it.
    const auto data = Shared(m_object.get());
    const xTComPtr<IDropSource> source(new (std::nothrow) xTDropSource);
    DWORD effect = DROPEFFECT_NONE;
    const HRESULT result = source ? ::DoDragDrop(data.get(), source.get(), effects, &effect) : E_OUTOFMEMORY;
    m_dragging = false;
    return result == DRAGDROP_S_DROP ? effect & effects : DWORD{DROPEFFECT_NONE};
}

void COleDataSource::Empty() noexcept
{
    if (!m_object)
        return;
    m_data->Clear();
    // A program that goes on holding the object is cut off: this library may be unloaded at any time.
    ::CoDisconnectObject(m_object.get(), 0);
    m_object.reset();
    m_data = nullptr;
}

xTGlobal GetGlobalData(IDataObject* data, CLIPFORMAT format) noexcept
{
    FORMATETC wanted = GlobalFormat(format);
    STGMEDIUM medium{};
    if (!data || FAILED(data->GetData(&wanted, &medium)))
        return nullptr;
    if (medium.tymed == TYMED_HGLOBAL && medium.hGlobal && !medium.pUnkForRelease)
        return xTGlobal(medium.hGlobal);
    xTGlobal copy = medium.tymed == TYMED_HGLOBAL ? CopyGlobal(medium.hGlobal) : nullptr;
    ::ReleaseStgMedium(&medium);
    return copy;
}

xTGlobal CopyGlobal(HGLOBAL block) noexcept
{
    const std::size_t size = block ? ::GlobalSize(block) : 0;
    xTGlobal copy(size ? ::GlobalAlloc(GMEM_MOVEABLE, size) : nullptr);
    const xTGlobalLock from(size ? block : nullptr);
    const xTGlobalLock to(copy.get());
    if (!from.get() || !to.get())
        return nullptr;
    std::memcpy(to.get(), from.get(), size);
    return copy;
}
