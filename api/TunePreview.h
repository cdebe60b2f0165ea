#pragma once

#include "appearance/AttribData.h"
#include "appearance/TunePreview.h"

#include <memory>

class CEditorCtrl;

/// The control that the tuning pages change, and what belongs to it; one record a process while any page is open. Used
/// on the host's window thread alone, so it is not locked.
class edTunePreview final : public xTTunePreview {
public:
    /// Adds a reference to the open record, or opens one.
    /// @param parent    where the control of a new record goes
    /// @param settings  what a new control begins with
    /// @param hook      for a record that has none yet; may be null
    [[nodiscard]] static std::shared_ptr<edTunePreview> Join(HWND parent, const xTSettingsBlock& settings,
                                                             const xTHighlightHook* hook);
    /// @return the control of the open record; null when no page is open or its window is gone
    [[nodiscard]] static CEditorCtrl* OpenControl() noexcept;

    [[nodiscard]] CWnd* Control() const override;
    [[nodiscard]] xTAttribTable* Table() const override;
    [[nodiscard]] HWND FirstParent() const override { return m_parent; }
    void ApplyTheme(std::uint32_t theme) override;
    void LoadText(const WCHAR* text) override;
    void DropReference() noexcept override;

private:
    [[nodiscard]] CEditorCtrl* Find() const noexcept;
    void TakeHook(const xTHighlightHook* hook) noexcept;
    void MakeControl(const xTSettingsBlock& settings);

    HWND m_parent = nullptr;
    HWND m_window = nullptr;  // of the control, which goes with it
    xTHighlightHook m_hook;
    int m_references = 0;
};
