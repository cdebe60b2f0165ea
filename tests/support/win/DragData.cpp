#include "tests/support/win/DragData.h"

#include <ole2.h>
#include <shlobj.h>

#include <cstring>

void DragData::Put(CLIPFORMAT format, std::string bytes)
{
    m_blocks.emplace_back(format, std::move(bytes));
}

void DragData::PutText(const std::wstring& text, bool unterminated)
{
    const std::size_t units = text.size() + (unterminated ? 0 : 1);
    Put(CF_UNICODETEXT, std::string(reinterpret_cast<const char*>(text.c_str()), units * sizeof(wchar_t)));
}

void DragData::PutFiles(const std::vector<std::wstring>& paths, bool wide)
{
    DROPFILES head{};
    head.pFiles = sizeof head;
    head.fWide = wide;
    std::string bytes(reinterpret_cast<const char*>(&head), sizeof head);
    for (const std::wstring& path : paths) {
        if (wide)
            bytes.append(reinterpret_cast<const char*>(path.c_str()), (path.size() + 1) * sizeof(wchar_t));
        else
            bytes.append(path.begin(), path.end()).push_back('\0');
    }
    bytes.append(wide ? 2 : 1, '\0');
    Put(CF_HDROP, bytes);
}

HRESULT STDMETHODCALLTYPE DragData::GetData(FORMATETC* wanted, STGMEDIUM* medium) noexcept
{
    *medium = {};
    for (const auto& [format, bytes] : m_blocks) {
        if (format != wanted->cfFormat)
            continue;
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
        std::memcpy(::GlobalLock(medium->hGlobal), bytes.data(), bytes.size());
        ::GlobalUnlock(medium->hGlobal);
        if (keepsBlocks) {
            AddRef();
            medium->pUnkForRelease = this;
        }
        return S_OK;
    }
    return DV_E_FORMATETC;
}

HRESULT STDMETHODCALLTYPE DragData::QueryGetData(FORMATETC* wanted) noexcept
{
    for (const auto& block : m_blocks)
        if (block.first == wanted->cfFormat)
            return S_OK;
    return DV_E_FORMATETC;
}

std::wstring UnicodeBlockOf(IDataObject* data)
{
    FORMATETC wanted{CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium{};
    if (!data || FAILED(data->GetData(&wanted, &medium)))
        return {};
    const auto* text = static_cast<const wchar_t*>(::GlobalLock(medium.hGlobal));
    std::wstring block(text, ::GlobalSize(medium.hGlobal) / sizeof(wchar_t));
    ::GlobalUnlock(medium.hGlobal);
    ::ReleaseStgMedium(&medium);
    return block;
}

HRESULT STDMETHODCALLTYPE ForeignTarget::DragEnter(IDataObject*, DWORD, POINTL, DWORD* out) noexcept
{
    ++enters;
    *out &= effect;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE ForeignTarget::DragOver(DWORD, POINTL, DWORD* out) noexcept
{
    *out &= effect;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE ForeignTarget::Drop(IDataObject* data, DWORD, POINTL, DWORD* out) noexcept
{
    dropped = UnicodeBlockOf(data);
    if (onDrop)
        onDrop(data);
    *out &= effect;
    return S_OK;
}

xTComPtr<IDropTarget> TargetOf(HWND window)
{
    return Shared(static_cast<IDropTarget*>(::GetPropW(window, L"OleDropTargetInterface")));
}
