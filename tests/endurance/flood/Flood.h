#pragma once

#include "tests/support/win/ControlHost.h"

#include <windows.h>

#include <array>
#include <string>

/// The messages of a flood, and what must hold of the control that gets them.
namespace flood {

struct Message {
    UINT id;
    WPARAM wParam;
    LPARAM lParam;
};

/// Arguments that carry no pointer; whoever takes them for one reads where nothing is.
inline constexpr int patternCount = 16;
[[nodiscard]] Message Pattern(UINT id, int pattern);

/// Why a message is not sent with arguments taken blindly.
struct LeftOut {
    UINT first;
    UINT last;
    const char* why;
};

/// @return why, null for a message that takes part
[[nodiscard]] const char* WhyLeftOut(UINT id);
/// Those whose arguments the system itself looks at when the message is taken from the queue.
[[nodiscard]] bool IsCalledWhenPosted(const Message& message);
/// The messages by which a user types: no other may change the text.
[[nodiscard]] bool Types(UINT id);

/// A control in a host that stays open whatever the control's default handling asks of it.
class Target {
public:
    Target();
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;
    ~Target();

    [[nodiscard]] HWND Window() const { return m_control; }
    [[nodiscard]] HWND HostWindow() const { return m_host.Window(); }
    [[nodiscard]] const std::wstring& Text() const { return m_text; }

    LRESULT Send(const Message& message);
    void Post(const Message& message);
    /// Takes what was posted out of the queue.
    void Settle();
    /// What is wrong with the control, in words; empty when nothing is. Takes the text as it stands for the new one
    /// when the messages since the last call were allowed to type.
    [[nodiscard]] std::string Fault();
    /// Gives the control its text, its view, its focus and its redrawing back.
    void Restore();

private:
    [[nodiscard]] std::string PositionFault() const;

    ControlHost m_host;
    HWND m_control;
    std::wstring m_text;
    bool m_typed = false;
};

/// The message in words, for a failure.
[[nodiscard]] std::string Shown(const Message& message);

}  // namespace flood
