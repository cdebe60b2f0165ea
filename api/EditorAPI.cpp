#define SCRIVCTL3_BUILD
#include "include/scrivctl3.h"

#include "api/EditorCtrl.h"
#include "diagnostics/Guarded.h"

// The exported functions: each resolves its handle, checks its arguments and forwards to the one who does the work.
// No exception leaves any of them.

namespace {

static_assert(sizeof(edHighlightHook) == sizeof(xTHighlightHook) && sizeof(edSettingsBlock) == sizeof(xTSettingsBlock));

/// Runs `body` on the control of a handle, which stays alive until it is back whatever the host does meanwhile.
/// A bad handle and a fault answer `bad`.
template <typename Result, typename Body>
Result WithControl(HWND control, Result bad, Body&& body,
                   xTWhere where = {__builtin_FILE(), __builtin_LINE()}) noexcept
{
    return Guarded(
        bad,
        [&] {
            CEditorCtrl* ctrl = ::IsWindow(control) ? CEditorCtrl::FromHandle(control) : nullptr;
            if (!ctrl)
                return bad;
            const xTWndScope scope(*ctrl);
            return static_cast<Result>(body(*ctrl));
        },
        where);
}

template <typename Body>
void WithControl(HWND control, Body&& body, xTWhere where = {__builtin_FILE(), __builtin_LINE()}) noexcept
{
    WithControl(
        control, 0,
        [&](CEditorCtrl& ctrl) {
            body(ctrl);
            return 0;
        },
        where);
}

/// The same on the control's store; a control without one answers `bad` too.
template <typename Result, typename Body>
Result WithStore(HWND control, Result bad, Body&& body, xTWhere where = {__builtin_FILE(), __builtin_LINE()}) noexcept
{
    return WithControl(
        control, bad,
        [&](CEditorCtrl& ctrl) {
            xTMemStorage* store = ctrl.Store();
            return store ? static_cast<Result>(body(ctrl, *store)) : bad;
        },
        where);
}

}  // namespace

// ---- Lifecycle

HWND edCreateCtrl(const edCreateParams* params)
{
    return Guarded(HWND{}, [&]() -> HWND {
        if (!params)
            return nullptr;
        xTHighlightHook hook;
        if (params->highlightHook)
            hook = {params->highlightHook->fn, params->highlightHook->ctx};
        xTSettingsBlock settings;
        if (params->settings)
            settings = {params->settings->data, params->settings->size};
        const bool editable = !(params->flags & ED_CREATE_READONLY);
        const RECT rect = params->rect ? *params->rect : RECT{};
        auto* ctrl = new CEditorCtrl(&hook, settings, editable, params->defaultTheme);
        const xTWndScope scope(*ctrl);
        // Where the window cannot be created the object stays: required behaviour.
        return ctrl->Create(rect, params->parent, params->caption) ? ctrl->m_hWnd : nullptr;
    });
}

void edDestroyCtrl(HWND control)
{
    WithControl(control, [](CEditorCtrl& ctrl) {
        ctrl.DestroyWindow();
        if (!::IsWindow(ctrl.m_hWnd))
            ctrl.DeleteWhenUnwound();  // a window that the system keeps goes on being a control
    });
}

HWND edGetHWND(HWND control)
{
    // A probe: the object is not touched.
    return ::IsWindow(control) && CEditorCtrl::FromHandle(control) ? control : nullptr;
}

// ---- Text in and out

BOOL edLoadFile(HWND control, const wchar_t* path, UINT32* encoding)
{
    return WithControl(control, BOOL{0}, [&](CEditorCtrl& ctrl) {
        // A fault in the middle of a load answers 1, unlike that of any other function. Kept on purpose.
        return Guarded(true, [&] { return ctrl.LoadFile(path, encoding); });
    });
}

BOOL edSaveFile(HWND control, const wchar_t* path, UINT32 encoding)
{
    return WithControl(control, BOOL{0}, [&](CEditorCtrl& ctrl) { return ctrl.SaveFile(path, encoding); });
}

BOOL edLoadText(HWND control, const wchar_t* text, UINT32 maxChars)
{
    return WithControl(control, BOOL{0}, [&](CEditorCtrl& ctrl) { return ctrl.LoadTextInto(text, maxChars); });
}

UINT32 edSaveText(HWND control, wchar_t* buffer)
{
    return WithControl(control, UINT32{0}, [&](CEditorCtrl& ctrl) { return ctrl.SaveText(buffer); });
}

UINT32 edGetLineCount(HWND control)
{
    return WithStore(control, UINT32{0}, [](CEditorCtrl&, xTMemStorage& store) { return store.line_count(); });
}

BOOL edGetLine(HWND control, UINT32 line, int fromSelection, wchar_t* buffer, UINT32* length)
{
    return WithControl(control, BOOL{0}, [&](CEditorCtrl& ctrl) {
        return ctrl.GetLine(line, fromSelection != 0, buffer, length);
    });
}

BOOL edInsertText(HWND control, const wchar_t* text)
{
    return WithControl(control, BOOL{0}, [&](CEditorCtrl& ctrl) {
        ctrl.InsertText(text);
        return true;
    });
}

BOOL edCopyData(HWND source, HWND destination)
{
    return WithStore(source, BOOL{0}, [&](CEditorCtrl& from, xTMemStorage&) {
        return WithStore(destination, BOOL{0}, [&](CEditorCtrl& to, xTMemStorage&) {
            to.CopyDataFrom(from);
            return true;
        });
    });
}

// ---- Positions and modes

void edSetCaretPosition(HWND control, int line, int col)
{
    WithControl(control, [&](CEditorCtrl& ctrl) {
        ctrl.SetCaretPosition(line, col, ED_CARET_REDRAW | ED_CARET_CENTRE | ED_CARET_FOCUS);
    });
}

void edSetCaretPositionAdv(HWND control, int line, int col, UINT32 flags)
{
    WithControl(control, [&](CEditorCtrl& ctrl) { ctrl.SetCaretPosition(line, col, flags); });
}

void edSetScrollPosition(HWND control, int line, int col)
{
    WithControl(control, [&](CEditorCtrl& ctrl) { ctrl.SetScrollPosition(line, col); });
}

BOOL edGetPosition(HWND control, int code, edPoint* out)
{
    return WithControl(control, BOOL{0}, [&](CEditorCtrl& ctrl) { return ctrl.GetPosition(code, out); });
}

BOOL edGetMode(HWND control, UINT32 code)
{
    return WithControl(control, BOOL{0}, [&](CEditorCtrl& ctrl) {
        switch (code) {
        case ED_MODE_INSERT: return !ctrl.IsOverwrite();
        case ED_MODE_SELECTION: return ctrl.HasSelection();
        case ED_MODE_READONLY: return !ctrl.IsEditable();
        default: return false;
        }
    });
}

// ---- Commands

BOOL edExecCommand(HWND control, int code)
{
    return WithControl(control, BOOL{0}, [&](CEditorCtrl& ctrl) { return ctrl.ExecCommand(code); });
}

BOOL edCanExecCommand(HWND control, int code)
{
    return WithControl(control, BOOL{0}, [&](CEditorCtrl& ctrl) { return ctrl.CanExecCommand(code); });
}

// ---- Break points and the execution point. Line numbers arrive unsigned and are read as signed.

BOOL edSetBreakPoint(HWND control, UINT32 line)
{
    return WithStore(control, BOOL{0}, [&](CEditorCtrl& ctrl, xTMemStorage& store) {
        const bool set = store.set_break_point(static_cast<std::int32_t>(line)) != 0;
        if (set)
            ctrl.Invalidate();
        return set;
    });
}

BOOL edRemoveBreakPoint(HWND control, UINT32 line)
{
    return WithStore(control, BOOL{0}, [&](CEditorCtrl& ctrl, xTMemStorage& store) {
        const bool removed = store.remove_break_point(static_cast<std::int32_t>(line)) != 0;
        if (removed)
            ctrl.Invalidate();
        return removed;
    });
}

void edRemoveAllBreakPoints(HWND control)
{
    WithStore(control, 0, [](CEditorCtrl& ctrl, xTMemStorage& store) {
        store.remove_all_break_points();
        ctrl.Invalidate();
        return 0;
    });
}

int edGetBreakPointCount(HWND control)
{
    return WithStore(control, -1, [](CEditorCtrl&, xTMemStorage& store) { return store.break_point_count(); });
}

int edGetBreakPointLine(HWND control, UINT32 index)
{
    return WithStore(control, -1, [&](CEditorCtrl&, xTMemStorage& store) {
        return store.break_point_line(static_cast<std::int32_t>(index));
    });
}

BOOL edSetExecPoint(HWND control, UINT32 line)
{
    // 1 for every control, also where the store refused the line. Kept on purpose.
    return WithControl(control, BOOL{0}, [&](CEditorCtrl& ctrl) {
        if (ctrl.Store() && ctrl.Store()->set_exec_point(static_cast<std::int32_t>(line)))
            ctrl.Invalidate();
        return true;
    });
}

void edClearExecPoint(HWND control)
{
    WithStore(control, 0, [](CEditorCtrl& ctrl, xTMemStorage& store) {
        store.clear_exec_point();
        ctrl.Invalidate();
        return 0;
    });
}

// ---- Snapshots

void edTakeSnapshot(HWND control)
{
    WithStore(control, 0, [](CEditorCtrl&, xTMemStorage& store) {
        store.take_snapshot();
        return 0;
    });
}

int edGetSnapshotNewLine(HWND control, int oldLine)
{
    return WithStore(control, -1, [&](CEditorCtrl&, xTMemStorage& store) { return store.snapshot_new_line(oldLine); });
}

int edGetSnapshotOldLine(HWND control, int line)
{
    return WithStore(control, -1, [&](CEditorCtrl&, xTMemStorage& store) { return store.snapshot_old_line(line); });
}

// ---- Appearance

void edReloadTuneSettings(HWND control, const edSettingsBlock* block)
{
    WithControl(control, [&](CEditorCtrl& ctrl) {
        // A size with its top bit set is a host's error value and no size.
        if (block && block->data && static_cast<std::int32_t>(block->size) > 0)
            ctrl.ReloadSettings({block->data, block->size});
    });
}

// ---- Printing

BOOL edPreparePrinting(HWND control, const edPrintSetup* setup)
{
    return WithControl(control, BOOL{0}, [&](CEditorCtrl& ctrl) { return setup ? ctrl.PreparePrinting(*setup) : 0; });
}

BOOL edPrintPage(HWND control, const edPrintPageParams* params)
{
    return WithStore(control, BOOL{0}, [&](CEditorCtrl&, xTMemStorage& store) {
        return params && params->dc && store.print_page(params->dc, params->page);
    });
}

BOOL edPrintingOver(HWND control)
{
    return WithStore(control, BOOL{0}, [](CEditorCtrl&, xTMemStorage& store) { return store.printing_over(); });
}
