#include "tests/control/live/Sides.h"

#include "tests/control/live/Difference.h"

namespace {

struct Gesture {
    const char* command;
    void (*play)(Sides&, const xTCommand&);
};

// The modifiers of a gesture that has no arguments of its own, taken from where the caret stands.
bool Odd(const Sides& sides)
{
    const xTPos& caret = sides.model.editor.store.caret;
    return (caret.line + caret.col) % 2 != 0;
}

void Type(Sides& sides, const xTCommand& command)
{
    if (command.number > 0xFFFF)
        return;  // no character message carries it
    if (sides.model.overwrite != (command.flags != 0)) {
        sides.model.overwrite = !sides.model.overwrite;
        edExecCommand(sides.live.Window(), ED_COMMAND_TOGGLE_OVERWRITE);
    }
    sides.model.Char(static_cast<WCHAR>(command.number));
    sides.live.Char(static_cast<wchar_t>(command.number));
}

void FillClipboard(Sides& sides, const xTCommand& command)
{
    const bool filled = (command.flags & clipboardEmpty) == 0;
    sides.model.editor.clipboardHoldsText = filled;
    sides.model.editor.clipboard = command.text;
    sides.live.FillClipboard(filled ? command.text.c_str() : nullptr);
}

void Press(Sides& sides, const xTCommand& command)
{
    constexpr int paste = 0x1001;
    const bool shift = (command.flags & keyShift) != 0;
    const bool ctrl = (command.flags & keyControl) != 0;
    if (command.number == paste || command.number == VK_INSERT)
        FillClipboard(sides, command);
    if (command.number == paste) {
        sides.model.Paste();
        edExecCommand(sides.live.Window(), ED_COMMAND_PASTE);
    } else if (command.number == VK_INSERT) {
        shift ? sides.model.PasteKey() : ctrl ? sides.model.CopyKey() : sides.model.Insert();
        sides.live.Key(VK_INSERT, shift, ctrl && !shift);
    } else if (command.number == VK_DELETE) {
        shift ? sides.model.CutKey() : sides.model.Delete();
        sides.live.Key(VK_DELETE, shift);
    }
}

xTPos ViewportOf(HWND control)
{
    edPoint viewport{};
    edGetPosition(control, ED_POSITION_VIEWPORT, &viewport);
    return {viewport.y, viewport.x};
}

void Move(Sides& sides, const xTCommand& command, bool shift)
{
    constexpr UINT arrows[] = {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN};
    xTNaiveStore& store = sides.model.editor.store;
    const bool had = store.HasSelection();
    const xTPos viewport = ViewportOf(sides.live.Window());
    sides.model.Arrow(command.number, shift);
    sides.live.Key(arrows[command.number], shift);
    // The one place where what is shown counts: see the test of the first shifted step that scrolls.
    const bool scrolled = ViewportOf(sides.live.Window()) != viewport;
    if (shift && !had && scrolled && !edGetMode(sides.live.Window(), ED_MODE_SELECTION))
        store.ClearSelection();
}

void Word(Sides& sides, const xTCommand& command)
{
    const bool shift = command.to.col % 2 != 0;
    const bool left = command.from.col % 2 != 0;
    left ? sides.model.WordLeft(shift) : sides.model.WordRight(shift);
    sides.live.Key(left ? VK_LEFT : VK_RIGHT, shift, true);
}

void LineEnd(Sides& sides, const xTCommand&)
{
    const bool home = Odd(sides);
    const bool shift = sides.model.editor.store.caret.col % 3 == 0;
    home ? sides.model.Home(shift) : sides.model.End(shift);
    sides.live.Key(home ? VK_HOME : VK_END, shift);
}

void DocumentEnd(Sides& sides, const xTCommand& command)
{
    const bool shift = command.flags != 0;
    const bool home = Odd(sides);
    home ? sides.model.DocumentStart(shift) : sides.model.DocumentEnd(shift);
    sides.live.Key(home ? VK_HOME : VK_END, shift, true);
}

void Indent(Sides& sides, const xTCommand& command)
{
    const bool shift = command.flags != 0;
    sides.model.Tab(shift);
    sides.live.Key(VK_TAB, shift);
    sides.live.Char(L'\t', shift);
}

void Select(Sides& sides, const xTCommand& command)
{
    const bool keep = Odd(sides);
    if (!keep) {
        sides.model.SetCaretPosition(command.from);
        edSetCaretPosition(sides.live.Window(), command.from.line, command.from.col);
    }
    sides.model.SelectTo(command.to, keep);
    edSetCaretPositionAdv(sides.live.Window(), command.to.line, command.to.col,
                          ED_CARET_SELECT | (keep ? ED_CARET_KEEP_SELECTION : 0));
}

void SetTabs(Sides& sides)
{
    sides.live.SetTabs(sides.model.editor.store.keepTabs, sides.model.editor.store.tabSize);
}

void Load(Sides& sides, const xTCommand& command)
{
    sides.model.editor.LoadText(command.text);
    edLoadText(sides.live.Window(), command.text.c_str(), 0xFFFFFFFF);
}

constexpr Gesture gestures[] = {
    {"add_char", Type},
    {"add_key", Press},
    {"add_block",
     [](Sides& s, const xTCommand& c) {
         s.model.InsertText(c.text);
         edInsertText(s.live.Window(), c.text.c_str());
     }},
    {"add_delete", Word},
    {"add_case",
     [](Sides& s, const xTCommand& c) {
         s.model.Case(c.flags != 0);
         s.live.Key('U', c.flags != 0, true);
     }},
    {"add_layout",
     [](Sides& s, const xTCommand&) {
         s.model.SelectAll();
         edExecCommand(s.live.Window(), ED_COMMAND_SELECT_ALL);
     }},
    {"add_indent", Indent},
    {"add_comment",
     [](Sides& s, const xTCommand& c) {
         s.model.Comment(c.number == 1);
         s.live.Key(VK_DIVIDE, c.number == 1, true);
     }},
    {"add_replace",
     [](Sides& s, const xTCommand&) {
         s.model.SelectRestOfLine();
         edExecCommand(s.live.Window(), ED_COMMAND_SELECT_TO_LINE_END);
     }},
    {"undo",
     [](Sides& s, const xTCommand&) {
         s.model.editor.Undo();
         edExecCommand(s.live.Window(), ED_COMMAND_UNDO);
     }},
    {"redo",
     [](Sides& s, const xTCommand&) {
         s.model.editor.Redo();
         edExecCommand(s.live.Window(), ED_COMMAND_REDO);
     }},
    {"set_caret",
     [](Sides& s, const xTCommand& c) {
         s.model.SetCaretPosition(c.from);
         edSetCaretPosition(s.live.Window(), c.from.line, c.from.col);
     }},
    {"move_caret",
     [](Sides& s, const xTCommand& c) {
         Move(s, c, false);
     }},
    {"extend_selection",
     [](Sides& s, const xTCommand& c) {
         Move(s, c, true);
     }},
    {"select_range", Select},
    {"clear_selection",
     [](Sides& s, const xTCommand&) {
         s.model.editor.store.ClearSelection();
         edExecCommand(s.live.Window(), ED_COMMAND_CLEAR_SELECTION);
     }},
    {"set_break_point",
     [](Sides& s, const xTCommand& c) {
         s.model.editor.store.SetBreakPoint(c.number);
         edSetBreakPoint(s.live.Window(), static_cast<UINT32>(c.number));
     }},
    {"remove_break_point",
     [](Sides& s, const xTCommand& c) {
         s.model.editor.store.RemoveBreakPoint(c.number);
         edRemoveBreakPoint(s.live.Window(), static_cast<UINT32>(c.number));
     }},
    {"remove_all_break_points",
     [](Sides& s, const xTCommand&) {
         s.model.editor.store.RemoveAllBreakPoints();
         edRemoveAllBreakPoints(s.live.Window());
     }},
    {"set_exec_point",
     [](Sides& s, const xTCommand& c) {
         s.model.editor.store.SetExecPoint(c.number);
         edSetExecPoint(s.live.Window(), static_cast<UINT32>(c.number));
     }},
    {"clear_exec_point",
     [](Sides& s, const xTCommand&) {
         s.model.editor.store.ClearExecPoint();
         edClearExecPoint(s.live.Window());
     }},
    {"take_snapshot",
     [](Sides& s, const xTCommand&) {
         s.model.editor.store.TakeSnapshot();
         edTakeSnapshot(s.live.Window());
     }},
    {"keep_tabs",
     [](Sides& s, const xTCommand& c) {
         s.model.editor.store.keepTabs = c.flags != 0;
         SetTabs(s);
     }},
    {"tab_size",
     [](Sides& s, const xTCommand& c) {
         s.model.editor.store.tabSize = c.number;
         SetTabs(s);
     }},
    {"go_round", DocumentEnd},
    {"load_text", Load},
    {"paint", LineEnd},
};

}  // namespace

std::string Sides::Do(const xTCommand& command)
{
    const std::string_view name = CommandRows()[command.verb].name;
    for (const Gesture& gesture : gestures) {
        if (name != gesture.command)
            continue;
        gesture.play(*this, command);
        return Difference(model, live.Window());
    }
    return {};
}

std::string Sides::GoBackAndForth()
{
    static const xTCommand undo{.verb = CommandRow("undo")};
    static const xTCommand redo{.verb = CommandRow("redo")};
    for (const xTCommand& step : {undo, redo}) {
        const auto& list = step == undo ? model.editor.undoList : model.editor.redoList;
        while (!list.empty())
            if (const std::string found = Do(step); !found.empty())
                return std::string(CommandRows()[step.verb].name) + ": " + found;
    }
    return {};
}
