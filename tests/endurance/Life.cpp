#include "tests/endurance/Life.h"

#include "include/scrivctl3.h"
#include "tests/control/tuning/PageIds.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/KeyDriver.h"
#include "tests/support/win/Metafile.h"

#include <dlgs.h>

#include <array>

namespace life {

namespace {

struct KeyRow {
    UINT key;
    unsigned held;
};

constexpr KeyRow editingKeys[] = {
    {VK_DELETE, keys::none}, {VK_RIGHT, keys::shift}, {'U', keys::ctrl},        {VK_DOWN, keys::shift},
    {VK_TAB, keys::none},    {VK_TAB, keys::shift},   {VK_DIVIDE, keys::ctrl},  {VK_LEFT, keys::ctrl},
    {VK_NEXT, keys::none},   {VK_PRIOR, keys::shift}, {VK_DELETE, keys::shift}, {VK_INSERT, keys::shift},
};

void Tell(HWND page, int id, int code)
{
    ::SendMessageW(page, WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(::GetDlgItem(page, id)));
}

void Press(HWND page, int id)
{
    ::SendDlgItemMessageW(page, id, BM_CLICK, 0, 0);
}

}  // namespace

std::wstring Text(int lines)
{
    static constexpr const wchar_t* const rows[] = {
        L"for (int i = 0; i < 100; ++i)", L"\tcall(\"строка\", 0x1F);\t// note", L"", L"/* begins", L"   ends */ слово",
    };
    std::wstring text;
    for (int line = 0; line < lines; ++line)
        text.append(rows[line % 5]).append(1, L'\n');
    return text;
}

void Edit(HWND control)
{
    ::SetFocus(control);
    edSetCaretPosition(control, 3, 2);
    keys::Type(control, L"if (x)\r{ a\b}");
    edInsertText(control, L"one\r\ntwo");
    for (const auto& [key, held] : editingKeys)
        keys::Press(control, key, held);
    edSetBreakPoint(control, 1);
    edSetExecPoint(control, 0);
    edTakeSnapshot(control);
    ::UpdateWindow(control);
    while (edExecCommand(control, ED_COMMAND_UNDO) != 0) {
    }
    for (int i = 0; i < 3; ++i)
        edExecCommand(control, ED_COMMAND_REDO);
}

HWND OpenFind(HWND control)
{
    edExecCommand(control, ED_COMMAND_FIND);
    HWND found = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            if (!::GetDlgItem(window, edt1))
                return TRUE;
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

void Search(HWND control)
{
    const HWND dialog = OpenFind(control);
    ::SetDlgItemTextW(dialog, edt1, L"ends");
    Press(dialog, IDOK);
    Press(dialog, rad1);  // upwards
    Press(dialog, IDOK);
    Press(dialog, rad2);
    Press(dialog, IDCANCEL);
}

void Print(HWND control)
{
    constexpr RECT sheet{50, 40, 750, 540};
    Metafile measures;
    const edPrintSetup setup{measures.Context(), sheet, sheet, sheet, sheet, {1, 0}};
    edPreparePrinting(control, &setup);
    Metafile paper;
    for (UINT32 page = 1; page <= 2; ++page) {
        const edPrintPageParams params{paper.Context(), page};
        edPrintPage(control, &params);
    }
    edPrintingOver(control);
}

Tuning::Tuning(HWND host)
{
    const edSettingsBlock none{};
    const RECT left{0, 0, 400, 260};
    const RECT right{400, 0, 830, 400};
    m_font = edCreateFontTuneDialog(host, &left, &none, nullptr);
    m_colours = edCreateHighlightTuneDialog(host, &right, &none, nullptr);
}

Tuning::~Tuning()
{
    ::DestroyWindow(m_font);
    ::DestroyWindow(m_colours);
}

void Tuning::Choose(int theme)
{
    ::SendDlgItemMessageW(m_colours, idTheme, CB_SETCURSEL, static_cast<WPARAM>(theme), 0);
    Tell(m_colours, idTheme, CBN_SELCHANGE);
    ::SendDlgItemMessageW(m_colours, idElements, LB_SETCURSEL, static_cast<WPARAM>(theme), 0);
    Tell(m_colours, idElements, LBN_SELCHANGE);
    Press(m_colours, idBold);
    Press(m_font, theme % 2 ? idSpaces : idTabs);
    ::SetDlgItemInt(m_font, idTabSize, static_cast<UINT>(theme), FALSE);
    Tell(m_font, idTabSize, EN_KILLFOCUS);
}

void Tuning::ApplyTo(HWND control) const
{
    std::array<char, 1024> bytes;
    edSettingsBlock block{bytes.data(), static_cast<UINT32>(bytes.size())};
    block.size = edApplyTuningChanges(&block);
    edReloadTuneSettings(control, &block);
}

}  // namespace life
