// The page of colours and styles, worked by real clicks and keys; what the host would keep is compared after each.

#include "tests/control/tuning/Pages.h"

#include <array>

namespace {

struct Element {
    const wchar_t* name;
    std::uint32_t flag;
    bool hasFont;
};

constexpr Element elements[] = {
    {L"Идентификаторы", ATTR_IDENTIFIER, true},
    {L"Ключевые слова", ATTR_KEYWORD, true},
    {L"Символы", ATTR_SYMBOL, true},
    {L"Строки", ATTR_STRING, true},
    {L"Числа", ATTR_NUMBER, true},
    {L"Комментарии", ATTR_COMMENT, true},
    {L"Цвет фона", ATTR_BACKGROUND, false},
    {L"Текст", ATTR_TEXT, true},
    {L"Выделенный текст", ATTR_SELECTION, false},
    {L"Точки останова", ATTR_BREAKPOINT, false},
    {L"Точка исполнения", ATTR_EXECPOINT, false},
    {L"Особые символы в строках", ATTR_STRING_SPECIAL, true},
    {L"Ключевые слова в строках", ATTR_STRING_KEYWORD, true},
    {L"Пользовательский 1", ATTR_USER1, true},
    {L"Пользовательский 2", ATTR_USER2, true},
    {L"Пользовательский 3", ATTR_USER3, true},
    {L"Пользовательский 4", ATTR_USER4, true},
    {L"Пользовательский 5", ATTR_USER5, true},
};

class HighlightTuning : public Pages {
protected:
    HWND page = HighlightPage();
    HWND preview = ControlBelow(page);
    HWND grid = ::GetDlgItem(page, idGrid);

    /// Goes to an element with the keys of the list.
    void choose(std::size_t index)
    {
        ::SetFocus(::GetDlgItem(page, idElements));
        press(VK_HOME);
        for (std::size_t i = 0; i < index; ++i)
            press(VK_DOWN);
    }
    void clickCell(int number) { Click(host.Window(), ::GetDlgItem(grid, number)); }
    [[nodiscard]] Bytes WithColor(std::uint32_t flag, int number)
    {
        return Golden([&](xTAttribData& table) { table.SetAttrColor(flag, number); });
    }
    /// The pixels of a cell, so that its marks can be told.
    [[nodiscard]] Picture CellPicture(int number) const
    {
        ::UpdateWindow(::GetDlgItem(grid, number));
        return Picture(::GetDlgItem(grid, number));
    }
    /// The numbers of the cells that show more than their colour: a frame, a mark or both.
    [[nodiscard]] std::vector<int> MarkedCells() const
    {
        std::vector<int> marked;
        for (int number = 1; number <= 16; ++number) {
            const Picture cell = CellPicture(number);
            if (!cell.AreaIs({0, 0, cell.Width(), cell.Height()}, xTAttribData::ColorIndexToRef(number)))
                marked.push_back(number);
        }
        return marked;
    }
    /// True when the frame two pixels inside the cell is drawn.
    [[nodiscard]] bool ShowsFrame(int number) const
    {
        const Picture cell = CellPicture(number);
        const COLORREF color = xTAttribData::ColorIndexToRef(number);
        const COLORREF frame = cell.At(2, 2);
        return frame != color && cell.AreaIs({2, 2, cell.Width() - 2, 3}, frame) &&
               cell.AreaIs({2, 2, 3, cell.Height() - 2}, frame) && cell.AreaIs({0, 0, cell.Width(), 2}, color);
    }
    [[nodiscard]] int FramedCell() const
    {
        for (int number = 1; number <= 16; ++number)
            if (ShowsFrame(number))
                return number;
        return 0;
    }
    [[nodiscard]] Picture PreviewPicture() const
    {
        ::UpdateWindow(preview);
        return Picture(preview);
    }
    void clearQueue() { PumpDialog(host.Window()); }
};

TEST_F(HighlightTuning, ListsTheElementsInTheirOrderAndSelectsTheFirst)
{
    const HWND list = ::GetDlgItem(page, idElements);
    ASSERT_EQ(::SendMessageW(list, LB_GETCOUNT, 0, 0), static_cast<LRESULT>(std::size(elements)));
    for (std::size_t i = 0; i < std::size(elements); ++i) {
        wchar_t text[100] = L"";
        ::SendMessageW(list, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text));
        EXPECT_STREQ(text, elements[i].name);
    }
    EXPECT_EQ(::SendMessageW(list, LB_GETCURSEL, 0, 0), 0);
}

TEST_F(HighlightTuning, ListsTheThemesAtTheIndexesOfTheirNumbers)
{
    const HWND combo = ::GetDlgItem(page, idTheme);
    const wchar_t* const names[] = {L"-", L"Классическая", L"Тиберит", L"Океан", L"Сумерки", L"Мирана"};
    ASSERT_EQ(::SendMessageW(combo, CB_GETCOUNT, 0, 0), static_cast<LRESULT>(std::size(names)));
    for (std::size_t i = 0; i < std::size(names); ++i) {
        wchar_t text[100] = L"";
        ::SendMessageW(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
        EXPECT_STREQ(text, names[i]);
    }
}

TEST_F(HighlightTuning, StartsWithTheFirstElementsStylesAndColour)
{
    EXPECT_TRUE(IsChecked(page, idHighlight));
    EXPECT_FALSE(IsChecked(page, idBold));
    EXPECT_EQ(MarkedCells(), std::vector<int>{10});  // dark green, an "x" without a frame
    EXPECT_EQ(Applied(), golden.bytes());
}

TEST_F(HighlightTuning, ShowsTheSampleTextInABorderAtItsPlace)
{
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(::GetParent(preview), page);
    EXPECT_TRUE(::IsWindowVisible(preview));
    EXPECT_TRUE(::GetWindowLongPtrW(preview, GWL_STYLE) & WS_BORDER);
    EXPECT_EQ(TextOf(preview), L"// Пример синтаксической подсветки\nЕСЛИ НЕ ДоступенSQL ТО\n"
                               L"\tСООБЩЕНИЕ(\"Нет доступа к SQL\" )\n\tкод_возврата = 13\nКОНЕЦ_ЕСЛИ");
    EXPECT_TRUE(edGetMode(preview, ED_MODE_READONLY));
    RECT place{};
    RECT marker{};
    ::GetWindowRect(preview, &place);
    ::GetWindowRect(::GetDlgItem(page, idPreviewPlace), &marker);
    EXPECT_TRUE(::EqualRect(&place, &marker));
    EXPECT_FALSE(::IsWindowVisible(::GetDlgItem(page, idPreviewPlace)));
    EXPECT_FALSE(::IsWindowVisible(::GetDlgItem(page, idGridPlace)));
}

TEST_F(HighlightTuning, EachElementShowsItsStylesAndItsCell)
{
    xTAttribData table;
    const xTSettingsBlock block = golden.Block();
    ASSERT_TRUE(table.LoadSettings(&block));
    for (std::size_t i = 0; i < std::size(elements); ++i) {
        choose(i);
        const std::int32_t entry = table.FindEntry(elements[i].flag);
        for (const int id : {idBold, idItalic, idUnderline})
            EXPECT_EQ(IsEnabled(page, id), elements[i].hasFont) << i;
        EXPECT_EQ(IsChecked(page, idBold), table.m_bold[entry]) << i;
        EXPECT_EQ(IsChecked(page, idItalic), table.m_italic[entry]) << i;
        EXPECT_EQ(IsChecked(page, idUnderline), table.m_underline[entry]) << i;
        EXPECT_EQ(MarkedCells(), std::vector<int>{xTAttribData::ColorRefToIndex(table.m_colors[entry])}) << i;
    }
    EXPECT_EQ(Applied(), golden.bytes());
}

TEST_F(HighlightTuning, AClickInTheListChoosesAnElementToo)
{
    const HWND list = ::GetDlgItem(page, idElements);
    RECT row{};
    ::SendMessageW(list, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
    POINT at{row.left + 10, (row.top + row.bottom) / 2};
    ::ClientToScreen(list, &at);
    ::SetCursorPos(at.x, at.y);
    ::mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    ::mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    PumpDialog(host.Window(), 50);
    EXPECT_EQ(MarkedCells(), std::vector<int>{2});  // keywords are blue
}

TEST_F(HighlightTuning, AColourOutsideThePaletteSelectsNoCell)
{
    ::DestroyWindow(page);
    golden.bytes() = Golden([](xTAttribData& table) { table.m_colors[table.FindEntry(ATTR_KEYWORD)] = 0x123456; });
    page = HighlightPage();
    grid = ::GetDlgItem(page, idGrid);
    choose(1);
    EXPECT_EQ(MarkedCells(), std::vector<int>{});
    EXPECT_EQ(Applied(), golden.bytes());
}

TEST_F(HighlightTuning, TheStyleBoxesSetTheElementsStylesAndRepaintThePreview)
{
    choose(7);  // the text
    const struct {
        int id;
        bool (xTAttribData::*field)[30];
    } boxes[] = {{idBold, &xTAttribData::m_bold}, {idItalic, &xTAttribData::m_italic}, {idUnderline, &xTAttribData::m_underline}};
    for (const auto& box : boxes) {
        const Picture before = PreviewPicture();
        click(page, box.id);
        EXPECT_EQ(Applied(), Golden([&](xTAttribData& table) { (table.*box.field)[table.FindEntry(ATTR_TEXT)] = true; }));
        EXPECT_NE(PreviewPicture(), before) << box.id;
        click(page, box.id);
        EXPECT_EQ(Applied(), golden.bytes());
        EXPECT_EQ(PreviewPicture(), before) << box.id;
    }
}

TEST_F(HighlightTuning, TheSpaceKeyWorksTheStyleBoxes)
{
    ::SetFocus(::GetDlgItem(page, idBold));
    press(VK_SPACE);
    EXPECT_EQ(Applied(), Golden([](xTAttribData& table) { table.m_bold[table.FindEntry(ATTR_IDENTIFIER)] = true; }));
}

TEST_F(HighlightTuning, EachThemeFillsTheTableAndLeavesBoxesAndGridAsTheyAre)
{
    choose(1);
    const auto marked = MarkedCells();
    ::SetFocus(::GetDlgItem(page, idTheme));
    for (std::uint32_t theme = 1; theme <= 5; ++theme) {
        press(VK_DOWN);
        EXPECT_EQ(Applied(), Golden([&](xTAttribData& table) { table.FillTheme(theme); })) << theme;
        EXPECT_EQ(MarkedCells(), marked);
        EXPECT_FALSE(IsChecked(page, idBold)) << "keywords of theme 2 are bold, but the boxes are not reloaded";
    }
    EXPECT_EQ(PreviewPicture().At(PreviewPicture().Width() - 3, 3), COLORREF{0});  // theme 5 is black
    const Bytes fifth = Applied();
    press(VK_HOME);  // back to "-"
    EXPECT_EQ(Applied(), fifth);
}

TEST_F(HighlightTuning, SwitchingHighlightingOffDisablesAllTheRest)
{
    click(page, idHighlight);
    EXPECT_EQ(Applied(), Golden([](xTAttribData& table) { table.m_highlight = false; }));
    for (const int id : {idElements, idTheme, idBold, idItalic, idUnderline, idGrid})
        EXPECT_FALSE(IsEnabled(page, id)) << id;
    clickCell(5);
    EXPECT_EQ(Applied(), Golden([](xTAttribData& table) { table.m_highlight = false; }));
    click(page, idHighlight);
    EXPECT_EQ(Applied(), golden.bytes());
    for (const int id : {idElements, idTheme, idBold, idItalic, idUnderline, idGrid})
        EXPECT_TRUE(IsEnabled(page, id)) << id;
}

TEST_F(HighlightTuning, StartsDisabledWhereTheBlockHasHighlightingOff)
{
    ::DestroyWindow(page);
    golden.bytes() = Golden([](xTAttribData& table) { table.m_highlight = false; });
    page = HighlightPage();
    EXPECT_FALSE(IsChecked(page, idHighlight));
    for (const int id : {idElements, idTheme, idBold, idItalic, idUnderline, idGrid})
        EXPECT_FALSE(IsEnabled(page, id)) << id;
}

TEST_F(HighlightTuning, SwitchingHighlightingOnEnablesTheStyleBoxesOfTheBackgroundToo)
{
    choose(6);
    ASSERT_FALSE(IsEnabled(page, idBold));
    click(page, idHighlight);
    click(page, idHighlight);
    EXPECT_TRUE(IsEnabled(page, idBold));  // kept on purpose
}

TEST_F(HighlightTuning, AClickOnEachCellGivesTheElementItsColour)
{
    choose(7);
    for (int number = 1; number <= 16; ++number) {
        clickCell(number);
        EXPECT_EQ(Applied(), WithColor(ATTR_TEXT, number));
        EXPECT_EQ(MarkedCells(), std::vector<int>{number});
        EXPECT_TRUE(ShowsFrame(number));
        EXPECT_EQ(::GetFocus(), grid);
    }
}

TEST_F(HighlightTuning, ThePreviewTakesTheColourAtOnce)
{
    choose(6);  // the background
    clickCell(9);
    clearQueue();
    EXPECT_EQ(PreviewPicture().At(PreviewPicture().Width() - 3, 3), COLORREF{0x800000});
}

TEST_F(HighlightTuning, TheContrastOfTheMarksIsBlackOnBrightColoursAndWhiteOnTheOthers)
{
    choose(7);
    for (int number = 1; number <= 16; ++number) {
        clickCell(number);
        const bool bright = (number >= 3 && number <= 8) || number == 16;
        EXPECT_EQ(CellPicture(number).At(2, 2), bright ? COLORREF{0} : COLORREF{0xFFFFFF}) << number;
    }
}

TEST_F(HighlightTuning, TheArrowKeysMoveTheFrameAndComeRoundAtTheEnds)
{
    const struct {
        WORD key;
        std::array<int, 17> to;  // from each cell; the first is unused
    } rows[] = {
        {VK_LEFT, {0, 16, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
        {VK_RIGHT, {0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 1}},
        {VK_UP, {0, 13, 14, 15, 16, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
        {VK_DOWN, {0, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 1, 2, 3, 4}},
    };
    for (int from = 1; from <= 16; ++from) {
        clickCell(from);
        for (const auto& row : rows) {
            const Bytes before = Applied();
            press(row.key);
            const int to = row.to[static_cast<std::size_t>(from)];
            EXPECT_EQ(FramedCell(), to) << "from " << from;
            EXPECT_EQ(Applied(), before) << "moving chooses nothing";
            EXPECT_EQ(MarkedCells().size(), 2u) << "the chosen cell keeps its mark";
            ::SendMessageW(grid, WM_KEYDOWN, row.key == VK_LEFT    ? VK_RIGHT
                                             : row.key == VK_RIGHT ? VK_LEFT
                                             : row.key == VK_UP    ? VK_DOWN
                                                                   : VK_UP, 0);
        }
    }
}

TEST_F(HighlightTuning, TheSpaceKeyChoosesTheFramedCell)
{
    clickCell(1);
    press(VK_RIGHT);
    press(VK_DOWN);
    press(VK_SPACE);
    EXPECT_EQ(Applied(), WithColor(ATTR_IDENTIFIER, 6));
    EXPECT_EQ(MarkedCells(), std::vector<int>{6});
    EXPECT_TRUE(ShowsFrame(6));
}

TEST_F(HighlightTuning, TheFrameIsSeenOnlyWhileTheGridHasTheKeyboard)
{
    clickCell(4);
    EXPECT_EQ(FramedCell(), 4);
    ::SetFocus(::GetDlgItem(page, idElements));
    PumpDialog(host.Window());
    EXPECT_EQ(FramedCell(), 0);
    EXPECT_EQ(MarkedCells(), std::vector<int>{4});
    ::SetFocus(::GetDlgItem(grid, 1));  // a cell that is given the keyboard lets the grid work it
    press(VK_SPACE);
    EXPECT_EQ(Applied(), WithColor(ATTR_IDENTIFIER, 4));
    EXPECT_EQ(::GetFocus(), grid);
}

TEST_F(HighlightTuning, TheGridWantsArrowsAndCharacters)
{
    EXPECT_EQ(::SendMessageW(grid, WM_GETDLGCODE, 0, 0), 129);
}

TEST_F(HighlightTuning, EachCellHasAQuarterOfTheGrid)
{
    RECT all{};
    ::GetClientRect(grid, &all);
    for (int number = 1; number <= 16; ++number) {
        RECT cell{};
        ::GetWindowRect(::GetDlgItem(grid, number), &cell);
        ::MapWindowPoints(nullptr, grid, reinterpret_cast<POINT*>(&cell), 2);
        EXPECT_EQ(cell.left, (number - 1) % 4 * (all.right / 4));
        EXPECT_EQ(cell.top, (number - 1) / 4 * (all.bottom / 4));
        EXPECT_EQ(cell.right - cell.left, all.right / 4);
        EXPECT_EQ(cell.bottom - cell.top, all.bottom / 4);
    }
}

TEST_F(HighlightTuning, WithoutASelectedElementNothingIsColoured)
{
    ::SendMessageW(::GetDlgItem(page, idElements), LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    clickCell(5);
    click(page, idBold);
    EXPECT_EQ(Applied(), golden.bytes());
}

TEST_F(HighlightTuning, ATableWithoutTheElementStaysAsItIs)
{
    ::DestroyWindow(page);
    golden = xTSettingsBytes();
    golden.Number(xTSettingsBytes::magic).Number(1).Byte(1).Entry(false, false, false, 0, 4).Font(-13, 0, L"Courier New").Tail(true, 4);
    page = HighlightPage();
    grid = ::GetDlgItem(page, idGrid);
    clickCell(5);
    click(page, idBold);
    EXPECT_EQ(Applied(), golden.bytes());
}

TEST_F(HighlightTuning, TabGoesThroughTheControlsInTheirOrder)
{
    ::SetFocus(::GetDlgItem(page, idHighlight));
    for (const int id : {idTheme, idElements, idBold, idItalic, idUnderline, idGrid, idHighlight}) {
        press(VK_TAB);
        EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), id);
    }
}

}  // namespace
