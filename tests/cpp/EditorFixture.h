#pragma once

#include "scrivctl3.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>

/// Handles the messages that wait.
inline void Pump()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/// A host window in the middle of the screen, with nothing in it.
class HostWindow {
public:
    HostWindow()
        : m_window(CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 100, 100,
                                   500, 400, nullptr, nullptr, nullptr, nullptr))
    {
        Pump();
    }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow()
    {
        Destroy();
        Pump();
    }

    void Destroy()
    {
        if (const HWND gone = std::exchange(m_window, nullptr))
            DestroyWindow(gone);
    }
    [[nodiscard]] HWND Handle() const { return m_window; }

private:
    HWND m_window;
};

class EditorTest : public testing::Test {
protected:
    [[nodiscard]] static scriv::Options InView()
    {
        scriv::Options options;
        options.place = {0, 0, 400, 300};
        return options;
    }
    /// An editor that fills much of the host, with a text and the focus.
    [[nodiscard]] scriv::Editor Make(const std::wstring& text, scriv::Options options = InView()) const
    {
        scriv::Editor editor(host.Handle(), std::move(options));
        editor.SetText(text);
        editor.Focus();
        Pump();
        return editor;
    }
    /// The user types a character.
    static void Type(HWND control, wchar_t ch) { SendMessageW(control, WM_CHAR, static_cast<WPARAM>(ch), 1); }
    static void Type(const scriv::Editor& editor, wchar_t ch) { Type(editor.Handle(), ch); }

    static void Repaint(const scriv::Editor& editor)
    {
        RedrawWindow(editor.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }
    /// How many pixels of the control have that colour.
    [[nodiscard]] static int Pixels(const scriv::Editor& editor, COLORREF colour)
    {
        const HDC dc = GetDC(editor.Handle());
        int count = 0;
        for (int y = 0; y < 60; ++y) {
            for (int x = 0; x < 160; ++x)
                count += GetPixel(dc, x, y) == colour;
        }
        ReleaseDC(editor.Handle(), dc);
        return count;
    }

    HostWindow host;
};
