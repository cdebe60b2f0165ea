// A highlight callback that does what it must not do. It runs in the middle of a paint and of measuring a line; whatever
// it does, the control, its text and its host live on.

#include "tests/failure/CrashNote.h"
#include "tests/failure/Stage.h"
#include "tests/support/win/KeyDriver.h"

#include <gtest/gtest.h>

#include <array>
#include <cfenv>
#include <clocale>
#include <cwchar>
#include <stdexcept>

namespace {

constexpr const wchar_t* loaded = L"first line\n\tsecond /* remark\nthird */ line\nfourth";
constexpr UINT32 whole = 0xFFFFFFFF;

/// One call of the callback, with all that it can lay its hands on.
struct Call {
    Stage& stage;
    wchar_t* text;
    std::size_t length;
    int depth;  ///< 1 for the outermost

    [[nodiscard]] bool IsOutermost() const { return depth == 1; }
};

void Fill(const Call& call, wchar_t code)
{
    std::wmemset(call.text, code, call.length);
}

struct Misdeed {
    enum Leaves : unsigned { all = 0, otherText = 1, nothing = 2, records = 4 };

    const char* name;
    void (*commit)(const Call& call);
    unsigned leaves = all;
};

void PrintTo(const Misdeed& misdeed, std::ostream* out)
{
    *out << misdeed.name;
}

void Settings(const Call& call, std::vector<unsigned char> bytes)
{
    const edSettingsBlock block{bytes.data(), static_cast<UINT32>(bytes.size())};
    edReloadTuneSettings(call.stage.control, &block);
}

HDC AnyContext(const Call& call)
{
    return ::GetDC(call.stage.control);
}

void Recurse(const Call& call)
{
    if (call.depth < 20)
        call.stage.Repaint();
}

LONG CALLBACK GoOn(EXCEPTION_POINTERS* raised)
{
    return raised->ExceptionRecord->ExceptionCode == 0xE0000001 ? EXCEPTION_CONTINUE_EXECUTION : EXCEPTION_CONTINUE_SEARCH;
}

void RaiseAndHandle(const Call&)
{
    void* const handler = ::AddVectoredExceptionHandler(1, &GoOn);
    ::RaiseException(0xE0000001, 0, 0, nullptr);
    ::RemoveVectoredExceptionHandler(handler);
}

using M = Misdeed;
const Misdeed misdeeds[] = {
    // What it writes
    {"WritesNothing", [](const Call&) {}},
    {"WritesUnknownClasses", [](const Call& c) { Fill(c, 1234); }},
    {"WritesTheHighestNumber", [](const Call& c) { Fill(c, 0xFFFF); }},
    {"WritesTheNumberOne", [](const Call& c) { Fill(c, 1); }},
    {"WritesZeros", [](const Call& c) { Fill(c, 0); }},
    {"WritesAnotherClassForEachCharacter",
     [](const Call& c) { for (std::size_t i = 0; i < c.length; ++i) c.text[i] = static_cast<wchar_t>(i); }},
    {"EndsTheLineAtItsStart", [](const Call& c) { c.text[0] = 0; }},
    {"EndsTheLineInItsMiddle", [](const Call& c) { c.text[c.length / 2] = 0; }},
    {"OverwritesTheTerminator", [](const Call& c) { c.text[c.length] = 5; }},
    {"WritesALineTwiceAsLong", [](const Call& c) { std::wmemset(c.text, 3, c.length * 2 + 1); }},
    {"WritesTenThousandBeyondTheLine", [](const Call& c) { std::wmemset(c.text, 7, c.length + 10000); }},
    {"WritesBeforeTheLine", [](const Call& c) { std::wmemset(c.text - 500, 7, 500); }},
    {"WritesSurrogates", [](const Call& c) { Fill(c, 0xD800); }},
    {"WritesLineFeeds", [](const Call& c) { Fill(c, L'\n'); }},
    // What it does to the text of the control that it is called for
    {"LoadsAnotherText", [](const Call& c) { if (c.IsOutermost()) edLoadText(c.stage.control, L"other", whole); }, M::otherText},
    {"LoadsNothing", [](const Call& c) { if (c.IsOutermost()) edLoadText(c.stage.control, nullptr, 0); }, M::otherText},
    {"LoadsALongText",
     [](const Call& c) {
         if (c.IsOutermost())
             edLoadText(c.stage.control, std::wstring(20000, L'\n').c_str(), whole);
     }, M::otherText},
    {"InsertsText", [](const Call& c) { if (c.IsOutermost()) edInsertText(c.stage.control, L"in\nserted"); }, M::otherText},
    {"TypesAKey", [](const Call& c) { if (c.IsOutermost()) c.stage.Type(L"x"); }, M::otherText},
    {"DeletesALine",
     [](const Call& c) {
         if (!c.IsOutermost())
             return;
         edSetCaretPositionAdv(c.stage.control, 1, 0, ED_CARET_SELECT);
         keys::Press(c.stage.control, VK_DELETE);
     }, M::otherText},
    {"Undoes", [](const Call& c) { if (c.IsOutermost()) c.stage.Command(ED_COMMAND_UNDO); }, M::otherText},
    {"MovesTheCaret", [](const Call& c) { if (c.IsOutermost()) edSetCaretPosition(c.stage.control, 3, 2); }},
    {"Scrolls", [](const Call& c) { if (c.IsOutermost()) edSetScrollPosition(c.stage.control, 2, 3); }},
    {"SelectsAll", [](const Call& c) { if (c.IsOutermost()) c.stage.Command(ED_COMMAND_SELECT_ALL); }},
    {"SetsBreakPoints", [](const Call& c) { edSetBreakPoint(c.stage.control, 1); }},
    // What it does to the appearance and to the window
    {"ReloadsTheSettings", [](const Call& c) { if (c.IsOutermost()) Settings(c, c.stage.settings); }},
    {"ReloadsBrokenSettings", [](const Call& c) { if (c.IsOutermost()) Settings(c, {0x05, 0x20, 0x04, 0x13, 255, 255}); }},
    {"OpensATuningPage",
     [](const Call& c) { if (c.IsOutermost() && !c.stage.pages[0]) c.stage.Page(&edCreateFontTuneDialog, 0); }},
    {"DestroysTheControl", [](const Call& c) { edDestroyCtrl(c.stage.control); }, M::nothing},
    {"DestroysTheWindow", [](const Call& c) { ::DestroyWindow(c.stage.control); }, M::nothing},
    {"HidesTheWindow", [](const Call& c) { ::ShowWindow(c.stage.control, SW_HIDE); }},
    {"ResizesTheWindow",
     [](const Call& c) { if (c.IsOutermost()) ::MoveWindow(c.stage.control, 0, 0, 150 + rand() % 9, 80, TRUE); }},
    {"TakesTheFocus", [](const Call& c) { if (c.IsOutermost()) ::SetFocus(c.stage.host.Window()); }},
    {"DestroysTheCaret", [](const Call&) { ::DestroyCaret(); }},
    {"DeletesTheSelectedFont", [](const Call& c) { ::DeleteObject(::GetCurrentObject(AnyContext(c), OBJ_FONT)); }},
    {"Repaints", Recurse},
    {"AsksForThePlaceOfTheCaret",
     [](const Call& c) { edPoint at; if (c.depth < 20) edGetPosition(c.stage.control, ED_POSITION_CARET_TOP, &at); }},
    // What it does to the thread and the process
    {"HandlesMessages", [](const Call& c) { if (c.IsOutermost()) Pump(); }},
    {"Sleeps", [](const Call& c) { if (c.IsOutermost()) ::Sleep(20); }},
    {"ChangesTheFolder", [](const Call&) { ::SetCurrentDirectoryW(L"C:\\"); }},
    {"ChangesTheLocale", [](const Call&) { std::setlocale(LC_ALL, "Russian"); }},
    {"ChangesTheRounding", [](const Call&) { std::fesetround(FE_UPWARD); }},
    {"ChangesTheLastError", [](const Call&) { ::SetLastError(12345); }},
    {"TakesAllTheClipboard", [](const Call&) { ::OpenClipboard(nullptr); }},
    {"ThrowsAStandardException", [](const Call&) { throw std::runtime_error("of the host"); }, M::records},
    {"ThrowsANumber", [](const Call&) { throw 42; }, M::records},
    {"ThrowsAPointer", [](const Call&) { throw "of the host"; }, M::records},
    {"RaisesAnExceptionAndHandlesIt", RaiseAndHandle},
};

/// A control whose callback commits one misdeed in every call.
class HookThat : public testing::TestWithParam<Misdeed> {
protected:
    HookThat() : m_note(GetParam().name)
    {
        m_folder = std::filesystem::current_path();
        stage.hook = {&HookThat::Called, this};
        stage.Begin(loaded);
        m_commits = true;
    }
    ~HookThat() override
    {
        m_commits = false;
        std::setlocale(LC_ALL, "C");
        std::fesetround(FE_TONEAREST);
        std::filesystem::current_path(m_folder);
        ::CloseClipboard();
    }

    static void Called(void* test, wchar_t* text, int)
    {
        auto& self = *static_cast<HookThat*>(test);
        if (!self.m_commits)
            return;
        struct Depth {
            explicit Depth(int& depth) : m_depth(depth) { ++m_depth; }
            ~Depth() { --m_depth; }
            int& m_depth;
        } const deeper(self.m_depth);
        ++self.calls;
        GetParam().commit({self.stage, text, std::wcslen(text), self.m_depth});
    }

    /// All that calls it: painting, measuring, typing, walking.
    void Use()
    {
        const HWND control = stage.control;
        edPoint at;
        stage.Repaint();
        edGetPosition(control, ED_POSITION_CARET_TOP, &at);
        keys::Press(control, VK_DOWN);
        ::SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, 20));
        ::SendMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(30, 20));
        stage.Repaint();
    }

    Stage stage;
    int calls = 0;

private:
    CrashNote m_note;
    std::filesystem::path m_folder;
    bool m_commits = false;
    int m_depth = 0;
};

TEST_P(HookThat, DoesNoHarm)
{
    Use();
    EXPECT_GT(calls, 0);
    stage.hook.fn = nullptr;
    const unsigned leaves = GetParam().leaves;
    if (leaves & Misdeed::nothing) {
        EXPECT_EQ(edGetHWND(stage.control), nullptr);
        return;
    }
    ASSERT_EQ(edGetHWND(stage.control), stage.control);
    EXPECT_TRUE((leaves & Misdeed::otherText) || TextOf(stage.control) == loaded);
    EXPECT_EQ(stage.Records().empty(), !(leaves & Misdeed::records));
    const std::wstring before = TextOf(stage.control);
    edSetCaretPositionAdv(stage.control, 0, 0, 0);
    edInsertText(stage.control, L"Q");
    EXPECT_EQ(TextOf(stage.control).substr(0, 1), L"Q") << "it takes no text any more";
}

INSTANTIATE_TEST_SUITE_P(Misdeed, HookThat, testing::ValuesIn(misdeeds),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
