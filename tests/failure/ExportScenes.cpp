#include "tests/failure/Scenes.h"

#include <fstream>

// What a host does by calling the exported functions.

namespace {

constexpr UINT32 whole = 0xFFFFFFFF;

std::wstring Lines(int count)
{
    std::wstring text = L"|";
    for (int i = 0; i < count; ++i)
        text += L"Line " + std::to_wstring(i) + (i % 7 == 3 ? L" /* remark\n" : i % 7 == 4 ? L" */ end\n" : L" = f(x);\n");
    return text + L"last";
}

std::wstring Plain(int count)
{
    return Lines(count).substr(1);
}

void PutFile(const Stage& stage, const std::wstring& text, bool wide)
{
    std::ofstream out(std::filesystem::path(stage.file), std::ios::binary);
    if (wide)
        out.write("\xFF\xFE", 2).write(reinterpret_cast<const char*>(text.data()), static_cast<std::streamsize>(2 * text.size()));
    else
        out << std::string(text.begin(), text.end());
}

std::int64_t Made(HWND control)
{
    return control && edGetHWND(control) == control;
}

edCreateParams ParamsOf(const Stage& stage, const edSettingsBlock& block)
{
    edCreateParams params{};
    params.parent = stage.host.Window();
    params.settings = &block;
    params.highlightHook = &stage.hook;
    params.caption = L"made";
    return params;
}

std::int64_t Create(Stage& stage, UINT32 flags, bool withSettings)
{
    const edSettingsBlock block{stage.settings.data(), withSettings ? static_cast<UINT32>(stage.settings.size()) : 0};
    edCreateParams params = ParamsOf(stage, block);
    params.flags = flags;
    stage.other = edCreateCtrl(&params);
    return Made(stage.other);
}

void MakeOther(Stage& stage)
{
    Create(stage, 0, true);
    edLoadText(stage.other, Plain(30).c_str(), whole);
    edSetBreakPoint(stage.other, 3);
}

void MakePaper(Stage& stage)
{
    stage.paper = ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
}

std::int64_t Prepare(Stage& stage, UINT32 wholeText)
{
    const RECT page{0, 0, 300, 100};
    const edPrintSetup setup{stage.paper, page, page, page, page, {wholeText, wholeText}};
    return edPreparePrinting(stage.control, &setup);
}

std::int64_t PrintFirst(Stage& stage)
{
    const edPrintPageParams params{stage.paper, 1};
    return edPrintPage(stage.control, &params);
}

std::int64_t Marks(Stage& s)
{
    const std::int64_t set = edSetBreakPoint(s.control, 1) + edSetBreakPoint(s.control, 2);
    const std::int64_t told = edGetBreakPointCount(s.control) + edGetBreakPointLine(s.control, 1);
    const std::int64_t removed = edRemoveBreakPoint(s.control, 1);
    edRemoveAllBreakPoints(s.control);
    return set + told + removed;
}

std::int64_t ExecutionPoint(Stage& s)
{
    const std::int64_t set = edSetExecPoint(s.control, 2);
    edClearExecPoint(s.control);
    return set;
}

std::int64_t Snapshot(Stage& s)
{
    edTakeSnapshot(s.control);
    return edGetSnapshotNewLine(s.control, 2) + edGetSnapshotOldLine(s.control, 2);
}

std::int64_t Positions(Stage& s)
{
    std::int64_t found = 0;
    for (int code = ED_POSITION_CARET; code <= ED_POSITION_CARET_BOTTOM; ++code) {
        edPoint at;
        found += edGetPosition(s.control, code, &at);
    }
    return found;
}

std::int64_t Commands(Stage& s)
{
    for (const int code : {ED_COMMAND_SELECT_ALL, ED_COMMAND_CLEAR_SELECTION, ED_COMMAND_SELECT_TO_LINE_END,
                           ED_COMMAND_TOGGLE_OVERWRITE, ED_COMMAND_TOGGLE_OVERWRITE})
        s.Command(code);
    return 0;
}

std::int64_t MayCommands(Stage& s)
{
    for (int code = 0; code <= ED_COMMAND_COPY_APPEND; ++code)
        edCanExecCommand(s.control, code);
    return 0;
}

std::int64_t GetLine(Stage& s, UINT32 line, int fromSelection)
{
    wchar_t buffer[4000];
    UINT32 length = 4000;
    return edGetLine(s.control, line, fromSelection, buffer, &length);
}

std::int64_t ApplyTuning(Stage& s)
{
    unsigned char bytes[1000];
    edSettingsBlock room{bytes, sizeof bytes};
    const UINT32 size = edApplyTuningChanges(&room);
    const edSettingsBlock block{bytes, size};
    edReloadTuneSettings(s.control, &block);
    return size;
}

using S = Scene;
const Scene scenes[] = {
    {"Create", L"|text", nullptr, [](Stage& s) { return Create(s, 0, false); }, 0, S::otherText},
    {"CreateWithSettings", L"|text", nullptr, [](Stage& s) { return Create(s, 0, true); }, 0, S::otherText},
    {"CreateReadOnly", L"|text", nullptr, [](Stage& s) { return Create(s, ED_CREATE_READONLY, true); }, 0, S::otherText},
    {"CreateFillAndDestroy", L"|text", nullptr,
     [](Stage& s) {
         const std::int64_t made = Create(s, 0, true);
         edLoadText(s.other, L"one\ntwo", whole);
         edDestroyCtrl(s.other);
         return made;
     }, 0, S::otherText},
    {"Destroy", Lines(20), [](Stage& s) { s.Type(L"ab"); },
     [](Stage& s) { edDestroyCtrl(s.control); return std::int64_t{0}; }, 0, S::gone},
    {"AskForTheHandle", L"|text", nullptr, [](Stage& s) { return std::int64_t{edGetHWND(s.control) == s.control}; }},
    {"LoadFileOfBytes", L"a|b", [](Stage& s) { PutFile(s, Plain(60), false); },
     [](Stage& s) { UINT32 code = 0; return std::int64_t{edLoadFile(s.control, s.file.c_str(), &code)}; }, 1, S::newText},
    {"LoadFileOfUtf16", L"a|b", [](Stage& s) { PutFile(s, Plain(60), true); },
     [](Stage& s) { UINT32 code = 0; return std::int64_t{edLoadFile(s.control, s.file.c_str(), &code)}; }, 1, S::newText},
    {"LoadAFileThatIsMissing", L"a|b", [](Stage& s) { std::filesystem::remove(s.file); },
     [](Stage& s) { return std::int64_t{edLoadFile(s.control, s.file.c_str(), nullptr)}; }, 1},
    {"SaveANewFile", Lines(60), [](Stage& s) { std::filesystem::remove(s.file); },
     [](Stage& s) { return std::int64_t{edSaveFile(s.control, s.file.c_str(), ED_ENCODING_UTF8)}; }},
    {"SaveOverAFile", Lines(60), [](Stage& s) { PutFile(s, L"old text", false); },
     [](Stage& s) { return std::int64_t{edSaveFile(s.control, s.file.c_str(), ED_ENCODING_ANSI)}; }},
    {"LoadText", L"a|b", nullptr, [](Stage& s) { return std::int64_t{edLoadText(s.control, Plain(80).c_str(), whole)}; }, 0,
     S::newText},
    {"LoadNothing", L"a|b\ncd", nullptr, [](Stage& s) { return std::int64_t{edLoadText(s.control, nullptr, 0)}; }, 0,
     S::newText},
    {"SaveText", Lines(30), nullptr,
     [](Stage& s) {
         std::vector<wchar_t> buffer(1 << 15);
         return std::int64_t{edSaveText(s.control, buffer.data())};
     }},
    {"LineCount", Lines(9), nullptr, [](Stage& s) { return std::int64_t{edGetLineCount(s.control)}; }},
    {"GetALine", Lines(9), nullptr, [](Stage& s) { return GetLine(s, 3, 0); }},
    {"GetTheSelection", L"a[b\ncd\nef]|g", nullptr, [](Stage& s) { return GetLine(s, 0, 1); }},
    {"InsertText", L"ab|cd", nullptr, [](Stage& s) { return std::int64_t{edInsertText(s.control, L"12\r\n3\t4\n5")}; }, 0,
     S::halfWay, 7},
    {"InsertTextOverASelection", L"a[b\nc]|d", nullptr,
     [](Stage& s) { return std::int64_t{edInsertText(s.control, L"1\n2")}; }, 0, S::halfWay, 7},
    {"CopyData", L"a|b", MakeOther, [](Stage& s) { return std::int64_t{edCopyData(s.other, s.control)}; }, 0, S::newText | S::fresh},
    {"SetTheCaret", Lines(60), nullptr,
     [](Stage& s) { edSetCaretPosition(s.control, 40, 3); return std::int64_t{0}; }},
    {"SetTheCaretAndSelect", Lines(60), nullptr,
     [](Stage& s) { edSetCaretPositionAdv(s.control, 30, 3, 31); return std::int64_t{0}; }},
    {"SetTheScrollPosition", Lines(60), nullptr,
     [](Stage& s) { edSetScrollPosition(s.control, 20, 4); return std::int64_t{0}; }},
    {"AskForPositions", L"a[b\nc]|d", nullptr, Positions, 0, S::sum},
    {"AskForModes", L"a[b]|", nullptr,
     [](Stage& s) {
         return std::int64_t{edGetMode(s.control, ED_MODE_INSERT) + edGetMode(s.control, ED_MODE_SELECTION)};
     }, 0, S::sum},
    {"Commands", Lines(9), nullptr, Commands},
    {"AskWhatIsEnabled", L"a[b]|c", [](Stage& s) { s.Command(ED_COMMAND_COPY); }, MayCommands},
    {"BreakPoints", Lines(9), nullptr, Marks, 0, S::sum},
    {"ExecutionPoint", Lines(9), nullptr, ExecutionPoint},
    {"Snapshot", Lines(9), nullptr, Snapshot, 0, S::sum},
    {"FontPage", L"|a", nullptr,
     [](Stage& s) { s.Page(&edCreateFontTuneDialog, 0); return std::int64_t{s.pages[0] != nullptr}; }},
    {"HighlightPage", L"|a", nullptr,
     [](Stage& s) { s.Page(&edCreateHighlightTuneDialog, 1); return std::int64_t{s.pages[1] != nullptr}; }},
    {"ApplyTuning", L"|a", [](Stage& s) { s.Page(&edCreateFontTuneDialog, 0); }, ApplyTuning, 0, S::fresh},
    {"ReloadSettings", Lines(9), nullptr,
     [](Stage& s) {
         const edSettingsBlock block{s.settings.data(), static_cast<UINT32>(s.settings.size())};
         edReloadTuneSettings(s.control, &block);
         return std::int64_t{0};
     }, 0, S::fresh},
    {"PreparePrinting", Lines(40), MakePaper, [](Stage& s) { return Prepare(s, 1); }, 0, S::sum},
    {"PrepareToPrintTheSelection", L"a[b\nc]|d", MakePaper, [](Stage& s) { return Prepare(s, 0); }},
    {"PrintAPage", Lines(40), [](Stage& s) { MakePaper(s); Prepare(s, 1); }, PrintFirst},
    {"EndPrinting", Lines(40), [](Stage& s) { MakePaper(s); Prepare(s, 1); },
     [](Stage& s) { return std::int64_t{edPrintingOver(s.control)}; }},
};

}  // namespace

std::span<const Scene> ExportScenes()
{
    return scenes;
}
