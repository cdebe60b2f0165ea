#pragma once

#include "framework/win/CWnd.h"

/// A window that takes part in OLE drag and drop: OLE is up while it lives.
class xTDDWnd : public CWnd {
protected:
    explicit xTDDWnd(bool dropEnabled) noexcept;
    ~xTDDWnd() override;

    /// True: the window registers as a drop target when it is created.
    [[nodiscard]] bool DropEnabled() const noexcept { return m_dropEnabled; }

private:
    bool m_dropEnabled;
    bool m_oleIsUp;
};
