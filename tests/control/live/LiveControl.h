#pragma once

#include "include/scrivctl3.h"
#include "tests/support/model/NaiveControl.h"
#include "tests/support/win/ControlHost.h"

/// A control that is driven as a person drives it: by keys and characters with what is held, by the clipboard and by
/// the commands of its host.
class LiveControl {
public:
    LiveControl();

    void Char(wchar_t ch, bool shift = false);
    void Key(UINT key, bool shift = false, bool ctrl = false);
    void FillClipboard(const wchar_t* text);  ///< null empties it
    void SetTabs(bool keep, int size);
    [[nodiscard]] HWND Window() const { return m_control; }

private:
    ControlHost m_host;
    HWND m_control;
};

/// What differs between the model and the control, in words; empty when nothing does.
[[nodiscard]] std::string Difference(const xTNaiveControl& model, HWND control);
