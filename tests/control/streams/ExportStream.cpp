#include "tests/control/streams/ExportStream.h"

#include "tests/control/streams/Stage.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <utility>
#include <vector>

namespace {

struct Row {
    const char* name;
    void (*call)(Stage& stage, HWND control, Choices& choices);
};

/// A file that is good, missing or none at all.
std::wstring Path(const Stage& stage, Choices& choices)
{
    switch (choices.Below(8)) {
    case 0: return L"";
    case 1: return stage.folder.file("missing/t");
    case 2: return L"Z:\\dev\\null";
    default: return stage.folder.file("t");
    }
}

void LoadFile(Stage& stage, HWND control, Choices& choices)
{
    UINT32 encoding = choices.Below(8);
    const std::wstring path = Path(stage, choices);
    edLoadFile(control, choices.Below(8) ? path.c_str() : nullptr, choices.Below(4) ? &encoding : nullptr);
}

void PutAndLoad(Stage& stage, HWND control, Choices& choices)
{
    std::string bytes;
    for (unsigned count = choices.Below(40); count > 0; --count)
        bytes += static_cast<char>(choices.Byte());
    stage.folder.put("t", bytes);
    LoadFile(stage, control, choices);
}

void GetLine(Stage&, HWND control, Choices& choices)
{
    std::vector<wchar_t> buffer(choices.Below(64) + 1, L'#');
    auto length = static_cast<UINT32>(buffer.size() - 1);
    edGetLine(control, static_cast<UINT32>(choices.Number()), choices.Number(), length ? buffer.data() : nullptr,
              choices.Below(8) ? &length : nullptr);
    if (buffer.back() != L'#')
        ::DebugBreak();
}

void Recreate(Stage& stage, HWND, Choices& choices)
{
    HWND& place = stage.controls[choices.Below(2)];
    edDestroyCtrl(place);
    stage.gone = place;
    place = stage.Make(choices);
}

void MakePage(Stage& stage, Choices& choices, decltype(&edCreateFontTuneDialog) create)
{
    const edSettingsBlock block{stage.settings.data(), static_cast<UINT32>(stage.settings.size())};
    const RECT place{0, 0, choices.Number(), choices.Number()};
    create(choices.Below(8) ? stage.host.Window() : nullptr, choices.Below(2) ? &place : nullptr,
           choices.Below(8) ? &block : nullptr, nullptr);
}

void ClosePages(Stage& stage, HWND, Choices&)
{
    while (const HWND page = ::FindWindowExW(stage.host.Window(), nullptr, L"#32770", nullptr))
        ::DestroyWindow(page);
}

void ApplyTuning(Stage& stage, HWND, Choices& choices)
{
    std::string room(choices.Below(2) ? 1000 : choices.Byte(), '\0');
    edSettingsBlock block{room.data(), static_cast<UINT32>(room.size())};
    const UINT32 size = edApplyTuningChanges(choices.Below(8) ? &block : nullptr);
    if (size != 0 && size <= room.size())
        stage.settings = room.substr(0, size);
}

void ReloadSettings(Stage& stage, HWND control, Choices& choices)
{
    std::string bytes = stage.settings;
    for (unsigned count = choices.Below(6); count > 0 && !bytes.empty(); --count)
        bytes[choices.Byte() * 3 % bytes.size()] = static_cast<char>(choices.Byte());
    const edSettingsBlock block{bytes.data(), static_cast<UINT32>(bytes.size())};
    edReloadTuneSettings(control, choices.Below(8) ? &block : nullptr);
}

void PreparePrinting(Stage& stage, HWND control, Choices& choices)
{
    const RECT page{0, 0, choices.Number() * 10, choices.Number() * 10};
    const edPrintSetup setup{choices.Below(8) ? stage.paper : nullptr, page, page, page, page, {choices.Below(2), 0}};
    edPreparePrinting(control, choices.Below(8) ? &setup : nullptr);
}

void PrintPage(Stage& stage, HWND control, Choices& choices)
{
    const edPrintPageParams params{choices.Below(8) ? stage.paper : nullptr, static_cast<UINT32>(choices.Number())};
    edPrintPage(control, choices.Below(8) ? &params : nullptr);
}

void CloseDialogs(Stage&, HWND, Choices&)
{
    ::EnumThreadWindows(::GetCurrentThreadId(), [](HWND window, LPARAM) -> BOOL {
        wchar_t name[8] = L"";
        ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
        if (std::wstring_view(name) == L"#32770")
            ::SendMessageW(window, WM_COMMAND, IDCANCEL, 0);
        return TRUE;
    }, 0);
}

/// What has come into the log, but for what a host can bring about, as required: a line below 0 for the execution point,
/// which clears the old one and sets none, and page 0 of a print job.
std::string Unexpected(const std::string& log)
{
    constexpr std::pair<const char*, const char*> required[] = {
        {"store/MemStorBreak.cpp", "improper argument"}, {"appearance/Printing.cpp", "invalid vector<T> subscript"}};
    std::istringstream lines(log);
    std::string unexpected;
    for (std::string line; std::getline(lines, line);) {
        const bool known = std::any_of(std::begin(required), std::end(required), [&](const auto& row) {
            return line.find(row.first) != line.npos && line.find(row.second) != line.npos;
        });
        if (!known)
            unexpected += line + "\n";
    }
    return unexpected;
}

using S = Stage&;
using C = Choices&;
constexpr Row rows[] = {
    {"edLoadFile", LoadFile},
    {"edLoadFile of new bytes", PutAndLoad},
    {"edSaveFile", [](S s, HWND w, C c) {
         const std::wstring path = Path(s, c);
         edSaveFile(w, c.Below(8) ? path.c_str() : nullptr, c.Below(8));
     }},
    {"edLoadText", [](S, HWND w, C c) {
         const std::wstring text = c.Text();
         edLoadText(w, c.Below(8) ? text.c_str() : nullptr, static_cast<UINT32>(c.Number()));
     }},
    {"edInsertText", [](S, HWND w, C c) {
         const std::wstring text = c.Text();
         edInsertText(w, c.Below(8) ? text.c_str() : nullptr);
     }},
    {"edGetLine", GetLine},
    {"edCopyData", [](S s, HWND w, C c) { edCopyData(w, s.Control(c)); }},
    {"edSetCaretPosition", [](S, HWND w, C c) { const int line = c.Number(); edSetCaretPosition(w, line, c.Number()); }},
    {"edSetCaretPositionAdv", [](S, HWND w, C c) {
         const int line = c.Number();
         const int column = c.Number();
         edSetCaretPositionAdv(w, line, column, c.Byte());
     }},
    {"edSetScrollPosition", [](S, HWND w, C c) { const int line = c.Number(); edSetScrollPosition(w, line, c.Number()); }},
    {"edGetPosition", [](S, HWND w, C c) { edPoint out; edGetPosition(w, c.Number(), &out); }},
    {"edGetMode", [](S, HWND w, C c) { edGetMode(w, static_cast<UINT32>(c.Number())); }},
    {"edExecCommand", [](S, HWND w, C c) { edExecCommand(w, c.Below(15)); }},
    {"edExecCommand of any code", [](S, HWND w, C c) { edExecCommand(w, c.Number()); }},
    {"edCanExecCommand", [](S, HWND w, C c) { edCanExecCommand(w, c.Number()); }},
    {"edSetBreakPoint", [](S, HWND w, C c) { edSetBreakPoint(w, static_cast<UINT32>(c.Number())); }},
    {"edRemoveBreakPoint", [](S, HWND w, C c) { edRemoveBreakPoint(w, static_cast<UINT32>(c.Number())); }},
    {"edRemoveAllBreakPoints", [](S, HWND w, C) { edRemoveAllBreakPoints(w); }},
    {"edGetBreakPointLine", [](S, HWND w, C c) { edGetBreakPointLine(w, static_cast<UINT32>(c.Number())); }},
    {"edGetBreakPointCount", [](S, HWND w, C) { edGetBreakPointCount(w); }},
    {"edSetExecPoint", [](S, HWND w, C c) { edSetExecPoint(w, static_cast<UINT32>(c.Number())); }},
    {"edClearExecPoint", [](S, HWND w, C) { edClearExecPoint(w); }},
    {"edTakeSnapshot", [](S, HWND w, C) { edTakeSnapshot(w); }},
    {"edGetSnapshotNewLine", [](S, HWND w, C c) { edGetSnapshotNewLine(w, c.Number()); }},
    {"edGetSnapshotOldLine", [](S, HWND w, C c) { edGetSnapshotOldLine(w, c.Number()); }},
    {"edReloadTuneSettings", ReloadSettings},
    {"edCreateFontTuneDialog", [](S s, HWND, C c) { MakePage(s, c, edCreateFontTuneDialog); }},
    {"edCreateHighlightTuneDialog", [](S s, HWND, C c) { MakePage(s, c, edCreateHighlightTuneDialog); }},
    {"edApplyTuningChanges", ApplyTuning},
    {"DestroyWindow of the pages", ClosePages},
    {"edPreparePrinting", PreparePrinting},
    {"edPrintPage", PrintPage},
    {"edPrintingOver", [](S, HWND w, C) { edPrintingOver(w); }},
    {"edCreateCtrl of nothing", [](S, HWND, C) { edCreateCtrl(nullptr); }},
    {"edDestroyCtrl, edCreateCtrl", Recreate},
    {"ShowWindow", [](S s, HWND, C c) { ::ShowWindow(s.controls[c.Below(2)], c.Below(2) ? SW_SHOW : SW_HIDE); }},
    {"the message loop", [](S, HWND, C) { Pump(); }},
    {"the dialogs closed", CloseDialogs},
    // Often what it takes to come far
    {"edInsertText at the caret", [](S s, HWND, C c) { edInsertText(s.controls[0], c.Text().c_str()); }},
    {"undo", [](S s, HWND, C) { edExecCommand(s.controls[0], ED_COMMAND_UNDO); }},
    {"redo", [](S s, HWND, C) { edExecCommand(s.controls[0], ED_COMMAND_REDO); }},
    {"select", [](S s, HWND, C c) {
         const int line = c.Number();
         edSetCaretPositionAdv(s.controls[0], line, c.Number(), ED_CARET_SELECT | ED_CARET_FOCUS);
     }},
};

}  // namespace

std::string RunExportStream(std::span<const std::uint8_t> bytes)
{
    constexpr int longest = 60;
    Choices choices(bytes);
    Stage stage;
    std::string calls;
    for (int count = 0; count < longest && !choices.AreUsedUp(); ++count) {
        const Row& row = rows[choices.Below(static_cast<unsigned>(std::size(rows)))];
        calls += calls.empty() ? row.name : std::string(", ") + row.name;
        row.call(stage, stage.Control(choices), choices);
        if (const std::string fault = stage.Faults(); !fault.empty())
            return fault + "; calls: " + calls;
    }
    ClosePages(stage, nullptr, choices);
    CloseDialogs(stage, nullptr, choices);
    Pump();
    const std::string logged = Unexpected(stage.log.News());
    return logged.empty() ? "" : "log: " + logged + "; calls: " + calls;
}
