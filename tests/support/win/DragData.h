#pragma once

#include "framework/win/ComObject.h"

#include <objidl.h>
#include <oleidl.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

// What another program brings to a drag, made by hand.

/// Data of a drag: blocks of bytes by clipboard format.
class DragData final : public xTComObject<IDataObject> {
public:
    /// @param unterminated leave the terminator out
    void PutText(const std::wstring& text, bool unterminated = false);
    /// @param wide false: the paths stand in it as 8-bit text
    void PutFiles(const std::vector<std::wstring>& paths, bool wide = true);
    void Put(CLIPFORMAT format, std::string bytes);

    /// The blocks go out with an owner of their own, as some programs do it.
    bool keepsBlocks = false;

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* wanted, STGMEDIUM* medium) noexcept override;
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* wanted) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) noexcept override { return E_NOTIMPL; }

private:
    std::vector<std::pair<CLIPFORMAT, std::string>> m_blocks;
};

/// The text of a data object in CF_UNICODETEXT, every unit of the block; empty when it has none.
[[nodiscard]] std::wstring UnicodeBlockOf(IDataObject* data);

/// A foreign drop target. It answers every question with `effect`.
class ForeignTarget final : public xTComObject<IDropTarget> {
public:
    DWORD effect = DROPEFFECT_COPY;
    std::wstring dropped;
    int enters = 0;
    std::function<void(IDataObject*)> onDrop;

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject*, DWORD, POINTL, DWORD* out) noexcept override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* out) noexcept override;
    HRESULT STDMETHODCALLTYPE DragLeave() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL, DWORD* out) noexcept override;
};

/// The drop target that a window of this process is registered with; null when there is none.
[[nodiscard]] xTComPtr<IDropTarget> TargetOf(HWND window);
