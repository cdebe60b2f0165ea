#include "tests/support/EditingFixture.h"
#include "tests/support/FailingNew.h"
#include "tests/support/LogFile.h"
#include "tests/support/NaiveComments.h"

#include <random>

// A rescan looks at the changed places alone: its marks are those of a scan from the top all the same.

namespace {

class Rescan : public xTEditingFixture {
protected:
    /// '#' in a comment, '.' outside; behind it 'i' for a line that begins inside, 'h' for one that holds a comment.
    [[nodiscard]] static std::string Marks(const xTMemStorage& text)
    {
        std::string all;
        for (std::int32_t i = 0; i < text.line_count(); ++i) {
            const xTExtString& line = text.lines[i];
            for (std::int32_t col = 0; col < line.GetLength(); ++col)
                all += line.IsCommentAt(col) ? '#' : '.';
            all += (line.m_flags & xTExtString::flagStartsInside) != 0 ? 'i' : '-';
            all += (line.m_flags & xTExtString::flagHasComment) != 0 ? "h " : "- ";
        }
        return all;
    }

    [[nodiscard]] static std::string MarksOf(const xTNaiveComments& oracle)
    {
        std::string all;
        for (const auto& line : oracle.lines) {
            for (const bool inComment : line.inComment)
                all += inComment ? '#' : '.';
            all += line.startsInside ? 'i' : '-';
            all += line.holdsComment ? "h " : "- ";
        }
        return all;
    }

    [[nodiscard]] static std::vector<WString> Lines(const xTMemStorage& text)
    {
        std::vector<WString> lines;
        for (std::int32_t i = 0; i < text.line_count(); ++i)
            lines.emplace_back(text.lines[i].m_text.view());
        return lines;
    }

    /// The marks of the same lines in a store that was never scanned.
    [[nodiscard]] static std::string MarksFromTheTop(const xTMemStorage& text)
    {
        xTMemStorage fresh(nullptr, nullptr);
        for (std::int32_t i = 0; i < text.line_count(); ++i)
            fresh.lines.Add(text.lines[i]);
        fresh.rescan_comments();
        return Marks(fresh);
    }

    void Scan()
    {
        store.comments_valid = false;
        store.rescan_comments();
    }

    void ExpectRight()
    {
        EXPECT_EQ(Marks(store), MarksFromTheTop(store));
        EXPECT_EQ(Marks(store), MarksOf(xTNaiveComments(Lines(store))));
    }

    /// Lets a line stand out that no scan should come to; StrayMark says whether it was left alone.
    void PutStrayMark(std::int32_t line) { store.lines[line].MarkCommentRun(0, 1, false); }
    [[nodiscard]] bool StrayMark(std::int32_t line) const { return store.lines[line].IsCommentAt(0); }

    [[nodiscard]] static WString Many(std::int32_t lines, WStrView line = _T("some = text;"))
    {
        WString all;
        for (std::int32_t i = 0; i < lines; ++i)
            all.append(i > 0 ? 1 : 0, _T('\n')).append(line);
        return all;
    }

    void Load(const WString& text) { ASSERT_TRUE(store.load_text(text.c_str(), 1)); }
    void TypeAt(const xTPos& at, std::string_view text)
    {
        store.set_caret(at);
        type(text);
    }
};

TEST_F(Rescan, ACommentOpenedAtTheTopTurnsTheTextAndItsUndoTurnsItBack)
{
    Load(Many(50));
    const std::string plain = Marks(store);
    TypeAt({0, 0}, "/*");
    EXPECT_EQ(store.lines[49].m_flags, xTExtString::flagHasComment | xTExtString::flagStartsInside);
    ExpectRight();
    stack.undo();
    stack.undo();
    store.rescan_comments();
    EXPECT_EQ(Marks(store), plain);
    ExpectRight();
}

TEST_F(Rescan, AnEarlierChangeElsewhereThatWasShownRepaintsNothingMore)
{
    Load(_T("a /*b*/ c\n") + Many(50));
    for (int turn = 0; turn < 3; ++turn) {
        store.set_caret({40, 0});
        type("x");  // on a line without a comment, which leaves the scan for later
        store.set_caret({0, 0});
        const int before = window.invalidated;
        type("y");  // on a line with one, which scans both
        EXPECT_EQ(window.invalidated, before) << turn;
        ExpectRight();
    }
}

TEST_F(Rescan, AChangeThatLeavesTheMarksOfAllOtherLinesRepaintsNoneOfThem)
{
    Load(_T("a /*b*/ c\n") + Many(50));
    constexpr int atEnd = 1000;
    using xTCase = std::tuple<int, const char*, bool>;
    for (const auto& [col, text, repaints] : {xTCase{0, "x", false}, xTCase{0, "*", false}, xTCase{5, "y", false},
                                              xTCase{0, "/*", false}, xTCase{atEnd, "/*", true}}) {
        store.set_caret({0, col});
        const int before = window.invalidated;
        type(text);
        EXPECT_EQ(window.invalidated > before, repaints) << text;
        ExpectRight();
    }
}

TEST_F(Rescan, AnOpenCommentIsClosedInTheMiddle)
{
    Load(_T("/*") + Many(50));
    TypeAt({25, 4}, "*/");
    EXPECT_TRUE(store.lines[25].IsCommentAt(0));
    EXPECT_EQ(store.lines[26].m_flags, 0);
    ExpectRight();
    press(keyBack);
    store.rescan_comments();
    EXPECT_TRUE(store.lines[49].IsCommentAt(0));
    ExpectRight();
}

TEST_F(Rescan, LinesTakenFromAcrossTheEdgeOfACommentMoveTheEdge)
{
    Load(_T("a\n/*b\nc\nd*/\ne\nf"));
    store.delete_text({2, 0}, 5);  // "c", the break, "d*/"
    store.rescan_comments();
    ExpectRight();
    EXPECT_TRUE(store.lines[3].IsCommentAt(0));
}

TEST_F(Rescan, ALoadAndACopyAreScannedFromTheirOwnStart)
{
    Load(_T("/*a\nb"));
    Load(_T("c\nd*/\ne"));
    EXPECT_EQ(Marks(store), ".-- ...-- .-- ");
    xTMemStorage source(nullptr, nullptr);
    source.load_text(_T("x /*\ny\nz"), 1);
    store.copy_from(source);
    ExpectRight();
    TypeAt({1, 1}, "*/");
    ExpectRight();
    EXPECT_EQ(store.lines[2].m_flags, 0);
}

TEST_F(Rescan, ACopyTakesOverWhatItsSourceHasNotScannedYet)
{
    xTMemStorage source(&window, &tabs);
    source.load_text(_T("a\nb\nc"), 1);
    source.replace_at({0, 0}, _T("a"), _T("/*"));
    source.replace_at({2, 0}, _T("c"), _T("*/c"));
    store.copy_from(source);
    ASSERT_TRUE(store.comments_valid);
    Scan();
    EXPECT_EQ(Marks(store), "##-h #ih ##.ih ");
}

TEST_F(Rescan, AChangeOutsideCommentsLeavesAllOtherLinesAlone)
{
    Load(Many(50));
    PutStrayMark(10);
    PutStrayMark(40);
    TypeAt({25, 3}, "/ * // \\");
    EXPECT_TRUE(store.comments_valid);
    EXPECT_TRUE(StrayMark(10));
    EXPECT_TRUE(StrayMark(40));
}

TEST_F(Rescan, AChangeWithinACommentLeavesAllOtherLinesAlone)
{
    Load(_T("/*") + Many(50));
    store.lines[40].UnmarkAllComment();
    store.lines[40].m_beganInside = true;
    TypeAt({25, 3}, "// *");
    EXPECT_FALSE(StrayMark(40));
    EXPECT_TRUE(store.lines[26].IsCommentAt(0));
}

TEST_F(Rescan, AScanEndsAtTheFirstLineThatBeginsAsItDid)
{
    Load(Many(20) + _T("\n/*x*/\n") + Many(20));
    PutStrayMark(30);
    TypeAt({5, 0}, "/*");
    EXPECT_TRUE(store.lines[20].IsCommentAt(0));  // the closing mark there ends the new comment
    EXPECT_EQ(store.lines[21].m_flags, 0);
    EXPECT_TRUE(StrayMark(30));
}

TEST_F(Rescan, WhatLiesBetweenTwoChangedPlacesIsLeftAlone)
{
    Load(Many(100));
    PutStrayMark(50);
    TypeAt({3, 0}, "xyz");  // asks for no scan
    TypeAt({90, 0}, "/*");
    EXPECT_TRUE(store.lines[99].IsCommentAt(0));
    EXPECT_TRUE(StrayMark(50));
}

TEST_F(Rescan, ALineMissingTheFlagBecauseOfASecondCommentStillCountsAsBegunInside)
{
    Load(_T("/*a\nb*/ /*c\nd\n*/ e"));
    ASSERT_EQ(Marks(store), "###-h ###.###-h #ih ##..ih ");
    TypeAt({2, 1}, "/");  // looks at the line before it once more
    ExpectRight();
    EXPECT_TRUE(store.lines[1].IsCommentAt(0));
}

TEST_F(Rescan, ALineWithOtherMarksUnderTheSameFlagsIsRepainted)
{
    Load(_T("/*a\nb*/ /*c\nd\n*/ e"));
    ASSERT_EQ(Marks(store), "###-h ###.###-h #ih ##..ih ");
    store.delete_text({0, 0}, 1);
    const int before = window.invalidated;
    store.rescan_comments();
    EXPECT_EQ(Marks(store), "..-- ....###-h #ih ##..ih ");
    EXPECT_GT(window.invalidated, before);
    ExpectRight();
}

// Two ways to read the line, with the same marks and flags: only how the line before it ended tells which comment is open
// behind it.
TEST_F(Rescan, ALineOfTwoReadingsKeepsItsOwn)
{
    Load(_T("/*\n/*//*/\nb\nc"));
    ASSERT_EQ(Marks(store), "##-h ######-h #ih #ih ");
    TypeAt({2, 1}, "/");
    ExpectRight();
    store.delete_text({0, 0}, 2);
    store.rescan_comments();
    EXPECT_EQ(Marks(store), "-- ######-h ..-- .-- ");
    ExpectRight();
}

TEST_F(Rescan, AnEmptyLineInACommentHandsItOn)
{
    Load(_T("/*\n\n\nx"));
    TypeAt({3, 1}, "*");
    ExpectRight();
    EXPECT_TRUE(store.lines[3].IsCommentAt(0));
}

TEST_F(Rescan, TheLastLinesGoneLeaveTheRestAsItIs)
{
    Load(_T("/*a\nb\nc*/"));
    store.remove_line(2);
    Scan();
    EXPECT_EQ(Marks(store), "###-h #ih ");
    store.remove_line(1);
    store.remove_line(0);
    Scan();
    EXPECT_EQ(store.line_count(), 0);
    EXPECT_TRUE(store.comments_valid);
}

TEST_F(Rescan, OneThatFailsHalfWayIsMadeGoodByTheNext)
{
    int failures = 1;
    for (int before = 0; failures > 0; ++before) {
        ASSERT_LT(before, 20);
        Load(_T("a\nplain\nb /* c\nd */ e\nf /* g */ h"));
        store.replace_at({0, 0}, _T("a"), _T("/* a"));
        store.replace_at({4, 0}, _T("f"), _T("k"));
        xTMemStorage shares(nullptr, nullptr);
        shares.copy_from(store);  // no line has words of its own to change
        store.comments_valid = false;
        failures = FailuresIn([&] { store.rescan_comments(); }, before);
        EXPECT_EQ(store.comments_valid, failures == 0);
        EXPECT_TRUE(failures > 0 || before > 1);
        store.rescan_comments();
        ExpectRight();
    }
}

// Primitives of all kinds on texts of what hurts, with a scan now and then; each is held against both oracles.
class RandomRescan : public Rescan {
protected:
    [[nodiscard]] std::int32_t Draw(std::int32_t below) { return static_cast<std::int32_t>(m_random() % static_cast<unsigned>(below)); }

    [[nodiscard]] WString RandomText(std::int32_t pieces)
    {
        static const WString all[] = {_T("/*"), _T("*/"), _T("//"), _T("/*/"), _T("/**/"), _T("/*//*/"), _T("\""), _T("\\"),
                                      _T("*"), _T("/"), _T("\t"), _T("\x0416"), _T("ab "), _T("\n"), _T("\n"), _T("\n\n")};
        WString text;
        for (; pieces > 0; --pieces)
            text += all[Draw(static_cast<std::int32_t>(std::size(all)))];
        return text;
    }

    [[nodiscard]] xTPos RandomPlace()
    {
        const std::int32_t line = Draw(store.line_count() + 1);
        return {line, Draw(store.line_length(line) + 1)};
    }

    void Change()
    {
        const xTPos at = RandomPlace();
        CString text(RandomText(1 + Draw(3)));
        std::int32_t count = text.GetLength();
        switch (Draw(12)) {
        case 0: store.delete_text(at, 1 + Draw(30)); break;
        case 1: store.split_line(at); break;
        case 2: store.overwrite_char(at, text[0]); break;
        case 3: store.set_caret(at); store.overwrite_at_caret(text[0]); break;
        case 4: store.replace_at(at, _T("x"), text.Find(_T('\n')) < 0 ? text.view() : WStrView(_T("*/"))); break;
        case 5: if (store.line_count() > 1) store.remove_line(Draw(store.line_count())); break;
        case 6: store.select_range(at, RandomPlace()); store.comment_block(Draw(2) == 0); break;
        case 7: if (Draw(8) == 0) CopyThere(); break;
        default: store.insert_text(at, count, text, false); break;
        }
        store.clear_selection();
    }

    void CopyThere()
    {
        xTMemStorage other(nullptr, nullptr);
        other.copy_from(store);
        Load(RandomText(10));
        store.copy_from(other);
    }

    std::mt19937 m_random{2024};
};

TEST_F(RandomRescan, AgreesWithAScanFromTheTopAfterAnyChanges)
{
    for (int round = 0; round < 150 && !HasFailure(); ++round) {
        Load(RandomText(Draw(200)));
        for (int step = 0; step < 60 && !HasFailure(); ++step) {
            Change();
            if (Draw(3) > 0)
                continue;
            Scan();
            ExpectRight();
        }
    }
}

}  // namespace
