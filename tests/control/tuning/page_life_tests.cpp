// How pages and their one preview come, share and go, whatever the host does meanwhile.

#include "tests/control/tuning/Pages.h"

#include <commctrl.h>

#include <functional>

namespace {

constexpr UINT commandHelp = 0x365;
constexpr UINT helpHitTest = 0x366;

class PageLife : public Pages {};

TEST_F(PageLife, WithNoPageOpenThereIsNothingToApply)
{
    Bytes room(300, 0xEE);
    edSettingsBlock block{room.data(), 300};
    EXPECT_EQ(edApplyTuningChanges(&block), 0u);
    EXPECT_EQ(room, Bytes(300, 0xEE));
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
}

TEST_F(PageLife, AfterTheLastPageHasClosedThereIsNothingToApply)
{
    const HWND font = FontPage();
    const HWND highlight = HighlightPage();
    EXPECT_EQ(Applied().size(), 266u);
    ::DestroyWindow(font);
    EXPECT_EQ(Applied().size(), 266u);
    ::DestroyWindow(highlight);
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
    EXPECT_EQ(ControlBelow(host.Window()), nullptr) << "the preview went with the last page";
}

TEST_F(PageLife, ABlockThatIsTooSmallStaysAndLearnsTheSize)
{
    static_cast<void>(FontPage());
    Bytes room(265, 0xEE);
    edSettingsBlock block{room.data(), 265};
    EXPECT_EQ(edApplyTuningChanges(&block), 266u);
    EXPECT_EQ(room, Bytes(265, 0xEE));
    EXPECT_EQ(block.size, 265u);
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u) << "no block, nothing to write into";
}

TEST_F(PageLife, ApplyingAsksThePreviewForARepaint)
{
    const HWND preview = ControlBelow(HighlightPage());
    ::UpdateWindow(preview);
    ::ValidateRect(preview, nullptr);
    static_cast<void>(Applied());
    EXPECT_TRUE(::GetUpdateRect(preview, nullptr, FALSE));
}

TEST_F(PageLife, APageNeedsAWindowAsParentAndSettings)
{
    const edSettingsBlock block = Settings();
    for (const auto create : {edCreateFontTuneDialog, edCreateHighlightTuneDialog}) {
        EXPECT_EQ(create(nullptr, nullptr, &block, nullptr), nullptr);
        EXPECT_EQ(create(reinterpret_cast<HWND>(0x12345678), nullptr, &block, nullptr), nullptr);
        EXPECT_EQ(create(host.Window(), nullptr, nullptr, nullptr), nullptr);
    }
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
    EXPECT_EQ(::GetWindow(host.Window(), GW_CHILD), nullptr);
}

TEST_F(PageLife, ABlockThatIsNotReadableGivesThemeOne)
{
    const edSettingsBlock empty{};
    ASSERT_NE(edCreateFontTuneDialog(host.Window(), nullptr, &empty, nullptr), nullptr);
    const Bytes bytes = Applied();
    ASSERT_EQ(bytes.size(), 266u);
    EXPECT_TRUE(std::equal(bytes.begin(), bytes.begin() + 9 + 18 * 11, golden.bytes().begin()));
}

TEST_F(PageLife, ThePageIsMovedToTheRectangle)
{
    const edSettingsBlock block = Settings();
    const RECT wanted{11, 22, 333, 244};
    const HWND page = edCreateFontTuneDialog(host.Window(), &wanted, &block, nullptr);
    RECT place{};
    ::GetWindowRect(page, &place);
    ::MapWindowPoints(nullptr, host.Window(), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_TRUE(::EqualRect(&place, &wanted));
    EXPECT_TRUE(::IsWindowVisible(page));
}

TEST_F(PageLife, MakingAPageLeavesTheFocusWhereItIs)
{
    const HWND other = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 300, 50, 20, host.Window(), nullptr, nullptr, nullptr);
    ::SetFocus(other);
    static_cast<void>(FontPage());
    static_cast<void>(HighlightPage());
    PumpDialog(host.Window());
    EXPECT_EQ(::GetFocus(), other);
}

TEST_F(PageLife, ThePreviewIsOnePixelAtTheParentUntilAPageShowsIt)
{
    const HWND font = FontPage();
    const HWND preview = ControlBelow(host.Window());
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(::GetParent(preview), host.Window());
    EXPECT_TRUE(::IsWindowVisible(preview));
    RECT place{};
    ::GetWindowRect(preview, &place);
    EXPECT_EQ(place.right - place.left, 1);
    EXPECT_EQ(place.bottom - place.top, 1);
    const HWND highlight = HighlightPage();
    EXPECT_EQ(::GetParent(preview), highlight);
    ::DestroyWindow(highlight);
    EXPECT_EQ(::GetParent(preview), host.Window());
    EXPECT_FALSE(::IsWindowVisible(preview));
    ::DestroyWindow(font);
    EXPECT_FALSE(::IsWindow(preview));
}

TEST_F(PageLife, BothPagesWorkOnOnePreview)
{
    const HWND font = FontPage();
    const HWND highlight = HighlightPage();
    click(font, idSpaces);
    click(highlight, idBold);
    EXPECT_EQ(Applied(), Golden([](xTAttribData& table) {
                  table.m_keepTabs = false;
                  table.m_bold[table.FindEntry(ATTR_IDENTIFIER)] = true;
              }));
}

TEST_F(PageLife, ALaterPageGoesOnWithTheOpenPreviewWhateverItsBlock)
{
    const HWND font = FontPage();
    click(font, idSpaces);
    const edSettingsBlock other{};
    const HWND second = edCreateFontTuneDialog(host.Window(), nullptr, &other, nullptr);
    EXPECT_TRUE(IsChecked(second, idSpaces));
    EXPECT_EQ(Applied().size(), 266u);
}

TEST_F(PageLife, PagesMadeTwiceCountTwice)
{
    const HWND pages[] = {FontPage(), FontPage(), HighlightPage(), HighlightPage()};
    for (const HWND page : pages) {
        EXPECT_EQ(Applied().size(), 266u);
        ::DestroyWindow(page);
    }
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
}

TEST_F(PageLife, OfTwoHighlightPagesTheLaterHasThePreviewAlsoWhenTheFirstGoes)
{
    const HWND first = HighlightPage();
    const HWND second = HighlightPage();
    const HWND preview = ControlBelow(second);
    ASSERT_NE(preview, nullptr);
    ::DestroyWindow(first);
    EXPECT_EQ(::GetParent(preview), second);
    EXPECT_TRUE(::IsWindowVisible(preview));
    const HWND font = FontPage();
    ::DestroyWindow(second);  // its predecessor is gone: the preview goes back to where it began
    EXPECT_TRUE(::IsWindow(preview));
    EXPECT_EQ(::GetParent(preview), host.Window());
    EXPECT_EQ(Applied(), golden.bytes());
    ::DestroyWindow(font);
    EXPECT_FALSE(::IsWindow(preview));
}

TEST_F(PageLife, OpenedAgainThePagesBeginWithTheBlockOfThatTime)
{
    for (const bool keep : {true, false, true}) {
        golden.bytes() = Golden([&](xTAttribData& table) { table.m_keepTabs = keep; });
        const HWND font = FontPage();
        EXPECT_EQ(IsChecked(font, idTabs), keep);
        EXPECT_EQ(Applied(), golden.bytes());
        ::DestroyWindow(font);
    }
}

// ---- The hook

struct Counter {
    int calls = 0;
    std::function<void()> inside;
    edHighlightHook hook{&Counter::Classify, this};
    static void Classify(void* ctx, wchar_t* text, int)
    {
        auto& self = *static_cast<Counter*>(ctx);
        ++self.calls;
        for (; *text; ++text)
            *text = ED_CLASS_KEYWORD;
        if (self.inside)
            self.inside();
    }
};

TEST_F(PageLife, TheFirstHookGivenClassifiesThePreview)
{
    Counter late;
    Counter later;
    const HWND page = HighlightPage();  // none yet
    const HWND preview = ControlBelow(page);
    static_cast<void>(FontPage(&late.hook));
    static_cast<void>(FontPage(&later.hook));
    ::InvalidateRect(preview, nullptr, TRUE);
    ::UpdateWindow(preview);
    EXPECT_GT(late.calls, 0);
    EXPECT_EQ(later.calls, 0);
}

TEST_F(PageLife, AHookThatDestroysThePageInTheMiddleOfAClickBringsNothingDown)
{
    for (const int id : {idBold, idHighlight}) {
        golden.bytes() = Golden([&](xTAttribData& table) { table.m_highlight = id != idHighlight; });
        Counter killer;
        const HWND page = HighlightPage(&killer.hook);
        ::UpdateWindow(ControlBelow(page));
        killer.inside = [&] {
            killer.inside = nullptr;
            ::DestroyWindow(page);
        };
        ::SendMessageW(::GetDlgItem(page, id), BM_CLICK, 0, 0);
        EXPECT_FALSE(::IsWindow(page)) << id;
        EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
    }
}

TEST_F(PageLife, AParentThatDestroysThePageWhenAColourTakesTheFocusBringsNothingDown)
{
    const HWND page = HighlightPage();
    const HWND edit = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 300, 50, 20, page, reinterpret_cast<HMENU>(7), nullptr, nullptr);
    ::SetFocus(edit);
    ::SetWindowSubclass(edit, [](HWND window, UINT id, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR target) -> LRESULT {
        if (id == WM_KILLFOCUS)
            ::DestroyWindow(reinterpret_cast<HWND>(target));
        return ::DefSubclassProc(window, id, wParam, lParam);
    }, 1, reinterpret_cast<DWORD_PTR>(page));
    ::SendMessageW(::GetDlgItem(::GetDlgItem(page, idGrid), 5), WM_LBUTTONDOWN, 0, 0);
    EXPECT_FALSE(::IsWindow(page));
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
}

// ---- The parent

TEST_F(PageLife, AParentDestroyedWithPagesOpenTakesEverythingAlong)
{
    for (const bool highlightFirst : {false, true}) {
        ControlHost other;
        const edSettingsBlock block = Settings();
        if (highlightFirst)
            edCreateHighlightTuneDialog(other.Window(), nullptr, &block, nullptr);
        edCreateFontTuneDialog(other.Window(), nullptr, &block, nullptr);
        edCreateHighlightTuneDialog(other.Window(), nullptr, &block, nullptr);
        EXPECT_EQ(Applied().size(), 266u);
        ::DestroyWindow(other.Window());
        EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
    }
    static_cast<void>(FontPage());
    EXPECT_EQ(Applied(), golden.bytes());
}

TEST_F(PageLife, ThePreviewOutlivesItsFirstParentOnAPageOfAnother)
{
    const edSettingsBlock block = Settings();
    HWND highlight = nullptr;
    {
        ControlHost first;
        edCreateFontTuneDialog(first.Window(), nullptr, &block, nullptr);
        highlight = HighlightPage();
    }
    EXPECT_EQ(Applied(), golden.bytes());
    click(highlight, idBold);
    const Bytes changed = Applied();
    EXPECT_NE(changed, golden.bytes());
    const HWND font = FontPage();
    ::DestroyWindow(highlight);  // there is no parent to go back to
    EXPECT_EQ(Applied(), changed);
    highlight = HighlightPage();
    EXPECT_EQ(::GetParent(ControlBelow(highlight)), highlight);
    EXPECT_EQ(Applied(), changed);
    ::DestroyWindow(font);
    ::DestroyWindow(highlight);
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
}

TEST_F(PageLife, AfterTheHostDestroyedThePreviewThePagesDoNothingUntilThereIsANewOne)
{
    const HWND highlight = HighlightPage();
    const HWND font = FontPage();
    edDestroyCtrl(ControlBelow(host.Window()));
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
    click(highlight, idBold);
    click(highlight, idHighlight);
    click(font, idSpaces);
    Click(host.Window(), ::GetDlgItem(::GetDlgItem(highlight, idGrid), 3));
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
    static_cast<void>(FontPage());
    EXPECT_EQ(Applied(), golden.bytes());
    click(font, idSpaces);
    EXPECT_NE(Applied(), golden.bytes());
}

TEST_F(PageLife, PagesWhoseControlsAreGoneDoNothing)
{
    const HWND highlight = HighlightPage();
    const HWND font = FontPage();
    for (const int id : {idTheme, idElements, idHighlight, idBold, idGrid})
        ::DestroyWindow(::GetDlgItem(highlight, id));
    for (const int id : {idTheme, idElements, idHighlight, idBold, idGrid})
        for (const int code : {BN_CLICKED, LBN_SELCHANGE, EN_KILLFOCUS})
            ::SendMessageW(highlight, WM_COMMAND, MAKEWPARAM(id, code), 0);
    ::DestroyWindow(::GetDlgItem(font, idTabSize));
    ::SendMessageW(font, WM_COMMAND, MAKEWPARAM(idTabSize, 77), 0);
    EXPECT_EQ(Applied().size(), 266u);
}

TEST_F(PageLife, MessagesThatOnlyTheSystemSendsDoNoHarmFromAnybodyElse)
{
    const HWND font = FontPage();
    const HWND highlight = HighlightPage();
    for (const HWND page : {font, highlight}) {
        ::SendMessageW(page, WM_INITDIALOG, 0, 0);
        ::SendMessageW(page, WM_CREATE, 0, 0);
    }
    EXPECT_EQ(::SendMessageW(::GetDlgItem(highlight, idElements), LB_GETCOUNT, 0, 0), 18);
    ::SendMessageW(font, WM_DESTROY, 0, 0);
    ::SendMessageW(font, WM_DESTROY, 0, 0);
    EXPECT_EQ(Applied().size(), 266u) << "the other page still counts";
}

TEST_F(PageLife, CellsAndGridAreNoControlsOfTheLibrary)
{
    const HWND grid = ::GetDlgItem(HighlightPage(), idGrid);
    EXPECT_EQ(edGetHWND(grid), nullptr);
    EXPECT_EQ(edGetHWND(::GetDlgItem(grid, 1)), nullptr);
    EXPECT_EQ(edGetLineCount(grid), 0u);
    edDestroyCtrl(grid);
    EXPECT_TRUE(::IsWindow(grid));
}

// ---- Help messages

struct HelpSeen {
    UINT id = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

TEST_F(PageLife, HelpMessagesGoToTheParentUnchangedAndItsAnswerComesBack)
{
    HelpSeen seen;
    ::SetWindowSubclass(host.Window(), [](HWND window, UINT id, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR target) -> LRESULT {
        if (id != commandHelp && id != helpHitTest)
            return ::DefSubclassProc(window, id, wParam, lParam);
        *reinterpret_cast<HelpSeen*>(target) = {id, wParam, lParam};
        return 0x1234567;
    }, 1, reinterpret_cast<DWORD_PTR>(&seen));
    const HWND pages[] = {FontPage(), HighlightPage()};
    for (const HWND page : pages) {
        for (const UINT id : {commandHelp, helpHitTest}) {
            EXPECT_EQ(::SendMessageW(page, id, 0xABCDEF01, -77), 0x1234567);
            EXPECT_EQ(seen.id, id);
            EXPECT_EQ(seen.wParam, 0xABCDEF01u);
            EXPECT_EQ(seen.lParam, -77);
        }
    }
}

// ---- A host's property sheet

struct SheetPage {
    HWND (*create)(HWND, const RECT*, const edSettingsBlock*, const edHighlightHook*);
    edSettingsBlock block;
    HWND page = nullptr;

    static INT_PTR CALLBACK Procedure(HWND dialog, UINT id, WPARAM, LPARAM lParam)
    {
        if (id != WM_INITDIALOG)
            return FALSE;
        auto& self = *reinterpret_cast<SheetPage*>(reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam);
        RECT client{};
        ::GetClientRect(dialog, &client);
        self.page = self.create(dialog, &client, &self.block, nullptr);
        return FALSE;
    }
    [[nodiscard]] PROPSHEETPAGEW Description(const DLGTEMPLATE& dialog, const wchar_t* title)
    {
        PROPSHEETPAGEW page{};
        page.dwSize = sizeof page;
        page.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE;
        page.pResource = &dialog;
        page.pszTitle = title;
        page.pfnDlgProc = &SheetPage::Procedure;
        page.lParam = reinterpret_cast<LPARAM>(this);
        return page;
    }
};

TEST_F(PageLife, ThePagesSitInAPropertySheetAndTabGoesThroughThem)
{
    alignas(4) static const struct {
        DLGTEMPLATE dialog{DS_CONTROL | WS_CHILD, WS_EX_CONTROLPARENT, 0, 0, 0, 252, 192};
        WORD menu = 0, windowClass = 0, title = 0;
    } empty;
    SheetPage font{edCreateFontTuneDialog, Settings()};
    SheetPage highlight{edCreateHighlightTuneDialog, Settings()};
    PROPSHEETPAGEW descriptions[] = {font.Description(empty.dialog, L"Шрифт"), highlight.Description(empty.dialog, L"Цвета")};
    PROPSHEETHEADERW header{};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_MODELESS;
    header.hwndParent = host.Window();
    header.pszCaption = L"Настройка";
    header.nPages = 2;
    header.ppsp = descriptions;
    const auto sheet = reinterpret_cast<HWND>(::PropertySheetW(&header));
    ASSERT_TRUE(::IsWindow(sheet));
    PumpDialog(sheet, 100);
    ASSERT_NE(font.page, nullptr);
    EXPECT_EQ(highlight.page, nullptr) << "a sheet makes a page when it is turned to";
    ::SetFocus(::GetDlgItem(font.page, idTabSize));
    Press(sheet, VK_TAB);
    EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), idTabs);
    Press(sheet, VK_TAB);
    Press(sheet, VK_TAB);
    EXPECT_FALSE(::IsChild(font.page, ::GetFocus())) << "behind the last control the sheet's own follow";
    ::SendMessageW(sheet, PSM_SETCURSEL, 1, 0);
    PumpDialog(sheet, 100);
    ASSERT_NE(highlight.page, nullptr);
    Click(sheet, ::GetDlgItem(highlight.page, idBold));
    EXPECT_EQ(Applied(), Golden([](xTAttribData& table) { table.m_bold[table.FindEntry(ATTR_IDENTIFIER)] = true; }));
    ::DestroyWindow(sheet);
    PumpDialog(host.Window());
    EXPECT_EQ(edApplyTuningChanges(nullptr), 0u);
}

}  // namespace
