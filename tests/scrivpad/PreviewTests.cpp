// The preview of what a print would give, and what is said where there is no printer.
#include "MainWindow.h"
#include "Menu.h"
#include "PrintPreview.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/MessageBoxes.h"

#include <gtest/gtest.h>

using namespace scrivpad;

namespace {

using Words = std::vector<std::wstring>;

/// The preview of the sample host's window.
class Preview : public testing::Test {
protected:
    Preview()
    {
        window.Show(SW_SHOWNOACTIVATE);
        std::wstring text;
        for (int i = 0; i < 150; ++i)
            text += L"line " + std::to_wstring(i) + L"\n";
        edLoadText(window.Active().Control(), text.c_str(), 1);
    }
    HWND Open()
    {
        window.Run(cmdPreview);
        Pump(50);
        return window.PreviewHandle();
    }
    void Press(unsigned command) const { ::SendMessageW(window.PreviewHandle(), WM_COMMAND, command, 0); }
    void Key(WPARAM key) const { ::SendMessageW(window.PreviewHandle(), WM_KEYDOWN, key, 0); }
    [[nodiscard]] bool Enabled(unsigned command) const
    {
        return ::IsWindowEnabled(::GetDlgItem(window.PreviewHandle(), static_cast<int>(command))) != FALSE;
    }
    [[nodiscard]] std::wstring Shown() const
    {
        wchar_t text[60] = L"";
        ::GetWindowTextW(::FindWindowExW(window.PreviewHandle(), nullptr, L"STATIC", nullptr), text, 60);
        return text;
    }

    MainWindow window{ED_THEME_CLASSIC};
};

TEST_F(Preview, OpensOnTheFirstSheetAndHoldsItsOwner)
{
    const HWND preview = Open();
    ASSERT_TRUE(::IsWindowVisible(preview));
    EXPECT_EQ(Shown(), L"Страница 1 из 3");
    EXPECT_FALSE(Enabled(previewBack));
    EXPECT_TRUE(Enabled(previewForward));
    EXPECT_FALSE(::IsWindowEnabled(window.Handle()));
}

TEST_F(Preview, TurnsSheetsByButtonsKeysAndWheel)
{
    Open();
    Press(previewForward);
    EXPECT_EQ(Shown(), L"Страница 2 из 3");
    EXPECT_TRUE(Enabled(previewBack));
    Key(VK_NEXT);
    EXPECT_EQ(Shown(), L"Страница 3 из 3");
    EXPECT_FALSE(Enabled(previewForward));
    Key(VK_NEXT);
    EXPECT_EQ(Shown(), L"Страница 3 из 3");
    Key(VK_HOME);
    EXPECT_EQ(Shown(), L"Страница 1 из 3");
    Key(VK_PRIOR);
    EXPECT_EQ(Shown(), L"Страница 1 из 3");
    Key(VK_END);
    EXPECT_EQ(Shown(), L"Страница 3 из 3");
    Press(previewBack);
    EXPECT_EQ(Shown(), L"Страница 2 из 3");
    ::SendMessageW(window.PreviewHandle(), WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0);
    EXPECT_EQ(Shown(), L"Страница 3 из 3");
}

TEST_F(Preview, ShowsEachSheetAsAPicture)
{
    const HWND preview = Open();
    const Picture first(preview);
    const RECT middle = {first.Width() / 6, first.Height() / 4, first.Width() / 2, first.Height() / 2};
    EXPECT_TRUE(first.Has(middle, RGB(255, 255, 255)));
    EXPECT_FALSE(first.AreaIs(middle, RGB(255, 255, 255)));
    Press(previewForward);
    Pump(50);
    const Picture second(preview);
    EXPECT_NE(first.Difference(second), "");
    Press(previewBack);
    Pump(50);
    EXPECT_EQ(first.Difference(Picture(preview)), "");
}

TEST_F(Preview, GivesItsOwnerBackWhenItCloses)
{
    const HWND preview = Open();
    Press(previewClose);
    EXPECT_FALSE(::IsWindow(preview));
    EXPECT_EQ(window.PreviewHandle(), nullptr);
    EXPECT_TRUE(::IsWindowEnabled(window.Handle()));
    EXPECT_EQ(edPrintingOver(window.Active().Control()), 0);
    EXPECT_NE(Open(), nullptr);  // and once more
}

TEST_F(Preview, OfAnEmptyTextSaysSo)
{
    edLoadText(window.Active().Control(), nullptr, 0);
    Open();
    EXPECT_EQ(Shown(), L"Нет ни одной страницы");
    EXPECT_FALSE(Enabled(previewBack));
    EXPECT_FALSE(Enabled(previewForward));
    EXPECT_FALSE(Enabled(previewPrint));
    Press(previewForward);
    EXPECT_EQ(Shown(), L"Нет ни одной страницы");
}

TEST_F(Preview, GoesWithItsOwner)
{
    const HWND preview = Open();
    ::DestroyWindow(window.Handle());
    EXPECT_FALSE(::IsWindow(preview));
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {  // the WM_QUIT, which is not for the tests that follow
    }
}

TEST_F(Preview, WithoutAPrinterTheUserIsToldThatThereIsNone)
{
    if (HasPrinter())
        GTEST_SKIP() << "there is a printer";
    for (const unsigned command : {cmdPrint, cmdPageSetup}) {
        const MessageBoxes boxes;
        window.Run(command);
        EXPECT_EQ(boxes.texts, Words{L"в системе нет ни одного принтера"}) << command;
    }
}

TEST_F(Preview, ItsPrintButtonClosesItAndPrints)
{
    if (HasPrinter())
        GTEST_SKIP() << "there is a printer";
    Open();
    const MessageBoxes boxes;
    Press(previewPrint);
    EXPECT_EQ(window.PreviewHandle(), nullptr);
    Pump(50);
    EXPECT_EQ(boxes.texts, Words{L"в системе нет ни одного принтера"});
}

}  // namespace
