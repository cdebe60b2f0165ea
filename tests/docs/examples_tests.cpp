// The examples of the page do what the page says of them. They are linked in as they stand on it.

#include "tests/support/TestFolder.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/HostLog.h"
#include "tests/support/win/KeyDriver.h"
#include "tests/support/win/Metafile.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

extern "C" {
typedef struct Document {
    HWND editor;
    int changed;
} Document;

HWND CreateViewer(HWND parent);
void CloseEditor(HWND* editor);
int IsEditor(HWND window);
int OpenTextFile(HWND editor, const wchar_t* path, UINT32* encoding);
int SaveAs(HWND editor, const wchar_t* path, UINT32 encoding);
void ShowLines(HWND editor);
wchar_t* CopyText(HWND editor);
wchar_t* SelectedText(HWND editor);
void InsertHeader(HWND editor);
void Duplicate(HWND from, HWND to);
void GoToLine(HWND editor, int lineFromOne);
void SelectInLine(HWND editor, int line, int first, int last);
void ScrollAlong(HWND from, HWND to);
void ShowCaret1(HWND editor, wchar_t text[40]);
const wchar_t* TypingMode(HWND editor);
void OnCommand(HWND editor, int id);
void OnMenuOpens(HWND editor, HMENU edit, int firstId);
void ToggleBreakPoint(HWND editor, UINT32 line);
void RemoveBreakPoints(HWND editor, UINT32 first, UINT32 last);
void StopDebugging(HWND editor);
int HasBreakPoints(HWND editor);
int* BreakPoints(HWND editor, int* count);
void StoppedAt(HWND editor, UINT32 line);
void BeforeCompiling(HWND editor, const wchar_t* path);
int GoToMessage(HWND editor, int lineOfCompiler);
int IsNewSinceCompiling(HWND editor, int line);
HWND AddFontPage(HWND dialog, const edSettingsBlock* settings);
HWND AddColourPage(HWND dialog, const edSettingsBlock* settings, const edHighlightHook* hook);
int FetchSettings(edSettingsBlock* block);
int CountPages(HWND editor, HDC dc, const RECT* paper);
void Highlight(void* ctx, wchar_t* text, int insideComment);
HWND CreateHighlighted(HWND parent);
int ReadSettings(const wchar_t* path, edSettingsBlock* block);
int WriteSettings(const wchar_t* path, const edSettingsBlock* block);
HWND CreateWithSettings(HWND parent, const edSettingsBlock* settings);
int ApplyTuning(HWND editor, const wchar_t* path, edSettingsBlock* settings);
UINT32 BeginPrinting(HDC dc, HWND editor);
void DrawOnePage(HDC dc, HWND editor, UINT32 number);
void Watch(Document* document, UINT message, WPARAM wParam);
int Save(Document* document, const wchar_t* path);
}

namespace {

constexpr COLORREF blue = 0xFF0000;  // a keyword in the classic theme

std::wstring Taken(wchar_t* text)
{
    const std::wstring result = text ? text : L"(null)";
    std::free(text);
    return result;
}

edPoint PositionOf(HWND editor, int code)
{
    edPoint at{-7, -7};
    edGetPosition(editor, code, &at);
    return at;
}

class PageExamples : public testing::Test {
protected:
    [[nodiscard]] edPoint Position(int code) const { return PositionOf(editor, code); }
    [[nodiscard]] std::wstring Text() const { return Taken(::CopyText(editor)); }
    void ExpectCaret(int line, int col) const
    {
        EXPECT_EQ(Position(ED_POSITION_CARET).y, line);
        EXPECT_EQ(Position(ED_POSITION_CARET).x, col);
    }

    ControlHost host;
    HWND editor = host.Show(L"one\n\nthree");
    xTTestFolder folder;
};

TEST_F(PageExamples, AViewerIsShownReadOnlyAndClosedTwiceWithoutHarm)
{
    HWND viewer = CreateViewer(host.Window());
    ASSERT_TRUE(IsEditor(viewer));
    EXPECT_TRUE(::IsWindowVisible(viewer));
    EXPECT_TRUE(edGetMode(viewer, ED_MODE_READONLY));
    const HWND handle = viewer;
    CloseEditor(&viewer);
    EXPECT_FALSE(IsEditor(handle));
    CloseEditor(&viewer);
    EXPECT_FALSE(IsEditor(host.Window()));
}

TEST_F(PageExamples, AFileIsOpenedAndSavedWithWhatItWas)
{
    folder.put("crlf.txt", "\xD1\x8F\r\nb");
    UINT32 encoding = 77;
    ASSERT_TRUE(OpenTextFile(editor, folder.file("crlf.txt").c_str(), &encoding));
    EXPECT_EQ(encoding, 2u);
    EXPECT_EQ(Text(), L"\x44F\nb");
    ASSERT_TRUE(SaveAs(editor, folder.file("again.txt").c_str(), encoding));
    EXPECT_EQ(folder.bytes("again.txt"), "\xD1\x8F\r\nb");
}

TEST_F(PageExamples, AnEmptyFileGivesAnEmptyText)
{
    folder.put("empty.txt", "");
    UINT32 encoding = 77;
    ASSERT_TRUE(OpenTextFile(editor, folder.file("empty.txt").c_str(), &encoding));
    EXPECT_EQ(edGetLineCount(editor), 0u);
}

TEST_F(PageExamples, ATextThatTheCodePageLacksIsSavedInUtf8)
{
    edLoadText(editor, L"\x4E2D", 1);
    ASSERT_TRUE(SaveAs(editor, folder.file("text.txt").c_str(), ED_ENCODING_ANSI));
    EXPECT_EQ(folder.bytes("text.txt"), "\xE4\xB8\xAD");
}

TEST_F(PageExamples, TextGoesInAndComesOut)
{
    ShowLines(editor);
    EXPECT_EQ(Text(), L"first\nsecond");
    EXPECT_EQ(::CopyText(nullptr), nullptr);
    InsertHeader(editor);
    EXPECT_EQ(Text(), L"// generated, do not edit\nfirst\nsecond");
}

TEST_F(PageExamples, TheSelectionComesWithWindowsLineBreaks)
{
    EXPECT_EQ(SelectedText(editor), nullptr);
    OnCommand(editor, 100 + ED_COMMAND_SELECT_ALL);
    EXPECT_EQ(Taken(SelectedText(editor)), L"one\r\n\r\nthree");
    SelectInLine(editor, 2, 1, 4);
    EXPECT_EQ(Taken(SelectedText(editor)), L"hre");
}

TEST_F(PageExamples, ACopyHasTextAndMarksAndNoSelection)
{
    const HWND other = host.Show(L"another\ntext\nhere");
    edExecCommand(other, ED_COMMAND_SELECT_ALL);
    edSetBreakPoint(editor, 2);
    Duplicate(editor, other);
    EXPECT_EQ(Taken(::CopyText(other)), L"one\n\nthree");
    EXPECT_EQ(edGetBreakPointLine(other, 0), 2);
    EXPECT_FALSE(edGetMode(other, ED_MODE_SELECTION));
}

TEST_F(PageExamples, TheCaretGoesWhereThePageSays)
{
    GoToLine(editor, 3);
    ExpectCaret(2, 0);
    GoToLine(editor, 100);
    ExpectCaret(2, 0);
    GoToLine(editor, -100);  // below -1 counts as line 0
    ExpectCaret(0, 0);
    GoToLine(editor, 3);
    GoToLine(editor, 0);  // line -1
    ExpectCaret(2, 0);
    edSetCaretPosition(editor, 2, 100);
    wchar_t text[40];
    ShowCaret1(editor, text);
    EXPECT_STREQ(text, L"Ln 3, Col 6");
    EXPECT_STREQ(TypingMode(editor), L"INS");
}

TEST_F(PageExamples, SelectingFromAPlaceToItselfLeavesAnEmptySelectionThatCounts)
{
    SelectInLine(editor, 0, 1, 1);
    EXPECT_TRUE(edGetMode(editor, ED_MODE_SELECTION));
    EXPECT_EQ(Taken(SelectedText(editor)), L"");
}

TEST_F(PageExamples, OneControlScrollsWithAnother)
{
    const std::wstring many(200, L'\n');
    edLoadText(editor, many.c_str(), 1);
    const HWND other = host.Show(many.c_str());
    edSetScrollPosition(editor, 50, 3);
    ScrollAlong(editor, other);
    EXPECT_EQ(PositionOf(other, ED_POSITION_VIEWPORT).y, 50);
    EXPECT_EQ(PositionOf(other, ED_POSITION_VIEWPORT).x, 3);
    edLoadText(other, L"short", 1);
    EXPECT_EQ(PositionOf(other, ED_POSITION_VIEWPORT).y, 50) << "the view stays scrolled";
    ShowLines(other);
    EXPECT_EQ(PositionOf(other, ED_POSITION_VIEWPORT).y, 0);
}

TEST_F(PageExamples, AMenuIsGreyedWhereNothingCanBeDone)
{
    const HMENU menu = ::CreatePopupMenu();
    for (int code = 1; code <= 13; ++code)
        ::AppendMenuW(menu, MF_STRING, 100u + code, L"command");
    ::SetFocus(editor);
    OnMenuOpens(editor, menu, 100);
    const auto enabled = [&](int code) { return !(::GetMenuState(menu, 100u + code, MF_BYCOMMAND) & MF_GRAYED); };
    EXPECT_FALSE(enabled(ED_COMMAND_UNDO));
    EXPECT_TRUE(enabled(ED_COMMAND_FIND));
    EXPECT_TRUE(enabled(ED_COMMAND_SELECT_ALL));
    edInsertText(editor, L"x");
    OnMenuOpens(editor, menu, 100);
    EXPECT_TRUE(enabled(ED_COMMAND_UNDO));
    ::DestroyMenu(menu);
}

TEST_F(PageExamples, BreakPointsComeAndGo)
{
    EXPECT_FALSE(HasBreakPoints(nullptr));
    ToggleBreakPoint(editor, 0);
    ToggleBreakPoint(editor, 1);  // an empty line takes none
    ToggleBreakPoint(editor, 2);
    int count = 0;
    int* lines = BreakPoints(editor, &count);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(lines[0], 0);
    EXPECT_EQ(lines[1], 2);
    std::free(lines);
    ToggleBreakPoint(editor, 0);
    EXPECT_EQ(edGetBreakPointCount(editor), 1);
    RemoveBreakPoints(editor, 0, 100);
    EXPECT_FALSE(HasBreakPoints(editor));
    ToggleBreakPoint(editor, 0);
    StoppedAt(editor, 2);
    ExpectCaret(2, 0);
    StopDebugging(editor);
    EXPECT_FALSE(HasBreakPoints(editor));
}

TEST_F(PageExamples, NegativeLinesOfMarksAreTreatedAsToldThere)
{
    constexpr UINT32 negative = 0x80000000;
    EXPECT_EQ(edSetBreakPoint(editor, negative), 0);
    EXPECT_EQ(edRemoveBreakPoint(editor, negative), 1);
    EXPECT_EQ(edGetBreakPointLine(editor, negative), 0);
    HostLog log;
    EXPECT_EQ(edSetExecPoint(editor, negative), 1);
    EXPECT_NE(log.News(), "");
}

TEST_F(PageExamples, ACompilersMessageFindsItsLineAfterAnEdit)
{
    BeforeCompiling(editor, folder.file("source.txt").c_str());
    EXPECT_EQ(folder.bytes("source.txt"), "one\n\nthree");
    InsertHeader(editor);
    EXPECT_TRUE(GoToMessage(editor, 2));
    ExpectCaret(3, 0);
    EXPECT_FALSE(GoToMessage(editor, 50));
    EXPECT_FALSE(IsNewSinceCompiling(editor, 3));
    EXPECT_TRUE(IsNewSinceCompiling(editor, 50));
}

// ---- The hook

std::wstring Classes(std::wstring line)
{
    const wchar_t* const keywords[] = {L"if", L"return", nullptr};
    Highlight(const_cast<wchar_t**>(keywords), line.data(), 0);
    for (wchar_t& code : line)
        code = L".?IKSTNCEW"[code];  // one letter a class code
    return line;
}

TEST(PageHook, ClassesEachCharacter)
{
    EXPECT_EQ(Classes(L"if (x1 == 10)"), L"KK.SII.SS.NNS");
    EXPECT_EQ(Classes(L"a \"b\\n\" // if"), L"I.TTEET.CCCCC");
    EXPECT_EQ(Classes(L"\"open"), L"TTTTT");
    EXPECT_EQ(Classes(L"\"\\"), L"TT");
    EXPECT_EQ(Classes(L""), L"");
}

TEST(PageHook, ColoursAKeywordInTheControl)
{
    ControlHost host;
    const HWND editor = CreateHighlighted(host.Window());
    ::MoveWindow(editor, 0, 0, 300, 200, TRUE);
    ::ShowWindow(editor, SW_SHOW);
    const RECT firstLine{0, 0, 200, 14};
    edLoadText(editor, L"other", 1);
    EXPECT_FALSE(Picture(editor).Has(firstLine, blue));
    edLoadText(editor, L"while", 1);
    EXPECT_TRUE(Picture(editor).Has(firstLine, blue));
}

struct Asked {
    HWND editor = nullptr;
    bool destroys = false;
    int calls = 0;
    std::wstring last;
};

void Record(void* ctx, wchar_t* text, int)
{
    auto& asked = *static_cast<Asked*>(ctx);
    ++asked.calls;
    asked.last = text;
    for (; *text; ++text)
        *text = ED_CLASS_PLAIN;
    if (asked.destroys)
        edDestroyCtrl(asked.editor);
}

class PageHookRules : public testing::Test {
protected:
    Asked asked;
    edHighlightHook hook{Record, &asked};
    ControlHost host;
};

TEST_F(PageHookRules, WhereAPlaceWithinALineIsMeasuredTheHookGetsOnlyWhatStandsBeforeIt)
{
    edCreateParams params{};
    params.highlightHook = &hook;
    const HWND editor = host.Show(L"hello", params);
    edSetCaretPosition(editor, 0, 2);
    Pump();
    PositionOf(editor, ED_POSITION_CARET_TOP);
    EXPECT_EQ(asked.last, L"he");
}

TEST_F(PageHookRules, AHookThatDestroysItsControlIsNotCalledAgain)
{
    edCreateParams params{};
    params.highlightHook = &hook;
    asked.editor = host.Show(L"one\ntwo\nthree", params);
    asked.calls = 0;
    asked.destroys = true;
    ::InvalidateRect(asked.editor, nullptr, TRUE);
    Pump();
    EXPECT_EQ(asked.calls, 1);
    EXPECT_FALSE(edGetHWND(asked.editor));
}

// ---- Settings

TEST_F(PageExamples, WhatAUserTunesIsKeptOnDiskAndGivenToControls)
{
    constexpr int idTheme = 1011;  // of the page's list of themes
    constexpr COLORREF navy = 0x800000;
    const auto path = folder.file("settings.bin");
    edSettingsBlock settings{};
    EXPECT_FALSE(ReadSettings(path.c_str(), &settings));
    EXPECT_FALSE(ApplyTuning(editor, path.c_str(), &settings)) << "no page is open";

    const HWND dialog = ::CreateWindowExW(0, L"#32770", L"", WS_POPUP, 0, 0, 700, 500, host.Window(), nullptr, nullptr,
                                          nullptr);
    const HWND fonts = AddFontPage(dialog, nullptr);
    const HWND colours = AddColourPage(dialog, &settings, nullptr);
    ASSERT_TRUE(fonts && colours);
    const HWND themes = ::GetDlgItem(colours, idTheme);
    ::SendMessageW(themes, CB_SETCURSEL, ED_THEME_OCEAN, 0);
    ::SendMessageW(colours, WM_COMMAND, MAKEWPARAM(idTheme, CBN_SELCHANGE), reinterpret_cast<LPARAM>(themes));
    edSettingsBlock fetched{};
    EXPECT_TRUE(FetchSettings(&fetched));
    EXPECT_EQ(fetched.size, 266u);
    std::free(fetched.data);
    ASSERT_TRUE(ApplyTuning(editor, path.c_str(), &settings));
    ::DestroyWindow(dialog);
    EXPECT_EQ(edApplyTuningChanges(&fetched), 0u) << "the pages are gone";
    std::free(settings.data);

    ::UpdateWindow(editor);
    EXPECT_EQ(Picture(editor).At(300, 200), navy);
    ASSERT_TRUE(ReadSettings(path.c_str(), &settings));
    EXPECT_EQ(settings.size, 266u);
    const HWND next = CreateWithSettings(host.Window(), &settings);
    std::free(settings.data);  // the page says: they may go after the call
    ::MoveWindow(next, 0, 0, 400, 300, TRUE);
    ::ShowWindow(next, SW_SHOW);
    ::UpdateWindow(next);
    EXPECT_EQ(Picture(next).At(300, 200), navy);
}

// ---- Printing

TEST_F(PageExamples, PagesAreCountedAndPrinted)
{
    Metafile measures;
    const RECT paper{0, 0, 500, 500};
    EXPECT_EQ(CountPages(editor, measures.Context(), &paper), 1);
    EXPECT_FALSE(edPrintingOver(editor)) << "counting has ended its job";

    Metafile printer;
    ASSERT_EQ(BeginPrinting(printer.Context(), editor), 1u);
    DrawOnePage(printer.Context(), editor, 1);
    EXPECT_TRUE(edPrintingOver(editor));
    EXPECT_EQ(printer.End().Words(), (std::vector<std::wstring>{L"one", L"three"}));
}

TEST_F(PageExamples, ALongTextTakesSeveralPages)
{
    std::wstring text;
    for (int i = 0; i < 200; ++i)
        text += std::to_wstring(i) + L"\n";
    edLoadText(editor, text.c_str(), 1);
    Metafile printer;
    const UINT32 pages = BeginPrinting(printer.Context(), editor);
    EXPECT_GT(pages, 1u);
    for (UINT32 page = 1; page <= pages; ++page)
        DrawOnePage(printer.Context(), editor, page);
    EXPECT_EQ(printer.End().Words().size(), 200u);
}

// ---- Changed or not

TEST_F(PageExamples, AChangeIsSeenAndASaveForgetsIt)
{
    Document document{editor, 0};
    host.onMessage = [&](const ControlHost::Message& message) { Watch(&document, message.id, message.wParam); };
    edSetCaretPosition(editor, 0, 1);
    edLoadText(editor, L"one", 1);
    EXPECT_FALSE(document.changed);
    keys::Type(editor, L'x');
    EXPECT_TRUE(document.changed);
    EXPECT_TRUE(Save(&document, folder.file("saved.txt").c_str()));
    EXPECT_FALSE(document.changed);
    EXPECT_EQ(folder.bytes("saved.txt"), "xone");
}

TEST_F(PageExamples, SomeMovesOfTheCaretAreNotTold)
{
    edLoadText(editor, L"one two\nthree", 1);
    ::SetFocus(editor);
    Pump();
    const auto told = [&](const std::function<void()>& move) {
        host.Forget();
        move();
        return host.Count(ED_NOTIFY_CARET) != 0;
    };
    EXPECT_TRUE(told([&] { keys::Press(editor, VK_RIGHT); }));
    EXPECT_TRUE(told([&] { keys::Press(editor, VK_HOME); }));
    EXPECT_FALSE(told([&] { keys::Press(editor, VK_RIGHT, keys::shift); }));
    EXPECT_FALSE(told([&] { keys::Press(editor, VK_RIGHT, keys::ctrl); }));
    EXPECT_FALSE(told([&] { keys::Press(editor, VK_NEXT); }));
    EXPECT_FALSE(told([&] { edSetCaretPosition(editor, 0, 0); }));
    EXPECT_FALSE(told([&] { edExecCommand(editor, ED_COMMAND_SELECT_ALL); }));
    EXPECT_FALSE(told([&] { edLoadText(editor, L"other", 1); }));
}

// ---- Limits

TEST_F(PageExamples, LinesFoldAtTheTwoLimits)
{
    const auto lengthOf = [&](UINT32 line) {
        UINT32 size = 0;
        edGetLine(editor, line, 0, nullptr, &size);
        return size - 1;
    };
    const std::wstring loaded(600, L'x');
    edLoadText(editor, loaded.c_str(), 1);
    EXPECT_EQ(lengthOf(0), 512u);
    EXPECT_EQ(lengthOf(1), 88u);
    edSetCaretPosition(editor, 0, 5);
    edInsertText(editor, L"dropped: the line is full");
    EXPECT_EQ(edGetLineCount(editor), 2u);
    EXPECT_EQ(lengthOf(0), 512u);
    edLoadText(editor, nullptr, 0);
    edInsertText(editor, loaded.c_str());
    EXPECT_EQ(lengthOf(0), 462u);
    EXPECT_EQ(lengthOf(1), 138u);
}

}  // namespace
