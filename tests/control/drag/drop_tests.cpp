// What is dropped on a control, and where it goes.

#include "tests/control/drag/DropFixture.h"

#include <shlobj.h>

namespace {

struct DropRow {
    const char* name;
    const wchar_t* before;
    const wchar_t* text;
    POINT point;
    const wchar_t* after;
};

class Drops : public Drop, public testing::WithParamInterface<DropRow> {};

TEST_P(Drops, GoInAndComeOutAgainByOneUndo)
{
    GivenMarked(control, GetParam().before);
    const std::wstring before = TextOf(control);
    EXPECT_EQ(dropText(GetParam().text, GetParam().point), static_cast<DWORD>(DROPEFFECT_COPY));
    EXPECT_EQ(Marked(control), GetParam().after);
    EXPECT_TRUE(edExecCommand(control, ED_COMMAND_UNDO));
    EXPECT_EQ(TextOf(control), before);
    EXPECT_FALSE(edCanExecCommand(control, ED_COMMAND_UNDO));
}

const DropRow dropRows[] = {
    {"InALine", L"|abcd", L"XY", At(0, 2), L"abXY|cd"},
    {"BehindTheLineEnd", L"|ab\ncd", L"XY", At(0, 30), L"abXY|\ncd"},
    {"BelowTheTextAtThePointersColumn", L"|ab\ncd", L"XY", At(9, 1), L"ab\ncXY|d"},
    {"SeveralLinesLoseTheirCarriageReturns", L"|ab", L"X\r\nY\rZ", At(0, 1), L"aX\nYZ|b"},
    {"OverASelectionThatStaysInTheText", L"a[bc]|d", L"X", At(0, 2), L"abX|cd"},
    {"CyrillicText", L"|ab", L"жЯ", At(0, 1), L"aжЯ|b"},
};

INSTANTIATE_TEST_SUITE_P(Each, Drops, testing::ValuesIn(dropRows), [](const auto& info) { return info.param.name; });

TEST_F(Drop, OnAnEmptyTextGoesIn)
{
    dropText(L"one\r\ntwo", At(3, 3));
    EXPECT_EQ(Marked(control), L"one\ntwo|");
}

TEST_F(Drop, InAViewScrolledBothWaysGoesUnderThePointer)
{
    std::wstring text;
    for (int i = 0; i < 50; ++i)
        text += std::wstring(200, L'x') + L"\n";
    edLoadText(control, text.c_str(), 0xFFFFFFFF);
    edSetScrollPosition(control, 10, 30);
    dropText(L"YZ", At(2, 3));
    EXPECT_EQ(at(ED_POSITION_CARET).y, 12);
    EXPECT_EQ(at(ED_POSITION_CARET).x, 35);
}

TEST_F(Drop, TheDroppedTextIsSelectedWhileTheHostIsToldAndNotAfterwards)
{
    GivenMarked(control, L"|abcd");
    std::wstring told;
    host.onMessage = [&](const ControlHost::Message& message) {
        if (message.id == ED_NOTIFY_CARET && message.wParam)
            told = Marked(control);
    };
    dropText(L"XY", At(0, 2));
    host.onMessage = nullptr;
    EXPECT_EQ(told, L"ab[XY]|cd");
    EXPECT_EQ(Marked(control), L"abXY|cd");
}

TEST_F(Drop, BringsTheHostForwardAndTakesTheFocus)
{
    ControlHost other;
    ::SetForegroundWindow(other.Window());
    Pump(50);
    dropText(L"x", At(0, 0));
    Pump(50);
    EXPECT_EQ(::GetFocus(), control);
    EXPECT_EQ(::GetForegroundWindow(), host.Window());
}

TEST_F(Drop, FilesBecomeTheirPathsALineEachTheLastWithoutABreak)
{
    data->PutFiles({L"C:\\one.txt", L"C:\\два.txt", L"D:\\three"});
    EXPECT_EQ(drop(At(0, 0)), static_cast<DWORD>(DROPEFFECT_MOVE));
    EXPECT_EQ(TextOf(control), L"C:\\one.txt\nC:\\два.txt\nD:\\three");
}

TEST_F(Drop, FilesMayComeAsEightBitText)
{
    data->PutFiles({L"C:\\one.txt", L"C:\\two.txt"}, false);
    drop(At(0, 0));
    EXPECT_EQ(TextOf(control), L"C:\\one.txt\nC:\\two.txt");
}

TEST_F(Drop, APathIsCutAt260Characters)
{
    data->PutFiles({L"C:\\" + std::wstring(257, L'a'), L"C:\\" + std::wstring(300, L'b'), L"C:\\c"});
    drop(At(0, 0));
    EXPECT_EQ(TextOf(control), L"C:\\" + std::wstring(257, L'a') + L"\nC:\\" + std::wstring(257, L'b') + L"\nC:\\c");
}

TEST_F(Drop, TextIsTakenBeforeFiles)
{
    data->PutFiles({L"C:\\one.txt"});
    data->PutText(L"text");
    drop(At(0, 0));
    EXPECT_EQ(TextOf(control), L"text");
}

TEST_F(Drop, AnEmptyTextStopsTheDropThoughThereAreFiles)
{
    GivenMarked(control, L"a[bc]|d");
    data->PutFiles({L"C:\\one.txt"});
    data->PutText(L"");
    EXPECT_EQ(drop(At(0, 0)), static_cast<DWORD>(DROPEFFECT_MOVE));  // it is reported as done all the same
    EXPECT_EQ(Marked(control), L"|a[bc]d");
}

TEST_F(Drop, DataOfNeitherFormatDoesNothing)
{
    GivenMarked(control, L"a[bc]|d");
    data->Put(CF_TEXT, std::string("text", 5));
    EXPECT_EQ(drop(At(0, 0)), static_cast<DWORD>(DROPEFFECT_MOVE));
    EXPECT_EQ(Marked(control), L"|a[bc]d");
    EXPECT_FALSE(edCanExecCommand(control, ED_COMMAND_UNDO));
}

TEST_F(Drop, ATextWithoutItsTerminatorEndsWithItsBlock)
{
    data->PutText(L"unterminated text", true);
    drop(At(0, 0));
    EXPECT_EQ(TextOf(control).substr(0, 17), L"unterminated text");
}

TEST_F(Drop, BlocksThatTheSourceKeepsAreCopied)
{
    data->keepsBlocks = true;
    data->PutText(L"text");
    drop(At(0, 0));
    EXPECT_EQ(TextOf(control), L"text");
}

TEST_F(Drop, AFileListThatDoesNotEndInItsBlockIsLeftAlone)
{
    DROPFILES head{};
    head.fWide = TRUE;
    const auto bytes = [&](DWORD start, const std::string& names) {
        head.pFiles = start;
        return std::string(reinterpret_cast<const char*>(&head), sizeof head) + names;
    };
    const std::string lists[] = {
        "", "short", bytes(sizeof head, ""), bytes(0xFFFFFFF0, "abcdefgh"), bytes(0, std::string(64, 'x')),
        bytes(sizeof head, std::string(4096, 'x')), bytes(sizeof head, std::string("a\0b\0\0", 5)),
    };
    for (const std::string& list : lists) {
        data.reset(new DragData);
        data->Put(CF_HDROP, list);
        drop(At(0, 0));
        EXPECT_EQ(TextOf(control), L"") << list.size();
    }
}

TEST_F(Drop, AMoveFromElsewhereDeletesTheFirstCharacterBeforeAnyDragAndNothingTheSecondTime)
{
    GivenMarked(control, L"|abcd");
    EXPECT_EQ(dropText(L"XY", At(0, 2), 0), static_cast<DWORD>(DROPEFFECT_MOVE));
    EXPECT_EQ(Marked(control), L"bXY|cd");
    dropText(L"Z", At(0, 1), 0);
    EXPECT_EQ(TextOf(control), L"bXYXYcd");  // the data object still gives its first text
    EXPECT_TRUE(edExecCommand(control, ED_COMMAND_UNDO));
    EXPECT_TRUE(edExecCommand(control, ED_COMMAND_UNDO));
    EXPECT_EQ(TextOf(control), L"abcd");
}

TEST_F(Drop, ACopyFromElsewhereDeletesNothing)
{
    GivenMarked(control, L"|abcd");
    dropText(L"XY", At(0, 2), MK_CONTROL);
    EXPECT_EQ(TextOf(control), L"abXYcd");
}

TEST_F(Drop, WhileADragIsArmedADropFromElsewhereCountsAsOurOwn)
{
    GivenMarked(control, L"a[bcd]|efgh");
    SendClick(control, At(0, 2));  // a press inside the selection arms a drag, and nothing disarms it
    data->PutText(L"X");
    drop(At(0, 0), MK_CONTROL);  // inside the range that stands there before the first drag
    EXPECT_EQ(Marked(control), L"|abcdefgh");
}

}  // namespace
