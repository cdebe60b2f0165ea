#include "tests/failure/Stage.h"

#include "tests/failure/Fault.h"
#include "tests/failure/States.h"
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
    xTSettingsBytes other = xTSettingsBytes::Golden();
    constexpr std::size_t tailBytes = 5;
    other.bytes().resize(other.bytes().size() - tailBytes);
    otherSettings = other.Tail(false, 7).bytes();
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
    Begin(marked, States().front(), true);
}

void Stage::Begin(const std::wstring& marked, const State& state, bool anew)
{
    boxes = 0;
    dragEnds = DROPEFFECT_NONE;
    dragEndsAt.reset();
    const bool goesOn = !anew && m_state == &state && edGetHWND(control);
    if (goesOn)
        CloseWhatIsOpen();
    else
        Make(state);
    std::wstring text = marked;
    for (int i = 0; i < state.linesBehind; ++i)
        text += i % 5 == 3 ? L"\nfurther /* down" : i % 5 == 4 ? L"\na remark */ ends" : L"\nfurther down";
    if (goesOn)
        Send(WM_SETREDRAW, FALSE);
    GivenMarked(control, text);  // while it is hidden: it paints itself once for all
    if (goesOn)
        Send(WM_SETREDRAW, TRUE);
    if (goesOn && !edGetMode(control, ED_MODE_INSERT))
        Command(ED_COMMAND_TOGGLE_OVERWRITE);
    ::ShowWindow(control, SW_SHOW);
    ::SetFocus(control);
    Repaint();
    if (state.enter)
        state.enter(*this);
}

void Stage::Make(const State& state)
{
    End();
    m_state = &state;
    edCreateParams params{};
    const edSettingsBlock block = SettingsOf(state);
    params.settings = &block;
    params.flags = state.flags;
    params.highlightHook = state.hooked ? &hook : nullptr;
    control = host.Create(params);
}

edSettingsBlock Stage::SettingsOf(const State& state) const noexcept
{
    const std::vector<unsigned char>& bytes = state.spacesForTabs ? otherSettings : settings;
    return {const_cast<unsigned char*>(bytes.data()), static_cast<UINT32>(bytes.size())};
}

// What a run has left beside its control.
void Stage::CloseWhatIsOpen()
{
    if (!m_state || !m_state->keepsDialogs) {
        for (HWND& page : pages) {
            if (::IsWindow(page))
                ::DestroyWindow(page);
            page = nullptr;
        }
        if (FindDialog())
            PressInDialog(IDCANCEL);
    }
    edDestroyCtrl(other);
    if (::IsWindow(other))
        ::DestroyWindow(other);
    other = nullptr;
    if (paper)
        ::DeleteEnhMetaFile(::CloseEnhMetaFile(std::exchange(paper, nullptr)));
    if (::IsWindow(control))
        SendMouse(control, WM_LBUTTONUP, At(0, 0), 0);  // the user lets go of the button
    ::ReleaseCapture();
    ::CloseClipboard();
    host.Forget();
}

void Stage::End()
{
    m_state = nullptr;
    CloseWhatIsOpen();
    if (const HWND dialog = FindDialog())
        ::DestroyWindow(dialog);
    edDestroyCtrl(control);
    if (::IsWindow(control))
        ::DestroyWindow(control);
    control = nullptr;
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
    if (::IsWindow(pages[which]))
        ::DestroyWindow(pages[which]);
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
    const xTComPtr<DragData> data(new DragData);
    if (files)
        data->PutFiles({L"C:\\one.txt", L"C:\\two.txt"});
    else
        data->PutText(text);
    return Drop(data.get(), keys, at);
}

std::int64_t Stage::Drop(IDataObject* data, DWORD keys, POINT at) const
{
    const xTComPtr<IDropTarget> target = TargetOf(control);
    if (!target)
        return DROPEFFECT_NONE;
    POINT screen = At(at.y, at.x);
    ::ClientToScreen(control, &screen);
    const POINTL point{screen.x, screen.y};
    const DWORD both = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    DWORD effect = both;
    target->DragEnter(data, keys, point, &effect);
    effect = both;
    target->DragOver(keys, point, &effect);
    effect = both;
    target->Drop(data, keys, point, &effect);
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

void Stage::ForgetRecords() const
{
    std::error_code ignored;
    std::filesystem::remove(folder.path() / logName, ignored);
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
    if (playing->dragEndsAt)
        playing->Drop(data, MK_LBUTTON, *playing->dragEndsAt);
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
