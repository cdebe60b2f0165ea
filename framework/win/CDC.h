#pragma once

#include "framework/base/WinTypes.h"
#include "framework/win/Handles.h"

/// A device context object: `m_hDC` is where drawing goes, `m_hAttribDC` is asked for measures. The two are the same
/// handle unless somebody sets them apart, as a print preview does. A context that was created is owned; one that was
/// attached is not.
class CDC {
public:
    CDC() = default;
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    /// Makes a memory context like `like` and owns it. @return false when the system has none
    bool CreateCompatible(HDC like) noexcept
    {
        m_owned.reset(::CreateCompatibleDC(like));
        return Attach(m_owned.get());
    }
    /// Works on a context that somebody else owns.
    bool Attach(HDC dc) noexcept
    {
        m_hDC = m_hAttribDC = dc;
        return dc != nullptr;
    }

    [[nodiscard]] HDC GetSafeHdc() const noexcept { return m_hDC; }

    BOOL TextOut(int x, int y, WStrView text) const noexcept
    {
        return ::TextOutW(m_hDC, x, y, text.data(), static_cast<int>(text.size()));
    }
    COLORREF SetBkColor(COLORREF color) const noexcept { return SetBoth(::SetBkColor, color); }
    COLORREF SetTextColor(COLORREF color) const noexcept { return SetBoth(::SetTextColor, color); }

    HDC m_hDC = nullptr;
    HDC m_hAttribDC = nullptr;

private:
    COLORREF SetBoth(COLORREF(WINAPI* set)(HDC, COLORREF), COLORREF color) const noexcept
    {
        if (m_hAttribDC != m_hDC)
            set(m_hAttribDC, color);
        return set(m_hDC, color);
    }

    xTMemDC m_owned;
};
