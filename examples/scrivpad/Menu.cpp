#include "Menu.h"

#include "Names.h"

#include <iterator>
#include <span>

namespace scrivpad {

namespace {

struct MenuRow {
    unsigned command;     ///< 0: a line between groups
    const wchar_t* text;
};

constexpr MenuRow fileRows[] = {
    {cmdOpen, L"&Открыть...\tCtrl+O"},
    {cmdSave, L"&Сохранить\tCtrl+S"},
    {cmdSaveAs, L"Сохранить &как...\tCtrl+Shift+S"},
    {0, nullptr},
    {cmdExit, L"В&ыход\tAlt+F4"},
};

constexpr MenuRow helpRows[] = {
    {cmdAbout, L"&О программе..."},
};

constexpr ACCEL shortcuts[] = {
    {FVIRTKEY | FCONTROL, 'O', cmdOpen},
    {FVIRTKEY | FCONTROL, 'S', cmdSave},
    {FVIRTKEY | FCONTROL | FSHIFT, 'S', cmdSaveAs},
};

void AddPopup(HMENU menu, HMENU popup, const wchar_t* text) noexcept
{
    ::AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), text);
}

[[nodiscard]] HMENU PopupOf(std::span<const MenuRow> rows) noexcept
{
    const HMENU popup = ::CreatePopupMenu();
    for (const MenuRow& row : rows)
        ::AppendMenuW(popup, row.command == 0 ? MF_SEPARATOR : MF_STRING, row.command, row.text);
    return popup;
}

[[nodiscard]] HMENU PopupOf(std::span<const NumberName> names, unsigned firstCommand) noexcept
{
    const HMENU popup = ::CreatePopupMenu();
    for (const NumberName& row : names)
        ::AppendMenuW(popup, MF_STRING, firstCommand++, row.name);
    return popup;
}

/// Dots the row of the number; a number that the table lacks leaves all without one.
void Dot(HMENU menu, std::span<const NumberName> names, unsigned firstCommand, unsigned number) noexcept
{
    for (unsigned i = 0; i < names.size(); ++i) {
        if (names[i].number == number)
            ::CheckMenuRadioItem(menu, firstCommand, firstCommand + static_cast<unsigned>(names.size()) - 1,
                                 firstCommand + i, MF_BYCOMMAND);
    }
}

void Enable(HMENU menu, unsigned command, bool on) noexcept
{
    ::EnableMenuItem(menu, command, MF_BYCOMMAND | (on ? MF_ENABLED : MF_GRAYED));
}

}  // namespace

HMENU BuildMenu()
{
    const HMENU encodingPopup = PopupOf(encodings, cmdFirstEncoding);
    ::AppendMenuW(encodingPopup, MF_SEPARATOR, 0, nullptr);
    AddPopup(encodingPopup, PopupOf(encodings, cmdFirstReopen), L"&Перечитать файл как");

    const HMENU viewPopup = ::CreatePopupMenu();
    AddPopup(viewPopup, PopupOf(themes, cmdFirstTheme), L"&Тема");

    const HMENU menu = ::CreateMenu();
    AddPopup(menu, PopupOf(fileRows), L"&Файл");
    AddPopup(menu, viewPopup, L"&Вид");
    AddPopup(menu, encodingPopup, L"&Кодировка");
    AddPopup(menu, PopupOf(helpRows), L"&Справка");
    return menu;
}

HACCEL BuildShortcuts()
{
    ACCEL table[std::size(shortcuts)];
    std::copy(std::begin(shortcuts), std::end(shortcuts), table);
    return ::CreateAcceleratorTableW(table, static_cast<int>(std::size(table)));
}

void UpdateMenu(HMENU menu, unsigned theme, unsigned encoding, bool hasFile)
{
    Dot(menu, themes, cmdFirstTheme, theme);
    Dot(menu, encodings, cmdFirstEncoding, encoding);
    for (unsigned i = 0; i < std::size(encodings); ++i)
        Enable(menu, cmdFirstReopen + i, hasFile);
}

}  // namespace scrivpad
