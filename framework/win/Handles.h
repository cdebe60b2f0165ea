#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

// One owner for each way of closing a system handle.

struct xTGdiDelete {
    void operator()(HGDIOBJ h) const noexcept { ::DeleteObject(h); }
};
struct xTDcDelete {
    void operator()(HDC h) const noexcept { ::DeleteDC(h); }
};
struct xTGlobalFree {
    void operator()(HGLOBAL h) const noexcept { ::GlobalFree(h); }
};

using xTFont = std::unique_ptr<std::remove_pointer_t<HFONT>, xTGdiDelete>;
using xTBrush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, xTGdiDelete>;
using xTBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, xTGdiDelete>;
using xTMemDC = std::unique_ptr<std::remove_pointer_t<HDC>, xTDcDelete>;  // not for GetDC: that is xTClientDC
using xTGlobal = std::unique_ptr<std::remove_pointer_t<HGLOBAL>, xTGlobalFree>;  // a block of global memory

/// The device context of a window's client area, or of the whole screen for a null window, given back at the end.
class xTClientDC {
public:
    explicit xTClientDC(HWND wnd) noexcept : m_wnd(wnd), m_dc(::GetDC(wnd)) {}
    xTClientDC(const xTClientDC&) = delete;
    xTClientDC& operator=(const xTClientDC&) = delete;
    ~xTClientDC()
    {
        if (m_dc)
            ::ReleaseDC(m_wnd, m_dc);
    }
    [[nodiscard]] HDC get() const noexcept { return m_dc; }

private:
    HWND m_wnd;
    HDC m_dc;
};

/// The paint context of a WM_PAINT; the update region counts as painted when it opens.
class xTPaintDC {
public:
    explicit xTPaintDC(HWND wnd) noexcept : m_wnd(wnd), m_dc(::BeginPaint(wnd, &m_paint)) {}
    xTPaintDC(const xTPaintDC&) = delete;
    xTPaintDC& operator=(const xTPaintDC&) = delete;
    ~xTPaintDC()
    {
        if (m_dc)
            ::EndPaint(m_wnd, &m_paint);
    }
    [[nodiscard]] HDC get() const noexcept { return m_dc; }
    [[nodiscard]] const RECT& rect() const noexcept { return m_paint.rcPaint; }

private:
    HWND m_wnd;
    PAINTSTRUCT m_paint{};
    HDC m_dc;
};

/// A selected object; the one that it displaced goes back at the end.
class xTSelect {
public:
    xTSelect(HDC dc, HGDIOBJ object) noexcept : m_dc(dc), m_previous(::SelectObject(dc, object)) {}
    xTSelect(const xTSelect&) = delete;
    xTSelect& operator=(const xTSelect&) = delete;
    ~xTSelect()
    {
        if (m_previous)
            ::SelectObject(m_dc, m_previous);
    }
    [[nodiscard]] bool ok() const noexcept { return m_previous != nullptr; }

private:
    HDC m_dc;
    HGDIOBJ m_previous;
};

/// Drawing held to a rectangle in device units; at the end the context has no clipping of its own.
class xTClip {
public:
    xTClip(HDC dc, const RECT& area) noexcept : m_dc(dc)
    {
        ::IntersectClipRect(dc, area.left, area.top, area.right, area.bottom);
    }
    xTClip(const xTClip&) = delete;
    xTClip& operator=(const xTClip&) = delete;
    ~xTClip() { ::SelectClipRgn(m_dc, nullptr); }

private:
    HDC m_dc;
};

/// A block of global memory while it is read or written; `get` is null when the system cannot give it.
class xTGlobalLock {
public:
    explicit xTGlobalLock(HGLOBAL block) noexcept : m_block(block), m_data(block ? ::GlobalLock(block) : nullptr) {}
    xTGlobalLock(const xTGlobalLock&) = delete;
    xTGlobalLock& operator=(const xTGlobalLock&) = delete;
    ~xTGlobalLock()
    {
        if (m_data)
            ::GlobalUnlock(m_block);
    }
    [[nodiscard]] void* get() const noexcept { return m_data; }

private:
    HGLOBAL m_block;
    void* m_data;
};
