// A host may call anything from inside whatever the control tells or asks it: each exported function is called from
// inside each of the messages and from the highlight hook, and the host, the control and its log stand as before.

#include "tests/support/TestFolder.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/MessageBoxes.h"

#include <commdlg.h>
#include <dlgs.h>
#include <gtest/gtest.h>
#include <ole2.h>

#include <array>
#include <filesystem>
#include <tuple>

namespace {

constexpr const wchar_t* text =
    L"one\ntwo /* three\nfour */ five\nsix\nseven\neight\nnine\nten\neleven\ntwelve\nthirteen";
constexpr SIZE hostSize{300, 100};  // fewer rows than the text has lines

/// What a call may need besides the control.
struct Around {
    HWND other;  ///< a second control
    HWND host;
    std::wstring path;
};

struct Export {
    const char* name;
    void (*call)(HWND control, const Around& around);
};

void PrintTo(const Export& function, std::ostream* out)
{
    *out << function.name;
}

void PrintTwoPages(HWND control)
{
    const HDC screen = ::GetDC(nullptr);
    const HDC paper = ::CreateCompatibleDC(screen);
    const RECT page{0, 0, 400, 100};
    const edPrintSetup setup{paper, page, page, page, page, {1, 1}};
    EXPECT_TRUE(edPreparePrinting(control, &setup));
    for (UINT32 number : {1u, 2u}) {
        const edPrintPageParams params{paper, number};
        EXPECT_TRUE(edPrintPage(control, &params));
    }
    EXPECT_TRUE(edPrintingOver(control));
    ::DeleteDC(paper);
    ::ReleaseDC(nullptr, screen);
}

void CloseAfterUse(decltype(&edCreateFontTuneDialog) create, const Around& around)
{
    const edSettingsBlock none{};
    const HWND page = create(around.host, nullptr, &none, nullptr);
    EXPECT_TRUE(page);
    ::DestroyWindow(page);
}

constexpr Export exports[] = {
    {"edCreateCtrl",
     [](HWND, const Around& a) {
         edCreateParams p{};
         p.parent = a.host;
         edDestroyCtrl(edCreateCtrl(&p));
     }},
    {"edDestroyCtrl", [](HWND c, const Around&) { edDestroyCtrl(c); }},
    {"edGetHWND", [](HWND c, const Around&) { EXPECT_EQ(edGetHWND(c), c); }},
    {"edLoadFile", [](HWND c, const Around& a) { EXPECT_TRUE(edLoadFile(c, a.path.c_str(), nullptr)); }},
    {"edSaveFile", [](HWND c, const Around& a) { EXPECT_TRUE(edSaveFile(c, a.path.c_str(), ED_ENCODING_UTF8)); }},
    {"edLoadText", [](HWND c, const Around&) { EXPECT_TRUE(edLoadText(c, L"another text", 1)); }},
    {"edSaveText", [](HWND c, const Around&) { EXPECT_GT(TextOf(c).size(), 0u); }},
    {"edGetLineCount", [](HWND c, const Around&) { EXPECT_GT(edGetLineCount(c), 0u); }},
    {"edGetLine",
     [](HWND c, const Around&) {
         wchar_t b[600];
         UINT32 n = 600;
         EXPECT_TRUE(edGetLine(c, 0, 0, b, &n));
     }},
    {"edInsertText", [](HWND c, const Around&) { EXPECT_TRUE(edInsertText(c, L"insert\ned /*")); }},
    {"edCopyData", [](HWND c, const Around& a) { EXPECT_TRUE(edCopyData(a.other, c)); }},
    {"edSetCaretPosition", [](HWND c, const Around&) { edSetCaretPosition(c, 9, 2); }},
    {"edSetCaretPositionAdv", [](HWND c, const Around&) { edSetCaretPositionAdv(c, 9, 2, 31); }},
    {"edSetScrollPosition", [](HWND c, const Around&) { edSetScrollPosition(c, 4, 2); }},
    {"edGetPosition", [](HWND c, const Around&) { edPoint p; for (int i = 1; i <= 7; ++i) edGetPosition(c, i, &p); }},
    {"edGetMode", [](HWND c, const Around&) { EXPECT_TRUE(edGetMode(c, ED_MODE_INSERT)); }},
    {"edExecCommandUndo", [](HWND c, const Around&) { edExecCommand(c, ED_COMMAND_UNDO); }},
    {"edExecCommandFind", [](HWND c, const Around&) { edExecCommand(c, ED_COMMAND_FIND); }},
    {"edExecCommandPaste", [](HWND c, const Around&) { edExecCommand(c, ED_COMMAND_PASTE); }},
    {"edExecCommandSelectAll", [](HWND c, const Around&) { edExecCommand(c, ED_COMMAND_SELECT_ALL); }},
    {"edExecCommandFindNext", [](HWND c, const Around&) { edExecCommand(c, ED_COMMAND_FIND_NEXT); }},
    {"edCanExecCommand", [](HWND c, const Around&) { for (int i = 0; i < 15; ++i) edCanExecCommand(c, i); }},
    {"edSetBreakPoint", [](HWND c, const Around&) { EXPECT_TRUE(edSetBreakPoint(c, 0)); }},
    {"edRemoveBreakPoint", [](HWND c, const Around&) { EXPECT_TRUE(edRemoveBreakPoint(c, 0)); }},
    {"edRemoveAllBreakPoints", [](HWND c, const Around&) { edRemoveAllBreakPoints(c); }},
    {"edGetBreakPointCount", [](HWND c, const Around&) { EXPECT_EQ(edGetBreakPointCount(c), 0); }},
    {"edGetBreakPointLine", [](HWND c, const Around&) { EXPECT_EQ(edGetBreakPointLine(c, 0), -1); }},
    {"edSetExecPoint", [](HWND c, const Around&) { EXPECT_TRUE(edSetExecPoint(c, 0)); }},
    {"edClearExecPoint", [](HWND c, const Around&) { edClearExecPoint(c); }},
    {"edTakeSnapshot", [](HWND c, const Around&) { edTakeSnapshot(c); }},
    {"edGetSnapshotNewLine", [](HWND c, const Around&) { edGetSnapshotNewLine(c, 0); }},
    {"edGetSnapshotOldLine", [](HWND c, const Around&) { edGetSnapshotOldLine(c, 0); }},
    {"edPreparePrinting", [](HWND c, const Around&) { PrintTwoPages(c); }},
    {"edPrintPage",
     [](HWND c, const Around&) {
         edPrintPageParams p{::GetDC(nullptr), 1};
         edPrintPage(c, &p);
         ::ReleaseDC(nullptr, p.dc);
     }},
    {"edPrintingOver", [](HWND c, const Around&) { edPrintingOver(c); }},
    {"edCreateFontTuneDialog", [](HWND, const Around& a) { CloseAfterUse(&edCreateFontTuneDialog, a); }},
    {"edCreateHighlightTuneDialog", [](HWND, const Around& a) { CloseAfterUse(&edCreateHighlightTuneDialog, a); }},
    {"edApplyTuningChanges",
     [](HWND, const Around&) {
         edSettingsBlock none{};
         EXPECT_EQ(edApplyTuningChanges(&none), 0u);
     }},
    {"edReloadTuneSettings",
     [](HWND c, const Around&) {
         char b[4] = {};
         edSettingsBlock s{b, 4};
         edReloadTuneSettings(c, &s);
     }},
};

/// Where the host is called, and how that is brought about.
class Stage {
public:
    Stage()
    {
        ::OleInitialize(nullptr);
        edCreateParams params{};
        params.highlightHook = &m_hook;
        m_inner = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, m_host.Window(), nullptr,
                                    nullptr, nullptr);
        other = m_host.Create();
        edLoadText(other, L"other\ntext", 1);
        control = m_host.Show(text, params);
        folder.put("file.txt", "from a file\nof two lines");
        around = {other, m_host.Window(), folder.file("file.txt")};
        m_host.onMessage = [this](const ControlHost::Message& message) {
            if (message.id == m_awaited)
                Called();
        };
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage()
    {
        m_awaited = 0;
        edDestroyCtrl(control);
        edDestroyCtrl(other);
        Pump();
        ::OleUninitialize();
    }

    void Await(UINT message, void (*call)(HWND, const Around&)) { m_awaited = message, m_call = call; }
    void AwaitHook(void (*call)(HWND, const Around&)) { m_inHook = true, m_call = call; }
    /// The parent of the control's parent gets the moves of the mouse.
    void AwaitMove(void (*call)(HWND, const Around&))
    {
        m_call = call;
        ::SetParent(control, m_inner);
        moves = this;
        hostProcedure = reinterpret_cast<WNDPROC>(::SetWindowLongPtrW(
            m_host.Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(
                [](HWND window, UINT id, WPARAM wParam, LPARAM lParam) -> LRESULT {
                    if (id == WM_MOUSEMOVE && moves)
                        std::exchange(moves, nullptr)->Called();
                    return ::CallWindowProcW(hostProcedure, window, id, wParam, lParam);
                }))));
    }

    HWND control = nullptr;
    HWND other = nullptr;
    Around around;
    int calls = 0;
    xTTestFolder folder;

private:
    void Called()
    {
        if (!m_call)
            return;
        ++calls;
        std::exchange(m_call, nullptr)(control, around);  // once: what the call brings about comes here too
    }
    static void Classify(void* ctx, wchar_t* line, int)
    {
        auto& stage = *static_cast<Stage*>(ctx);
        for (; *line; ++line)
            *line = ED_CLASS_PLAIN + 2;
        if (stage.m_inHook)
            stage.Called();
    }

    inline static Stage* moves = nullptr;
    inline static WNDPROC hostProcedure = nullptr;
    ControlHost m_host{hostSize.cx, hostSize.cy};
    HWND m_inner = nullptr;
    edHighlightHook m_hook{&Stage::Classify, this};
    UINT m_awaited = 0;
    bool m_inHook = false;
    void (*m_call)(HWND, const Around&) = nullptr;
};

void SearchPastTheEnd(HWND control)
{
    edSetCaretPosition(control, 10, 2);
    edExecCommand(control, ED_COMMAND_FIND);
    HWND dialog = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM found) -> BOOL {
            if (!::GetDlgItem(window, edt1))
                return TRUE;
            *reinterpret_cast<HWND*>(found) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&dialog));
    ::SetDlgItemTextW(dialog, edt1, L"one");
    ::SendDlgItemMessageW(dialog, IDOK, BM_CLICK, 0, 0);
    if (::IsWindow(dialog))
        ::SendDlgItemMessageW(dialog, IDCANCEL, BM_CLICK, 0, 0);
}

void DragOver(HWND control)
{
    auto* const target = static_cast<IDropTarget*>(::GetPropW(control, L"OleDropTargetInterface"));
    IDataObject* data = nullptr;
    ASSERT_TRUE(target);
    ASSERT_EQ(::OleGetClipboard(&data), S_OK);
    target->AddRef();
    DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    target->DragEnter(data, MK_LBUTTON, {}, &effect);
    target->DragOver(MK_LBUTTON, {}, &effect);
    target->DragLeave();
    target->Release();
    data->Release();
}

struct Place {
    const char* name;
    void (*arm)(Stage& stage, void (*call)(HWND, const Around&));
    void (*bringAbout)(HWND control);
};

void PrintTo(const Place& place, std::ostream* out)
{
    *out << place.name;
}

constexpr Place places[] = {
    {"InCaretNotice", [](Stage& s, auto call) { s.Await(ED_NOTIFY_CARET, call); },
     [](HWND c) { ::SendMessageW(c, WM_CHAR, L'k', 1); }},
    {"InCaretNoticeOfAKey", [](Stage& s, auto call) { s.Await(ED_NOTIFY_CARET, call); },
     [](HWND c) { ::SendMessageW(c, WM_KEYDOWN, VK_END, 1); }},
    {"InCaretNoticeOfTheFocus", [](Stage& s, auto call) { s.Await(ED_NOTIFY_CARET, call); },
     [](HWND c) { ::SetFocus(::GetAncestor(c, GA_ROOT)); }},
    {"InCaretNoticeOfAClick", [](Stage& s, auto call) { s.Await(ED_NOTIFY_CARET, call); },
     [](HWND c) {
         ::SendMessageW(c, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 20));
         ::SendMessageW(c, WM_LBUTTONUP, 0, MAKELPARAM(20, 20));
     }},
    {"InFindQuestion", [](Stage& s, auto call) { s.Await(ED_NOTIFY_FIND, call); }, SearchPastTheEnd},
    {"InScrollNotice", [](Stage& s, auto call) { s.Await(ED_NOTIFY_SCROLL, call); },
     [](HWND c) { ::SendMessageW(c, WM_VSCROLL, SB_LINEDOWN, 0); }},
    {"InScrollNoticeOfAPage", [](Stage& s, auto call) { s.Await(ED_NOTIFY_SCROLL, call); },
     [](HWND c) { ::SendMessageW(c, WM_KEYDOWN, VK_NEXT, 1); }},
    {"InDragNotice", [](Stage& s, auto call) { s.Await(ED_DRAG_ENTER_PARENT, call); }, DragOver},
    {"InForwardedMove", [](Stage& s, auto call) { s.AwaitMove(call); },
     [](HWND c) { ::SendMessageW(c, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5)); }},
    {"InHookWhilePainting", [](Stage& s, auto call) { s.AwaitHook(call); },
     [](HWND c) {
         ::InvalidateRect(c, nullptr, TRUE);
         ::UpdateWindow(c);
     }},
    {"InHookWhileMeasuring", [](Stage& s, auto call) { s.AwaitHook(call); },
     [](HWND c) {
         edPoint point;
         edGetPosition(c, ED_POSITION_CARET_TOP, &point);
     }},
};

using Case = std::tuple<Place, Export>;

class Reentry : public testing::TestWithParam<Case> {
protected:
    Reentry() { std::filesystem::remove(log); }
    const std::filesystem::path log = std::filesystem::current_path() / "scrivctl.log";
};

TEST_P(Reentry, TheHostLivesOn)
{
    const auto& [place, function] = GetParam();
    MessageBoxes boxes;  // a search that finds nothing says so
    Stage stage;
    edSetCaretPosition(stage.control, 1, 2);
    place.arm(stage, function.call);
    place.bringAbout(stage.control);
    Pump();
    EXPECT_EQ(stage.calls, 1);
    EXPECT_FALSE(std::filesystem::exists(log));
    if (std::string_view(function.name) == "edDestroyCtrl") {
        EXPECT_EQ(edGetHWND(stage.control), nullptr);
        return;
    }
    ASSERT_EQ(edGetHWND(stage.control), stage.control);
    const std::wstring before = TextOf(stage.control);
    ::SendMessageW(stage.control, WM_CHAR, L'Q', 1);
    ::InvalidateRect(stage.control, nullptr, TRUE);
    ::UpdateWindow(stage.control);
    EXPECT_NE(TextOf(stage.control), before) << "it takes no characters any more";
    EXPECT_NE(TextOf(stage.control).find(L'Q'), std::wstring::npos);
}

INSTANTIATE_TEST_SUITE_P(Host, Reentry, testing::Combine(testing::ValuesIn(places), testing::ValuesIn(exports)),
                         [](const testing::TestParamInfo<Case>& info) {
                             return std::string(std::get<1>(info.param).name) + std::get<0>(info.param).name;
                         });

}  // namespace
