#include "tests/failure/Scenes.h"

#include "tests/support/win/KeyDriver.h"
#include "tests/support/win/Pointer.h"

#include <dlgs.h>

// Each kind of operation through the window, its undo and its redo. The texts are long enough for a failure to come in
// the middle of the work.

namespace {

constexpr int buttonReplace = psh1;
constexpr int buttonReplaceAll = psh2;

/// Many lines, a selection from within the first to within the last.
std::wstring Selected(int count, const wchar_t* line)
{
    std::wstring text = L"he[ad\n";
    for (int i = 0; i < count; ++i)
        text += line + std::to_wstring(i) + L"\n";
    return text + L"ta]|il\nbehind\nit";  // undo of a block brings back one character of the next line as well
}

std::int64_t Press(Stage& s, UINT key, unsigned held = keys::none)
{
    keys::Press(s.control, key, held);
    return 0;
}

void Copy(Stage& s)
{
    s.Command(ED_COMMAND_COPY);
    s.Command(ED_COMMAND_CLEAR_SELECTION);
}

void OpenReplace(Stage& s, const wchar_t* find, const wchar_t* replacement)
{
    s.Command(ED_COMMAND_REPLACE);
    s.SetFindTexts(find, replacement);
}

std::int64_t DragOut(Stage& s)
{
    SendMouse(s.control, WM_LBUTTONDOWN, At(0, 2));
    SendMouse(s.control, WM_MOUSEMOVE, At(0, 3));
    return 0;
}

/// Picks the selection up and lets go of it over the control itself.
std::int64_t MoveWithin(Stage& s)
{
    s.dragEnds = DROPEFFECT_MOVE;
    s.dragEndsAt = POINT{1, 1};
    return DragOut(s);
}

std::int64_t Times(Stage& s, int command, int count)
{
    for (int i = 0; i < count; ++i)
        s.Command(command);
    return 0;
}

using S = Scene;
const Scene scenes[] = {
    {"TypeOver", L"a|b\nc", [](Stage& s) { s.Command(ED_COMMAND_TOGGLE_OVERWRITE); },
     [](Stage& s) { s.Type(L"x"); return std::int64_t{0}; }, 0, S::halfWay, 0},
    {"Type", L"a|b\nc", nullptr, [](Stage& s) { s.Type(L"x"); return std::int64_t{0}; }, 0, S::halfWay, 1},
    {"TypeATab", L"a|b\nc", nullptr, [](Stage& s) { s.Type(L"\t"); return std::int64_t{0}; }, 0, S::halfWay, 1},
    {"TypeAComment", L"a /|\nb */\nc", nullptr, [](Stage& s) { s.Type(L"*"); return std::int64_t{0}; }, 0, S::halfWay, 1},
    {"TypeOverASelection", L"a[b\nc]|d", nullptr, [](Stage& s) { s.Type(L"x"); return std::int64_t{0}; }, 0, S::halfWay, 1},
    {"Backspace", L"ab|c", nullptr, [](Stage& s) { s.Type(L"\b"); return std::int64_t{0}; }, 0, S::halfWay, 2},
    {"BackspaceJoins", L"ab\n|cd", nullptr, [](Stage& s) { s.Type(L"\b"); return std::int64_t{0}; }, 0, S::halfWay, 2},
    {"BackspaceAtTheStart", L"|ab", [](Stage& s) { s.Type(L"x"); s.Command(ED_COMMAND_UNDO); }, [](Stage& s) { s.Type(L"\b"); return std::int64_t{0}; }, 0, S::nothing, 8},
    {"Enter", L"    ab|  c\nd", nullptr, [](Stage& s) { s.Type(L"\r"); return std::int64_t{0}; }, 0, S::halfWay, 3},
    {"Delete", L"a|b\nc", nullptr, [](Stage& s) { return Press(s, VK_DELETE); }, 0, S::halfWay, 4},
    {"DeleteTheSelection", Selected(40, L"body /* "), nullptr, [](Stage& s) { return Press(s, VK_DELETE); }, 0, S::halfWay, 4},
    {"Cut", Selected(20, L"body "), nullptr,
     [](Stage& s) { return std::int64_t{edExecCommand(s.control, ED_COMMAND_CUT)}; }, 0, S::halfWay, 4},
    {"DragOutAsAMove", L"a[bcd]|ef", [](Stage& s) { s.dragEnds = DROPEFFECT_MOVE; }, DragOut, 0, S::halfWay | S::quiet, 5},
    {"DragOutAsACopy", L"a[bcd]|ef", [](Stage& s) { s.dragEnds = DROPEFFECT_COPY; }, DragOut, 0, S::quiet},
    {"Paste", Selected(20, L"body "), Copy,
     [](Stage& s) { return std::int64_t{edExecCommand(s.control, ED_COMMAND_PASTE)}; }, 0, S::halfWay, 6},
    {"PasteOverASelection", L"a[bcd]|ef", [](Stage& s) { s.Command(ED_COMMAND_COPY); },
     [](Stage& s) { return std::int64_t{edExecCommand(s.control, ED_COMMAND_PASTE)}; }, 0, S::halfWay, 6},
    {"DropText", L"ab|cd\nef", nullptr, [](Stage& s) { return s.Drop(L"1\r\n2\r\n3", MK_CONTROL, {1, 0}); }, 0,
     S::halfWay, 7},
    {"DropFiles", L"ab|cd\nef", nullptr, [](Stage& s) { return s.Drop(L"", MK_CONTROL, {1, 0}, true); }, 0, S::halfWay, 7},
    {"MoveWithin", L"a[bc]|d\nef", nullptr, MoveWithin, 0, S::halfWay | S::quiet, 7},
    {"Replace", L"[ab]| ab /* ab", [](Stage& s) { OpenReplace(s, L"ab", L"xyz"); },
     [](Stage& s) { s.PressInDialog(buttonReplace); return std::int64_t{0}; }, 0, S::halfWay, 9},
    {"ReplaceAll", L"|" + Selected(60, L"ab cab ").substr(7), [](Stage& s) { OpenReplace(s, L"ab", L"wxyz"); },
     [](Stage& s) { s.PressInDialog(buttonReplaceAll); return std::int64_t{0}; }, 0, S::halfWay, 10},
    {"ReplaceAllOfNothing", L"|one\ntwo", [](Stage& s) { OpenReplace(s, L"absent", L"x"); },
     [](Stage& s) { s.PressInDialog(buttonReplaceAll); return std::int64_t{0}; }, 0, S::nothing, 10},
    {"ChangeCase", Selected(60, L"Body /* x */ "), nullptr, [](Stage& s) { return Press(s, 'U', keys::ctrl); }, 0,
     S::halfWay, 11},
    {"SwitchLayout", Selected(10, L"Body "), nullptr, [](Stage& s) { return Press(s, 'L', keys::ctrl); }, 0, S::halfWay, 12},
    {"Unindent", Selected(60, L"\tBody "), nullptr, [](Stage& s) { return Press(s, VK_TAB, keys::shift); }, 0, S::halfWay | S::quiet, 13},
    {"Indent", Selected(60, L"Body "), nullptr, [](Stage& s) { return Press(s, VK_TAB); }, 0, S::halfWay, 14},
    {"Comment", Selected(60, L"Body "), nullptr, [](Stage& s) { return Press(s, VK_DIVIDE, keys::ctrl); }, 0, S::halfWay, 15},
    {"Uncomment", Selected(60, L"//Body "), nullptr,
     [](Stage& s) { return Press(s, VK_DIVIDE, keys::ctrl | keys::shift); }, 0, S::halfWay | S::quiet, 16},
    {"UndoADeletion", Selected(40, L"body "), [](Stage& s) { Press(s, VK_DELETE); },
     [](Stage& s) { return Times(s, ED_COMMAND_UNDO, 1); }, 0, S::halfWay | S::keepsStep, 4},
    {"UndoAPaste", Selected(40, L"body "),
     [](Stage& s) { Copy(s); s.Command(ED_COMMAND_PASTE); },
     [](Stage& s) { return Times(s, ED_COMMAND_UNDO, 1); }, 0, S::halfWay | S::keepsStep, 6},
    {"UndoAndRedoAPaste", Selected(40, L"body "),
     [](Stage& s) { Copy(s); s.Command(ED_COMMAND_PASTE); },
     [](Stage& s) { return Times(s, ED_COMMAND_UNDO, 1) + Times(s, ED_COMMAND_REDO, 1); }, 0, S::halfWay | S::keepsStep, 6},
    {"UndoAReplaceAll", L"|ab cab\nab ab\n/* ab */",
     [](Stage& s) { OpenReplace(s, L"ab", L"wxyz"); s.PressInDialog(buttonReplaceAll); ::SetFocus(s.control); },
     [](Stage& s) { return Times(s, ED_COMMAND_UNDO, 1); }, 0, S::halfWay | S::keepsStep, 10},
    {"UndoTheMoveOfABlock", L"a[bc]|d\nef", [](Stage& s) { MoveWithin(s); },
     [](Stage& s) { return Times(s, ED_COMMAND_UNDO, 1); }, 0, S::halfWay | S::keepsStep, 7},
    {"UndoAnIndent", Selected(20, L"Body "), [](Stage& s) { Press(s, VK_TAB); },
     [](Stage& s) { return Times(s, ED_COMMAND_UNDO, 1); }, 0, S::halfWay | S::keepsStep, 14},
    {"Redo", Selected(20, L"body "),
     [](Stage& s) {
         Press(s, VK_DELETE);
         s.Type(L"x\r\b");
         Times(s, ED_COMMAND_UNDO, 4);
     },
     [](Stage& s) { return Times(s, ED_COMMAND_REDO, 4); }, 0, S::halfWay | S::keepsStep, 4},
};

}  // namespace

std::span<const Scene> EditingScenes()
{
    return scenes;
}
