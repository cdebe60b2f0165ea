#include "Menu.h"

#include "Names.h"
#include "Pane.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

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
    {cmdPageSetup, L"Пара&метры страницы..."},
    {cmdPreview, L"Пр&осмотр печати"},
    {cmdPrint, L"&Печать...\tCtrl+P"},
    {0, nullptr},
    {cmdExit, L"В&ыход\tAlt+F4"},
};

constexpr MenuRow editRows[] = {
    {EditCommand(ED_COMMAND_UNDO), L"&Отменить\tCtrl+Z"},
    {EditCommand(ED_COMMAND_REDO), L"&Повторить\tCtrl+Y"},
    {0, nullptr},
    {EditCommand(ED_COMMAND_CUT), L"&Вырезать\tCtrl+X"},
    {EditCommand(ED_COMMAND_COPY), L"&Копировать\tCtrl+C"},
    {EditCommand(ED_COMMAND_COPY_APPEND), L"&Добавить к скопированному\tCtrl+Shift+C"},
    {EditCommand(ED_COMMAND_PASTE), L"Вст&авить\tCtrl+V"},
    {0, nullptr},
    {EditCommand(ED_COMMAND_SELECT_ALL), L"Выделить в&сё\tCtrl+A"},
    {EditCommand(ED_COMMAND_SELECT_TO_LINE_END), L"Выделить до конца ст&роки\tCtrl+Shift+E"},
    {EditCommand(ED_COMMAND_CLEAR_SELECTION), L"С&нять выделение"},
    {0, nullptr},
    {EditCommand(ED_COMMAND_TOGGLE_OVERWRITE), L"Ре&жим забивания\tIns"},
};

constexpr MenuRow searchRows[] = {
    {EditCommand(ED_COMMAND_FIND), L"&Найти...\tCtrl+F"},
    {EditCommand(ED_COMMAND_FIND_NEXT), L"Найти &далее\tF3"},
    {EditCommand(ED_COMMAND_REPLACE), L"&Заменить...\tCtrl+H"},
};

constexpr MenuRow debugRows[] = {
    {cmdBreakPoint, L"&Точка останова\tF9"},
    {cmdRemoveBreakPoints, L"&Убрать все точки останова\tCtrl+Shift+F9"},
    {0, nullptr},
    {cmdExecPoint, L"Точка &исполнения сюда\tF10"},
    {cmdClearExecPoint, L"У&брать точку исполнения\tCtrl+F10"},
};

constexpr MenuRow viewRows[] = {
    {cmdSplit, L"&Два текста рядом\tCtrl+2"},
    {cmdNextPane, L"&Соседний текст\tF6"},
    {0, nullptr},
    {cmdSettings, L"&Настройка..."},
};

constexpr MenuRow helpRows[] = {
    {cmdAbout, L"&О программе..."},
};

constexpr ACCEL Key(int modifiers, int key, unsigned command) noexcept
{
    return {static_cast<BYTE>(FVIRTKEY | modifiers), static_cast<WORD>(key), static_cast<WORD>(command)};
}

// Ins is the editor's own key.
constexpr ACCEL shortcuts[] = {
    Key(FCONTROL, 'O', cmdOpen),
    Key(FCONTROL, 'S', cmdSave),
    Key(FCONTROL | FSHIFT, 'S', cmdSaveAs),
    Key(FCONTROL, 'P', cmdPrint),
    Key(FCONTROL, 'Z', EditCommand(ED_COMMAND_UNDO)),
    Key(FCONTROL, 'Y', EditCommand(ED_COMMAND_REDO)),
    Key(FCONTROL, 'X', EditCommand(ED_COMMAND_CUT)),
    Key(FCONTROL, 'C', EditCommand(ED_COMMAND_COPY)),
    Key(FCONTROL | FSHIFT, 'C', EditCommand(ED_COMMAND_COPY_APPEND)),
    Key(FCONTROL, 'V', EditCommand(ED_COMMAND_PASTE)),
    Key(FCONTROL, 'A', EditCommand(ED_COMMAND_SELECT_ALL)),
    Key(FCONTROL | FSHIFT, 'E', EditCommand(ED_COMMAND_SELECT_TO_LINE_END)),
    Key(FCONTROL, 'F', EditCommand(ED_COMMAND_FIND)),
    Key(FCONTROL, 'H', EditCommand(ED_COMMAND_REPLACE)),
    Key(0, VK_F3, EditCommand(ED_COMMAND_FIND_NEXT)),
    Key(0, VK_F9, cmdBreakPoint),
    Key(FCONTROL | FSHIFT, VK_F9, cmdRemoveBreakPoints),
    Key(0, VK_F10, cmdExecPoint),
    Key(FCONTROL, VK_F10, cmdClearExecPoint),
    Key(FCONTROL, '2', cmdSplit),
    Key(0, VK_F6, cmdNextPane),
};

// Not every system leaves room between the longest text and the keys, nor behind the last letter in the menu bar.
[[nodiscard]] std::wstring Spaced(const wchar_t* text)
{
    std::wstring spaced = text != nullptr ? text : L"";
    if (const std::size_t tab = spaced.find(L'\t'); tab != std::wstring::npos)
        spaced.insert(tab, L"    ");
    return spaced;
}

void AddPopup(HMENU menu, HMENU popup, const wchar_t* text) noexcept
{
    ::AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), text);
}

[[nodiscard]] HMENU PopupOf(std::span<const MenuRow> rows)
{
    const HMENU popup = ::CreatePopupMenu();
    for (const MenuRow& row : rows)
        ::AppendMenuW(popup, row.command == 0 ? MF_SEPARATOR : MF_STRING, row.command, Spaced(row.text).c_str());
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

void Tick(HMENU menu, unsigned command, bool on) noexcept
{
    ::CheckMenuItem(menu, command, MF_BYCOMMAND | (on ? MF_CHECKED : MF_UNCHECKED));
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

    const HMENU viewPopup = PopupOf(viewRows);
    ::AppendMenuW(viewPopup, MF_SEPARATOR, 0, nullptr);
    AddPopup(viewPopup, PopupOf(themes, cmdFirstTheme), L"&Тема");

    const HMENU menu = ::CreateMenu();
    AddPopup(menu, PopupOf(fileRows), L"&Файл ");
    AddPopup(menu, PopupOf(editRows), L"&Правка ");
    AddPopup(menu, PopupOf(searchRows), L"П&оиск ");
    AddPopup(menu, PopupOf(debugRows), L"&Отладка ");
    AddPopup(menu, viewPopup, L"&Вид ");
    AddPopup(menu, encodingPopup, L"&Кодировка ");
    AddPopup(menu, PopupOf(helpRows), L"&Справка ");
    return menu;
}

HACCEL BuildShortcuts()
{
    ACCEL table[std::size(shortcuts)];
    std::copy(std::begin(shortcuts), std::end(shortcuts), table);
    return ::CreateAcceleratorTableW(table, static_cast<int>(std::size(table)));
}

void UpdateMenu(HMENU menu, const MenuState& state)
{
    const Editor& editor = state.active.TextEditor();
    const Document& document = state.active.CurrentDocument();
    Dot(menu, themes, cmdFirstTheme, state.theme);
    Dot(menu, encodings, cmdFirstEncoding, document.encoding);
    for (unsigned i = 0; i < std::size(encodings); ++i)
        Enable(menu, cmdFirstReopen + i, !document.path.empty());
    for (unsigned command = cmdFirstEdit + 1; command <= cmdLastEdit; ++command)
        Enable(menu, command, edCanExecCommand(editor.Handle(), EditCode(command)) != 0);
    Tick(menu, EditCommand(ED_COMMAND_TOGGLE_OVERWRITE), !editor.Mode(ED_MODE_INSERT));
    Tick(menu, cmdSplit, state.split);
    Enable(menu, cmdNextPane, state.split);
    Tick(menu, cmdBreakPoint, editor.HasBreakPoint(static_cast<UINT32>(editor.Position(ED_POSITION_CARET).y)));
    Enable(menu, cmdRemoveBreakPoints, edGetBreakPointCount(editor.Handle()) > 0);
    Enable(menu, cmdExecPoint, editor.LineCount() > 0);
    Enable(menu, cmdClearExecPoint, editor.ExecPoint().has_value());
}

}  // namespace scrivpad
