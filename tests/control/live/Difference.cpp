#include "tests/control/live/Difference.h"

#include "tests/support/model/ReadableText.h"
#include "tests/support/win/ControlHost.h"

#include <tuple>

namespace {

std::string Shown(const xTPos& pos)
{
    return "(" + std::to_string(pos.line) + "," + std::to_string(pos.col) + ")";
}

xTPos PositionOf(HWND control, int code)
{
    edPoint point{-1, -1};  // untouched where there is no selection
    edGetPosition(control, code, &point);
    return {point.y, point.x};
}

std::wstring TextOf(const xTNaiveStore& store)
{
    std::wstring text;
    for (int line = 0; line < store.Count(); ++line)
        text += (line > 0 ? L"\n" : L"") + store.lines[static_cast<std::size_t>(line)].text;
    return store.Count() == 1 && text.empty() ? L"\n" : text;  // as edSaveText gives a single empty line
}

std::string LinesDiffer(const xTNaiveStore& store, HWND control)
{
    for (int line = 0; line < store.Count(); ++line) {
        const int now = edGetSnapshotOldLine(control, line);
        if (const int told = store.lines[static_cast<std::size_t>(line)].snapshot; told != now)
            return "the snapshot number of line " + std::to_string(line) + ": the model has " + std::to_string(told) +
                   ", the control " + std::to_string(now);
    }
    for (int i = 0; i < store.BreakPointCount(); ++i)
        if (store.BreakPointLine(i) != edGetBreakPointLine(control, static_cast<UINT32>(i)))
            return "the line of break point " + std::to_string(i);
    return {};
}

}  // namespace

std::string Difference(const xTNaiveControl& model, HWND control)
{
    const xTNaiveStore& store = model.editor.store;
    using Place = std::tuple<const char*, xTPos, int>;
    const bool selected = store.HasSelection();
    const Place places[] = {{"caret", store.caret, ED_POSITION_CARET},
                            {"first", selected ? store.first : xTPos::none, ED_POSITION_SELECTION_FIRST},
                            {"last", selected ? store.last : xTPos::none, ED_POSITION_SELECTION_LAST}};
    for (const auto& [name, told, code] : places)
        if (const xTPos now = PositionOf(control, code); told != now)
            return std::string(name) + ": the model has " + Shown(told) + ", the control " + Shown(now);
    if (const std::wstring told = TextOf(store), now = TextOf(control); told != now)
        return "the model has the text " + ReadableText(told) + ", the control " + ReadableText(now);
    using Number = std::tuple<const char*, int, int>;
    const xTNaiveEditor& editor = model.editor;
    const Number numbers[] = {{"lines", store.Count(), static_cast<int>(edGetLineCount(control))},
                              {"insert mode", !model.overwrite, edGetMode(control, ED_MODE_INSERT)},
                              {"steps to undo", !editor.undoList.empty(), edCanExecCommand(control, ED_COMMAND_UNDO)},
                              {"steps to redo", !editor.redoList.empty(), edCanExecCommand(control, ED_COMMAND_REDO)},
                              {"break points", store.BreakPointCount(), edGetBreakPointCount(control)}};
    for (const auto& [name, told, now] : numbers)
        if (told != now)
            return name + (": the model has " + std::to_string(told)) + ", the control " + std::to_string(now);
    return LinesDiffer(store, control);
}
