#include "appearance/AsciiFace.h"

#include "tests/control/appearance/Canvas.h"

#include <numeric>

namespace {

constexpr COLORREF white = 0xFFFFFF;

// The font of a test on two canvases: one is drawn on by the face, the other by the system alone.
class FaceTest : public testing::TestWithParam<DWORD> {
protected:
    void Select(const wchar_t* faceName, LONG height, DWORD style = 0)
    {
        LOGFONTW lf{};
        lf.lfHeight = height;
        lf.lfWeight = style & xTAttribData::FONT_BOLD ? 700 : 400;
        lf.lfItalic = (style & xTAttribData::FONT_ITALIC) != 0;
        lf.lfUnderline = (style & xTAttribData::FONT_UNDERLINE) != 0;
        ::lstrcpynW(lf.lfFaceName, faceName, LF_FACESIZE);
        font.reset(::CreateFontIndirectW(&lf));
        for (Canvas* canvas : {&ours, &theirs}) {
            canvas->Fill(white);
            ::SelectObject(canvas->dc.m_hDC, font.get());
            ::SetTextColor(canvas->dc.m_hDC, 0x800000);
            ::SetBkColor(canvas->dc.m_hDC, 0xC0FFC0);
        }
    }
    void TearDown() override
    {
        for (Canvas* canvas : {&ours, &theirs})
            ::SelectObject(canvas->dc.m_hDC, ::GetStockObject(SYSTEM_FONT));
    }
    [[nodiscard]] bool DrawAlike(const std::wstring& run)
    {
        const xTAsciiFace face(ours.dc.m_hDC);
        EXPECT_TRUE(face.Holds(run));
        face.TextOut(ours.dc.m_hDC, {5, 7}, run);
        ::TextOutW(theirs.dc.m_hDC, 5, 7, run.c_str(), static_cast<int>(run.size()));
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < Canvas::width; ++x)
                if (ours.At(x, y) != theirs.At(x, y))
                    return false;
        return ours.Colors(0, 0, Canvas::width, 60).size() > 2;
    }

    xTFont font;
    Canvas ours;
    Canvas theirs;
};

TEST_P(FaceTest, DrawsARunAsTheSystemDoesToThePixel)
{
    std::wstring all(0x7F - 0x20, L' ');
    std::iota(all.begin(), all.end(), L' ');
    for (const LONG height : {-13, -24}) {  // without and with grey levels
        Select(L"Courier New", height, GetParam());
        EXPECT_TRUE(DrawAlike(all)) << height;
    }
}

TEST_P(FaceTest, MeasuresARunAsTheSystemDoes)
{
    Select(L"Courier New", -13, GetParam());
    SIZE size{};
    ::GetTextExtentPoint32W(ours.dc.m_hDC, L"while (x)", 9, &size);
    EXPECT_EQ(xTAsciiFace(ours.dc.m_hDC).Width(L"while (x)"), size.cx);
}

INSTANTIATE_TEST_SUITE_P(EachStyle, FaceTest, testing::Range<DWORD>(0, xTAttribTable::fontKeys));

TEST_F(FaceTest, DrawsARunOfAnyLength)
{
    Select(L"Courier New", -13);
    EXPECT_TRUE(DrawAlike(std::wstring(256, L'x')));
    EXPECT_TRUE(DrawAlike(std::wstring(257, L'y')));
    EXPECT_TRUE(DrawAlike(std::wstring(5000, L'z')));
}

TEST_F(FaceTest, HoldsPrintableAsciiOnly)
{
    Select(L"Courier New", -13);
    const xTAsciiFace face(ours.dc.m_hDC);
    EXPECT_TRUE(face.Holds(L" ~"));
    for (const wchar_t* run : {L"a\tb", L"a\x1F", L"a\x7F", L"\xA0", L"текст", L"\x202E"})
        EXPECT_FALSE(face.Holds(run));
}

TEST_F(FaceTest, HoldsNothingInAFontOfDifferentWidths)
{
    Select(L"Liberation Sans", -13);
    EXPECT_FALSE(xTAsciiFace(ours.dc.m_hDC).Holds(L"a"));
    EXPECT_FALSE(xTAsciiFace().Holds(L"a"));
}

}  // namespace
