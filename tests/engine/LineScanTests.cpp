#include "store/LineScan.h"

#include "framework/base/CString.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

// Passing over lines that cannot hold a text, against a plain look at each: lines as a load leaves them, empty ones,
// changed ones, and free room in the middle of the array.

namespace {

using xTLines = CArray<xTExtString>;

bool HasEnds(WStrView line, WStrView firsts, WStrView lasts, std::size_t distance)
{
    for (std::size_t i = 0; i + distance < line.size(); ++i) {
        if (firsts.find(line[i]) != WStrView::npos && lasts.find(line[i + distance]) != WStrView::npos)
            return true;
    }
    return false;
}

std::int32_t Naive(const xTLines& lines, std::int32_t line, std::int32_t stop, WStrView firsts, WStrView lasts,
                   std::size_t distance)
{
    for (; line != stop; line += line < stop ? 1 : -1) {
        if (HasEnds(lines[line].m_text, firsts, lasts, distance))
            return line;
    }
    return stop;
}

// The units are few, and those that the head of a buffer is made of are among them.
WString RandomLine(std::mt19937& random, WStrView units)
{
    const std::size_t length = random() % 4 == 0 ? 0 : random() % 50;
    WString line;
    for (std::size_t i = 0; i < length; ++i)
        line += units[random() % units.size()];
    return line;
}

void Fill(xTLines& lines, std::mt19937& random, WStrView units, int count)
{
    xTStringSlabs slabs;
    for (int i = 0; i < count; ++i)
        lines.Add(xTExtString(slabs.Carve(RandomLine(random, units))));
    for (int i = count / 20; i > 0; --i) {
        xTExtString& line = lines[static_cast<std::int64_t>(random() % static_cast<unsigned>(count))];
        line = xTExtString(CString(RandomLine(random, units)));
    }
    const auto gap = static_cast<std::int64_t>(random() % static_cast<unsigned>(count));
    *lines.InsertAt(gap) = xTExtString(CString(RandomLine(random, units)));
}

}  // namespace

TEST(LineScan, FindsTheLinesThatAPlainLookFinds)
{
    constexpr WCHAR headUnits[] = {'a', 'b', 'c', 1, 2, 0xFFFF, 5};
    std::mt19937 random(7);
    for (int round = 0; round < 60; ++round) {
        xTLines lines;
        Fill(lines, random, WStrView(headUnits, 4 + random() % 4), 1 + static_cast<int>(random() % 3000));
        const auto count = static_cast<std::int32_t>(lines.GetSize());
        const std::size_t distance = random() % 12;
        const WString firsts = round % 3 == 0 ? WString(1, headUnits[random() % 7]) : WString(_T("zq"));
        const WString lasts = round % 2 == 0 ? WString(1, headUnits[random() % 7]) : WString{_T('a'), WCHAR{1}, _T('c')};
        for (std::int32_t from = 0; from < count;) {
            const std::int32_t hit = NextLineWithEnds(lines, from, count, firsts, lasts, distance);
            ASSERT_EQ(hit, Naive(lines, from, count, firsts, lasts, distance)) << "round " << round << " from " << from;
            from = hit + 1;
        }
        EXPECT_EQ(NextLineWithEnds(lines, count - 1, -1, firsts, lasts, distance),
                  Naive(lines, count - 1, -1, firsts, lasts, distance));
    }
}

TEST(LineScan, SeesNoTextInTheHeadsOfBuffersNorFromOneLineToTheNext)
{
    xTStringSlabs slabs;
    xTLines lines;
    for (int i = 0; i < 100; ++i)
        lines.Add(xTExtString(slabs.Carve(_T("xa"))));
    for (std::size_t distance = 2; distance < 20; ++distance) {
        for (const WCHAR first : {WCHAR{'a'}, WCHAR{1}, WCHAR{2}, WCHAR{0xFFFF}, WCHAR{0}})
            EXPECT_EQ(NextLineWithEnds(lines, 0, 100, std::span(&first, 1), std::span(&first, 1), distance), 100);
    }
    const WCHAR last = _T('a');
    const WCHAR first = _T('x');
    EXPECT_EQ(NextLineWithEnds(lines, 7, 100, std::span(&first, 1), std::span(&last, 1), 1), 7);
}
