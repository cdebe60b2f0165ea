// The members that ask and tell: text, positions, modes, commands, marks, snapshots.

#include "EditorFixture.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <limits>

using scriv::Command;
using scriv::Editor;
using scriv::Encoding;
using scriv::Position;

namespace {

class CppEditor : public EditorTest {
protected:
    static std::wstring Path()
    {
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        return std::wstring(folder) + L"scriv текст.txt";
    }
    static void Write(const std::string& bytes) { std::ofstream(Path().c_str(), std::ios::binary) << bytes; }
    static std::string Read()
    {
        std::ifstream file(Path().c_str(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    ~CppEditor() override { DeleteFileW(Path().c_str()); }
};

void ExpectPlace(const std::optional<Position>& place, Position expected)
{
    ASSERT_TRUE(place.has_value());
    EXPECT_EQ(place->line, expected.line);
    EXPECT_EQ(place->column, expected.column);
}

TEST_F(CppEditor, PositionsCompareByLineThenColumn)
{
    static_assert(Position{1, 2} == Position{1, 2} && Position{1, 2} != Position{1, 3});
    static_assert(Position{1, 9} < Position{2, 0} && !(Position{2, 0} < Position{1, 9}));
    static_assert(Position{1, 2} < Position{1, 3});
}

TEST_F(CppEditor, TextGoesInAndComesOut)
{
    const Editor editor = Make(L"один\nдва");
    EXPECT_EQ(editor.Text(), L"один\nдва");
    EXPECT_EQ(editor.LineCount(), 2u);
    EXPECT_EQ(editor.Line(1), L"два");
    EXPECT_EQ(editor.Line(2), L"");
    EXPECT_TRUE(editor.SetText(L""));
    EXPECT_EQ(editor.Text(), L"");
    EXPECT_TRUE(editor.SetText(L"\n"));
    EXPECT_EQ(editor.Text(), L"\n");
}

TEST_F(CppEditor, InsertionIsOneStepOfUndo)
{
    const Editor editor = Make(L"ab");
    editor.SetCaret({0, 1});
    EXPECT_TRUE(editor.Insert(L"1\r\n2"));
    EXPECT_EQ(editor.Text(), L"a1\n2b");
    EXPECT_TRUE(editor.CanExecute(Command::Undo));
    EXPECT_TRUE(editor.Execute(Command::Undo));
    EXPECT_EQ(editor.Text(), L"ab");
    EXPECT_FALSE(editor.CanExecute(Command::Undo));
    EXPECT_TRUE(editor.Execute(Command::Redo));
    EXPECT_EQ(editor.Text(), L"a1\n2b");
}

TEST_F(CppEditor, FilesAreReadAndWrittenInTheirEncoding)
{
    const Editor editor = Make(L"");
    Write("\xD0\xB0\r\nb");
    EXPECT_EQ(editor.LoadFile(Path()), Encoding::Utf8);
    EXPECT_EQ(editor.Text(), L"а\nb");
    EXPECT_TRUE(editor.SaveFile(Path(), Encoding::Utf8));
    EXPECT_EQ(Read(), "\xD0\xB0\r\nb");
    EXPECT_TRUE(editor.SaveFile(Path(), Encoding::Utf16BE));
    EXPECT_EQ(Read().substr(0, 4), std::string("\xFE\xFF\x04\x30"));
    EXPECT_EQ(editor.LoadFile(Path()), Encoding::Utf16BE);
    EXPECT_EQ(editor.LoadFile(Path(), Encoding::Oem), Encoding::Utf16BE);
}

TEST_F(CppEditor, AFileThatCannotBeWrittenIsToldByTheAnswer)
{
    const Editor editor = Make(L"text");
    EXPECT_FALSE(editor.SaveFile(L"C:\\no such folder\\file"));
    EXPECT_FALSE(editor.SaveFile(L""));
}

TEST_F(CppEditor, TheSelectionIsAValueWithBothEnds)
{
    const Editor editor = Make(L"one\ntwo");
    EXPECT_FALSE(editor.HasSelection());
    EXPECT_FALSE(editor.Selected().has_value());
    EXPECT_EQ(editor.SelectedText(), L"");
    editor.SetCaret({0, 1});
    editor.SetCaret({1, 2}, Editor::Redraw | Editor::Select);
    ASSERT_TRUE(editor.Selected().has_value());
    EXPECT_EQ(editor.Selected()->first, (Position{0, 1}));
    EXPECT_EQ(editor.Selected()->last, (Position{1, 1}));
    EXPECT_EQ(editor.SelectedText(), L"ne\r\ntw");
    EXPECT_TRUE(editor.Execute(Command::ClearSelection));
    EXPECT_FALSE(editor.HasSelection());
    editor.SetCaret({0, 3}, Editor::Redraw | Editor::Select);
    editor.SetCaret({0, 1}, Editor::Select | Editor::KeepSelection);
    ASSERT_TRUE(editor.Selected().has_value());
    EXPECT_EQ(editor.Selected()->first, (Position{0, 1}));
    EXPECT_EQ(editor.Selected()->last, (Position{1, 1}));
}

TEST_F(CppEditor, TheCaretStaysWithinTheText)
{
    const Editor editor = Make(L"one\ntwo");
    editor.SetCaret({1, 2});
    ExpectPlace(editor.Caret(), {1, 2});
    editor.SetCaret({1, 99}, Editor::Centre);
    ExpectPlace(editor.Caret(), {1, 3});
    editor.SetCaret({99, 0});
    editor.SetCaret({0, -1}, Editor::Redraw);
    ExpectPlace(editor.Caret(), {1, 3});
    editor.ScrollTo({0, 0});
    const auto top = editor.CaretTop();
    const auto bottom = editor.CaretBottom();
    ASSERT_TRUE(top && bottom);
    EXPECT_EQ(bottom->x, top->x);
    EXPECT_EQ(bottom->y, top->y + 15);
    POINT inside = *top;
    ScreenToClient(editor.Handle(), &inside);
    EXPECT_EQ(inside.y, 15);
}

TEST_F(CppEditor, TheViewScrollsOnBothAxesOrOne)
{
    std::wstring text;
    for (int i = 0; i < 200; ++i)
        text += std::wstring(200, L'x') + L"\n";
    const Editor editor = Make(text);
    editor.ScrollTo({7, 11});
    ExpectPlace(editor.FirstVisible(), {7, 11});
    editor.ScrollTo({-1, 5});
    ExpectPlace(editor.FirstVisible(), {7, 5});
}

TEST_F(CppEditor, ThePlaceUnderThePointerIsATextPosition)
{
    const Editor editor = Make(L"one\ntwo");
    POINT point{8 * 2 + 2, 15 + 7};
    ClientToScreen(editor.Handle(), &point);
    POINT before{};
    GetCursorPos(&before);
    SetCursorPos(point.x, point.y);
    ExpectPlace(editor.UnderMouse(), {1, 2});
    SetCursorPos(before.x, before.y);
}

TEST_F(CppEditor, ModesAndCommandsFollowEachOther)
{
    const Editor editor = Make(L"one");
    EXPECT_TRUE(editor.IsInserting());
    EXPECT_TRUE(editor.Execute(Command::ToggleOverwrite));
    EXPECT_FALSE(editor.IsInserting());
    EXPECT_FALSE(editor.IsReadOnly());
    EXPECT_TRUE(editor.CanExecute(Command::SelectAll));
    EXPECT_TRUE(editor.Execute(Command::SelectAll));
    EXPECT_TRUE(editor.HasSelection());
    EXPECT_FALSE(editor.Execute(static_cast<Command>(99)));
    EXPECT_FALSE(editor.CanExecute(static_cast<Command>(0)));
}

TEST_F(CppEditor, AReadOnlyEditorKeepsItsText)
{
    scriv::Options options = InView();
    options.readOnly = true;
    const Editor editor = Make(L"one", std::move(options));
    EXPECT_TRUE(editor.IsReadOnly());
    EXPECT_FALSE(editor.CanExecute(Command::Paste));
    EXPECT_TRUE(editor.Insert(L"x"));
    Type(editor, L'y');
    EXPECT_EQ(editor.Text(), L"one");
}

TEST_F(CppEditor, BreakPointsAreListedInTheOrderOfTheirLines)
{
    const Editor editor = Make(L"a\nb\n\nd");
    EXPECT_TRUE(editor.SetBreakPoint(3));
    EXPECT_TRUE(editor.SetBreakPoint(0));
    EXPECT_FALSE(editor.SetBreakPoint(2));
    EXPECT_FALSE(editor.SetBreakPoint(4));
    EXPECT_EQ(editor.BreakPoints(), (std::vector<int>{0, 3}));
    EXPECT_TRUE(editor.RemoveBreakPoint(0));
    EXPECT_FALSE(editor.RemoveBreakPoint(4));
    EXPECT_EQ(editor.BreakPoints(), std::vector<int>{3});
    editor.RemoveAllBreakPoints();
    EXPECT_TRUE(editor.BreakPoints().empty());
}

TEST_F(CppEditor, TheExecutionPointShowsUntilItIsTakenAway)
{
    const Editor editor = Make(L"a\nb");
    const COLORREF background = GetSysColor(COLOR_WINDOW);
    Repaint(editor);
    const int plain = Pixels(editor, background);
    EXPECT_TRUE(editor.SetExecPoint(1));
    Repaint(editor);
    EXPECT_NE(Pixels(editor, background), plain);
    editor.ClearExecPoint();
    Repaint(editor);
    EXPECT_EQ(Pixels(editor, background), plain);
}

TEST_F(CppEditor, SnapshotsFollowTheLines)
{
    const Editor editor = Make(L"a\nb");
    editor.TakeSnapshot();
    EXPECT_FALSE(editor.LineNow(-1).has_value());
    editor.SetCaret({0, 1});
    editor.Insert(L"\nnew");
    EXPECT_EQ(editor.LineNow(1), 2);
    EXPECT_EQ(editor.LineThen(2), 1);
    EXPECT_EQ(editor.LineNow(-1), 1);
    EXPECT_FALSE(editor.LineThen(1).has_value());
    EXPECT_FALSE(editor.LineNow(9).has_value());
}

TEST_F(CppEditor, OneEditorGivesItsTextToAnother)
{
    const Editor one = Make(L"one");
    const Editor two = Make(L"two");
    one.SetBreakPoint(0);
    EXPECT_TRUE(one.CopyTo(two));
    EXPECT_EQ(two.Text(), L"one");
    EXPECT_EQ(two.BreakPoints(), std::vector<int>{0});
    EXPECT_FALSE(one.CopyTo(Editor()));
}

// Every member of an editor without a control.
TEST_F(CppEditor, AnEmptyEditorAnswersEveryCall)
{
    const Editor none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none.Handle(), nullptr);
    EXPECT_EQ(none.Window(), nullptr);
    none.Move({0, 0, 10, 10});
    none.Show();
    none.SetEvents({});
    EXPECT_EQ(none.TakeFailure(), nullptr);
    EXPECT_FALSE(none.LoadFile(Path()).has_value());
    EXPECT_FALSE(none.SaveFile(Path()));
    EXPECT_FALSE(none.SetText(L"x"));
    EXPECT_EQ(none.Text(), L"");
    EXPECT_EQ(none.LineCount(), 0u);
    EXPECT_EQ(none.Line(0), L"");
    EXPECT_EQ(none.SelectedText(), L"");
    EXPECT_FALSE(none.Insert(L"x"));
    EXPECT_FALSE(none.CopyTo(none));
    none.SetCaret({0, 0});
    none.SetCaret({0, 0}, Editor::TakeFocus);
    none.ScrollTo({0, 0});
    EXPECT_FALSE(none.Caret() || none.UnderMouse() || none.FirstVisible() || none.CaretTop() || none.CaretBottom());
    EXPECT_FALSE(none.Selected());
    EXPECT_FALSE(none.IsInserting() || none.HasSelection() || none.IsReadOnly());
    EXPECT_FALSE(none.Execute(Command::SelectAll) || none.CanExecute(Command::Find));
    EXPECT_FALSE(none.SetBreakPoint(0) || none.RemoveBreakPoint(0) || none.SetExecPoint(0));
    none.RemoveAllBreakPoints();
    none.ClearExecPoint();
    EXPECT_TRUE(none.BreakPoints().empty());
    none.TakeSnapshot();
    EXPECT_FALSE(none.LineNow(-1) || none.LineThen(0));
    none.Apply({1, 2, 3});
    const scriv::PrintJob job(none, {});
    EXPECT_EQ(job.PageCount(), 0);
    EXPECT_FALSE(job.Print(nullptr, 1));
}

}  // namespace
