// A control's whole life in a host that opens no file itself: trace_host FILE COPY. What files the process opens
// meanwhile is for check_files.py to see.

#include "scrivctl3.h"

#include <initializer_list>

namespace {

void Pump()
{
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

/// A question about a file that there is not stands in the trace, and nothing is opened for it.
void Mark(const wchar_t* text)
{
    ::GetFileAttributesW(text);
}

void Classify(void*, wchar_t* text, int)
{
    for (; *text; ++text)
        *text = ED_CLASS_IDENTIFIER;
}

void Edit(HWND control)
{
    for (const wchar_t* key = L"typed /* text */\r"; *key; ++key)
        ::SendMessageW(control, WM_CHAR, *key, 0);
    edExecCommand(control, ED_COMMAND_SELECT_ALL);
    for (const int command : {ED_COMMAND_COPY, ED_COMMAND_COPY_APPEND, ED_COMMAND_PASTE, ED_COMMAND_UNDO, ED_COMMAND_REDO})
        edExecCommand(control, command);
    edSetBreakPoint(control, 0);
    edTakeSnapshot(control);
    Pump();
}

void Search(HWND control)
{
    edExecCommand(control, ED_COMMAND_FIND);
    Pump();
    if (const HWND dialog = ::GetLastActivePopup(::GetAncestor(control, GA_ROOT)))
        ::SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    Pump();
}

void Print(HWND control)
{
    const HDC paper = ::CreateCompatibleDC(nullptr);
    const RECT page{0, 0, 400, 300};
    const edPrintSetup setup{paper, page, page, page, page, {1, 0}};
    edPreparePrinting(control, &setup);
    const edPrintPageParams params{paper, 1};
    edPrintPage(control, &params);
    edPrintingOver(control);
    ::DeleteDC(paper);
}

void Tune(HWND host, HWND control)
{
    edSettingsBlock none{};
    const HWND pages[] = {edCreateFontTuneDialog(host, nullptr, &none, nullptr),
                          edCreateHighlightTuneDialog(host, nullptr, &none, nullptr)};
    Pump();
    BYTE bytes[1000];
    edSettingsBlock block{bytes, sizeof bytes};
    block.size = edApplyTuningChanges(&block);
    for (const HWND page : pages)
        ::DestroyWindow(page);
    edReloadTuneSettings(control, &block);
    Pump();
}

bool Live(HWND host, const wchar_t* file, const wchar_t* copy)
{
    const RECT place{0, 0, 400, 200};
    const edHighlightHook hook{&Classify, nullptr};
    edCreateParams params{};
    params.parent = host;
    params.rect = &place;
    params.highlightHook = &hook;
    const HWND control = edCreateCtrl(&params);
    ::ShowWindow(control, SW_SHOW);
    ::SetFocus(control);
    UINT32 encoding = ED_ENCODING_DEFAULT;
    bool good = edLoadFile(control, file, &encoding);
    Pump();
    Edit(control);
    Search(control);
    Print(control);
    Tune(host, control);
    good = edSaveFile(control, copy, encoding) && edSaveFile(control, copy, encoding) && good;  // a new file and an old one
    edSetExecPoint(control, 0xFFFFFFFF);  // puts itself on record in the log
    edDestroyCtrl(control);
    return good;
}

}  // namespace

int wmain(int count, wchar_t** arguments)
{
    if (count != 3)
        return 2;
    const HWND host = ::CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 500, 300, nullptr,
                                        nullptr, nullptr, nullptr);
    Pump();
    Mark(L"the control's life begins");
    const bool good = Live(host, arguments[1], arguments[2]);
    Mark(L"the control's life ends");
    ::DestroyWindow(host);
    return good ? 0 : 1;
}
