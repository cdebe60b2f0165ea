#pragma once

#include "appearance/AttribData.h"
#include "tests/control/tuning/PageIds.h"
#include "tests/support/SettingsBytes.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/MessageBoxes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

/// Handles the messages that wait, as the message loop of a host with dialogs does; with a time, until it has passed.
void PumpDialog(HWND host, DWORD milliseconds = 0);

/// Real input: a click in the middle of a window, a key, and characters typed.
void Click(HWND host, HWND window);
void Press(HWND host, WORD key, bool shift = false);
void Type(HWND host, const wchar_t* text);

/// The class of a window.
[[nodiscard]] std::wstring ClassOf(HWND window);
[[nodiscard]] std::wstring WindowText(HWND window);
/// The first window below `parent`, however deep, that is a control of the library; null when there is none.
[[nodiscard]] HWND ControlBelow(HWND parent);

/// A host window with tuning pages in it, which begin with the golden settings block.
class Pages : public testing::Test {
protected:
    [[nodiscard]] HWND FontPage(const edHighlightHook* hook = nullptr)
    {
        const edSettingsBlock block = Settings();
        const RECT place{0, 0, 400, 260};
        return edCreateFontTuneDialog(host.Window(), &place, &block, hook);
    }
    [[nodiscard]] HWND HighlightPage(const edHighlightHook* hook = nullptr)
    {
        const edSettingsBlock block = Settings();
        const RECT place{400, 0, 830, 400};
        return edCreateHighlightTuneDialog(host.Window(), &place, &block, hook);
    }
    [[nodiscard]] edSettingsBlock Settings() { return {golden.bytes().data(), golden.Block().size}; }
    /// What a host would keep now; empty when no page is open.
    [[nodiscard]] static Bytes Applied()
    {
        edSettingsBlock block{};
        Bytes bytes(edApplyTuningChanges(&block));
        block = {bytes.data(), static_cast<UINT32>(bytes.size())};
        EXPECT_EQ(edApplyTuningChanges(&block), bytes.size());
        return bytes;
    }
    /// The golden block after `change` has been made to the table.
    template <typename Change>
    [[nodiscard]] Bytes Golden(Change change)
    {
        xTAttribData table;
        const xTSettingsBlock block = golden.Block();
        EXPECT_TRUE(table.LoadSettings(&block));
        change(table);
        xTSettingsBlock room;
        Bytes bytes(table.SaveSettings(&room));
        room = {bytes.data(), static_cast<std::uint32_t>(bytes.size())};
        table.SaveSettings(&room);
        return bytes;
    }
    void click(HWND page, int id) { Click(host.Window(), ::GetDlgItem(page, id)); }
    void press(WORD key, bool shift = false) { Press(host.Window(), key, shift); }
    [[nodiscard]] static bool IsChecked(HWND page, int id)
    {
        return ::SendMessageW(::GetDlgItem(page, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
    [[nodiscard]] static bool IsEnabled(HWND page, int id) { return ::IsWindowEnabled(::GetDlgItem(page, id)) != 0; }

    ControlHost host{840, 420};
    xTSettingsBytes golden = xTSettingsBytes::Golden();
};
