// The window of the sample host, driven by its commands.
#include "WindowFixture.h"

namespace {

class Window : public WindowFixture {};

TEST_F(Window, StartsWithAnEmptyTextWithoutAName)
{
    EXPECT_EQ(edGetLineCount(Control()), 0u);
    EXPECT_EQ(Title(), L"Без имени \x2013 Scrivpad");
}

TEST_F(Window, KeepsCaretViewAndBreakPointsThroughAThemeChange)
{
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += "line " + std::to_string(i) + "\n";
    window.Active().Open(Write(L"window.txt", text), ED_ENCODING_DEFAULT);
    window.Show(SW_SHOWNOACTIVATE);
    window.Active().GoTo({121, 4});
    edSetScrollPosition(Control(), 110, 0);
    edSetBreakPoint(Control(), 5);
    edSetBreakPoint(Control(), 200);
    const std::wstring before = Text();

    ChooseTheme(ED_THEME_OCEAN);
    EXPECT_EQ(Text(), before);
    ExpectAt(Position(ED_POSITION_CARET), 120, 3);
    ExpectAt(Position(ED_POSITION_VIEWPORT), 110, 0);
    ASSERT_EQ(edGetBreakPointCount(Control()), 2);
    EXPECT_EQ(edGetBreakPointLine(Control(), 0), 5);
    EXPECT_EQ(edGetBreakPointLine(Control(), 1), 200);
}

TEST_F(Window, KeepsTheSelectionThroughAThemeChangeWithTheCaretAtEitherEnd)
{
    window.Active().Open(Write(L"window.txt", "one\ntwo\nthree"), ED_ENCODING_DEFAULT);
    for (const bool backwards : {false, true}) {
        const edPoint from = backwards ? edPoint{2, 2} : edPoint{1, 0};
        const edPoint to = backwards ? edPoint{1, 0} : edPoint{2, 2};
        edSetCaretPosition(Control(), from.y, from.x);
        edSetCaretPositionAdv(Control(), to.y, to.x, ED_CARET_SELECT);
        ChooseTheme(ED_THEME_DUSK);
        ExpectAt(Position(ED_POSITION_SELECTION_FIRST), 0, 1);
        ExpectAt(Position(ED_POSITION_SELECTION_LAST), 2, 1);
        ExpectAt(Position(ED_POSITION_CARET), to.y, to.x);
    }
}

TEST_F(Window, KeepsLineEndsAndMarkOfTheFileThroughAThemeChange)
{
    const std::string bytes = "\xEF\xBB\xBFone\r\n\xD0\x96\r\nthree";
    window.Active().Open(Write(L"window.txt", bytes), ED_ENCODING_DEFAULT);
    ChooseTheme(ED_THEME_MIRANA);
    const std::wstring saved = Path(L"window saved.txt");
    window.Active().SaveAs(saved, window.Active().CurrentDocument().encoding);
    EXPECT_EQ(Read(saved), bytes);
}

TEST_F(Window, KeepsALastEmptyLineThroughAThemeChange)
{
    window.Active().Open(Write(L"window.txt", "one"), ED_ENCODING_DEFAULT);
    for (const wchar_t* text : {L"\n", L"a\n\n", L"\n\n", L"a\n\n\n"}) {
        edLoadText(Control(), text, 1);
        const UINT32 lines = edGetLineCount(Control());
        ChooseTheme(ED_THEME_TIBERITE);
        EXPECT_EQ(edGetLineCount(Control()), lines);
    }
}

TEST_F(Window, KeepsCharactersThatTheFilesEncodingLacksThroughAThemeChange)
{
    window.Active().Open(Write(L"window.txt", "caf\xE9"), ED_ENCODING_DEFAULT);
    ASSERT_EQ(window.Active().CurrentDocument().encoding, UINT32{ED_ENCODING_ANSI});
    edLoadText(Control(), L"снег \x2603", 1);
    ChooseTheme(ED_THEME_OCEAN);
    EXPECT_EQ(Text(), L"снег \x2603");
}

TEST_F(Window, MarksAChangedTextInItsTitleUntilItIsSaved)
{
    window.Active().Open(Write(L"window.txt", "one"), ED_ENCODING_DEFAULT);
    EXPECT_EQ(Title(), L"window.txt \x2013 Scrivpad");
    ::SendMessageW(window.Active().Handle(), ED_NOTIFY_CARET, 0, 0);
    EXPECT_EQ(Title(), L"window.txt \x2013 Scrivpad");
    ::SendMessageW(window.Active().Handle(), ED_NOTIFY_CARET, 1, 0);
    EXPECT_EQ(Title(), L"*window.txt \x2013 Scrivpad");
    ChooseTheme(ED_THEME_OCEAN);
    EXPECT_EQ(Title(), L"*window.txt \x2013 Scrivpad");
    Choose(cmdSave);
    EXPECT_EQ(Title(), L"window.txt \x2013 Scrivpad");
}

TEST_F(Window, ShowsAReadOnlyFileReadOnlyUntilItIsSavedUnderAnotherName)
{
    const std::wstring path = Write(L"window.txt", "one");
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    window.Active().Open(path, ED_ENCODING_DEFAULT);
    EXPECT_TRUE(edGetMode(Control(), ED_MODE_READONLY));
    window.Active().SaveAs(Path(L"window saved.txt"), ED_ENCODING_UTF8);
    EXPECT_FALSE(edGetMode(Control(), ED_MODE_READONLY));
    EXPECT_EQ(Text(), L"one");
}

TEST_F(Window, KeepsItsTextWhenAFileCannotBeOpened)
{
    window.Active().Open(Write(L"window.txt", "one"), ED_ENCODING_DEFAULT);
    EXPECT_THROW(window.Active().Open(L"no such file.txt", ED_ENCODING_DEFAULT), Failure);
    EXPECT_EQ(Text(), L"one");
    EXPECT_EQ(Title(), L"window.txt \x2013 Scrivpad");
}

TEST_F(Window, ShowsAnEmptyFileAsAnEmptyText)
{
    window.Active().Open(Write(L"window.txt", "one"), ED_ENCODING_DEFAULT);
    window.Active().Open(Write(L"window empty.txt", ""), ED_ENCODING_DEFAULT);
    EXPECT_EQ(Text(), L"");
}

/// One byte as a code page of the system reads it: which code pages these are depends on the language it runs in.
[[nodiscard]] std::wstring InCodePage(UINT codePage, char byte)
{
    wchar_t ch = 0;
    const int length = ::MultiByteToWideChar(codePage, 0, &byte, 1, &ch, 1);
    return std::wstring(&ch, static_cast<std::size_t>(length));
}

TEST_F(Window, ReadsTheFileAgainInAnotherEncoding)
{
    ASSERT_NE(InCodePage(CP_ACP, '\xE1'), InCodePage(CP_OEMCP, '\xE1'));
    window.Active().Open(Write(L"window.txt", "\xE1"), ED_ENCODING_DEFAULT);
    EXPECT_EQ(Text(), InCodePage(CP_ACP, '\xE1'));
    Choose(cmdFirstReopen, ED_ENCODING_OEM);
    EXPECT_EQ(window.Active().CurrentDocument().encoding, UINT32{ED_ENCODING_OEM});
    EXPECT_EQ(Text(), InCodePage(CP_OEMCP, '\xE1'));
}

TEST_F(Window, SavesInTheEncodingOfTheMenu)
{
    const std::wstring path = Write(L"window.txt", "a\xD0\x96");
    window.Active().Open(path, ED_ENCODING_DEFAULT);
    Choose(cmdFirstEncoding, ED_ENCODING_UTF16BE);
    Choose(cmdSave);
    EXPECT_EQ(Read(path), std::string("\xFE\xFF\0a\x04\x16", 6));
}

}  // namespace
