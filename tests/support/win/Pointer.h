#pragma once

#include <windows.h>

#include <functional>
#include <vector>

// The mouse of a test. "Real" input goes through the system's queue and needs the window to be on screen; what is sent
// arrives at once and needs nothing.

constexpr int testLineHeight = 15;  // 10 points at 96 dots per inch
constexpr int testCharWidth = 8;

/// The middle of a character's left half, in client pixels.
[[nodiscard]] POINT At(int row, int column);

// Real input, in client pixels of `window`; each waits until it has arrived.
void MovePointer(HWND window, POINT point);
void PressButton();
void ReleaseButton();
/// The same, without waiting for anything to arrive.
void PutPointer(HWND window, POINT point);
void PutButton(bool down);
void PutKey(WORD key, bool down);
/// Waits until the next press cannot be taken for the second half of a double click.
void LetDoubleClickTimePass();

// Sent input
LRESULT SendMouse(HWND window, UINT message, POINT point, WPARAM keys = MK_LBUTTON);
void SendClick(HWND window, POINT point);

/// Plays steps, one every 30 ms, from within whatever message loop runs, such as that of a drag; returns when all have
/// been played and every loop has ended. What is still running some time after the last step is cancelled with Esc.
/// @return false when that was necessary
[[nodiscard]] bool PlaySteps(std::vector<std::function<void()>> steps);
