// Every export by its name: what it answers to a bad handle, and to a null for each pointer it takes.

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/HostLog.h"
#include "tests/support/win/MessageBoxes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <future>
#include <thread>

namespace {

constexpr UINT32 any = 0xFFFFFFFF;
constexpr const wchar_t* loaded = L"one\ntwo";

template <typename Pointer>
std::int64_t Number(Pointer* pointer)
{
    return static_cast<std::int64_t>(reinterpret_cast<INT_PTR>(pointer));
}

// ---- Bad handles

/// An export with harmless arguments; the answer as the host sees it, 0 where there is none.
struct ExportRow {
    const char* name;
    std::int64_t badHandle;
    std::int64_t (*call)(HWND);
};

std::int64_t CallGetLine(HWND h)
{
    UINT32 length = 9;
    wchar_t buffer[9] = L"before";
    const BOOL result = edGetLine(h, 0, 0, buffer, &length);
    EXPECT_EQ(length, 9u);
    EXPECT_STREQ(buffer, L"before");
    return result;
}

std::int64_t CallGetPosition(HWND h)
{
    edPoint out{-7, -7};
    const BOOL result = edGetPosition(h, ED_POSITION_CARET, &out);
    EXPECT_EQ(out.x, -7);
    EXPECT_EQ(out.y, -7);
    return result;
}

std::int64_t CallLoadFile(HWND h)
{
    UINT32 encoding = 77;
    const BOOL result = edLoadFile(h, L"Z:\\none\\none.txt", &encoding);
    EXPECT_EQ(encoding, 77u);
    return result;
}

std::int64_t CallSaveText(HWND h)
{
    wchar_t buffer[9] = L"before";
    const UINT32 result = edSaveText(h, buffer);
    EXPECT_STREQ(buffer, L"before");
    return result;
}

std::int64_t CallReloadTuneSettings(HWND h)
{
    char bytes[] = "no settings";
    const edSettingsBlock block{bytes, sizeof bytes};
    edReloadTuneSettings(h, &block);
    return 0;
}

using TuneDialog = decltype(edCreateFontTuneDialog);

// Any window can be the parent of a page, so to these two only what is no window is a bad handle. To let the table hold
// for all others too, they go without the settings that a page needs.
std::int64_t CallTuneDialog(TuneDialog* create, HWND parent)
{
    const edSettingsBlock settings{nullptr, 0};
    return Number(create(parent, nullptr, ::IsWindow(parent) ? nullptr : &settings, nullptr));
}

std::int64_t CallApplyTuningChanges()
{
    char bytes[300] = "before";
    edSettingsBlock block{bytes, sizeof bytes};
    const UINT32 result = edApplyTuningChanges(&block);
    EXPECT_STREQ(bytes, "before");
    return result;
}

std::int64_t CallPreparePrinting(HWND h)
{
    const edPrintSetup setup{};
    return edPreparePrinting(h, &setup);
}

std::int64_t CallPrintPage(HWND h)
{
    const edPrintPageParams params{::GetDC(nullptr), 1};
    const BOOL result = edPrintPage(h, &params);
    ::ReleaseDC(nullptr, params.dc);
    return result;
}

/// In the order of the header. The two that take no handle get what they answer with the same value.
const ExportRow exportRows[] = {
    {"edCreateCtrl", 0, [](HWND) { return Number(edCreateCtrl(nullptr)); }},
    {"edDestroyCtrl", 0, [](HWND h) { edDestroyCtrl(h); return std::int64_t{0}; }},
    {"edGetHWND", 0, [](HWND h) { return Number(edGetHWND(h)); }},
    {"edLoadFile", 0, CallLoadFile},
    {"edSaveFile", 0, [](HWND h) { return std::int64_t{edSaveFile(h, L"Z:\\none\\none.txt", 0)}; }},
    {"edLoadText", 0, [](HWND h) { return std::int64_t{edLoadText(h, L"text", any)}; }},
    {"edSaveText", 0, CallSaveText},
    {"edGetLineCount", 0, [](HWND h) { return std::int64_t{edGetLineCount(h)}; }},
    {"edGetLine", 0, CallGetLine},
    {"edInsertText", 0, [](HWND h) { return std::int64_t{edInsertText(h, L"x")}; }},
    {"edCopyData", 0, [](HWND h) { return std::int64_t{edCopyData(h, h)}; }},
    {"edSetCaretPosition", 0, [](HWND h) { edSetCaretPosition(h, 0, 0); return std::int64_t{0}; }},
    {"edSetCaretPositionAdv", 0, [](HWND h) { edSetCaretPositionAdv(h, 0, 0, 31); return std::int64_t{0}; }},
    {"edSetScrollPosition", 0, [](HWND h) { edSetScrollPosition(h, 0, 0); return std::int64_t{0}; }},
    {"edGetPosition", 0, CallGetPosition},
    {"edGetMode", 0, [](HWND h) { return std::int64_t{edGetMode(h, ED_MODE_INSERT)}; }},
    {"edExecCommand", 0, [](HWND h) { return std::int64_t{edExecCommand(h, ED_COMMAND_TOGGLE_OVERWRITE)}; }},
    {"edCanExecCommand", 0, [](HWND h) { return std::int64_t{edCanExecCommand(h, ED_COMMAND_FIND)}; }},
    {"edSetBreakPoint", 0, [](HWND h) { return std::int64_t{edSetBreakPoint(h, 0)}; }},
    {"edRemoveBreakPoint", 0, [](HWND h) { return std::int64_t{edRemoveBreakPoint(h, 0)}; }},
    {"edRemoveAllBreakPoints", 0, [](HWND h) { edRemoveAllBreakPoints(h); return std::int64_t{0}; }},
    {"edGetBreakPointCount", -1, [](HWND h) { return std::int64_t{edGetBreakPointCount(h)}; }},
    {"edGetBreakPointLine", -1, [](HWND h) { return std::int64_t{edGetBreakPointLine(h, 0)}; }},
    {"edSetExecPoint", 0, [](HWND h) { return std::int64_t{edSetExecPoint(h, 0)}; }},
    {"edClearExecPoint", 0, [](HWND h) { edClearExecPoint(h); return std::int64_t{0}; }},
    {"edTakeSnapshot", 0, [](HWND h) { edTakeSnapshot(h); return std::int64_t{0}; }},
    {"edGetSnapshotNewLine", -1, [](HWND h) { return std::int64_t{edGetSnapshotNewLine(h, 0)}; }},
    {"edGetSnapshotOldLine", -1, [](HWND h) { return std::int64_t{edGetSnapshotOldLine(h, 0)}; }},
    {"edReloadTuneSettings", 0, CallReloadTuneSettings},
    {"edCreateFontTuneDialog", 0, [](HWND h) { return CallTuneDialog(edCreateFontTuneDialog, h); }},
    {"edCreateHighlightTuneDialog", 0, [](HWND h) { return CallTuneDialog(edCreateHighlightTuneDialog, h); }},
    {"edApplyTuningChanges", 0, [](HWND) { return CallApplyTuningChanges(); }},
    {"edPreparePrinting", 0, CallPreparePrinting},
    {"edPrintPage", 0, CallPrintPage},
    {"edPrintingOver", 0, [](HWND h) { return std::int64_t{edPrintingOver(h)}; }},
};

/// The names that the library exports, out of its table.
std::vector<std::string> ExportedNames()
{
    const auto* base = reinterpret_cast<const char*>(::GetModuleHandleW(L"scrivctl3.dll"));
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
    const auto& place = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* table = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + place.VirtualAddress);
    const auto* names = reinterpret_cast<const DWORD*>(base + table->AddressOfNames);
    std::vector<std::string> found;
    for (DWORD i = 0; i < table->NumberOfNames; ++i)
        found.emplace_back(base + names[i]);
    return found;
}

TEST(EveryExport, HasARowInTheTable)
{
    std::vector<std::string> rows;
    for (const ExportRow& row : exportRows)
        rows.emplace_back(row.name);
    std::sort(rows.begin(), rows.end());
    std::vector<std::string> names = ExportedNames();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(rows, names);
    EXPECT_EQ(names.size(), 35u);
}

void ExpectBad(HWND handle, const char* what)
{
    const MessageBoxes boxes;
    const HostLog log;
    for (const ExportRow& row : exportRows)
        EXPECT_EQ(row.call(handle), row.badHandle) << row.name << " with " << what;
    EXPECT_TRUE(boxes.texts.empty()) << what;
    EXPECT_EQ(log.News(), "") << what;
}

HWND MakeChild(HWND parent, const wchar_t* className, const wchar_t* text)
{
    return ::CreateWindowExW(0, className, text, WS_CHILD, 0, 0, 9, 9, parent, nullptr, nullptr, nullptr);
}

/// A window of a class whose windows hold, where a control keeps its object, a pointer to nothing.
HWND MakeLookalike(HWND parent)
{
    WNDCLASSW wc{};
    wc.lpfnWndProc = ::DefWindowProcW;
    wc.cbWndExtra = sizeof(void*);
    wc.hInstance = ::GetModuleHandleW(nullptr);
    wc.lpszClassName = L"LookalikeOfAControl";
    ::RegisterClassW(&wc);
    const HWND window = MakeChild(parent, wc.lpszClassName, L"");
    ::SetWindowLongPtrW(window, 0, 0x12345678);
    return window;
}

TEST(BadHandles, OfNoWindow)
{
    ExpectBad(nullptr, "null");
    ExpectBad(reinterpret_cast<HWND>(-1), "-1");
    ExpectBad(reinterpret_cast<HWND>(0x12345678), "a number");
}

TEST(BadHandles, OfADestroyedControl)
{
    ControlHost host;
    const HWND byExport = host.Create();
    edDestroyCtrl(byExport);
    ExpectBad(byExport, "a control that edDestroyCtrl destroyed");
    const HWND bySystem = host.Create();
    ::DestroyWindow(bySystem);
    ExpectBad(bySystem, "a control that DestroyWindow destroyed");
}

TEST(BadHandles, OfADestroyedControlWhoseNumberAnotherWindowHas)
{
    ControlHost host;
    const HWND destroyed = host.Create();
    edDestroyCtrl(destroyed);
    // The low half of a handle is a place in a table, which the next windows take; the high half tells them apart.
    const auto place = [](HWND window) { return LOWORD(reinterpret_cast<INT_PTR>(window)); };
    HWND reused = nullptr;
    for (int i = 0; i < 70000 && (!reused || place(reused) != place(destroyed)); ++i) {
        if (reused)
            ::DestroyWindow(reused);
        reused = MakeChild(host.Window(), L"EDIT", L"reused");
    }
    ASSERT_EQ(place(reused), place(destroyed));
    ExpectBad(destroyed, "the number of a control that is gone");
    ExpectBad(reused, "a window in the place of a control that is gone");
    EXPECT_EQ(::GetWindowTextLengthW(reused), 6);
}

TEST(BadHandles, OfAWindowThatIsNoControl)
{
    ControlHost host;
    const HWND foreign = MakeChild(host.Window(), L"EDIT", L"foreign");
    ExpectBad(::GetDesktopWindow(), "the desktop");
    ExpectBad(host.Window(), "the parent of a control");
    ExpectBad(foreign, "a window of another class");
    ExpectBad(MakeLookalike(host.Window()), "a window that looks like a control");
    EXPECT_EQ(::GetWindowTextLengthW(foreign), 7);
}

TEST(BadHandles, OfAControlOfAnotherThread)
{
    std::promise<HWND> made;
    std::promise<void> end;
    std::wstring left;
    std::thread other([&] {
        ControlHost host;
        const HWND control = host.Show(loaded);
        made.set_value(control);
        const auto ended = end.get_future();
        while (ended.wait_for(std::chrono::milliseconds(5)) != std::future_status::ready)
            Pump();
        left = TextOf(control);
    });
    ExpectBad(made.get_future().get(), "a control of another thread");
    end.set_value();
    other.join();
    EXPECT_EQ(left, loaded);
}

constexpr const wchar_t* heldHost = L"host of another process";
constexpr const wchar_t* heldEnd = L"ScrivHeldControlMayEnd";

// Not a test but the other process of the one below: it holds a control until it is told to end.
TEST(OtherProcess, DISABLED_HoldsAControl)
{
    ControlHost host;
    host.Show(L"not yours");
    ::SetWindowTextW(host.Window(), heldHost);
    const HANDLE end = ::CreateEventW(nullptr, TRUE, FALSE, heldEnd);
    while (::MsgWaitForMultipleObjects(1, &end, FALSE, 20000, QS_ALLINPUT) == WAIT_OBJECT_0 + 1)
        Pump();
    ::CloseHandle(end);
}

TEST(BadHandles, OfAControlOfAnotherProcess)
{
    wchar_t program[MAX_PATH];
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring command = L"\"" + std::wstring(program) + L"\" --gtest_also_run_disabled_tests " +
                           L"--gtest_filter=OtherProcess.DISABLED_HoldsAControl --gtest_output=";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                                 &start, &process));
    HWND window = nullptr;
    for (int i = 0; i < 300 && !window; ++i) {
        Pump(30);
        window = ::FindWindowW(nullptr, heldHost);
    }
    const HWND control = window ? ::GetWindow(window, GW_CHILD) : nullptr;
    EXPECT_TRUE(::IsWindow(control));
    ExpectBad(control, "a control of another process");
    EXPECT_TRUE(::IsWindow(control));
    const HANDLE end = ::CreateEventW(nullptr, TRUE, FALSE, heldEnd);
    ::SetEvent(end);
    EXPECT_EQ(::WaitForSingleObject(process.hProcess, 20000), static_cast<DWORD>(WAIT_OBJECT_0));
    ::CloseHandle(end);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
}

// ---- Null pointers

/// A good control that holds two lines, and one pointer that is null.
struct NullRow {
    const char* name;
    std::int64_t result;
    const wchar_t* textAfter;
    std::int64_t (*call)(HWND control);
};

template <typename Pointer>
HWND CreateWithout(HWND control, Pointer edCreateParams::*field)
{
    const RECT rect{0, 0, 9, 9};
    const edSettingsBlock settings{nullptr, 0};
    const edHighlightHook hook{nullptr, nullptr};
    edCreateParams params{::GetParent(control), &rect, L"caption", 0, &settings, &hook, 0};
    params.*field = nullptr;
    return edCreateCtrl(&params);
}

std::int64_t IsMade(HWND control)
{
    const std::int64_t made = edGetHWND(control) == control && control != nullptr;
    edDestroyCtrl(control);
    return made;
}

/// The pointers that a tuning page is made with, all good.
struct PageArguments {
    HWND parent;
    const RECT* rect;
    const edSettingsBlock* settings;
    const edHighlightHook* hook;
};

/// Makes a page without one of them. @return 1 when it came into being
template <typename Pointer>
std::int64_t PageWithout(TuneDialog* create, HWND control, Pointer PageArguments::*field)
{
    const RECT rect{0, 0, 400, 300};
    const edSettingsBlock settings{nullptr, 0};
    const edHighlightHook hook{nullptr, nullptr};
    PageArguments all{::GetParent(control), &rect, &settings, &hook};
    all.*field = nullptr;
    const HWND page = create(all.parent, all.rect, all.settings, all.hook);
    const std::int64_t made = ::IsWindow(page) != FALSE;
    EXPECT_EQ(made, std::int64_t{page != nullptr});
    ::DestroyWindow(page);
    return made;
}

/// @return 1 when a block without bytes is told the size that it needs
std::int64_t ApplyWithoutData(HWND control)
{
    const edSettingsBlock settings{nullptr, 0};
    const HWND page = edCreateFontTuneDialog(::GetParent(control), nullptr, &settings, nullptr);
    edSettingsBlock block{nullptr, 100000};
    const UINT32 size = edApplyTuningChanges(&block);
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
    ::DestroyWindow(page);
    return size > 0 && block.data == nullptr;
}

std::int64_t GetLineWithoutBuffer(HWND control, UINT32 room)
{
    UINT32 length = room;
    const BOOL result = edGetLine(control, 0, 0, nullptr, &length);
    EXPECT_EQ(length, 4u);
    return result;
}

std::int64_t LoadOwnText(HWND control)
{
    wchar_t path[MAX_PATH];
    ::GetTempPathW(MAX_PATH, path);
    const std::wstring file = std::wstring(path) + L"scriv_every_export.txt";
    EXPECT_EQ(edSaveFile(control, file.c_str(), ED_ENCODING_UTF8), 1);
    edLoadText(control, L"", 0);
    const BOOL result = edLoadFile(control, file.c_str(), nullptr);
    ::DeleteFileW(file.c_str());
    return result;
}

const NullRow nullRows[] = {
    {"CreateCtrlParams", 0, loaded, [](HWND) { return Number(edCreateCtrl(nullptr)); }},
    {"CreateCtrlParent", 0, loaded, [](HWND h) { return Number(CreateWithout(h, &edCreateParams::parent)); }},
    {"CreateCtrlRect", 1, loaded, [](HWND h) { return IsMade(CreateWithout(h, &edCreateParams::rect)); }},
    {"CreateCtrlCaption", 1, loaded, [](HWND h) { return IsMade(CreateWithout(h, &edCreateParams::caption)); }},
    {"CreateCtrlSettings", 1, loaded, [](HWND h) { return IsMade(CreateWithout(h, &edCreateParams::settings)); }},
    {"CreateCtrlHook", 1, loaded, [](HWND h) { return IsMade(CreateWithout(h, &edCreateParams::highlightHook)); }},
    {"LoadFilePath", 0, loaded, [](HWND h) { UINT32 code = 0; return std::int64_t{edLoadFile(h, nullptr, &code)}; }},
    {"LoadFileEncoding", 1, loaded, LoadOwnText},
    {"SaveFilePath", 0, loaded, [](HWND h) { return std::int64_t{edSaveFile(h, nullptr, 0)}; }},
    {"LoadTextText", 1, L"", [](HWND h) { return std::int64_t{edLoadText(h, nullptr, any)}; }},
    {"SaveTextBuffer", 8, loaded, [](HWND h) { return std::int64_t{edSaveText(h, nullptr)}; }},
    {"GetLineLength", 0, loaded,
     [](HWND h) { wchar_t buffer[9]; return std::int64_t{edGetLine(h, 0, 0, buffer, nullptr)}; }},
    {"GetLineBuffer", 0, loaded, [](HWND h) { return GetLineWithoutBuffer(h, 0); }},
    {"GetLineBufferWithRoomPromised", 0, loaded, [](HWND h) { return GetLineWithoutBuffer(h, 99); }},
    {"GetLineBoth", 0, loaded, [](HWND h) { return std::int64_t{edGetLine(h, 0, 0, nullptr, nullptr)}; }},
    {"InsertTextText", 1, loaded, [](HWND h) { return std::int64_t{edInsertText(h, nullptr)}; }},
    {"CopyDataSource", 0, loaded, [](HWND h) { return std::int64_t{edCopyData(nullptr, h)}; }},
    {"CopyDataDestination", 0, loaded, [](HWND h) { return std::int64_t{edCopyData(h, nullptr)}; }},
    {"GetPositionOut", 0, loaded, [](HWND h) { return std::int64_t{edGetPosition(h, ED_POSITION_CARET, nullptr)}; }},
    {"ReloadTuneSettingsBlock", 0, loaded, [](HWND h) { edReloadTuneSettings(h, nullptr); return std::int64_t{0}; }},
    {"ReloadTuneSettingsData", 0, loaded,
     [](HWND h) {
         const edSettingsBlock block{nullptr, 266};
         edReloadTuneSettings(h, &block);
         return std::int64_t{0};
     }},
    {"FontPageParent", 0, loaded,
     [](HWND h) { return PageWithout(edCreateFontTuneDialog, h, &PageArguments::parent); }},
    {"FontPageRect", 1, loaded, [](HWND h) { return PageWithout(edCreateFontTuneDialog, h, &PageArguments::rect); }},
    {"FontPageSettings", 0, loaded,
     [](HWND h) { return PageWithout(edCreateFontTuneDialog, h, &PageArguments::settings); }},
    {"FontPageHook", 1, loaded, [](HWND h) { return PageWithout(edCreateFontTuneDialog, h, &PageArguments::hook); }},
    {"HighlightPageParent", 0, loaded,
     [](HWND h) { return PageWithout(edCreateHighlightTuneDialog, h, &PageArguments::parent); }},
    {"HighlightPageRect", 1, loaded,
     [](HWND h) { return PageWithout(edCreateHighlightTuneDialog, h, &PageArguments::rect); }},
    {"HighlightPageSettings", 0, loaded,
     [](HWND h) { return PageWithout(edCreateHighlightTuneDialog, h, &PageArguments::settings); }},
    {"HighlightPageHook", 1, loaded,
     [](HWND h) { return PageWithout(edCreateHighlightTuneDialog, h, &PageArguments::hook); }},
    {"ApplyTuningChangesBlock", 0, loaded, [](HWND) { return std::int64_t{edApplyTuningChanges(nullptr)}; }},
    {"ApplyTuningChangesData", 1, loaded, ApplyWithoutData},
    {"PreparePrintingSetup", 0, loaded, [](HWND h) { return std::int64_t{edPreparePrinting(h, nullptr)}; }},
    {"PrintPageParams", 0, loaded, [](HWND h) { return std::int64_t{edPrintPage(h, nullptr)}; }},
    {"PrintPageContext", 0, loaded,
     [](HWND h) { const edPrintPageParams params{nullptr, 1}; return std::int64_t{edPrintPage(h, &params)}; }},
};

class NullPointers : public testing::TestWithParam<NullRow> {};

TEST_P(NullPointers, GiveTheDocumentedAnswer)
{
    ControlHost host;
    const HWND control = host.Show(loaded);
    const MessageBoxes boxes;
    const HostLog log;
    EXPECT_EQ(GetParam().call(control), GetParam().result);
    EXPECT_EQ(TextOf(control), GetParam().textAfter);
    EXPECT_TRUE(boxes.texts.empty());
    EXPECT_EQ(log.News(), "");
}

INSTANTIATE_TEST_SUITE_P(Each, NullPointers, testing::ValuesIn(nullRows),
                         [](const auto& info) { return info.param.name; });

}  // namespace
