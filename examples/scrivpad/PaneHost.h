#pragma once

namespace scrivpad {

class Pane;

/// What a pane tells the window that it stands in.
class PaneHost {
public:
    /// The pane's editor has got the focus.
    virtual void OnPaneFocused(Pane& pane) = 0;
    /// What the title and the status bar tell of the pane may have changed.
    virtual void OnPaneChanged(Pane& pane) = 0;

protected:
    ~PaneHost() = default;  // never owned through this type
};

}  // namespace scrivpad
