// The page of font and tabs, worked by real clicks and keys; what the host would keep is compared after each.

#include "tests/control/tuning/Pages.h"

#include <commdlg.h>

namespace {

class FontTuning : public Pages {
protected:
    HWND page = FontPage();

    void enter(const wchar_t* size)
    {
        click(page, idTabSize);
        ::SendMessageW(::GetDlgItem(page, idTabSize), EM_SETSEL, 0, -1);
        Type(host.Window(), size);
    }
    void enterAndLeave(const wchar_t* size)
    {
        enter(size);
        press(VK_TAB);
    }
    [[nodiscard]] std::wstring Field() const { return WindowText(::GetDlgItem(page, idTabSize)); }
    [[nodiscard]] Bytes GoldenTabs(bool keep, std::int32_t size)
    {
        return Golden([&](xTAttribData& table) {
            table.m_keepTabs = keep;
            table.m_tabSize = size;
        });
    }
};

TEST_F(FontTuning, StartsWithWhatTheBlockSays)
{
    EXPECT_EQ(Field(), L"4");
    EXPECT_TRUE(IsChecked(page, idTabs));
    EXPECT_FALSE(IsChecked(page, idSpaces));
    EXPECT_EQ(Applied(), golden.bytes());
    EXPECT_EQ(Applied().size(), 266u);
}

TEST_F(FontTuning, ShowsSpacesAndAnotherSizeWhereTheBlockHasThem)
{
    ::DestroyWindow(page);
    golden.bytes() = GoldenTabs(false, 7);
    page = FontPage();
    EXPECT_EQ(Field(), L"7");
    EXPECT_TRUE(IsChecked(page, idSpaces));
    EXPECT_FALSE(IsChecked(page, idTabs));
}

TEST_F(FontTuning, AClickOnARadioSetsWhetherTabsAreKept)
{
    click(page, idSpaces);
    EXPECT_EQ(Applied(), GoldenTabs(false, 4));
    EXPECT_FALSE(IsChecked(page, idTabs));
    click(page, idTabs);
    EXPECT_EQ(Applied(), GoldenTabs(true, 4));
    EXPECT_FALSE(IsChecked(page, idSpaces));
}

TEST_F(FontTuning, TheArrowKeysMoveBetweenTheRadios)
{
    click(page, idTabs);
    press(VK_UP);
    EXPECT_EQ(Applied(), GoldenTabs(false, 4));
    press(VK_DOWN);
    EXPECT_EQ(Applied(), GoldenTabs(true, 4));
}

TEST_F(FontTuning, EachTabSizeFromOneToEightIsTakenWhenTheFieldIsLeft)
{
    for (std::int32_t size = 1; size <= 8; ++size) {
        const Bytes before = Applied();
        enter(std::to_wstring(size).c_str());
        EXPECT_EQ(Applied(), before) << "taken before the field was left";
        press(VK_TAB);
        EXPECT_EQ(Applied(), GoldenTabs(true, size)) << size;
    }
}

TEST_F(FontTuning, ATabSizeOutOfRangeIsRefusedAndTheFieldAsksForAnother)
{
    for (const wchar_t* size : {L"0", L"9", L"10", L"99999999999", L""}) {
        MessageBoxes boxes;
        enter(L"3");
        click(page, idSpaces);
        click(page, idTabs);
        enter(L"");
        if (*size)
            enter(size);
        else
            press(VK_DELETE);
        press(VK_TAB);
        ASSERT_EQ(boxes.texts.size(), 1u) << "entered " << std::wstring(size).size() << " characters";
        EXPECT_EQ(boxes.texts[0], L"Введите целое число от 1 до 8.");
        EXPECT_EQ(Applied(), GoldenTabs(true, 3));
        EXPECT_EQ(::GetFocus(), ::GetDlgItem(page, idTabSize));
        EXPECT_EQ(Field(), size) << "what was typed stays, to be put right";
        enterAndLeave(L"3");
    }
}

TEST_F(FontTuning, TheFieldTakesNothingButDigits)
{
    enterAndLeave(L"-x7");
    EXPECT_EQ(Field(), L"7");
    EXPECT_EQ(Applied(), GoldenTabs(true, 7));
}

TEST_F(FontTuning, ARadioSetsTheLastSizeThatWasAccepted)
{
    enterAndLeave(L"6");
    ::SetDlgItemTextW(page, idTabSize, L"55");
    ::SendMessageW(::GetDlgItem(page, idSpaces), BM_CLICK, 0, 0);
    EXPECT_EQ(Applied(), GoldenTabs(false, 6));
}

TEST_F(FontTuning, ARefusedSizeDoesNotHoldUpTheEndOfThePage)
{
    MessageBoxes boxes;
    enter(L"9");
    ::DestroyWindow(page);
    EXPECT_TRUE(boxes.texts.empty());
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
}

TEST_F(FontTuning, ASizeFromTheBlockStandsUntilAnotherIsAccepted)
{
    ::DestroyWindow(page);
    golden.bytes() = GoldenTabs(true, -2000000000);
    page = FontPage();
    EXPECT_EQ(Field(), L"-2000000000");
    click(page, idSpaces);
    EXPECT_EQ(Applied(), GoldenTabs(false, -2000000000));
}

TEST_F(FontTuning, TabGoesThroughTheControlsInTheirOrder)
{
    ::SetFocus(::GetDlgItem(page, idTabSize));
    press(VK_TAB);
    EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), idTabs);  // the one that is on
    press(VK_TAB);
    EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), idFont);
    press(VK_TAB);
    EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), idTabSize);
    press(VK_TAB, true);
    EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), idFont);
}

// ---- The font dialog

/// Works the font dialog as soon as it stands, and presses `button`.
class FontDialog {
public:
    explicit FontDialog(int button, std::vector<std::pair<int, std::wstring>> choices = {})
        : m_button(button), m_choices(std::move(choices))
    {
        s_open = this;
        m_hook = ::SetWindowsHookExW(WH_CBT, &FontDialog::Watch, nullptr, ::GetCurrentThreadId());
    }
    FontDialog(const FontDialog&) = delete;
    FontDialog& operator=(const FontDialog&) = delete;
    ~FontDialog()
    {
        ::UnhookWindowsHookEx(m_hook);
        s_open = nullptr;
    }
    bool shown = false;
    std::vector<std::wstring> faces;
    std::wstring face;

    static constexpr int faceList = 0x470;
    static constexpr int styleList = 0x471;
    static constexpr int sizeList = 0x472;

private:
    static LRESULT CALLBACK Watch(int code, WPARAM wParam, LPARAM lParam)
    {
        const auto window = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_ACTIVATE && ClassOf(window) == L"#32770" && ::GetDlgItem(window, sizeList))
            s_open->Work(window);
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }
    void Work(HWND dialog)
    {
        if (std::exchange(shown, true))
            return;
        face = WindowText(::GetDlgItem(dialog, faceList));
        for (const auto& [list, text] : m_choices) {
            const HWND combo = ::GetDlgItem(dialog, list);
            const LRESULT row = ::SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
            EXPECT_NE(row, CB_ERR) << list;
            ::SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
            ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
        }
        const HWND combo = ::GetDlgItem(dialog, faceList);
        for (LRESULT i = 0, count = ::SendMessageW(combo, CB_GETCOUNT, 0, 0); i < count; ++i) {
            wchar_t text[100] = L"";
            ::SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            faces.emplace_back(text);
        }
        ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(m_button), 0);
    }

    static inline FontDialog* s_open = nullptr;
    int m_button;
    std::vector<std::pair<int, std::wstring>> m_choices;
    HHOOK m_hook;
};

/// The description of the base font in a block with eighteen entries.
LOGFONTW FontOf(Bytes bytes)
{
    xTAttribData table;
    const xTSettingsBlock block{bytes.data(), static_cast<std::uint32_t>(bytes.size())};
    EXPECT_TRUE(table.LoadSettings(&block));
    return table.m_logFont;
}

TEST_F(FontTuning, CancellingTheFontDialogChangesNothing)
{
    FontDialog dialog(IDCANCEL, {{FontDialog::sizeList, L"20"}});
    click(page, idFont);
    EXPECT_TRUE(dialog.shown);
    EXPECT_EQ(Applied(), golden.bytes());
}

TEST_F(FontTuning, TheFontDialogStartsWithTheFontInUse)
{
    FontDialog dialog(IDCANCEL);
    click(page, idFont);
    EXPECT_EQ(dialog.face, L"Courier New");
}

TEST_F(FontTuning, TheFontDialogOffersFixedPitchFontsOnly)
{
    FontDialog dialog(IDCANCEL);
    click(page, idFont);
    ASSERT_FALSE(dialog.faces.empty());
    for (const std::wstring& face : dialog.faces) {
        EXPECT_NE(face, L"Arial");
        EXPECT_NE(face, L"Liberation Sans");
        EXPECT_NE(face, L"Tahoma");
    }
}

TEST_F(FontTuning, AChosenSizeIsTakenAndThePreviewIsMeasuredAnew)
{
    const HWND preview = ControlBelow(host.Window());
    edLoadText(preview, L"a\nb", 1);
    ::SetWindowPos(preview, nullptr, 0, 0, 200, 200, SWP_NOZORDER | SWP_NOMOVE);
    const auto height = [&] {
        edPoint top{};
        edPoint bottom{};
        edGetPosition(preview, ED_POSITION_CARET_TOP, &top);
        edGetPosition(preview, ED_POSITION_CARET_BOTTOM, &bottom);
        return bottom.y - top.y;
    };
    ::SetFocus(preview);
    PumpDialog(host.Window());
    const int before = height();
    FontDialog dialog(IDOK, {{FontDialog::sizeList, L"20"}});
    click(page, idFont);
    PumpDialog(host.Window());
    EXPECT_EQ(FontOf(Applied()).lfHeight, -27);  // 20 points at 96 dots per inch
    ::SetFocus(preview);
    ::InvalidateRect(preview, nullptr, TRUE);
    PumpDialog(host.Window());
    EXPECT_GT(height(), before * 3 / 2);
}

TEST_F(FontTuning, AnItalicFontGivesABaseFontWithoutTheItalic)
{
    FontDialog dialog(IDOK, {{FontDialog::styleList, L"Курсив"}, {FontDialog::sizeList, L"14"}});
    click(page, idFont);
    const LOGFONTW font = FontOf(Applied());
    EXPECT_EQ(font.lfItalic, 0);
    EXPECT_EQ(font.lfUnderline, 0);
    EXPECT_EQ(font.lfHeight, -19);
}

TEST_F(FontTuning, ABlockWithNonsenseForAFontStillOpensTheDialog)
{
    ::DestroyWindow(page);
    golden.bytes() = Golden([](xTAttribData& table) {
        std::fill(std::begin(table.m_logFont.lfFaceName), std::end(table.m_logFont.lfFaceName), L'\xFFFF');
        table.m_logFont.lfHeight = 2147483647;
        table.m_logFont.lfWidth = -2147483647;
        table.m_logFont.lfWeight = -1;
    });
    page = FontPage();
    FontDialog dialog(IDCANCEL);
    click(page, idFont);
    EXPECT_TRUE(dialog.shown);
    EXPECT_EQ(Applied(), golden.bytes());
}

// ---- The template

struct ControlRow {
    int id;  // -1: none of its own
    const wchar_t* kind;
    const wchar_t* text;
};

void ExpectControls(HWND page, const std::vector<ControlRow>& rows)
{
    for (const ControlRow& row : rows) {
        bool found = false;
        for (HWND child = ::GetWindow(page, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
            found = found || (static_cast<short>(::GetDlgCtrlID(child)) == row.id && ClassOf(child) == row.kind &&
                              (!row.text || WindowText(child) == row.text));
        EXPECT_TRUE(found) << row.id;
    }
}

TEST_F(FontTuning, HasTheControlsOfItsTemplate)
{
    ExpectControls(page, {{-1, L"Button", L"Табуляция"},
                          {-1, L"Button", L"Шрифт"},
                          {-1, L"Static", L"Размер"},
                          {idTabSize, L"Edit", L"4"},
                          {idSpaces, L"Button", L"Заменять пробелами"},
                          {idTabs, L"Button", L"Сохранять табуляцию"},
                          {idFont, L"Button", L"Шрифт..."},
                          {-1, L"Static", L"Выбор шрифта редактора "}});
}

TEST_F(Pages, TheHighlightPageHasTheControlsOfItsTemplate)
{
    ExpectControls(HighlightPage(), {{idHighlight, L"Button", L"Использовать подсветку"},
                                     {-1, L"Static", L"Стандартные настройки"},
                                     {idTheme, L"ComboBox", nullptr},
                                     {idElements, L"ListBox", nullptr},
                                     {-1, L"Static", L"Элемент"},
                                     {-1, L"Button", L"Шрифт"},
                                     {idBold, L"Button", L"Жирный"},
                                     {idItalic, L"Button", L"Наклонный"},
                                     {idUnderline, L"Button", L"Подчеркнутый"},
                                     {-1, L"Static", L"Цвет"},
                                     {idGridPlace, L"Static", nullptr},
                                     {idSample, L"Static", L"Пример"},
                                     {idPreviewPlace, L"Static", L"Test editor location"}});
}

TEST_F(Pages, TheirSizesAreThoseOfTheTemplates)
{
    const edSettingsBlock block = Settings();
    const struct {
        HWND page;
        RECT units;
    } rows[] = {{edCreateFontTuneDialog(host.Window(), nullptr, &block, nullptr), {0, 0, 238, 147}},
                {edCreateHighlightTuneDialog(host.Window(), nullptr, &block, nullptr), {0, 0, 250, 190}}};
    for (const auto& row : rows) {
        RECT pixels = row.units;
        ::MapDialogRect(row.page, &pixels);
        RECT client{};
        ::GetClientRect(row.page, &client);
        EXPECT_TRUE(::EqualRect(&client, &pixels)) << row.units.right;
    }
}

}  // namespace
