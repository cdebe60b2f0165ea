#include "tests/support/model/Commands.h"

#include "tests/support/model/EngineSide.h"
#include "tests/support/model/NaiveEditor.h"
#include "tests/support/model/ReadableText.h"
#include "tests/support/native/PlatformNative.h"

#include <algorithm>
#include <stdexcept>

namespace {

using Model = xTNaiveEditor&;
using Engine = xTEngineSide&;
using Command = const xTCommand&;
using Answer = int&;  // stays 0 where a command has none

constexpr int shiftKey = 0x10;
constexpr int controlKey = 0x11;
constexpr int insertKey = 0x2D;
constexpr int deleteKey = 0x2E;

CString Counted(const WString& text)
{
    return {WStrView(text)};
}

void ModelKey(Model model, Command command, Answer)
{
    model.shiftDown = (command.flags & keyShift) != 0;
    model.controlDown = (command.flags & keyControl) != 0;
    model.insertDown = (command.flags & keyInsert) != 0;
    model.deleteDown = (command.flags & keyDelete) != 0;
    model.clipboardHoldsText = (command.flags & clipboardEmpty) == 0;
    model.clipboard = command.text;
    model.AddKey(static_cast<unsigned>(command.number));
}

void EngineKey(Engine engine, Command command, Answer)
{
    constexpr std::pair<unsigned, int> keys[] = {
        {keyShift, shiftKey}, {keyControl, controlKey}, {keyInsert, insertKey}, {keyDelete, deleteKey}};
    auto& platform = NativePlatform();
    platform.keysDown.clear();
    for (const auto& [flag, key] : keys) {
        if ((command.flags & flag) != 0)
            platform.keysDown.insert(key);
    }
    platform.clipboard.clear();
    if ((command.flags & clipboardEmpty) == 0)
        platform.clipboard = {{clipboardWide, command.text}};
    engine.stack.add_key(static_cast<std::uint32_t>(command.number));
}

void ModelReplace(Model model, Command command, Answer)
{
    model.AddReplace(command.text, command.other, (command.flags & replaceEach) != 0,
                     (command.flags & replaceWholeWord) != 0, (command.flags & replaceMatchCase) != 0);
}

void EngineReplace(Engine engine, Command command, Answer)
{
    using xTRequest = xTSearchRequest;
    DWORD flags = (command.flags & replaceEach) != 0 ? xTRequest::replaceAll : xTRequest::replace;
    flags |= (command.flags & replaceWholeWord) != 0 ? DWORD{xTRequest::wholeWord} : 0;
    flags |= (command.flags & replaceMatchCase) != 0 ? DWORD{xTRequest::matchCase} : 0;
    engine.stack.add_replace({Counted(command.text), Counted(command.other), flags});
}

void EngineLoad(Engine engine, Command command, Answer)
{
    engine.store.load_text(command.text.c_str(), static_cast<std::int32_t>(command.text.size()));
    engine.stack.clear_undo();
    engine.stack.clear_redo();
    engine.store.clear_selection();
}

constexpr xTCommandRow rows[] = {
    {"add_char", usesNumber | usesFlags,
     [](Model m, Command c, Answer) { m.AddChar(static_cast<unsigned>(c.number), c.flags != 0); },
     [](Engine e, Command c, Answer) { e.stack.add_char(static_cast<std::uint32_t>(c.number), c.flags != 0); }},
    {"add_key", usesNumber | usesFlags | usesText,
     ModelKey,
     EngineKey},
    {"add_block", usesFlags | usesFrom | usesTo | usesText,
     [](Model m, Command c, Answer) { m.AddBlock(c.text, c.from, c.to, c.flags != 0); },
     [](Engine e, Command c, Answer) { e.stack.add_block(Counted(c.text), c.from, c.to, c.flags != 0); }},
    {"add_delete", usesFrom | usesTo,
     [](Model m, Command c, Answer) { m.AddDelete(c.from, c.to); },
     [](Engine e, Command c, Answer) { e.stack.add_delete(c.from, c.to); }},
    {"add_case", usesFlags,
     [](Model m, Command c, Answer) { m.AddCase(c.flags != 0); },
     [](Engine e, Command c, Answer) { e.stack.add_case(c.flags != 0); }},
    {"add_layout", usesNothing,
     [](Model m, Command, Answer) { m.AddLayout(); },
     [](Engine e, Command, Answer) { e.stack.add_layout(); }},
    {"add_indent", usesFlags,
     [](Model m, Command c, Answer) { m.AddIndent(c.flags != 0); },
     [](Engine e, Command c, Answer) { e.stack.add_indent(c.flags != 0); }},
    {"add_comment", usesNumber,
     [](Model m, Command c, Answer) { m.AddComment(c.number); },
     [](Engine e, Command c, Answer) { e.stack.add_comment(c.number); }},
    {"add_replace", usesFlags | usesText | usesOther,
     ModelReplace,
     EngineReplace},
    {"undo", usesNothing,
     [](Model m, Command, Answer a) { a = m.Undo(); },
     [](Engine e, Command, Answer a) { a = e.stack.undo(); }},
    {"redo", usesNothing,
     [](Model m, Command, Answer a) { a = m.Redo(); },
     [](Engine e, Command, Answer a) { a = e.stack.redo(); }},
    {"set_caret", usesFrom,
     [](Model m, Command c, Answer) { m.store.SetCaret(c.from); },
     [](Engine e, Command c, Answer) { e.store.set_caret(c.from); }},
    {"set_caret_raw", usesFrom,
     [](Model m, Command c, Answer) { m.store.SetCaretRaw(c.from); },
     [](Engine e, Command c, Answer) { e.store.set_caret_raw(c.from); }},
    {"move_caret", usesNumber,
     [](Model m, Command c, Answer) { m.store.MoveCaret(c.number); },
     [](Engine e, Command c, Answer) { e.store.move_caret(c.number); }},
    {"extend_selection", usesNumber,
     [](Model m, Command c, Answer) { m.store.ExtendSelection(c.number); },
     [](Engine e, Command c, Answer) { e.store.extend_selection(c.number); }},
    {"select_range", usesFrom | usesTo,
     [](Model m, Command c, Answer) { m.store.SelectRange(c.from, c.to); },
     [](Engine e, Command c, Answer) { e.store.select_range(c.from, c.to); }},
    {"clear_selection", usesNothing,
     [](Model m, Command, Answer) { m.store.ClearSelection(); },
     [](Engine e, Command, Answer) { e.store.clear_selection(); }},
    {"drop_selection", usesNothing,
     [](Model m, Command, Answer) { m.store.DropSelection(); },
     [](Engine e, Command, Answer) { e.store.drop_selection(); }},
    {"drop_anchor", usesNothing,
     [](Model m, Command, Answer) { m.store.DropAnchor(); },
     [](Engine e, Command, Answer) { e.store.drop_anchor(); }},
    {"set_break_point", usesNumber,
     [](Model m, Command c, Answer a) { a = m.store.SetBreakPoint(c.number); },
     [](Engine e, Command c, Answer a) { a = e.store.set_break_point(c.number); }},
    {"remove_break_point", usesNumber,
     [](Model m, Command c, Answer a) { a = m.store.RemoveBreakPoint(c.number); },
     [](Engine e, Command c, Answer a) { a = e.store.remove_break_point(c.number); }},
    {"remove_all_break_points", usesNothing,
     [](Model m, Command, Answer) { m.store.RemoveAllBreakPoints(); },
     [](Engine e, Command, Answer) { e.store.remove_all_break_points(); }},
    {"break_point_line", usesNumber,
     [](Model m, Command c, Answer a) { a = m.store.BreakPointLine(c.number); },
     [](Engine e, Command c, Answer a) { a = e.store.break_point_line(c.number); }},
    {"set_exec_point", usesNumber,
     [](Model m, Command c, Answer a) { a = m.store.SetExecPoint(c.number); },
     [](Engine e, Command c, Answer a) { a = e.store.set_exec_point(c.number); }},
    {"clear_exec_point", usesNothing,
     [](Model m, Command, Answer) { m.store.ClearExecPoint(); },
     [](Engine e, Command, Answer) { e.store.clear_exec_point(); }},
    {"take_snapshot", usesNothing,
     [](Model m, Command, Answer) { m.store.TakeSnapshot(); },
     [](Engine e, Command, Answer) { e.store.take_snapshot(); }},
    {"keep_tabs", usesFlags,
     [](Model m, Command c, Answer) { m.store.keepTabs = c.flags != 0; },
     [](Engine e, Command c, Answer) { e.tabs.m_keepTabs = c.flags != 0; }},
    {"tab_size", usesNumber,
     [](Model m, Command c, Answer) { m.store.tabSize = c.number; },
     [](Engine e, Command c, Answer) { e.tabs.m_tabSize = c.number; }},
    {"go_round", usesFlags,
     [](Model m, Command c, Answer) { m.store.goRound = c.flags != 0; },
     [](Engine e, Command c, Answer) { e.window.goRound = c.flags != 0; }},
    {"load_text", usesText,
     [](Model m, Command c, Answer) { m.LoadText(c.text); },
     EngineLoad},
    {"paint", usesNothing,
     [](Model m, Command, Answer) { m.store.RescanComments(); },
     [](Engine e, Command, Answer) { e.store.rescan_comments(); }},
};

std::string ReadablePos(const xTPos& pos)
{
    return " (" + std::to_string(pos.line) + "," + std::to_string(pos.col) + ")";
}

}  // namespace

std::span<const xTCommandRow> CommandRows()
{
    return rows;
}

std::size_t CommandRow(std::string_view name)
{
    const auto* const found = std::find_if(std::begin(rows), std::end(rows), [&](auto& row) { return row.name == name; });
    if (found == std::end(rows))
        throw std::invalid_argument("no such command");
    return static_cast<std::size_t>(found - std::begin(rows));
}

std::string Readable(const xTCommand& command)
{
    const xTCommandRow& row = rows[command.verb];
    std::string readable = row.name;
    if ((row.uses & usesNumber) != 0)
        readable += " " + std::to_string(command.number);
    if ((row.uses & usesFlags) != 0)
        readable += " flags " + std::to_string(command.flags);
    if ((row.uses & usesFrom) != 0)
        readable += ReadablePos(command.from);
    if ((row.uses & usesTo) != 0)
        readable += ReadablePos(command.to);
    if ((row.uses & usesText) != 0)
        readable += " " + ReadableText(command.text);
    if ((row.uses & usesOther) != 0)
        readable += " by " + ReadableText(command.other);
    return readable;
}

std::string Readable(const xTHistory& history)
{
    std::string readable;
    for (const xTCommand& command : history)
        readable += "    " + Readable(command) + "\n";
    return readable;
}
