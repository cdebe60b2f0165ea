// Printing, settings and the tuning pages.

#include "EditorFixture.h"

#include <memory>

using scriv::Editor;
using scriv::Settings;

namespace {

/// A metafile in the place of a printer.
class Sheet {
public:
    Sheet() : m_dc(CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr)) {}
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;
    ~Sheet() { DeleteEnhMetaFile(CloseEnhMetaFile(m_dc)); }
    [[nodiscard]] HDC Context() const { return m_dc; }

private:
    HDC m_dc;
};

class CppPages : public EditorTest {
protected:
    [[nodiscard]] scriv::PrintSetup Setup(bool wholeText = true) const
    {
        const RECT room{0, 0, 600, 40};  // two lines
        return {sheet.Context(), room, room, room, room, wholeText};
    }
    /// The bytes that a page of a theme gives.
    [[nodiscard]] Settings SettingsOfAPage() const
    {
        const HWND page = scriv::CreateFontPage(host.Handle(), {});
        Settings settings = scriv::TunedSettings();
        DestroyWindow(page);
        return settings;
    }
    Sheet sheet;
};

TEST_F(CppPages, AJobHasPagesAndEndsWithItsObject)
{
    const Editor editor = Make(L"one\ntwo\nthree");
    {
        const scriv::PrintJob job(editor, Setup());
        EXPECT_EQ(job.PageCount(), 2);
        EXPECT_TRUE(job.Print(sheet.Context(), 1));
        EXPECT_TRUE(job.Print(sheet.Context(), 3));
        EXPECT_FALSE(job.Print(sheet.Context(), 0));
        EXPECT_FALSE(job.Print(nullptr, 1));
    }
    EXPECT_FALSE(edPrintingOver(editor.Handle()));
}

TEST_F(CppPages, TheSelectionIsPrintedAlone)
{
    const Editor editor = Make(L"one\ntwo\nthree");
    EXPECT_EQ(scriv::PrintJob(editor, Setup(false)).PageCount(), 0);
    editor.SetCaret({0, 2}, Editor::Select);
    EXPECT_EQ(scriv::PrintJob(editor, Setup(false)).PageCount(), 1);
}

TEST_F(CppPages, AJobMayOutliveItsEditor)
{
    auto editor = std::make_unique<Editor>(Make(L"one"));
    const scriv::PrintJob job(*editor, Setup());
    editor.reset();
    EXPECT_FALSE(job.Print(sheet.Context(), 1));
}

TEST_F(CppPages, TheSettingsOfThePagesAreThereWhileOneIsOpen)
{
    EXPECT_TRUE(scriv::TunedSettings().empty());
    const Settings settings = SettingsOfAPage();
    ASSERT_GT(settings.size(), 4u);
    EXPECT_EQ(settings[0], 0x05);  // the format's first number, 0x13042005
    EXPECT_EQ(settings[3], 0x13);
    EXPECT_TRUE(scriv::TunedSettings().empty());
}

TEST_F(CppPages, APageStandsInItsPlaceAndShowsItsPreviewThroughAHighlighter)
{
    int asked = 0;
    const scriv::Highlighter highlighter = [&](wchar_t* text, std::size_t length, bool) {
        std::wmemset(text, ED_CLASS_PLAIN, length);
        ++asked;
    };
    const RECT place{5, 6, 405, 306};
    const HWND page = scriv::CreateHighlightPage(host.Handle(), SettingsOfAPage(), highlighter, &place);
    ASSERT_NE(page, nullptr);
    UpdateWindow(page);
    Pump();
    EXPECT_GT(asked, 0);
    RECT rect{};
    GetWindowRect(page, &rect);
    MapWindowPoints(nullptr, host.Handle(), reinterpret_cast<POINT*>(&rect), 2);
    EXPECT_EQ(rect.left, 5);
    EXPECT_EQ(rect.top, 6);
    DestroyWindow(page);
}

TEST_F(CppPages, ABadParentGivesNoPage)
{
    EXPECT_EQ(scriv::CreateFontPage(nullptr, {}), nullptr);
    EXPECT_EQ(scriv::CreateHighlightPage(nullptr, {}), nullptr);
}

TEST_F(CppPages, SettingsChangeTheLookOfAnEditor)
{
    scriv::Options options = InView();
    options.theme = scriv::Theme::Ocean;
    const Editor editor = Make(L"text", std::move(options));
    const COLORREF white = GetSysColor(COLOR_WINDOW);
    Repaint(editor);
    const int before = Pixels(editor, white);
    editor.Apply({});
    Repaint(editor);
    EXPECT_EQ(Pixels(editor, white), before);
    editor.Apply(SettingsOfAPage());  // theme 1
    Repaint(editor);
    EXPECT_GT(Pixels(editor, white), before + 1000);
}

TEST_F(CppPages, AnEditorBeginsWithItsSettingsBeforeItsTheme)
{
    scriv::Options options = InView();
    options.theme = scriv::Theme::Ocean;
    options.settings = SettingsOfAPage();
    const Editor editor = Make(L"text", std::move(options));
    Repaint(editor);
    EXPECT_GT(Pixels(editor, GetSysColor(COLOR_WINDOW)), 1000);
}

}  // namespace
