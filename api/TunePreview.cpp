#include "api/TunePreview.h"

#include "api/EditorCtrl.h"

#include <utility>

namespace {

constexpr std::uint32_t previewTheme = 1;

std::shared_ptr<edTunePreview> open;  // null while no page is open

}  // namespace

std::shared_ptr<edTunePreview> edTunePreview::Join(HWND parent, const xTSettingsBlock& settings,
                                                   const xTHighlightHook* hook)
{
    if (!open)
        open = std::make_shared<edTunePreview>();
    // A control that went with a window of the host's is made anew for the next page.
    const std::shared_ptr<edTunePreview> record = open;
    ++record->m_references;
    try {
        record->TakeHook(hook);
        if (!record->Find()) {
            record->m_parent = parent;
            record->MakeControl(settings);
        }
        return record;
    } catch (...) {
        record->DropReference();
        throw;
    }
}

CEditorCtrl* edTunePreview::OpenControl() noexcept
{
    return open ? open->Find() : nullptr;
}

void edTunePreview::TakeHook(const xTHighlightHook* hook) noexcept
{
    if (m_hook.fn || !hook)
        return;
    m_hook = *hook;
    if (CEditorCtrl* control = Find())
        control->SetHighlightHook(m_hook);
}

// One pixel large: the control is there to be changed. A page that shows it gives it its place.
void edTunePreview::MakeControl(const xTSettingsBlock& settings)
{
    auto* control = new CEditorCtrl(&m_hook, settings, false, previewTheme);
    const xTWndScope scope(*control);
    if (!control->Create({0, 0, 1, 1}, m_parent, nullptr)) {
        control->DeleteWhenUnwound();
        return;
    }
    control->DeleteWithWindow();
    m_window = control->m_hWnd;
    ::ShowWindow(m_window, SW_SHOW);
}

CEditorCtrl* edTunePreview::Find() const noexcept
{
    return CEditorCtrl::FromHandle(m_window);
}

CWnd* edTunePreview::Control() const
{
    return Find();
}

xTAttribTable* edTunePreview::Table() const
{
    const CEditorCtrl* control = Find();
    return control ? control->Attributes() : nullptr;
}

void edTunePreview::ApplyTheme(std::uint32_t theme)
{
    if (CEditorCtrl* control = Find())
        control->ApplyTheme(theme);
}

void edTunePreview::LoadText(const WCHAR* text)
{
    if (CEditorCtrl* control = Find())
        control->LoadTextInto(text, 0xFFFFFFFF);
}

void edTunePreview::DropReference() noexcept
{
    if (--m_references > 0)
        return;
    const std::shared_ptr<edTunePreview> self = std::exchange(open, nullptr);
    if (CEditorCtrl* control = Find())
        control->DestroyWindow();
}
