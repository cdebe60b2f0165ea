#pragma once

#include "framework/base/WinTypes.h"

/// What the text store asks of its window. CEditorCtrl implements it, tests record it.
class xTStoreWindow {
public:
    [[nodiscard]] virtual HWND Handle() const = 0;  ///< null while there is no system window
    virtual void Invalidate() = 0;           ///< the whole client area, with erase
    virtual void InvalidateCaretLine() = 0;  ///< the strip of the caret's line
    virtual void UpdateNow() = 0;            ///< a repaint that is due happens now
    virtual void RequestPaint() = 0;         ///< a paint message is scheduled, nothing is invalidated
    virtual void EnsureCaretVisible() = 0;
    /// Brings `line` into view and, when `column` is not negative, puts the caret there.
    virtual void MoveCaretTo(std::int32_t line, std::int32_t column, bool redraw, bool centre, bool focus) = 0;
    virtual void NotifyHost(bool changed, std::int32_t value) = 0;  ///< value 0: the packed caret position
    /// A search has gone round an end of the text: may it go on? The host is asked; without one the answer is no.
    [[nodiscard]] virtual bool ConfirmWrap() = 0;

protected:
    ~xTStoreWindow() = default;  // never owned through this type
};
