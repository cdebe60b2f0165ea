#include "tests/failure/Scenes.h"

#include "tests/support/win/KeyDriver.h"
#include "tests/support/win/Pointer.h"

#include <dlgs.h>

#include <iterator>

// What the user and the system do with the window, its dialogs and its pages.

namespace {

enum : int { idTheme = 1011, idElements = 1014, idHighlight = 1015, idBold = 1016, idSpaces = 1028, idTabSize = 1005,
             idFont = 1030, idGrid = 1033 };
constexpr UINT_PTR scrollTimer = 3501;
constexpr UINT_PTR tickTimer = 1;

/// More lines and columns than the window shows, with comments and tabs.
std::wstring Wide(int count)
{
    std::wstring text = L"|";
    for (int i = 0; i < count; ++i)
        text += L"\tname" + std::to_wstring(i) + L" /* the remark */ = \"string\" + 12345; // and a long end of the line " +
                (i % 5 == 0 ? L"/* open\n" : L"*/ closed\n");
    return text + L"last";
}

std::int64_t Press(Stage& s, UINT key, unsigned held = keys::none)
{
    keys::Press(s.control, key, held);
    return 0;
}

std::int64_t Paint(Stage& s)
{
    s.Repaint();
    return 0;
}

std::int64_t SelectWithTheMouse(Stage& s)
{
    SendMouse(s.control, WM_LBUTTONDOWN, At(0, 2));
    SendMouse(s.control, WM_MOUSEMOVE, At(1, 4));
    SendMouse(s.control, WM_MOUSEMOVE, At(2, 6));
    s.Send(WM_TIMER, scrollTimer);
    SendMouse(s.control, WM_LBUTTONUP, At(2, 6), 0);
    return 0;
}

std::int64_t Walk(Stage& s)
{
    for (const UINT key : {VK_RIGHT, VK_DOWN, VK_LEFT, VK_UP, VK_HOME, VK_END, VK_NEXT, VK_PRIOR})
        Press(s, key);
    return 0;
}

std::int64_t WalkSelecting(Stage& s)
{
    for (const UINT key : {VK_RIGHT, VK_DOWN, VK_LEFT, VK_UP, VK_HOME, VK_END, VK_NEXT, VK_PRIOR})
        Press(s, key, keys::shift);
    return 0;
}

std::int64_t Scroll(Stage& s)
{
    for (const WPARAM code : {SB_LINEDOWN, SB_PAGEDOWN, SB_BOTTOM, SB_LINEUP, SB_TOP}) {
        s.Send(WM_VSCROLL, code);
        s.Send(WM_HSCROLL, code);
    }
    s.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
    return 0;
}

std::int64_t FocusGoesAndComes(Stage& s)
{
    ::SetFocus(s.host.Window());
    ::SetFocus(s.control);
    return 0;
}

std::int64_t Resize(Stage& s)
{
    ::SetWindowPos(s.control, nullptr, 0, 0, 300, 90, SWP_NOMOVE | SWP_NOZORDER);
    ::SetWindowPos(s.control, nullptr, 0, 0, 400, 200, SWP_NOMOVE | SWP_NOZORDER);
    return 0;
}

std::int64_t HideAndShow(Stage& s)
{
    ::ShowWindow(s.control, SW_HIDE);
    ::ShowWindow(s.control, SW_SHOW);
    ::UpdateWindow(s.control);
    return 0;
}

std::int64_t Ticks(Stage& s)
{
    for (int i = 0; i < 3; ++i)
        s.Send(WM_TIMER, tickTimer);
    s.Send(WM_TIMER, scrollTimer);
    return 0;
}

void OpenFind(Stage& s)
{
    s.Command(ED_COMMAND_FIND);
    s.SetFindTexts(L"name7", L"");
}

/// The search is kept in the process: there is one however the last scene ended.
void RememberASearch(Stage& s)
{
    OpenFind(s);
    s.PressInDialog(IDOK);
    ::SetFocus(s.control);
}

std::int64_t CopyTwice(Stage& s)
{
    s.Command(ED_COMMAND_COPY);
    s.Command(ED_COMMAND_COPY_APPEND);
    return 0;
}

void OpenFontPage(Stage& s) { s.Page(&edCreateFontTuneDialog, 0); }
void OpenHighlightPage(Stage& s) { s.Page(&edCreateHighlightTuneDialog, 1); }

void Click(HWND page, int id)
{
    ::SendMessageW(::GetDlgItem(page, id), BM_CLICK, 0, 0);
}

void Choose(HWND page, int id, UINT message, WPARAM index, WORD notice)
{
    const HWND item = ::GetDlgItem(page, id);
    ::SendMessageW(item, message, index, 0);
    ::SendMessageW(page, WM_COMMAND, MAKEWPARAM(id, notice), reinterpret_cast<LPARAM>(item));
}

std::int64_t WorkOnFonts(Stage& s)
{
    Click(s.pages[0], idSpaces);
    ::SetDlgItemTextW(s.pages[0], idTabSize, L"7");
    const HWND field = ::GetDlgItem(s.pages[0], idTabSize);
    ::SendMessageW(s.pages[0], WM_COMMAND, MAKEWPARAM(idTabSize, EN_KILLFOCUS), reinterpret_cast<LPARAM>(field));
    Click(s.pages[0], idFont);
    return 0;
}

std::int64_t WorkOnColours(Stage& s)
{
    const HWND page = s.pages[1];
    Choose(page, idTheme, CB_SETCURSEL, 3, CBN_SELCHANGE);
    Choose(page, idElements, LB_SETCURSEL, 1, LBN_SELCHANGE);
    Click(page, idBold);
    const HWND grid = ::GetDlgItem(page, idGrid);
    const HWND cell = ::GetDlgItem(grid, 6);
    ::SendMessageW(cell, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    ::SendMessageW(grid, WM_KEYDOWN, VK_RIGHT, 1);
    ::UpdateWindow(cell);
    Click(page, idHighlight);
    return 0;
}

std::int64_t ClosePages(Stage& s)
{
    for (const HWND page : s.pages)
        if (page)
            ::DestroyWindow(page);
    return 0;
}

using S = Scene;
const Scene scenes[] = {
    {"Paint", Wide(30), nullptr, Paint},
    {"PaintAfterALoad", Wide(2), nullptr,
     [](Stage& s) {
         edLoadText(s.control, Wide(40).c_str() + 1, 0xFFFFFFFF);
         return Paint(s);
     }, 0, S::newText},
    {"Walk", Wide(30), nullptr, Walk},
    {"WalkByWords", Wide(30), nullptr,
     [](Stage& s) { return Press(s, VK_RIGHT, keys::ctrl) + Press(s, VK_LEFT, keys::ctrl) + Press(s, VK_END, keys::ctrl); }},
    {"WalkSelecting", Wide(30), nullptr, WalkSelecting},
    {"Scroll", Wide(60), nullptr, Scroll},
    {"SelectWithTheMouse", Wide(10), nullptr, SelectWithTheMouse},
    {"DoubleClick", L"|one two three", nullptr,
     [](Stage& s) { return std::int64_t{SendMouse(s.control, WM_LBUTTONDBLCLK, At(0, 5))}; }},
    {"TheFocusGoesAndComes", Wide(10), nullptr, FocusGoesAndComes},
    {"Resize", Wide(30), nullptr, Resize},
    {"HideAndShow", Wide(30), nullptr, HideAndShow},
    {"Ticks", L"|a", nullptr, Ticks},
    {"CopyAndAppend", L"a[bc\nde]|f", nullptr, CopyTwice},
    {"OpenTheFindDialog", Wide(10), nullptr,
     [](Stage& s) { s.Command(ED_COMMAND_FIND); return std::int64_t{0}; }},
    {"OpenTheReplaceDialog", Wide(10), nullptr,
     [](Stage& s) { s.Command(ED_COMMAND_REPLACE); return std::int64_t{0}; }},
    {"FindInTheDialog", Wide(30), OpenFind, [](Stage& s) { s.PressInDialog(IDOK); return std::int64_t{0}; }},
    {"FindNothingInTheDialog", L"|abc", OpenFind, [](Stage& s) { s.PressInDialog(IDOK); return std::int64_t{0}; }},
    {"CloseTheFindDialog", Wide(10), OpenFind, [](Stage& s) { s.PressInDialog(IDCANCEL); return std::int64_t{0}; }},
    {"FindNext", Wide(30), RememberASearch, [](Stage& s) { s.Command(ED_COMMAND_FIND_NEXT); return std::int64_t{0}; }},
    {"WorkOnFonts", L"|a", OpenFontPage, WorkOnFonts},
    {"WorkOnColours", L"|a", OpenHighlightPage, WorkOnColours},
    {"ClosePages", L"|a", [](Stage& s) { OpenFontPage(s); OpenHighlightPage(s); }, ClosePages},
};

}  // namespace

std::span<const Scene> UserScenes()
{
    return scenes;
}

std::vector<Scene> AllScenes()
{
    std::vector<Scene> all;
    for (const auto part : {ExportScenes(), EditingScenes(), UserScenes()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}
