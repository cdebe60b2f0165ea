#pragma once

#include "appearance/TunePreview.h"
#include "framework/base/CString.h"
#include "framework/win/CDialog.h"

#include <memory>
#include <span>

/// A row of a page's command table: what a notification of a control does. The handler gets the control's id.
template <typename Page>
struct xTCommandRow {
    int id;
    int code;
    void (Page::*handler)(int id);
};

/// A page on which a user tunes the look of the shared preview. Every change is in the preview's table at once; the
/// host fetches it from there. A page counts as a reference to the preview for as long as it has a window.
class CTunePage : public CDialog {
protected:
    /// Takes over one reference of `preview`.
    explicit CTunePage(std::shared_ptr<xTTunePreview> preview) noexcept;
    ~CTunePage() override;

    /// Fills the controls from the preview's table.
    virtual void OnInit() = 0;
    /// The window goes, its children still stand.
    virtual void OnClose() {}
    virtual void OnCommand(int id, int code) = 0;

    /// Finds the row of a notification and runs its handler.
    template <typename Page>
    static void RunCommand(Page& page, std::span<const xTCommandRow<Page>> rows, int id, int code)
    {
        for (const auto& row : rows)
            if (row.id == id && row.code == code)
                return (page.*row.handler)(id);
    }

    [[nodiscard]] xTTunePreview& Preview() const noexcept { return *m_preview; }
    /// Null once the preview's window is gone, which any call out may bring about.
    [[nodiscard]] xTAttribTable* Table() const { return m_preview->Table(); }
    void InvalidatePreview() const;
    void RepaintPreview() const;  ///< at once
    [[nodiscard]] bool IsChecked(int id) const noexcept;
    void Check(int id, bool on) noexcept;

private:
    bool DialogProc(const xTMessage& message) final;
    void OnFault() noexcept final;
    void LeavePreview() noexcept;

    std::shared_ptr<xTTunePreview> m_preview;
    bool m_initialised = false;
    bool m_counted = true;
};
