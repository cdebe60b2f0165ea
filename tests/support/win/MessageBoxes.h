#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

/// While it lives, the message boxes of this thread are answered as soon as they appear, and their texts kept.
class MessageBoxes {
public:
    /// @param answer the button that is pressed
    explicit MessageBoxes(int answer = IDOK);
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;
    ~MessageBoxes();

    int answer;
    std::vector<std::wstring> texts;
    std::function<void(HWND box)> onBox;  ///< called before the answer

private:
    static LRESULT CALLBACK Watch(int code, WPARAM wParam, LPARAM lParam);
    void Answer(HWND box);

    HHOOK m_hook;
    std::vector<HWND> m_answered;
};
