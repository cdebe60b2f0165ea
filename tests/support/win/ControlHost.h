#pragma once

#include "include/scrivctl3.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// A host window with controls in it, as a test sees it: it records the messages of the controls and can answer them.
class ControlHost {
public:
    struct Message {
        UINT id;
        WPARAM wParam;
        LPARAM lParam;
        friend bool operator==(const Message&, const Message&) = default;
    };

    /// @param width, height of the host's client area, in pixels
    explicit ControlHost(int width = 660, int height = 480);
    ControlHost(const ControlHost&) = delete;
    ControlHost& operator=(const ControlHost&) = delete;
    ~ControlHost();

    /// Creates a control that fills the client area, not yet shown.
    HWND Create(const edCreateParams& with = {});
    /// Creates one, shows it, gives it the focus and loads `text`.
    HWND Show(const wchar_t* text, const edCreateParams& with = {});

    [[nodiscard]] HWND Window() const { return m_window; }
    [[nodiscard]] std::vector<Message> Of(UINT id) const;
    [[nodiscard]] std::size_t Count(UINT id) const { return Of(id).size(); }
    void Forget() { m_messages.clear(); }

    /// The answer to ED_NOTIFY_FIND: 1 lets a search go on past the end.
    LRESULT answer = 0;
    /// Called for each message of a control, after it has been recorded.
    std::function<void(const Message&)> onMessage;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
    HWND m_window = nullptr;
    std::vector<Message> m_messages;
};

/// Handles the messages that wait; with a time, goes on until it has passed.
void Pump(DWORD milliseconds = 0);

/// The text of a control, as edSaveText gives it.
[[nodiscard]] std::wstring TextOf(HWND control);

/// The pixels of a window's client area as 0x00RRGGBB, the caret hidden meanwhile.
class Picture {
public:
    explicit Picture(HWND window);
    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] int Height() const { return m_height; }
    [[nodiscard]] COLORREF At(int x, int y) const;  ///< a COLORREF, 0x00BBGGRR
    [[nodiscard]] bool AreaIs(const RECT& area, COLORREF color) const;
    [[nodiscard]] bool Has(const RECT& area, COLORREF color) const;
    /// Empty when the two are the same, else how many pixels differ and where they lie.
    [[nodiscard]] std::string Difference(const Picture& other) const;
    friend bool operator==(const Picture&, const Picture&) = default;

private:
    int m_width = 0;
    int m_height = 0;
    std::vector<std::uint32_t> m_pixels;
};
