#pragma once

#include "framework/base/WinTypes.h"

#include <cstdint>

class CWnd;
class xTAttribTable;

/// What the tuning pages ask of the control that they change and show. One serves all pages of the process. Its window
/// may be gone at any time: questions are then answered with null and nothing else happens.
class xTTunePreview {
public:
    [[nodiscard]] virtual CWnd* Control() const = 0;
    [[nodiscard]] virtual xTAttribTable* Table() const = 0;
    /// The window that was the control's parent when it was made; it may be gone.
    [[nodiscard]] virtual HWND FirstParent() const = 0;
    virtual void ApplyTheme(std::uint32_t theme) = 0;
    virtual void LoadText(const WCHAR* text) = 0;
    /// A page that counted itself in leaves; with the last one the control goes.
    virtual void DropReference() noexcept = 0;

protected:
    ~xTTunePreview() = default;  // owned through shared pointers, which know what they hold
};
