#pragma once

#include <windows.h>

class CWnd;

/// The owner of the system caret of one control. There is one system caret a thread: it exists for this control from
/// the moment the window gets the focus until it loses it. The caret has one shape, in insert and overwrite mode alike.
class xTCaret {
public:
    xTCaret() = default;
    xTCaret(const xTCaret&) = delete;
    xTCaret& operator=(const xTCaret&) = delete;
    virtual ~xTCaret() { Destroy(); }

    void SetOwner(const CWnd* owner) noexcept { m_owner = owner; }
    [[nodiscard]] bool IsCreated() const noexcept { return m_created; }
    [[nodiscard]] int Width() const noexcept { return m_width; }
    [[nodiscard]] int Height() const noexcept { return m_height; }

    /// Creates and shows the caret if the owner has the focus and there is none yet. A null position leaves it where the
    /// system puts it.
    void Create(const POINT* position) noexcept;
    void Destroy() noexcept;
    /// @param height in pixels; does nothing without the focus
    void SetHeight(int height) noexcept;
    /// Hides within hides count, and so do the shows that end them: the system is asked at the outermost only.
    void Show() noexcept;
    void Hide() noexcept;
    void Recreate() noexcept;

    /// Client coordinates of the top left corner, in pixels.
    [[nodiscard]] POINT Position() const noexcept;
    void MoveTo(POINT position) noexcept;
    /// The system moves a caret that stands in a scrolled area: its place is asked for anew.
    void Forget() noexcept { m_known = false; }
    /// Without a caret of its own the control sees that of another window of the thread. It stays where it is only while
    /// the control is at work, for thousands of replacements say.
    void ForgetForeign() noexcept { m_known = m_known && m_created; }

private:
    [[nodiscard]] HWND OwnerWindow() const noexcept;
    [[nodiscard]] bool HasFocus() const noexcept { return ::GetFocus() == OwnerWindow(); }

    int m_width = 1;
    int m_height = 16;  // until the first paint, then the line height
    const CWnd* m_owner = nullptr;
    bool m_created = false;
    int m_hidden = 0;  // hides that no show has ended yet
    // Setting and asking the place are calls to the display server, so the last one is remembered.
    mutable bool m_known = false;
    mutable POINT m_position{};
};
