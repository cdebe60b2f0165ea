#define SCRIVCTL3_BUILD
#include "include/scrivctl3.h"

#include "api/EditorCtrl.h"
#include "api/TunePreview.h"
#include "appearance/FontPage.h"
#include "appearance/HighlightPage.h"
#include "diagnostics/Guarded.h"
#include "framework/win/Resource.h"

// The exported functions of the tuning pages. No exception leaves any of them.

namespace {

std::shared_ptr<edTunePreview> JoinPreview(HWND parent, const edSettingsBlock& settings, const edHighlightHook* hook)
{
    xTHighlightHook own;
    if (hook)
        own = {hook->fn, hook->ctx};
    return edTunePreview::Join(parent, {settings.data, settings.size}, hook ? &own : nullptr);
}

template <typename Page>
HWND CreatePage(HWND parent, const RECT* rect, const edSettingsBlock* settings, const edHighlightHook* hook)
{
    if (!::IsWindow(parent) || !settings)
        return nullptr;
    const xTResource resources;
    auto* page = new Page(JoinPreview(parent, *settings, hook));
    const xTWndScope scope(*page);
    if (!page->Create(Page::templateId, parent)) {
        page->DeleteWhenUnwound();
        return nullptr;
    }
    if (rect)
        ::MoveWindow(page->m_hWnd, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, TRUE);
    return page->m_hWnd;
}

}  // namespace

HWND edCreateFontTuneDialog(HWND parent, const RECT* rect, const edSettingsBlock* settings, const edHighlightHook* hook)
{
    return Guarded(HWND{}, [&] { return CreatePage<CDial1>(parent, rect, settings, hook); });
}

HWND edCreateHighlightTuneDialog(HWND parent, const RECT* rect, const edSettingsBlock* settings,
                                 const edHighlightHook* hook)
{
    return Guarded(HWND{}, [&] { return CreatePage<CDial2>(parent, rect, settings, hook); });
}

UINT32 edApplyTuningChanges(edSettingsBlock* block)
{
    return Guarded(UINT32{0}, [&]() -> UINT32 {
        CEditorCtrl* preview = edTunePreview::OpenControl();
        if (!preview)
            return 0;
        xTSettingsBlock own;
        if (block)
            own = {block->data, block->size};
        const std::uint32_t size = preview->SaveSettings(block ? &own : nullptr);
        preview->Invalidate();
        return size;
    });
}
