#pragma once

#include "api/EditorCtrl.h"

#include <utility>

/// Paints that are asked for while one of these lives are put off; holds may stand within each other.
class CEditorCtrl::xTPaintHold {
public:
    xTPaintHold(CEditorCtrl& ctrl, xTLater later) noexcept
        : m_ctrl(ctrl), m_before(std::exchange(ctrl.m_later, std::max(ctrl.m_later, later)))
    {
    }
    xTPaintHold(const xTPaintHold&) = delete;
    xTPaintHold& operator=(const xTPaintHold&) = delete;
    ~xTPaintHold() { m_ctrl.m_later = m_before; }

private:
    CEditorCtrl& m_ctrl;
    xTLater m_before;
};

/// One paint for all that a key or a command asks for. The caret is hidden once, and not around each step. It still goes
/// where a paint would have put it, since the view follows what it finds there.
class CEditorCtrl::xTOnePaint {
public:
    explicit xTOnePaint(CEditorCtrl& ctrl) noexcept : m_ctrl(ctrl) { ctrl.m_caret.Hide(); }
    xTOnePaint(const xTOnePaint&) = delete;
    xTOnePaint& operator=(const xTOnePaint&) = delete;
    ~xTOnePaint() { m_ctrl.m_caret.Show(); }

    /// Does the work with its paints held, then the paint. After a fault in the work what it left to paint stays invalid.
    template <typename Work>
    void Around(Work work)
    {
        {
            const xTPaintHold hold(m_ctrl, xTLater::paints);
            work();
        }
        m_ctrl.PaintHeld();
    }

private:
    CEditorCtrl& m_ctrl;
};
