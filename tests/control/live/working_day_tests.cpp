#include "tests/control/live/LiveControl.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>

// A day of work on a source file: typing, blocks, clipboard, keys, mouse, wheel, windows and marks in a mixed order.
// Every stretch of it is undone again and gives the text of the file; at the end the saved file is the old one byte for
// byte and nothing has gone wrong that a log would tell. SCRIV_FULL=1 makes it fifty times as long.

namespace {

constexpr int editsInAStretch = 90;  // some take three steps, and 300 are kept

class Day {
public:
    explicit Day(LiveControl& live) : m_live(live), m_control(live.Window()) {}

    /// Edits and moves until the stretch is full. @return the number of events
    int Stretch()
    {
        int events = 0;
        for (int edits = 0; edits < editsInAStretch; ++events) {
            if (Once(3)) {
                Edit();
                ++edits;
            } else {
                LookAround();
            }
        }
        return events;
    }

    void UndoAll()
    {
        ::SetFocus(m_control);
        while (edExecCommand(m_control, ED_COMMAND_UNDO) != 0) {
        }
    }

private:
    [[nodiscard]] int Below(int n) { return static_cast<int>(m_random() % static_cast<unsigned>(n)); }
    [[nodiscard]] int Between(int least, int most) { return least + Below(most - least + 1); }
    [[nodiscard]] bool Once(int in) { return Below(in) == 0; }
    [[nodiscard]] int Lines() const { return static_cast<int>(edGetLineCount(m_control)); }

    // Not near the end: a change of the last line's block is not undone to the letter, which is required.
    void GoSomewhere() { edSetCaretPosition(m_control, Below(Lines() - 12), Below(40)); }

    void SelectLines()
    {
        GoSomewhere();
        m_live.Key(VK_HOME);
        for (int i = 1 + Below(4); i > 0; --i)
            m_live.Key(VK_DOWN, true);
    }

    [[nodiscard]] int Length(int line) const
    {
        UINT32 length = 0;  // with the terminator
        edGetLine(m_control, static_cast<UINT32>(line), FALSE, nullptr, &length);
        return static_cast<int>(length) - 1;
    }

    // Within a line: what ends with a line break leaves the break, which is required, and its undo brings another.
    void SelectCharacters()
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

    void Type(const wchar_t* text)
    {
        for (; *text; ++text)
            m_live.Char(*text);
    }

    void Edit()
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

    void LookAround()
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
    void Command()
    {
        edExecCommand(m_control, Between(ED_COMMAND_SELECT_ALL, ED_COMMAND_COPY_APPEND));
        edExecCommand(m_control, ED_COMMAND_CLEAR_SELECTION);
        if (!edGetMode(m_control, ED_MODE_INSERT))
            edExecCommand(m_control, ED_COMMAND_TOGGLE_OVERWRITE);
    }

    void Click()
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

    void Resize()
    {
        ::SetWindowPos(m_control, nullptr, 0, 0, 120 + Below(120), 60 + Below(60), SWP_NOMOVE | SWP_NOZORDER);
    }

    void Mark()
    {
        const auto line = static_cast<UINT32>(Below(Lines()));
        switch (Below(4)) {
        case 0: edSetBreakPoint(m_control, line); return;
        case 1: edRemoveBreakPoint(m_control, line); return;
        case 2: edSetExecPoint(m_control, line); return;
        default: edTakeSnapshot(m_control); return;
        }
    }

    LiveControl& m_live;
    HWND m_control;
    std::mt19937 m_random{2005};
};

int Events()
{
    const char* const full = std::getenv("SCRIV_FULL");
    return full && *full == '1' ? 100'000 : 2'000;
}

std::string Bytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TEST(WorkingDay, EveryStretchIsUndoneToTheFileAndNothingIsLogged)
{
    const std::filesystem::path log = std::filesystem::current_path() / "scrivctl.log";
    std::filesystem::remove(log);
    const xTTestFolder folder;
    const std::string source = Bytes(SCRIV_SAMPLE);
    ASSERT_FALSE(source.empty());
    folder.put("source.cpp", source);
    LiveControl live;
    UINT32 encoding = ED_ENCODING_UTF8;
    ASSERT_TRUE(edLoadFile(live.Window(), folder.file("source.cpp").c_str(), &encoding));
    const std::wstring text = TextOf(live.Window());
    Day day(live);
    int events = 0;
    for (int stretch = 0; events < Events(); ++stretch) {
        events += day.Stretch();
        EXPECT_NE(TextOf(live.Window()), text);
        day.UndoAll();
        ASSERT_TRUE(TextOf(live.Window()) == text) << "stretch " << stretch;
    }
    std::cout << events << " events\n";
    ASSERT_TRUE(edSaveFile(live.Window(), folder.file("source.cpp").c_str(), encoding));
    EXPECT_EQ(folder.bytes("source.cpp") + "\n", source);  // a last line break is not kept
    EXPECT_FALSE(std::filesystem::exists(log)) << Bytes(log);
}
