#pragma once

#include "tests/support/TestFolder.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/HostLog.h"
#include "tests/support/win/MessageBoxes.h"

#include <cstdint>
#include <span>

/// The bytes of a stream as choices; 0 for all behind the last.
class Choices {
public:
    explicit Choices(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    [[nodiscard]] bool AreUsedUp() const { return m_at >= m_bytes.size(); }
    unsigned Byte() { return AreUsedUp() ? 0u : m_bytes[m_at++]; }
    unsigned Below(unsigned n) { return Byte() % n; }
    int Number();          ///< mostly a small one, sometimes an extreme one
    std::wstring Text();

private:
    std::span<const std::uint8_t> m_bytes;
    std::size_t m_at = 0;
};

/// What a stream acts on: a window with two controls, a file, a page to print on.
class Stage {
public:
    Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage();

    /// One of the controls, or a handle that is none.
    [[nodiscard]] HWND Control(Choices& from);
    HWND Make(Choices& from);
    /// What is wrong with the controls now; empty when nothing is.
    [[nodiscard]] std::string Faults() const;

    ControlHost host{300, 120};
    MessageBoxes boxes;
    HostLog log;
    xTTestFolder folder;
    HWND controls[2] = {};
    HWND gone = nullptr;  ///< a control that was destroyed
    HDC paper = nullptr;
    std::string settings;  ///< the last block that edApplyTuningChanges wrote

private:
    static void Classify(void* ctx, wchar_t* text, int insideComment);
};
