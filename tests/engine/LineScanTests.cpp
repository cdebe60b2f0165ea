#include "store/LineScan.h"

#include "framework/base/CString.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

// Passing over lines that do not hold a text, against a plain look at each: lines as a load leaves them, empty ones,
// changed ones, some taken out or put elsewhere, and free room in the middle of the array.

namespace {

using xTLines = CArray<xTExtString>;

xTPos Naive(const xTLines& lines, std::int32_t line, std::int32_t stop, const WString& what)
{
    for (; line != stop; line += line < stop ? 1 : -1) {
        if (const std::size_t hit = lines[line].m_text.view().find(what); hit != WStrView::npos)
            return {line, static_cast<std::int32_t>(hit)};
    }
    return {stop, -1};
}

// The units are few, and those that the head of a buffer is made of are among them.
WString RandomLine(std::mt19937& random, WStrView units)
{
    const std::size_t length = random() % 4 == 0 ? 0 : random() % 100 == 0 ? 512 : random() % 50;
    WString line;
    for (std::size_t i = 0; i < length; ++i)
        line += units[random() % units.size()];
    return line;
}

unsigned LastOf(const xTLines& lines) { return static_cast<unsigned>(lines.GetSize()) - 1; }

void Fill(xTLines& lines, std::mt19937& random, WStrView units, int count)
{
    xTStringSlabs slabs;
    for (int i = 0; i < count; ++i)
        lines.Add(xTExtString(slabs.Carve(RandomLine(random, units))));
    for (int i = count / 20; i > 0; --i)
        lines[random() % (LastOf(lines) + 1)] = xTExtString(CString(RandomLine(random, units)));
    for (int i = count / 50; i > 0; --i) {
        const xTExtString moved = lines[random() % (LastOf(lines) + 1)];
        lines[random() % (LastOf(lines) + 1)] = moved;
    }
    if (count > 200)
        lines.RemoveAt(random() % 100, random() % 100);
    *lines.InsertAt(random() % (LastOf(lines) + 1)) = xTExtString(CString(RandomLine(random, units)));
}

}  // namespace

TEST(LineScan, FindsTheLinesThatAPlainLookFinds)
{
    constexpr WCHAR headUnits[] = {'a', 'b', 1, 0xFFFF, 2, 'c', 5};
    std::mt19937 random(7);
    for (int round = 0; round < 120; ++round) {
        const WStrView units(headUnits, 4 + random() % 4);
        xTLines lines;
        Fill(lines, random, units, 1 + static_cast<int>(random() % 3000));
        const auto count = static_cast<std::int32_t>(lines.GetSize());
        WString what;
        while (what.size() < 1 + static_cast<std::size_t>(round) % 9)
            what += units[random() % units.size()];
        const xTNeedle needle{CString(what), round % 2 == 0};
        for (std::int32_t from = 0; from < count;) {
            const xTPos hit = NextMatch(lines, from, count, needle);
            ASSERT_EQ(hit, Naive(lines, from, count, what)) << "round " << round << " from " << from;
            from = hit.line + 1;
        }
        for (std::int32_t from = count - 1; from >= 0;) {
            const xTPos hit = NextMatch(lines, from, -1, needle);
            ASSERT_EQ(hit, Naive(lines, from, -1, what)) << "round " << round << " up from " << from;
            from = hit.line - 1;
        }
    }
}

TEST(LineScan, SeesNoTextInTheHeadsOfBuffersNorFromOneLineToTheNext)
{
    xTStringSlabs slabs;
    xTLines lines;
    for (int i = 0; i < 100; ++i)
        lines.Add(xTExtString(slabs.Carve(_T("xa"))));
    // What stands between: the terminator, a pad, how many share the buffer, the length, the room.
    const WCHAR between[] = {'x', 'a', 0, 0, 1, 0, 2, 0, 0xFFFF, 0xFFFF, 'x', 'a'};
    const WStrView all(between, std::size(between));
    for (std::size_t from = 0; from < all.size(); ++from) {
        for (std::size_t length = 1; from + length <= all.size(); ++length) {
            const WString part(all.substr(from, length));
            EXPECT_EQ(NextMatch(lines, 1, 100, xTNeedle(CString(part), true)), Naive(lines, 1, 100, part))
                << from << ' ' << length;
        }
    }
}

TEST(LineScan, FindsTheTextAtBothEndsOfEveryLineOfEveryBlock)
{
    xTStringSlabs slabs;
    xTLines lines;
    std::uintptr_t block = 0;
    std::int32_t blocks = 0;
    while (blocks < 4) {
        lines.Add(xTExtString(slabs.Carve(WString(100, _T('-')))));
        if (const std::uintptr_t own = xTStringSlabs::BlockOf(lines[LastOf(lines)].m_text); own != block)
            block = own, ++blocks;
    }
    const auto count = static_cast<std::int32_t>(lines.GetSize());
    const xTNeedle needle{CString(_T("ab")), true};
    xTStringSlabs others;
    for (std::int32_t line = 0; line < count; line += line % 7 + 1) {
        const xTExtString before = lines[line];
        for (const std::size_t at : {std::size_t{0}, std::size_t{98}}) {
            WString text(100, _T('-'));
            text.replace(at, 2, _T("ab"));
            lines[line].m_text = others.Carve(text);  // of another block, in the middle of the stretch
            const xTPos match(line, static_cast<std::int32_t>(at));
            EXPECT_EQ(NextMatch(lines, 0, count, needle), match);
            EXPECT_EQ(NextMatch(lines, count - 1, -1, needle), match);
            lines[line].m_text = CString(text);
            EXPECT_EQ(NextMatch(lines, 0, count, needle), match);
        }
        lines[line] = before;
    }
    EXPECT_EQ(NextMatch(lines, 0, count, needle), xTPos(count, -1));
}

TEST(LineScan, AMatchInALineThatIsGoneOrStandsElsewhereIsNone)
{
    xTStringSlabs slabs;
    xTLines lines;
    for (int i = 0; i < 50; ++i)
        lines.Add(xTExtString(slabs.Carve(i % 5 == 3 ? WStrView(_T("here")) : WStrView(_T("nothing")))));
    const xTExtString kept = lines[3];
    for (int i = 48; i >= 3; i -= 5)
        lines.RemoveAt(i);
    const xTNeedle needle{CString(_T("here")), true};
    EXPECT_EQ(NextMatch(lines, 0, 40, needle), xTPos(40, -1));
    EXPECT_EQ(NextMatch(lines, 39, -1, needle), xTPos::none);
    lines[20] = kept;  // its characters stand before those of the lines before it
    EXPECT_EQ(NextMatch(lines, 0, 40, needle), xTPos(20, 0));
    EXPECT_EQ(NextMatch(lines, 39, -1, needle), xTPos(20, 0));
}
