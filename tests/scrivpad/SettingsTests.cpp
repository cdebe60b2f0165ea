// The settings of the sample host: its dialog with the library's pages, the file that keeps them, the themes.
#include "SettingsIds.h"
#include "WindowFixture.h"

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/MessageBoxes.h"

#include <commctrl.h>

#include <memory>

namespace {

constexpr int idTabSize = 1005;
constexpr int idSpaces = 1028;
constexpr int idBold = 1016;

class Settings : public WindowFixture {
protected:
    void SetUp() override
    {
        start(ED_THEME_CLASSIC);
    }
    void start(UINT32 theme)
    {
        program = nullptr;
        program = std::make_unique<MainWindow>(theme, file);
        program->Show(SW_SHOW);
        Pump();
    }
    void run(unsigned command) { ::SendMessageW(program->Handle(), WM_COMMAND, command, 0); }
    void press(int button) { ::SendMessageW(dialog(), WM_COMMAND, static_cast<WPARAM>(button), 0); }
    [[nodiscard]] HWND dialog() const { return program->SettingsHandle(); }
    /// A control on one of the pages.
    [[nodiscard]] HWND Item(int id) const
    {
        for (HWND child = ::GetWindow(dialog(), GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
            if (const HWND item = ::GetDlgItem(child, id))
                return item;
        return nullptr;
    }
    /// What stands in the upper right corner of a text, where no character is.
    [[nodiscard]] static COLORREF Background(const Pane& pane)
    {
        ::UpdateWindow(pane.Control());
        const Picture picture(pane.Control());
        return picture.At(picture.Width() - 3, 3);
    }
    [[nodiscard]] std::string Kept() const { return Read(file); }

    const std::wstring file = Path(L"scrivpad settings test");
    std::unique_ptr<MainWindow> program;

    static constexpr COLORREF white = 0xFFFFFF;
    static constexpr COLORREF navy = 0x800000;
};

TEST_F(Settings, TheDialogHoldsBothPagesOneAtATime)
{
    run(cmdSettings);
    ASSERT_NE(dialog(), nullptr);
    EXPECT_TRUE(::IsWindowVisible(dialog()));
    EXPECT_TRUE(::IsWindowVisible(Item(idBold)));
    EXPECT_FALSE(::IsWindowVisible(Item(idTabSize)));
    program->ShowSettings(SettingsDialog::fontPage);
    EXPECT_FALSE(::IsWindowVisible(Item(idBold)));
    EXPECT_TRUE(::IsWindowVisible(Item(idTabSize)));
}

TEST_F(Settings, TheButtonsAreNamedInRussian)
{
    run(cmdSettings);
    const struct {
        int id;
        const wchar_t* text;
    } rows[] = {{IDOK, L"OK"}, {IDCANCEL, L"Отмена"}, {settingsApply, L"&Применить"}};
    for (const auto& row : rows) {
        wchar_t text[40] = {};
        ::GetDlgItemTextW(dialog(), row.id, text, static_cast<int>(std::size(text)));
        EXPECT_STREQ(text, row.text);
    }
}

TEST_F(Settings, ASecondCommandShowsTheSameDialog)
{
    run(cmdSettings);
    const HWND first = dialog();
    run(cmdSettings);
    EXPECT_EQ(dialog(), first);
}

TEST_F(Settings, ApplyGivesTheSettingsToEveryTextAndKeepsThem)
{
    program->Split();
    run(cmdSettings);
    ::SendMessageW(Item(idSpaces), BM_CLICK, 0, 0);
    EXPECT_EQ(Kept(), "") << "nothing is kept before it is applied";
    press(settingsApply);
    EXPECT_NE(dialog(), nullptr);
    const std::string bytes = Kept();
    ASSERT_EQ(bytes.size(), 266u);
    EXPECT_EQ(bytes[261], '\0') << "tabs become spaces";
    for (Pane* pane : {&program->Active(), program->Other()}) {
        edLoadText(pane->Control(), L"x", 1);
        edSetCaretPosition(pane->Control(), 0, 0);
        edInsertText(pane->Control(), L"\t");
        EXPECT_EQ(TextOf(pane->Control()), L"    x");
    }
}

TEST_F(Settings, CancelChangesNothing)
{
    run(cmdSettings);
    ::SendMessageW(Item(idSpaces), BM_CLICK, 0, 0);
    press(IDCANCEL);
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_EQ(Kept(), "");
    run(cmdSettings);
    EXPECT_FALSE(::SendMessageW(Item(idSpaces), BM_GETCHECK, 0, 0)) << "the dialog begins with what is in use";
}

TEST_F(Settings, OkAppliesAndCloses)
{
    run(cmdSettings);
    ::SendMessageW(Item(idSpaces), BM_CLICK, 0, 0);
    press(IDOK);
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_EQ(Kept().size(), 266u);
    run(cmdSettings);
    EXPECT_TRUE(::SendMessageW(Item(idSpaces), BM_GETCHECK, 0, 0));
}

TEST_F(Settings, WhatIsBeingTypedIsAppliedToo)
{
    run(cmdSettings);
    program->ShowSettings(SettingsDialog::fontPage);
    ::SetFocus(Item(idTabSize));
    ::SetWindowTextW(Item(idTabSize), L"7");
    press(IDOK);  // as Enter does, with the focus still in the field
    EXPECT_EQ(dialog(), nullptr);
    ASSERT_EQ(Kept().size(), 266u);
    EXPECT_EQ(Kept()[262], 7);
}

TEST_F(Settings, AFieldThatIsRefusedKeepsTheDialogOpen)
{
    run(cmdSettings);
    program->ShowSettings(SettingsDialog::fontPage);
    ::SetFocus(Item(idTabSize));
    ::SetWindowTextW(Item(idTabSize), L"9");
    MessageBoxes boxes;
    press(IDOK);
    EXPECT_EQ(boxes.texts.size(), 1u);
    EXPECT_NE(dialog(), nullptr);
    EXPECT_EQ(::GetFocus(), Item(idTabSize));
    EXPECT_EQ(Kept(), "");
}

TEST_F(Settings, TheNextStartBeginsWithWhatWasKept)
{
    run(cmdFirstTheme + UINT32{ED_THEME_OCEAN} - 1);
    EXPECT_EQ(Background(program->Active()), navy);
    start(0);
    EXPECT_EQ(Background(program->Active()), navy);
    program->Split();
    EXPECT_EQ(Background(program->Active()), navy);
    start(ED_THEME_CLASSIC);
    EXPECT_EQ(Background(program->Active()), white) << "a theme that is asked for wins for this time";
    EXPECT_EQ(Kept().size(), 266u);
}

TEST_F(Settings, AThemeKeepsFontAndTabsAndWhatCanBeUndone)
{
    run(cmdSettings);
    ::SendMessageW(Item(idSpaces), BM_CLICK, 0, 0);
    press(IDOK);
    const HWND control = program->Active().Control();
    edLoadText(control, L"one", 1);
    edInsertText(control, L"two ");
    run(cmdFirstTheme + UINT32{ED_THEME_OCEAN} - 1);
    EXPECT_EQ(program->Active().Control(), control);
    EXPECT_EQ(Kept()[261], '\0');
    edExecCommand(control, ED_COMMAND_UNDO);
    EXPECT_EQ(TextOf(control), L"one");
}

TEST_F(Settings, AThemeIsChosenOnThePageWhileTheDialogIsOpen)
{
    run(cmdSettings);
    program->ShowSettings(SettingsDialog::fontPage);
    run(cmdFirstTheme + UINT32{ED_THEME_OCEAN} - 1);
    EXPECT_TRUE(::IsWindowVisible(Item(idBold)));
    EXPECT_EQ(Background(program->Active()), white);
}

TEST_F(Settings, AFileThatHoldsNoSettingsIsPassedOver)
{
    for (const std::string& bytes : {std::string(), std::string("no settings"), std::string(100000, 'x')}) {
        Write(L"scrivpad settings test", bytes);
        start(0);
        EXPECT_EQ(Background(program->Active()), white);
    }
}

TEST_F(Settings, SettingsThatCannotBeKeptHoldAllTheSame)
{
    program = std::make_unique<MainWindow>(ED_THEME_CLASSIC, L"no such folder\\settings");
    program->Show(SW_SHOW);
    MessageBoxes boxes;
    run(cmdFirstTheme + UINT32{ED_THEME_OCEAN} - 1);
    ASSERT_EQ(boxes.texts.size(), 1u);
    EXPECT_NE(boxes.texts[0].find(L"не удалось сохранить настройки"), std::wstring::npos);
    EXPECT_EQ(Background(program->Active()), navy);
}

TEST_F(Settings, ClosingTheProgramClosesTheDialog)
{
    run(cmdSettings);
    const HWND open = dialog();
    program = nullptr;
    EXPECT_FALSE(::IsWindow(open));
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
}

}  // namespace
