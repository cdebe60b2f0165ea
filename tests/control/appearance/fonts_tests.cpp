#include "tests/control/appearance/Canvas.h"
#include "tests/support/SettingsBytes.h"

namespace {

LOGFONTW Description(HFONT font)
{
    LOGFONTW lf{};
    ::GetObjectW(font, sizeof lf, &lf);
    return lf;
}

// Closes each message box as it comes up, keeps its text and lets a test do something about what it says.
class BoxWatcher {
public:
    explicit BoxWatcher(std::function<void(int)> onBox = {}) : m_onBox(std::move(onBox))
    {
        s_current = this;
        m_hook = ::SetWindowsHookExW(WH_CBT, &BoxWatcher::Hook, nullptr, ::GetCurrentThreadId());
    }
    ~BoxWatcher()
    {
        ::UnhookWindowsHookEx(m_hook);
        s_current = nullptr;
    }

    std::vector<std::wstring> texts;
    std::vector<std::wstring> captions;

private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam)
    {
        const auto box = reinterpret_cast<HWND>(wParam);
        wchar_t name[16] = L"";
        if (code == HCBT_ACTIVATE && ::GetClassNameW(box, name, 16) && std::wstring(name) == L"#32770") {
            wchar_t text[500] = L"";
            wchar_t caption[100] = L"";
            ::GetDlgItemTextW(box, 0xFFFF, text, 500);
            ::GetWindowTextW(box, caption, 100);
            s_current->texts.emplace_back(text);
            s_current->captions.emplace_back(caption);
            if (s_current->m_onBox)
                s_current->m_onBox(static_cast<int>(s_current->texts.size()));
            ::PostMessageW(box, WM_COMMAND, IDOK, 0);
        }
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static inline BoxWatcher* s_current = nullptr;
    std::function<void(int)> m_onBox;
    HHOOK m_hook;
};

class Fonts : public AppearanceTest {};

TEST_F(Fonts, TheDefaultIsTenPointsOfCourierNew)
{
    EXPECT_STREQ(table->m_logFont.lfFaceName, L"Courier New");
    EXPECT_EQ(table->m_logFont.lfHeight, -::MulDiv(::GetDeviceCaps(canvas.dc.m_hDC, LOGPIXELSY), 10, 72));
    EXPECT_EQ(table->m_logFont.lfOutPrecision, OUT_TT_ONLY_PRECIS);
    EXPECT_EQ(table->m_lastAttr, 6u);
    EXPECT_EQ(table->m_count, 18);
}

TEST_F(Fonts, AllEightStylesExist)
{
    for (DWORD key = 0; key < 8; ++key) {
        ASSERT_NE(table->FindFont(key), nullptr) << key;
        const LOGFONTW lf = Description(table->FindFont(key));
        EXPECT_EQ(lf.lfWeight == 700, (key & 1) != 0) << key;
        EXPECT_EQ(lf.lfItalic != 0, (key & 2) != 0) << key;
        EXPECT_EQ(lf.lfUnderline != 0, (key & 4) != 0) << key;
        EXPECT_EQ(lf.lfHeight, table->m_logFont.lfHeight);
    }
    EXPECT_EQ(table->FindFont(8), nullptr);
}

TEST_F(Fonts, MetricsAreThoseOfASpaceInTheBaseFont)
{
    const xTSelect selected(canvas.dc.m_hDC, table->FindFont(0));
    SIZE size{};
    const std::wstring spaces(33, L' ');
    ::GetTextExtentPoint32W(canvas.dc.m_hDC, spaces.data(), 33, &size);
    EXPECT_EQ(table->m_charWidth, size.cx / 33);
    EXPECT_EQ(table->m_charHeight, size.cy);
    EXPECT_GT(table->m_charWidth, 0);
}

TEST_F(Fonts, AnUnusualWeightSurvivesInTheKeysThatAreNotBold)
{
    LOGFONTW lf = table->m_logFont;
    lf.lfWeight = 550;
    ASSERT_TRUE(table->create_fonts(&lf, &canvas.dc));
    EXPECT_EQ(lf.lfWeight, 550);  // it leaves as the description of the base font
    EXPECT_EQ(lf.lfUnderline, 0);
    for (DWORD key = 0; key < 8; ++key)
        EXPECT_EQ(Description(table->FindFont(key)).lfWeight, key & 1 ? 700 : 550) << key;
}

TEST_F(Fonts, ABoldBaseFontStillDrawsTextThatIsNotBold)
{
    LOGFONTW lf = table->m_logFont;
    lf.lfWeight = 700;
    ASSERT_TRUE(table->create_fonts(&lf, &canvas.dc));
    EXPECT_EQ(Description(table->FindFont(0)).lfWeight, 700);
    table->ApplyAttr(ATTR_TEXT, &wnd, &canvas.dc);
    EXPECT_EQ(CurrentFont(), table->FindFont(0));  // key 0, which is what a weight of 400 asks for
}

TEST_F(Fonts, ANewBaseFontChangesTheMetrics)
{
    const LONG height = table->m_charHeight;
    LOGFONTW lf = table->m_logFont;
    lf.lfHeight *= 3;
    ASSERT_TRUE(table->create_fonts(&lf, &canvas.dc));
    EXPECT_GT(table->m_charHeight, 2 * height);
    EXPECT_EQ(table->m_logFont.lfHeight, lf.lfHeight);
    table->m_logFont.lfHeight /= 3;
    table->ReloadFonts(&canvas.dc);
    EXPECT_EQ(table->m_charHeight, height);
}

TEST_F(Fonts, AStyleFlagIsChangedWithoutARebuild)
{
    const HFONT bold = table->FindFont(xTAttribTable::FONT_BOLD);
    const HFONT plain = table->FindFont(0);
    table->m_bold[table->FindEntry(ATTR_TEXT)] = true;
    table->ApplyAttr(ATTR_TEXT, &wnd, &canvas.dc);
    EXPECT_EQ(CurrentFont(), bold);
    EXPECT_EQ(table->FindFont(0), plain);
}

TEST_F(Fonts, NullArgumentsDoNothing)
{
    const HFONT plain = table->FindFont(0);
    LOGFONTW lf = table->m_logFont;
    EXPECT_FALSE(table->create_fonts(nullptr, &canvas.dc));
    EXPECT_FALSE(table->create_fonts(&lf, nullptr));
    table->ReloadFonts(nullptr);
    EXPECT_EQ(table->FindFont(0), plain);
}

TEST_F(Fonts, CopiesAreEqualFontsUnderTheSameKeys)
{
    xTAttribTable other(nullptr, nullptr, 1);
    EXPECT_EQ(other.FindFont(0), nullptr);
    other.CopyFonts(*table);
    for (DWORD key = 0; key < 8; ++key) {
        ASSERT_NE(other.FindFont(key), nullptr);
        EXPECT_NE(other.FindFont(key), table->FindFont(key));
        const LOGFONTW a = Description(other.FindFont(key));
        const LOGFONTW b = Description(table->FindFont(key));
        EXPECT_EQ(std::memcmp(&a, &b, sizeof a), 0);
    }
    other.CopyFonts(other);
    EXPECT_NE(other.FindFont(0), nullptr);
    table->DeleteFonts();
    other.CopyFonts(*table);
    EXPECT_EQ(other.FindFont(0), nullptr);
}

TEST_F(Fonts, SelectingAStyleThatIsNotThereThrows)
{
    table->DeleteFonts();
    try {
        table->_MakeFontSelect(canvas.dc.m_hDC, table->m_logFont);
        FAIL() << "nothing thrown";
    } catch (const xTAttribTable::xTExceptSettings& e) {
        EXPECT_EQ(e.message, L"Шрифт редактора не найден!");
        EXPECT_EQ(e.place, L"_MakeFontSelect(...)");
    }
}

TEST_F(Fonts, SelectingIntoABadContextThrows)
{
    const HDC bad = ::CreateCompatibleDC(nullptr);
    ::DeleteDC(bad);
    try {
        table->_MakeFontSelect(bad, table->m_logFont);
        FAIL() << "nothing thrown";
    } catch (const xTAttribTable::xTExceptSettings& e) {
        EXPECT_EQ(e.message, L"Испорчен шрифт редактора!");
        EXPECT_EQ(e.place, L"_MakeFontSelect(...)");
    }
    try {
        LOGFONTW lf = table->m_logFont;
        table->add_font(&lf, 3, bad);
        FAIL() << "nothing thrown";
    } catch (const xTAttribTable::xTExceptSettings& e) {
        EXPECT_EQ(e.message, L"Испорчен шрифт редактора!");
        EXPECT_EQ(e.place, L"add_font(...)");
    }
}

TEST_F(Fonts, AMissingFontIsShownAndTheFontsAreRebuilt)
{
    table->DeleteFonts();
    BoxWatcher boxes;
    table->ApplyAttr(ATTR_TEXT, &wnd, &canvas.dc);
    ASSERT_EQ(boxes.texts.size(), 1u);
    EXPECT_EQ(boxes.captions[0], L"Ошибка!");
    EXPECT_EQ(boxes.texts[0], L"\n Просьба сообщить разработчику!\n Что случилось:Шрифт редактора не найден!"
                              L"\n Где:_MakeFontSelect(...)\n При каких обстоятельствах?\n Большое спасибо.");
    for (DWORD key = 0; key < 8; ++key)
        EXPECT_NE(table->FindFont(key), nullptr) << key;
    table->ApplyAttr(ATTR_TEXT, &wnd, &canvas.dc);
    EXPECT_EQ(boxes.texts.size(), 1u);
}

TEST_F(Fonts, AFailureInsideTheRebuildTakesTheSameWayAgainUntilItHeals)
{
    const HDC good = canvas.dc.m_hAttribDC;
    const HDC bad = ::CreateCompatibleDC(nullptr);
    ::DeleteDC(bad);
    canvas.dc.m_hAttribDC = bad;
    const char* stack = nullptr;
    std::ptrdiff_t growth = -1;
    BoxWatcher boxes([&](int count) {
        const char here = 0;
        if (count == 1)
            stack = &here;
        if (count == 6) {
            growth = stack - &here;
            canvas.dc.m_hAttribDC = good;
        }
    });
    LOGFONTW lf = table->m_logFont;
    EXPECT_FALSE(table->create_fonts(&lf, &canvas.dc));  // what failed stays failed, though it was healed
    EXPECT_EQ(boxes.texts.size(), 6u);
    EXPECT_NE(boxes.texts[0].find(L"create_fonts(...)"), std::wstring::npos);
    EXPECT_EQ(growth, 0);  // a loop, no recursion behind the message box
    for (DWORD key = 0; key < 8; ++key)
        EXPECT_NE(table->FindFont(key), nullptr) << key;
}

TEST_F(Fonts, TheRebuildEndsWhenTheContextHasGone)
{
    const HDC good = canvas.dc.m_hDC;
    const HDC bad = ::CreateCompatibleDC(nullptr);
    ::DeleteDC(bad);
    canvas.dc.m_hAttribDC = bad;
    BoxWatcher boxes([&](int) { canvas.dc.m_hDC = nullptr; });
    LOGFONTW lf = table->m_logFont;
    EXPECT_FALSE(table->create_fonts(&lf, &canvas.dc));
    EXPECT_EQ(boxes.texts.size(), 1u);
    canvas.dc.Attach(good);
}

TEST_F(Fonts, NoObjectIsLostInManyRebuilds)
{
    // The system has room for some 65,000 objects; a rebuild makes nine.
    for (int i = 0; i < 8000; ++i)
        table->ReloadFonts(&canvas.dc);
    for (DWORD key = 0; key < 8; ++key)
        ASSERT_NE(table->FindFont(key), nullptr) << key;
    for (int i = 0; i < 70000; ++i) {
        table->m_colors[0] = static_cast<COLORREF>(i);
        table->ApplyAttr(ATTR_BACKGROUND, &wnd, &canvas.dc);
    }
    const xTBrush brush(::CreateSolidBrush(1));
    EXPECT_NE(brush.get(), nullptr);
}

// The road from settings and themes to the table

TEST_F(Fonts, SavedSettingsWinOverTheDefaultTheme)
{
    xTSettingsBytes bytes;
    bytes.Number(xTSettingsBytes::magic).Number(1).Byte(0).Entry(true, false, false, 0x123456, ATTR_TEXT);
    bytes.Font(-20, 0, L"Courier New").Tail(false, 3);
    const xTSettingsBlock block = bytes.Block();
    const xTAttribTable own(&canvas.dc, &block, 3);
    EXPECT_EQ(own.m_count, 1);
    EXPECT_EQ(own.m_colors[0], 0x123456u);
    EXPECT_EQ(own.m_tabSize, 3);
    EXPECT_EQ(Description(own.FindFont(0)).lfHeight, -20);
}

TEST_F(Fonts, AnUnreadableBlockGivesTheFallback)
{
    xTSettingsBytes bytes = xTSettingsBytes::Golden();
    bytes.bytes()[3] ^= 0x40;
    const xTSettingsBlock wrongMagic = bytes.Block();
    xTSettingsBytes none;
    none.Number(xTSettingsBytes::magic).Number(0);
    const xTSettingsBlock countNull = none.Block();
    for (const xTSettingsBlock* block : {&wrongMagic, &countNull}) {
        table->SetStandardTheme(&canvas.dc, block, 0, 3);
        EXPECT_EQ(table->m_count, 18);
        EXPECT_EQ(ColorOf(ATTR_BACKGROUND), 0x800000u);
        table->SetStandardTheme(&canvas.dc, block, 0, 0);
        EXPECT_EQ(ColorOf(ATTR_KEYWORD), 0xFF0000u);  // theme 1
    }
}

TEST_F(Fonts, AnUnknownFallbackGivesAnEmptyTableOnWhichNothingApplies)
{
    table->SetStandardTheme(&canvas.dc, nullptr, 0, 9);
    EXPECT_EQ(table->m_count, 0);
    ::SetBkColor(canvas.dc.m_hDC, 0x111111);
    ::SetTextColor(canvas.dc.m_hDC, 0x222222);
    table->ApplyAttrWord(0xFFFFFFFF, &wnd, &canvas.dc);
    EXPECT_EQ(::GetBkColor(canvas.dc.m_hDC), 0x111111u);
    EXPECT_EQ(::GetTextColor(canvas.dc.m_hDC), 0x222222u);
}

TEST_F(Fonts, AThemeKeepsTheUsersFontAndTabs)
{
    table->m_logFont.lfHeight = -20;
    table->m_tabSize = 7;
    SetTheme(4);
    EXPECT_EQ(Description(table->FindFont(0)).lfHeight, -20);
    EXPECT_EQ(table->m_tabSize, 7);
}

TEST_F(Fonts, ARejectedBlockStillRebuildsTheFonts)
{
    table->m_logFont.lfHeight = -21;
    const xTSettingsBlock empty;
    table->ReloadSettings(&empty, &canvas.dc);
    EXPECT_EQ(Description(table->FindFont(0)).lfHeight, -21);
    table->m_logFont.lfHeight = -22;
    table->ReloadSettings(nullptr, &canvas.dc);
    EXPECT_EQ(Description(table->FindFont(0)).lfHeight, -22);
}

TEST_F(Fonts, MonstrousSizesAreHeldAtTheirUse)
{
    for (const std::int32_t size : {2147483647, -2147483647 - 1, 0, 1000000}) {
        xTSettingsBytes bytes;
        bytes.Number(xTSettingsBytes::magic).Number(2).Byte(1).Entry(false, false, false, 0xFFFFFF, ATTR_BACKGROUND);
        bytes.Entry(false, false, false, 0, ATTR_TEXT).Font(size, size, std::wstring(32, L'W')).Tail(true, size);
        const xTSettingsBlock block = bytes.Block();
        table->ReloadSettings(&block, &canvas.dc);
        EXPECT_EQ(table->m_tabSize, size);
        EXPECT_GE(table->m_charHeight, 1);
        EXPECT_LE(table->m_charHeight, 4000);
        EXPECT_GE(table->m_charWidth, 0);
        xTExtString line = Line(L"\t\ta\tb");
        line.MarkSelected(2);
        Show(line);
        EXPECT_GE(table->RunExtent(L"\t", &canvas.dc).cx, 0);
    }
}

}  // namespace
