// The exports as a host calls them: handles, arguments, text in and out, positions, marks.

#include "tests/support/win/ControlHost.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>

namespace {

constexpr UINT32 any = 0xFFFFFFFF;

class Exports : public testing::Test {
protected:
    ControlHost host;
    HWND control = host.Show(L"");

    void given(const wchar_t* text) { edLoadText(control, text, any); }
};

// ---- Handles; every_export_tests.cpp walks all exports with bad ones

TEST_F(Exports, AHandleIsDeadAfterDestroying)
{
    EXPECT_EQ(edGetHWND(control), control);
    edDestroyCtrl(control);
    EXPECT_EQ(edGetHWND(control), nullptr);
    EXPECT_EQ(edGetLineCount(control), 0u);
}

TEST(Creation, CreateWithNullParamsReturnsNull)
{
    EXPECT_EQ(edCreateCtrl(nullptr), nullptr);
}

TEST(Creation, CreateUnderNoParentReturnsNull)
{
    edCreateParams params{};
    EXPECT_EQ(edCreateCtrl(&params), nullptr);
    params.parent = reinterpret_cast<HWND>(0x12345678);
    EXPECT_EQ(edCreateCtrl(&params), nullptr);
}

TEST(Creation, NullPointersInTheParamsCountAsEmpty)
{
    ControlHost host;
    edCreateParams params{};
    params.parent = host.Window();
    const HWND control = edCreateCtrl(&params);
    ASSERT_NE(control, nullptr);
    RECT rect{};
    ::GetWindowRect(control, &rect);
    EXPECT_EQ(rect.right - rect.left, 0);
    EXPECT_EQ(::GetWindowTextLengthW(control), 0);
    EXPECT_EQ(edLoadText(control, L"a\nb", any), 1);
    EXPECT_EQ(edGetLineCount(control), 2u);
}

TEST(Creation, TheControlIsAHiddenChildWithTheGivenRectAndCaption)
{
    ControlHost host;
    const RECT rect{10, 20, 210, 120};
    edCreateParams params{};
    params.rect = &rect;
    params.caption = L"подпись";
    const HWND control = host.Create(params);
    RECT window{};
    ::GetWindowRect(control, &window);
    ::MapWindowPoints(nullptr, host.Window(), reinterpret_cast<POINT*>(&window), 2);
    EXPECT_TRUE(::EqualRect(&window, &rect));
    wchar_t caption[20] = L"";
    ::GetWindowTextW(control, caption, 20);
    EXPECT_STREQ(caption, L"подпись");
    EXPECT_FALSE(::IsWindowVisible(control));
    EXPECT_EQ(::GetParent(control), host.Window());
    EXPECT_EQ(::GetDlgCtrlID(control), 103);
    const auto style = ::GetWindowLongPtrW(control, GWL_STYLE);
    EXPECT_EQ(style & (WS_CHILD | WS_VSCROLL | WS_HSCROLL | 0x20), WS_CHILD | WS_VSCROLL | WS_HSCROLL | 0x20);
    EXPECT_TRUE(::GetWindowLongPtrW(control, GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
}

TEST(Creation, OnlyBitZeroOfTheFlagsCounts)
{
    ControlHost host;
    for (const UINT32 flags : {0u, 1u, 2u, 0xFEu, 0xFFu, 0x100u, 0x101u}) {
        edCreateParams params{};
        params.flags = flags;
        const HWND control = host.Create(params);
        EXPECT_EQ(edGetMode(control, ED_MODE_READONLY), static_cast<BOOL>(flags & 1)) << flags;
        edDestroyCtrl(control);
    }
}

// ---- Text in and out

TEST_F(Exports, TextGoesInAndOut)
{
    for (const wchar_t* text : {L"a\nb", L"a", L"a\n\nb", L"Привет\nмир", L"a\r\nb"}) {
        given(text);
        EXPECT_EQ(TextOf(control), text);
    }
}

TEST_F(Exports, AFinalLineFeedIsNotKept)
{
    given(L"a\n");
    EXPECT_EQ(edGetLineCount(control), 1u);
    EXPECT_EQ(TextOf(control), L"a");
}

TEST_F(Exports, SaveTextOfNoLinesIsAnEmptyString)
{
    EXPECT_EQ(edGetLineCount(control), 0u);
    wchar_t buffer[2] = {L'x', L'x'};
    EXPECT_EQ(edSaveText(control, buffer), 1u);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(buffer[1], L'x');
}

TEST_F(Exports, SaveTextOfOneEmptyLineIsALineFeed)
{
    given(L"\n");
    EXPECT_EQ(edGetLineCount(control), 1u);
    wchar_t buffer[3] = {L'x', L'x', L'x'};
    EXPECT_EQ(edSaveText(control, buffer), 2u);
    EXPECT_EQ(buffer[0], L'\n');
    EXPECT_EQ(buffer[1], 0);
    EXPECT_EQ(buffer[2], L'x');
}

TEST_F(Exports, SaveTextWritesNothingBehindTheTerminator)
{
    given(L"ab\ncd");
    std::vector<wchar_t> buffer(8, L'x');
    EXPECT_EQ(edSaveText(control, buffer.data()), 6u);
    EXPECT_EQ(std::wstring(buffer.data()), L"ab\ncd");
    EXPECT_EQ(buffer[6], L'x');
}

TEST_F(Exports, LoadTextTestsMaxCharsForZeroAndNothingElse)
{
    EXPECT_EQ(edLoadText(control, L"0123456789", 1), 1);
    EXPECT_EQ(TextOf(control), L"0123456789");
    EXPECT_EQ(edLoadText(control, L"0123456789", 0), 1);
    EXPECT_EQ(edGetLineCount(control), 0u);
}

TEST_F(Exports, LoadTextOfNullEmptiesTheControl)
{
    given(L"text");
    EXPECT_EQ(edLoadText(control, nullptr, any), 1);
    EXPECT_EQ(edGetLineCount(control), 0u);
}

TEST_F(Exports, GetLinePastTheEndAsksForRoomForTheTerminator)
{
    given(L"a");
    UINT32 length = 0;
    EXPECT_EQ(edGetLine(control, 100, 0, nullptr, &length), 0);
    EXPECT_EQ(length, 1u);
}

TEST_F(Exports, GetLinePastTheEndIsAnEmptyStringWithABuffer)
{
    given(L"a");
    wchar_t buffer[4] = L"xxx";
    UINT32 length = 4;
    EXPECT_EQ(edGetLine(control, 100, 0, buffer, &length), 1);
    EXPECT_EQ(length, 1u);
    EXPECT_STREQ(buffer, L"");
}

TEST_F(Exports, GetLineWithNoLengthIsZero)
{
    wchar_t buffer[4] = L"xxx";
    EXPECT_EQ(edGetLine(control, 0, 0, buffer, nullptr), 0);
    EXPECT_STREQ(buffer, L"xxx");
}

TEST_F(Exports, GetLineThatDoesNotFitTellsTheSizeAndEmptiesTheBuffer)
{
    given(L"abc");
    wchar_t buffer[4] = L"xyz";
    UINT32 length = 3;
    EXPECT_EQ(edGetLine(control, 0, 0, buffer, &length), 0);
    EXPECT_EQ(length, 4u);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(buffer[1], L'y');
    length = 4;
    EXPECT_EQ(edGetLine(control, 0, 0, buffer, &length), 1);
    EXPECT_STREQ(buffer, L"abc");
}

TEST_F(Exports, GetLineFromTheSelectionWidensLineFeeds)
{
    given(L"abc\ndef");
    edSetCaretPosition(control, 0, 1);
    edSetCaretPositionAdv(control, 1, 2, ED_CARET_SELECT);
    wchar_t buffer[16] = L"";
    UINT32 length = 16;
    EXPECT_EQ(edGetLine(control, 99, 1, buffer, &length), 1);
    EXPECT_STREQ(buffer, L"bc\r\nde");
    EXPECT_EQ(length, 7u);
}

TEST_F(Exports, GetLineFromTheSelectionWithoutOneIsTheLine)
{
    given(L"abc\ndef");
    wchar_t buffer[16] = L"";
    UINT32 length = 16;
    EXPECT_EQ(edGetLine(control, 1, 1, buffer, &length), 1);
    EXPECT_STREQ(buffer, L"def");
}

TEST_F(Exports, ALoadPutsTheCaretAtTheStartAndDropsTheSelection)
{
    given(L"abc\ndef");
    edSetCaretPosition(control, 0, 1);
    edSetCaretPositionAdv(control, 1, 2, ED_CARET_SELECT);
    given(L"new");
    edPoint caret{-1, -1};
    EXPECT_EQ(edGetPosition(control, ED_POSITION_CARET, &caret), 1);
    EXPECT_EQ(caret.x, 0);
    EXPECT_EQ(caret.y, 0);
    EXPECT_EQ(edGetMode(control, ED_MODE_SELECTION), 0);
}

// ---- Files

class Files : public Exports {
protected:
    void SetUp() override
    {
        wchar_t folder[MAX_PATH];
        ::GetTempPathW(MAX_PATH, folder);
        path = std::wstring(folder) + L"scriv_export_test.txt";
    }
    void TearDown() override { ::DeleteFileW(path.c_str()); }

    void write(const std::string& bytes) const
    {
        std::ofstream(std::filesystem::path(path), std::ios::binary) << bytes;
    }
    std::string read() const
    {
        std::ifstream file(std::filesystem::path(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::wstring path;
};

TEST_F(Files, TheEncodingFoundIsReported)
{
    write("\xEF\xBB\xBF\xD0\x96");
    UINT32 encoding = ED_ENCODING_ANSI;
    EXPECT_EQ(edLoadFile(control, path.c_str(), &encoding), 1);
    EXPECT_EQ(encoding, static_cast<UINT32>(ED_ENCODING_UTF8));
    EXPECT_EQ(TextOf(control), L"Ж");
}

TEST_F(Files, MarkAndLineEndsGoBackIntoASaveOfTheSameCharacterSet)
{
    const std::string bytes = "\xEF\xBB\xBFone\r\ntwo";
    write(bytes);
    EXPECT_EQ(edLoadFile(control, path.c_str(), nullptr), 1);
    EXPECT_EQ(TextOf(control), L"one\ntwo");
    EXPECT_EQ(edSaveFile(control, path.c_str(), ED_ENCODING_UTF8), 1);
    EXPECT_EQ(read(), bytes);
    EXPECT_EQ(edSaveFile(control, path.c_str(), ED_ENCODING_UTF16LE), 1);
    EXPECT_EQ(read(), std::string("\xFF\xFEo\0n\0e\0\n\0t\0w\0o\0", 16));
}

TEST_F(Files, ATextFromElsewhereForgetsTheFile)
{
    write("\xEF\xBB\xBFone\r\ntwo");
    edLoadFile(control, path.c_str(), nullptr);
    given(L"a\nb");
    EXPECT_EQ(edSaveFile(control, path.c_str(), ED_ENCODING_UTF8), 1);
    EXPECT_EQ(read(), "a\nb");
}

TEST_F(Files, AnEmptyFileLeavesTheOldTextAndItsFacts)
{
    write("one\r\ntwo");
    edLoadFile(control, path.c_str(), nullptr);
    write("");
    EXPECT_EQ(edLoadFile(control, path.c_str(), nullptr), 1);
    EXPECT_EQ(TextOf(control), L"one\ntwo");
    EXPECT_EQ(edSaveFile(control, path.c_str(), ED_ENCODING_UTF8), 1);
    EXPECT_EQ(read(), "one\r\ntwo");
}

TEST_F(Files, ASaveThatCannotHoldTheTextLeavesTheFile)
{
    write("before");
    given(L"漢字");
    EXPECT_EQ(edSaveFile(control, path.c_str(), ED_ENCODING_ANSI), 0);
    EXPECT_EQ(read(), "before");
}

TEST_F(Files, NoPathIsAnsweredWithZero)
{
    EXPECT_EQ(edLoadFile(control, nullptr, nullptr), 0);
    EXPECT_EQ(edSaveFile(control, nullptr, 0), 0);
}

struct Unreadable {
    const char* name;
    std::wstring path;
    std::string bytes;  // written there first, if any
};

class UnreadableFiles : public Files, public testing::WithParamInterface<Unreadable> {};

// Presses the button of the message box that a refused file shows, and keeps its text.
class BoxCloser {
public:
    BoxCloser() { s_text.clear(); m_hook = ::SetWindowsHookExW(WH_CBT, &BoxCloser::Hook, nullptr, ::GetCurrentThreadId()); }
    BoxCloser(const BoxCloser&) = delete;
    BoxCloser& operator=(const BoxCloser&) = delete;
    ~BoxCloser() { ::UnhookWindowsHookEx(m_hook); }
    static const std::wstring& Text() { return s_text; }

private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam)
    {
        const auto box = reinterpret_cast<HWND>(wParam);
        wchar_t name[16] = L"";
        if (code == HCBT_ACTIVATE && ::GetClassNameW(box, name, 16) && !wcscmp(name, L"#32770")) {
            wchar_t text[256] = L"";
            ::GetDlgItemTextW(box, 0xFFFF, text, 256);
            s_text = text;
            ::PostMessageW(box, WM_COMMAND, IDOK, 0);
        }
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static inline std::wstring s_text;
    HHOOK m_hook;
};

TEST_P(UnreadableFiles, AreRefusedWithAMessageAndTheTextStays)
{
    given(L"old text");
    const Unreadable& file = GetParam();
    if (!file.bytes.empty())
        write(file.bytes);
    const BoxCloser closer;
    UINT32 encoding = ED_ENCODING_UTF8;
    EXPECT_EQ(edLoadFile(control, (file.path.empty() ? path : file.path).c_str(), &encoding), 0);
    EXPECT_EQ(BoxCloser::Text(), L"Невозможно открыть указанный файл");
    EXPECT_EQ(TextOf(control), L"old text");
    EXPECT_EQ(encoding, static_cast<UINT32>(ED_ENCODING_UTF8));
}

INSTANTIATE_TEST_SUITE_P(Each, UnreadableFiles, testing::Values(
    Unreadable{"Missing", L"C:\\none\\none.txt", ""}, Unreadable{"Directory", L"C:\\windows", ""},
    Unreadable{"Device", L"NUL", ""}, Unreadable{"Console", L"CON", ""}, Unreadable{"ZeroCharacter", L"", std::string("a\0b", 3)},
    Unreadable{"Binary", L"", std::string("MZ\0\1\2", 5)}, Unreadable{"OddUtf16", L"", std::string("\xFF\xFE" "a\0b", 5)}),
    [](const auto& info) { return info.param.name; });

// ---- Positions and modes

TEST_F(Exports, SelectionPositionsAreInclusive)
{
    given(L"abc\ndef");
    edSetCaretPosition(control, 0, 1);
    edSetCaretPositionAdv(control, 1, 2, ED_CARET_SELECT);
    edPoint at{};
    EXPECT_EQ(edGetPosition(control, ED_POSITION_SELECTION_FIRST, &at), 1);
    EXPECT_EQ(at.x, 1);
    EXPECT_EQ(at.y, 0);
    EXPECT_EQ(edGetPosition(control, ED_POSITION_SELECTION_LAST, &at), 1);
    EXPECT_EQ(at.x, 1);
    EXPECT_EQ(at.y, 1);
    EXPECT_EQ(edGetMode(control, ED_MODE_SELECTION), 1);
}

TEST_F(Exports, SelectionPositionWithoutASelectionLeavesTheRecordAlone)
{
    given(L"abc");
    edPoint at{41, 42};
    EXPECT_EQ(edGetPosition(control, ED_POSITION_SELECTION_FIRST, &at), 0);
    EXPECT_EQ(edGetPosition(control, ED_POSITION_SELECTION_LAST, &at), 0);
    EXPECT_EQ(at.x, 41);
    EXPECT_EQ(at.y, 42);
}

TEST_F(Exports, UnknownCodesAnswerZero)
{
    edPoint at{41, 42};
    for (const int code : {-1, 0, 8, 100, INT_MAX, INT_MIN})
        EXPECT_EQ(edGetPosition(control, code, &at), 0) << code;
    EXPECT_EQ(at.x, 41);
    EXPECT_EQ(edGetPosition(control, ED_POSITION_CARET, nullptr), 0);
    for (const UINT32 code : {0u, 4u, 100u, 0xFFFFFFFFu})
        EXPECT_EQ(edGetMode(control, code), 0) << code;
}

TEST_F(Exports, ANewControlIsInInsertMode)
{
    EXPECT_EQ(edGetMode(control, ED_MODE_INSERT), 1);
    EXPECT_EQ(edGetMode(control, ED_MODE_READONLY), 0);
}

TEST_F(Exports, TheCaretIsClippedToItsLineAndIgnoredOutsideTheText)
{
    given(L"abc\nd");
    edPoint at{};
    edSetCaretPosition(control, 0, 99);
    edGetPosition(control, ED_POSITION_CARET, &at);
    EXPECT_EQ(at.x, 3);
    edSetCaretPosition(control, 7, 0);
    edGetPosition(control, ED_POSITION_CARET, &at);
    EXPECT_EQ(at.y, 0);
    edSetCaretPosition(control, 1, -1);
    edGetPosition(control, ED_POSITION_CARET, &at);
    EXPECT_EQ(at.y, 0);
}

TEST_F(Exports, CaretPixelsAreInScreenCoordinates)
{
    given(L"abc\nabc");
    edSetCaretPosition(control, 1, 2);
    POINT origin{0, 0};
    ::ClientToScreen(control, &origin);
    edPoint top{};
    edPoint bottom{};
    EXPECT_EQ(edGetPosition(control, ED_POSITION_CARET_TOP, &top), 1);
    EXPECT_EQ(edGetPosition(control, ED_POSITION_CARET_BOTTOM, &bottom), 1);
    EXPECT_EQ(top.x, origin.x + 16);  // 10 points at 96 dots per inch: 8 by 15 pixels
    EXPECT_EQ(top.y, origin.y + 15);
    EXPECT_EQ(bottom.x, top.x);
    EXPECT_EQ(bottom.y, top.y + 15);
}

TEST_F(Exports, ThePlaceUnderTheMouseIsNotHeldAtTheLastLine)
{
    given(L"abcdef\nabc");
    POINT at{8 * 2 + 3, 15 + 4};
    ::ClientToScreen(control, &at);
    ::SetCursorPos(at.x, at.y);
    edPoint place{};
    EXPECT_EQ(edGetPosition(control, ED_POSITION_MOUSE, &place), 1);
    EXPECT_EQ(place.x, 2);
    EXPECT_EQ(place.y, 1);
    ::SetCursorPos(at.x, at.y + 15 * 6);
    EXPECT_EQ(edGetPosition(control, ED_POSITION_MOUSE, &place), 1);
    EXPECT_EQ(place.x, 0);
    EXPECT_EQ(place.y, 7);
}

struct SelectionCase {
    const char* name;
    int from, to;        // columns of the old and the new caret
    int first, last;     // the selection before, inclusive; -9: none
    UINT32 flags;
    int wantFirst, wantLast;
};

class SelectingByCaret : public testing::TestWithParam<SelectionCase> {};

TEST_P(SelectingByCaret, GivesTheSpan)
{
    ControlHost host;
    const HWND control = host.Show(L"0123456789abcdef");
    const SelectionCase& c = GetParam();
    if (c.first != -9) {
        edSetCaretPosition(control, 0, c.first);
        edSetCaretPositionAdv(control, 0, c.last + 1, ED_CARET_SELECT);
    }
    // Moves the caret and keeps the selection: an empty move of the caret with both bits.
    edPoint caret{};
    edGetPosition(control, ED_POSITION_CARET, &caret);
    if (c.first == -9)
        edSetCaretPosition(control, 0, c.from);
    else
        ASSERT_EQ(caret.x, c.from);
    edSetCaretPositionAdv(control, 0, c.to, c.flags);
    edPoint first{-9, 0};
    edPoint last{-9, 0};
    edGetPosition(control, ED_POSITION_SELECTION_FIRST, &first);
    edGetPosition(control, ED_POSITION_SELECTION_LAST, &last);
    EXPECT_EQ(first.x, c.wantFirst);
    EXPECT_EQ(last.x, c.wantLast);
    edGetPosition(control, ED_POSITION_CARET, &caret);
    EXPECT_EQ(caret.x, c.to);
}

constexpr UINT32 keep = ED_CARET_SELECT | ED_CARET_KEEP_SELECTION;

INSTANTIATE_TEST_SUITE_P(Rows, SelectingByCaret, testing::Values(
    SelectionCase{"Forward", 2, 6, -9, -9, ED_CARET_SELECT, 2, 5},
    SelectionCase{"Backward", 6, 2, -9, -9, ED_CARET_SELECT, 2, 5},
    SelectionCase{"NowhereIsAnEmptySpan", 4, 4, -9, -9, ED_CARET_SELECT, 4, 3},
    SelectionCase{"NowhereAtTheLineStart", 0, 0, -9, -9, ED_CARET_SELECT, 0, -1},
    SelectionCase{"WithoutTheBitTheSelectionGoes", 6, 9, 3, 5, 0, -9, -9},
    SelectionCase{"ForwardDropsTheOldSelection", 6, 9, 3, 5, ED_CARET_SELECT, 6, 8},
    SelectionCase{"ForwardKeepsTheOldSelection", 6, 9, 3, 5, keep, 3, 8},
    SelectionCase{"BackwardToBeforeTheOldSelection", 6, 1, 3, 5, keep, 1, 5},
    SelectionCase{"BackwardIntoTheOldSelection", 6, 4, 3, 5, keep, 4, 5},
    SelectionCase{"KeepWithoutASelection", 2, 6, -9, -9, keep, 2, 5}),
    [](const auto& info) { return info.param.name; });

TEST_F(Exports, ScrollPositionMovesOnlyTheAxisThatIsGiven)
{
    std::wstring text;
    for (int i = 0; i < 200; ++i)
        text += L"line\n";
    given(text.c_str());
    edPoint view{};
    edSetScrollPosition(control, -1, 5);
    edGetPosition(control, ED_POSITION_VIEWPORT, &view);
    EXPECT_EQ(view.x, 5);
    EXPECT_EQ(view.y, 0);
    edSetScrollPosition(control, 50, -1);
    edGetPosition(control, ED_POSITION_VIEWPORT, &view);
    EXPECT_EQ(view.x, 5);
    EXPECT_EQ(view.y, 50);
    edSetScrollPosition(control, 10, 0);
    edGetPosition(control, ED_POSITION_VIEWPORT, &view);
    EXPECT_EQ(view.x, 0);
    EXPECT_EQ(view.y, 10);
    edPoint caret{-1, -1};
    edGetPosition(control, ED_POSITION_CARET, &caret);
    EXPECT_EQ(caret.x, 0);
    EXPECT_EQ(caret.y, 0);
}

// ---- Marks and snapshots

TEST_F(Exports, BreakPointsAreReadInLineOrder)
{
    given(L"0\n1\n2\n3\n4\n5\n6\n7\n8\n9");
    EXPECT_EQ(edSetBreakPoint(control, 7), 1);
    EXPECT_EQ(edSetBreakPoint(control, 2), 1);
    EXPECT_EQ(edGetBreakPointCount(control), 2);
    EXPECT_EQ(edGetBreakPointLine(control, 0), 2);
    EXPECT_EQ(edGetBreakPointLine(control, 1), 7);
    EXPECT_EQ(edGetBreakPointLine(control, 2), -1);
    edRemoveAllBreakPoints(control);
    EXPECT_EQ(edGetBreakPointCount(control), 0);
}

TEST_F(Exports, ABreakPointNeedsALineWithCharacters)
{
    given(L"a\n\nb");
    EXPECT_EQ(edSetBreakPoint(control, 1), 0);
    EXPECT_EQ(edSetBreakPoint(control, 3), 0);
    EXPECT_EQ(edRemoveBreakPoint(control, 0), 1);
    EXPECT_EQ(edRemoveBreakPoint(control, 1), 1);
    EXPECT_EQ(edRemoveBreakPoint(control, 3), 0);
    EXPECT_EQ(edRemoveBreakPoint(control, 0xFFFFFFFF), 1);  // read as -1, which reads as an empty line
}

TEST_F(Exports, SetExecPointAnswersOneAlsoWhenTheStoreRefused)
{
    given(L"a\nb");
    ::ValidateRect(control, nullptr);
    EXPECT_EQ(edSetExecPoint(control, 5), 1);
    EXPECT_FALSE(::GetUpdateRect(control, nullptr, FALSE));
    EXPECT_EQ(edSetExecPoint(control, 1), 1);
    EXPECT_TRUE(::GetUpdateRect(control, nullptr, FALSE));
}

TEST_F(Exports, MarksAskForARepaint)
{
    given(L"a\nb");
    const auto repaints = [&](auto call) {
        ::UpdateWindow(control);
        ::ValidateRect(control, nullptr);
        call();
        return ::GetUpdateRect(control, nullptr, FALSE) != 0;
    };
    EXPECT_TRUE(repaints([&] { edSetBreakPoint(control, 0); }));
    EXPECT_FALSE(repaints([&] { edSetBreakPoint(control, 9); }));
    EXPECT_TRUE(repaints([&] { edRemoveBreakPoint(control, 0); }));
    EXPECT_TRUE(repaints([&] { edRemoveAllBreakPoints(control); }));
    EXPECT_TRUE(repaints([&] { edClearExecPoint(control); }));
    EXPECT_FALSE(repaints([&] { edTakeSnapshot(control); }));
}

TEST_F(Exports, SnapshotsMapEachLineOntoItselfWithoutEdits)
{
    given(L"a\nb\nc");
    EXPECT_EQ(edGetSnapshotOldLine(control, 1), -1);
    edTakeSnapshot(control);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(edGetSnapshotNewLine(control, i), i);
        EXPECT_EQ(edGetSnapshotOldLine(control, i), i);
    }
    EXPECT_EQ(edGetSnapshotOldLine(control, 3), -1);
    EXPECT_EQ(edGetSnapshotOldLine(control, -1), -1);
}

}  // namespace
