#pragma once

#include "scrivctl3.h"

#include <array>
#include <functional>
#include <vector>

namespace scrivpad {

/// The dialog in which a user tunes how texts look: the library's two pages, OK, Cancel and Apply. It is modeless, so
/// what was applied can be seen behind it.
class SettingsDialog {
public:
    enum Page { fontPage, coloursPage };

    /// Makes the dialog, hidden. Throws a Failure.
    /// @param settings  what the pages begin with
    /// @param apply     gets the block that the user made; a Failure in it is told to the user
    SettingsDialog(HWND owner, const edSettingsBlock& settings, std::function<void(std::vector<BYTE>)> apply);
    ~SettingsDialog();
    SettingsDialog(const SettingsDialog&) = delete;
    SettingsDialog& operator=(const SettingsDialog&) = delete;

    /// @return null once the user has closed it
    [[nodiscard]] HWND Handle() const noexcept { return m_window; }
    void Show(Page page) noexcept;

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(int id);
    void MakePages(const edSettingsBlock& settings);
    void ShowPage() noexcept;
    bool Apply(int button);

    HWND m_window = nullptr;
    std::array<HWND, 2> m_pages = {};
    std::function<void(std::vector<BYTE>)> m_apply;
};

}  // namespace scrivpad
