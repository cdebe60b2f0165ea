#include "tests/control/live/Day.h"

Day::Day(LiveControl& live, unsigned seed) : m_live(live), m_control(live.Window()), m_random(seed) {}

bool Day::Event()
{
    if (!Once(3)) {
        LookAround();
        return false;
    }
    Edit();
    return true;
}

int Day::Stretch()
{
    int events = 0;
    for (int edits = 0; edits < editsInAStretch; ++events)
        edits += Event() ? 1 : 0;
    return events;
}

int Day::UndoAll()
{
    int steps = 0;
    ::SetFocus(m_control);
    while (edExecCommand(m_control, ED_COMMAND_UNDO) != 0)
        ++steps;
    return steps;
}

// Not near the end: a change of the last line's block is not undone to the letter, which is required.
void Day::GoSomewhere()
{
    edSetCaretPosition(m_control, Below(Lines() - 12), Below(40));
}

void Day::SelectLines()
{
    GoSomewhere();
    m_live.Key(VK_HOME);
    for (int i = 1 + Below(4); i > 0; --i)
        m_live.Key(VK_DOWN, true);
}

int Day::Length(int line) const
{
    UINT32 length = 0;  // with the terminator
    edGetLine(m_control, static_cast<UINT32>(line), FALSE, nullptr, &length);
    return static_cast<int>(length) - 1;
}

// Within a line: what ends with a line break leaves the break, which is required, and its undo brings another.
void Day::SelectCharacters()
{
    constexpr int most = 6;
    int line = 0;
    do
        line = Below(Lines() - 12);
    while (Length(line) <= most);
    edSetCaretPosition(m_control, line, Below(Length(line) - most));
    for (int i = 1 + Below(most); i > 0; --i)
        m_live.Key(VK_RIGHT, true);
}

void Day::Type(const wchar_t* text)
{
    for (; *text; ++text)
        m_live.Char(*text);
}

void Day::Edit()
{
    static constexpr const wchar_t* words[] = {L"i", L"if", L"я", L"/*", L"*/", L"//", L"\"", L"\t", L"{ }"};
    static constexpr const wchar_t* pieces[] = {L"value = 0;", L"one\r\ntwo\r\nthree", L"значение"};
    ::SetFocus(m_control);
    GoSomewhere();
    switch (Below(12)) {
    case 0: return m_live.Char(L'\r');
    case 1: return m_live.Char(L'\b');
    case 2: return m_live.Key(VK_DELETE);
    case 3: SelectCharacters(); return m_live.Key(VK_DELETE);
    case 4: SelectCharacters(); return m_live.Char(L'x');
    case 5: SelectCharacters(); return m_live.Key(VK_DELETE, true);
    case 6: SelectLines(); return m_live.Key(VK_TAB, Once(2));
    case 7: SelectLines(); return m_live.Key(VK_DIVIDE, Once(2), true);
    case 8: SelectCharacters(); return m_live.Key('U', Once(2), true);
    case 9: m_live.FillClipboard(pieces[Below(3)]); edExecCommand(m_control, ED_COMMAND_PASTE); return;
    case 10: edInsertText(m_control, pieces[Below(3)]); return;
    default: return Type(words[Below(9)]);
    }
}

void Day::LookAround()
{
    static constexpr UINT keys[] = {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_HOME, VK_END, VK_PRIOR, VK_NEXT};
    switch (Below(10)) {
    case 0: return Click();
    case 1: ::SendMessageW(m_control, WM_MOUSEWHEEL, MAKEWPARAM(0, Once(2) ? 120 : -120), 0); return;
    case 2: ::SendMessageW(m_control, Once(2) ? WM_VSCROLL : WM_HSCROLL, static_cast<WPARAM>(Below(4)), 0); return;
    case 3: return Resize();
    case 4: return Mark();
    case 5: ::SetFocus(::GetParent(m_control)); ::SetFocus(m_control); return;
    case 6: ::SendMessageW(m_control, WM_TIMER, Once(2) ? 1 : 3501, 0); return;
    case 7: return Command();
    default: return m_live.Key(keys[Below(8)], Once(3), Once(4));
    }
}

// One that changes no text; every edit of the day is made in insert mode.
void Day::Command()
{
    edExecCommand(m_control, Between(ED_COMMAND_SELECT_ALL, ED_COMMAND_COPY_APPEND));
    edExecCommand(m_control, ED_COMMAND_CLEAR_SELECTION);
    if (!edGetMode(m_control, ED_MODE_INSERT))
        edExecCommand(m_control, ED_COMMAND_TOGGLE_OVERWRITE);
}

void Day::Click()
{
    const LPARAM at = MAKELPARAM(Below(200), Below(100));
    ::SendMessageW(m_control, WM_LBUTTONDOWN, MK_LBUTTON, at);
    if (Once(2))
        ::SendMessageW(m_control, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(Below(200), Below(100)));
    ::SendMessageW(m_control, WM_LBUTTONUP, 0, at);
    if (Once(4))
        ::SendMessageW(m_control, WM_LBUTTONDBLCLK, MK_LBUTTON, at);
    edExecCommand(m_control, ED_COMMAND_CLEAR_SELECTION);  // a press inside of it would start a drag
}

void Day::Resize()
{
    ::SetWindowPos(m_control, nullptr, 0, 0, 120 + Below(120), 60 + Below(60), SWP_NOMOVE | SWP_NOZORDER);
}

void Day::Mark()
{
    const auto line = static_cast<UINT32>(Below(Lines()));
    switch (Below(4)) {
    case 0: edSetBreakPoint(m_control, line); return;
    case 1: edRemoveBreakPoint(m_control, line); return;
    case 2: edSetExecPoint(m_control, line); return;
    default: edTakeSnapshot(m_control); return;
    }
}
