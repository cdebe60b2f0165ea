#include "tests/failure/Stage.h"

#include "tests/failure/Fault.h"
#include "tests/support/SettingsBytes.h"
#include "tests/support/win/MarkedControl.h"
#include "tests/support/win/Pointer.h"

#include <commdlg.h>
#include <dlgs.h>

#include <cwctype>
#include <fstream>

namespace {

Stage* playing = nullptr;

constexpr const wchar_t* logName = L"scrivctl.log";

template <typename Function>
void* Address(Function* function)
{
    return reinterpret_cast<void*>(function);
}

}  // namespace

Stage::Stage() : hook{&Stage::Classify, this}
{
    playing = this;
    ::OleInitialize(nullptr);
    file = folder.file("text.txt");
    settings = xTSettingsBytes::Golden().bytes();
    library.Redirect("ChooseFontW", Address(&Stage::ChooseFont));
    library.Redirect("MessageBoxW", Address(&Stage::MessageBox));
    library.Redirect("DoDragDrop", Address(&Stage::Drag));
    library.Redirect("GetModuleFileNameW", Address(&Stage::ModuleFileName));
    library.Redirect("Sleep", Address(&Stage::DoNotSleep));
    host.answer = 1;
}

Stage::~Stage()
{
    End();
    ::OleUninitialize();
    playing = nullptr;
}

void Stage::Begin(const std::wstring& marked)
{
    boxes = 0;
    dragEnds = DROPEFFECT_NONE;
    edCreateParams params{};
    const edSettingsBlock block{settings.data(), static_cast<UINT32>(settings.size())};
    params.settings = &block;
    params.highlightHook = &hook;
    control = host.Create(params);
    GivenMarked(control, marked);  // while it is hidden: it paints itself once for all
    ::ShowWindow(control, SW_SHOW);
    ::SetFocus(control);
    ::UpdateWindow(control);
    std::filesystem::remove(folder.path() / logName);
}

void Stage::End()
{
    for (HWND& page : pages) {
        if (::IsWindow(page))
            ::DestroyWindow(page);
        page = nullptr;
    }
    if (const HWND dialog = FindDialog())
        ::DestroyWindow(dialog);
    for (HWND* made : {&other, &control}) {
        edDestroyCtrl(*made);
        if (::IsWindow(*made))
            ::DestroyWindow(*made);
        *made = nullptr;
    }
    if (paper)
        ::DeleteEnhMetaFile(::CloseEnhMetaFile(std::exchange(paper, nullptr)));
    ::CloseClipboard();
    host.Forget();
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        ::DispatchMessageW(&message);
}

void Stage::Type(const wchar_t* text) const
{
    for (; *text; ++text)
        Send(WM_CHAR, *text, 1);
}

void Stage::Repaint() const
{
    ::InvalidateRect(control, nullptr, TRUE);
    ::UpdateWindow(control);
}

void Stage::Page(decltype(&edCreateFontTuneDialog) create, int which)
{
    const edSettingsBlock block{settings.data(), static_cast<UINT32>(settings.size())};
    const RECT place{0, 0, 380, 190};
    pages[which] = create(host.Window(), &place, &block, &hook);
}

HWND Stage::FindDialog() const
{
    HWND found = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM to) -> BOOL {
            if (!::GetDlgItem(window, edt1) || !::GetDlgItem(window, chx1))
                return TRUE;
            *reinterpret_cast<HWND*>(to) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

void Stage::PressInDialog(int id) const
{
    ::SendMessageW(FindDialog(), WM_COMMAND, static_cast<WPARAM>(id), 0);
}

void Stage::SetFindTexts(const wchar_t* find, const wchar_t* replacement) const
{
    ::SetDlgItemTextW(FindDialog(), edt1, find);
    ::SetDlgItemTextW(FindDialog(), edt2, replacement);
}

std::int64_t Stage::Drop(const wchar_t* text, DWORD keys, POINT at, bool files) const
{
    const xTComPtr<IDropTarget> target = TargetOf(control);
    if (!target)
        return DROPEFFECT_NONE;
    const xTComPtr<DragData> data(new DragData);
    if (files)
        data->PutFiles({L"C:\\one.txt", L"C:\\two.txt"});
    else
        data->PutText(text);
    POINT screen = At(at.y, at.x);
    ::ClientToScreen(control, &screen);
    const POINTL point{screen.x, screen.y};
    const DWORD both = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    DWORD effect = both;
    target->DragEnter(data.get(), keys, point, &effect);
    effect = both;
    target->DragOver(keys, point, &effect);
    effect = both;
    target->Drop(data.get(), keys, point, &effect);
    return effect;
}

std::vector<std::string> Stage::Records() const
{
    std::ifstream log(folder.path() / logName);
    std::vector<std::string> lines;
    for (std::string line; std::getline(log, line);)
        lines.push_back(line);
    return lines;
}

void Stage::Classify(void*, wchar_t* text, int)
{
    for (; *text; ++text)
        *text = static_cast<wchar_t>(std::iswalpha(*text)   ? ED_CLASS_KEYWORD
                                     : std::iswdigit(*text) ? ED_CLASS_NUMBER
                                                            : ED_CLASS_SYMBOL);
}

// The user takes another size.
BOOL WINAPI Stage::ChooseFont(CHOOSEFONTW* choice)
{
    choice->lpLogFont->lfHeight = -20;
    return TRUE;
}

// A font that cannot be had is asked for again after each box, without a limit: required. So the user closes some other
// program in the end.
int WINAPI Stage::MessageBox(HWND, const wchar_t*, const wchar_t*, UINT)
{
    constexpr int patience = 5;
    if (++playing->boxes >= patience)
        Fault::Recover();
    return IDOK;
}

HRESULT WINAPI Stage::Drag(IDataObject* data, IDropSource*, DWORD, DWORD* effect)
{
    static_cast<void>(UnicodeBlockOf(data));
    *effect = playing->dragEnds;
    return *effect == DROPEFFECT_NONE ? DRAGDROP_S_CANCEL : DRAGDROP_S_DROP;
}

// The log stands beside the program: it goes into the folder of this stage, for no other test writes there.
DWORD WINAPI Stage::ModuleFileName(HMODULE, wchar_t* path, DWORD room)
{
    const std::wstring program = playing->folder.file("host.exe");
    ::lstrcpynW(path, program.c_str(), static_cast<int>(room));
    return static_cast<DWORD>(program.size());
}
