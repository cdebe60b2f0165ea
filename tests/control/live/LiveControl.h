#pragma once

#include "include/scrivctl3.h"
#include "tests/support/win/ControlHost.h"

#include <cstdint>
#include <memory>

/// A control that is driven as a person drives it: by keys and characters with what is held, by the clipboard and by
/// the commands of its host.
class LiveControl {
public:
    /// In a window of its own.
    LiveControl();
    /// Beside others in a host's window, shown. @param place in the host's client area
    LiveControl(ControlHost& host, const RECT& place);

    void Char(wchar_t ch, bool shift = false);
    void Key(UINT key, bool shift = false, bool ctrl = false);
    void FillClipboard(const wchar_t* text);  ///< null empties it
    void SetTabs(bool keep, int size);
    [[nodiscard]] HWND Window() const { return m_control; }
    /// The keys and characters so far.
    [[nodiscard]] std::int64_t Strokes() const { return m_strokes; }

private:
    std::unique_ptr<ControlHost> m_own;
    HWND m_host;
    HWND m_control;
    std::int64_t m_strokes = 0;
};
