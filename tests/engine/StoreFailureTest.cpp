#include "framework/base/Exceptions.h"
#include "tests/support/FailingNew.h"
#include "tests/support/LogFile.h"
#include "tests/support/NaiveComments.h"
#include "tests/support/NaiveText.h"
#include "tests/support/StoreFixture.h"
#include "tests/support/native/PlatformNative.h"

#include <stdexcept>

namespace {

class StoreFailure : public xTStoreFixture {
protected:
    void TearDown() override { NativePlatform().pagesBeforeFailure = -1; }

    // The last record without its stamp, without the folders of the source, whose form depends on how it was compiled,
    // and without the number of the line.
    [[nodiscard]] std::string LastRecord() const
    {
        const auto records = log.Records();
        if (records.empty())
            return "";
        std::string record = records.back().substr(records.back().find(": in ") + 5);
        const std::size_t open = record.find('(');
        const std::size_t name = record.find_last_of("/\\", open) + 1;
        return record.substr(name, open - name) + record.substr(record.find(')', open) + 1);
    }

    xTLogFile log;
};

// Runs `report` while an exception is in flight.
template <typename Thrower, typename Report>
void WhileInFlight(Thrower&& thrower, Report&& report)
{
    try {
        thrower();
    } catch (...) {
        report();
    }
}

TEST_F(StoreFailure, CopyThatFailsInTheFrameworkIsReportedWithItsText)
{
    WhileInFlight([] { ThrowInvalidArgException(); }, [] { xTExtString::ReportCopyFailure(); });
    EXPECT_EQ(LastRecord(),
              "MyStr.cpp error: CException*(Encountered an improper argument.) in xTExtString::copy_data().");
}

TEST_F(StoreFailure, CopyThatFailsOtherwiseIsReportedWithoutAText)
{
    WhileInFlight([] { throw std::runtime_error("any"); }, [] { xTExtString::ReportCopyFailure(); });
    EXPECT_EQ(LastRecord(), "MyStr.cpp error: ... in xTExtString::copy_data().");
}

// An exception of the framework's family that has nothing to say.
class xTSilentException final : public CException {
public:
    xTSilentException() noexcept : CException({}) {}
};

TEST_F(StoreFailure, CopyThatFailsWithoutAMessageIsReportedAllTheSame)
{
    WhileInFlight([] { throw new xTSilentException; }, [] { xTExtString::ReportCopyFailure(); });
    EXPECT_EQ(LastRecord(), "MyStr.cpp error: CException*() in xTExtString::copy_data().");
}

// The report itself then finds no memory for its text; a record is written none the less.
TEST_F(StoreFailure, FailuresThatFindNoMemoryForTheirTextAreReportedWithoutOne)
{
    WhileInFlight([] { ThrowInvalidArgException(); },
                  [] { EXPECT_EQ(FailuresIn([] { xTExtString::ReportCopyFailure(); }, 0), 1); });
    ASSERT_EQ(log.Records().size(), 1u);
    EXPECT_EQ(LastRecord(), "MyStr.cpp unknown error.");
    EXPECT_EQ(FailuresIn([] { xTExtString::ReportReadFailure(3, 17); }, 0), 1);
    ASSERT_EQ(log.Records().size(), 2u);
    EXPECT_EQ(LastRecord(), "MyStr.cpp unknown error.");
}

TEST_F(StoreFailure, ReadThatFailsIsReportedWithIndexAndLength)
{
    xTExtString::ReportReadFailure(-3, 17);
    EXPECT_EQ(LastRecord(), "MyStr.cpp error: ... in xTExtString::GetAt(ind = -3), len = 17.");
}

TEST_F(StoreFailure, BadIndexOfALineIsNoFailure)
{
    const xTExtString line(_T("abc"));
    EXPECT_EQ(line.GetAt(-1), 0);
    EXPECT_EQ(line.GetAt(3), 0);
    EXPECT_TRUE(log.Records().empty());
}

TEST_F(StoreFailure, CharacterThatFindsNoMemoryShowsABox)
{
    for (int before = 0; before < 2; ++before) {
        xTExtString line(_T("abc"));
        const int boxes = NativePlatform().boxCount;
        const int failures = FailuresIn([&] { line.InsertChar(1, _T('x')); }, before);
        ASSERT_EQ(failures, 1) << before;
        EXPECT_EQ(NativePlatform().boxCount, boxes + 1);
        EXPECT_EQ(Shown(NativePlatform().LastBox().text()), "CString::Insert");
        EXPECT_EQ(Shown(NativePlatform().LastBox().caption()), "Memory exception");
        EXPECT_EQ(NativePlatform().LastBox().icon, xTBoxIcon::error);
        // Nothing repairs the line: the text is longer than its words when the second of the two failed.
        EXPECT_EQ(line.GetLength(), 3 + before);
        EXPECT_EQ(line.m_attrs.GetLength(), 3);
    }
    EXPECT_TRUE(log.Records().empty());
}

TEST_F(StoreFailure, SubStringThatFindsNoMemoryShowsABox)
{
    const xTExtString piece(_T("xy"));
    for (int before = 0; before < 2; ++before) {
        xTExtString line(_T("abc"));
        const int boxes = NativePlatform().boxCount;
        ASSERT_EQ(FailuresIn([&] { line.InsertSubString(1, piece); }, before), 1);
        EXPECT_EQ(NativePlatform().boxCount, boxes + 1);
        EXPECT_EQ(Shown(NativePlatform().LastBox().text()),
                  Shown(_T("Это очень плохо! xTExtString::InsertSubString. Сообщите разработчикам.")));
    }
    EXPECT_TRUE(log.Records().empty());
}

TEST_F(StoreFailure, DeletionThatFindsNoMemoryAnswersZeroInSilence)
{
    const xTExtString shared(_T("abcd"));
    for (int before = 0; before < 2; ++before) {
        xTExtString line = shared;
        std::int32_t length = -1;
        ASSERT_EQ(FailuresIn([&] { length = line.DeleteSubString(1, 1); }, before), 1);
        EXPECT_EQ(length, 0);
    }
    EXPECT_TRUE(log.Records().empty());
}

TEST_F(StoreFailure, HeadOfANegativeLineIsReportedAndEmpty)
{
    Load(_T("abc"));
    xTExtString part(_T("old"));
    store.line_head({-1, 0}, part);
    EXPECT_EQ(part.GetLength(), 0);
    EXPECT_EQ(LastRecord(), "MemStorBase.cpp error: Encountered an improper argument..");
}

TEST_F(StoreFailure, NegativeExecutionLineIsReportedUnderTheNameOfItsSource)
{
    Load(_T("abc"));
    EXPECT_FALSE(store.set_exec_point(-1));
    EXPECT_EQ(LastRecord(), "MemStorBreak.cpp error: Encountered an improper argument..");
}

TEST_F(StoreFailure, LinesOutOfRangeAreNoFailureWhereAnAnswerIsDefined)
{
    Load(_T("abc"));
    xTExtString line;
    xTPos pos(9, 9);
    store.get_line(-1, line);
    store.line_tail({-1, 0}, line);
    store.line_head({9, 0}, line);
    store.set_break_point(9);
    store.remove_break_point(-1);
    store.set_caret({9, 0});
    store.home_caret({9, 0});
    store.to_line_end(pos);
    store.move_lines(pos, -3);
    static_cast<void>(store.char_at({9, 9}));
    EXPECT_TRUE(log.Records().empty());
}

constexpr WStrView hurtText = _T("one /* two\nthree\nfour */ \"five\nsix\" /*\nend");

// Wherever memory ends, the lines that came are whole lines of the text, and their marks do not count as valid
// unless they are.
void ExpectPartOf(const xTMemStorage& store, bool loaded)
{
    const std::vector<WString> expected = NaiveLines(WString(hurtText));
    ASSERT_LE(store.line_count(), static_cast<std::int32_t>(expected.size()));
    for (std::int32_t i = 0; i < store.line_count(); ++i) {
        ASSERT_EQ(Shown(store.lines[i].m_text), Shown(expected[static_cast<std::size_t>(i)]));
        ASSERT_EQ(store.lines[i].m_attrs.GetLength(), store.lines[i].GetLength());
    }
    if (loaded) {
        ASSERT_EQ(store.line_count(), static_cast<std::int32_t>(expected.size()));
    } else {
        ASSERT_FALSE(store.comments_valid);
    }
    if (store.comments_valid) {
        const xTNaiveComments oracle(expected);
        for (std::int32_t i = 0; i < store.line_count(); ++i) {
            for (std::int32_t col = 0; col < store.line_length(i); ++col)
                ASSERT_EQ(store.lines[i].IsCommentAt(col), oracle.lines[i].inComment[col]) << i << "," << col;
        }
    }
}

TEST_F(StoreFailure, LoadThatRunsOutOfMemoryAnywhereLeavesWholeLines)
{
    const WString text(hurtText);
    for (const auto howLong : {xTFailingNew::xTHowLong::once, xTFailingNew::xTHowLong::fromThenOn}) {
        int before = 0;
        for (int failures = 1; failures > 0; ++before) {
            ASSERT_LT(before, 1000);
            Load(_T("/* old */\ntext"));
            ASSERT_TRUE(store.comments_valid);
            bool loaded = false;
            failures = FailuresIn([&] { loaded = store.load_text(text.c_str(), 1); }, before, howLong);
            ExpectPartOf(store, loaded);
            // What the fault left undone is done by the next load.
            ASSERT_TRUE(store.load_text(text.c_str(), 1));
            ASSERT_TRUE(store.comments_valid);
            ExpectPartOf(store, true);
        }
        EXPECT_GE(before, 2);  // the array and a marked line at the least
    }
    EXPECT_FALSE(log.Records().empty());
}

TEST_F(StoreFailure, LoadWhoseTabsWouldPassThousandMillionCharactersIsRefused)
{
    tabs.m_keepTabs = false;
    tabs.m_tabSize = xTTabSettings::widestTab;
    const WString text((std::size_t{1} << 30) / xTTabSettings::widestTab + 1, _T('\t'));
    EXPECT_FALSE(store.load_text(text.c_str(), static_cast<std::int32_t>(text.size())));
    EXPECT_EQ(store.line_count(), 0);
    EXPECT_EQ(log.Records().size(), 1u);
}

// The lines share their characters, so the text costs next to nothing until somebody wants to have it in one piece.
TEST_F(StoreFailure, TextOfHalfAThousandMillionCharactersIsNotReadInOnePiece)
{
    const xTExtString wide(CString(_T('x'), 1 << 20));
    constexpr std::int32_t count = 512;
    for (std::int32_t i = 0; i < count; ++i)
        *store.lines.InsertAt(i) = wide;
    xTPos end = store.end_pos();
    CString text(_T("old"));
    EXPECT_EQ(store.get_text({0, 0}, end, text), 0);
    EXPECT_EQ(log.Records().size(), 1u);
}

TEST_F(StoreFailure, LoadWithTabsThatRunsOutOfMemoryFails)
{
    tabs.m_keepTabs = false;
    const WString text = WString(100, _T('\t')) + _T("\nx");
    bool loaded = true;
    ASSERT_EQ(FailuresIn([&] { loaded = store.load_text(text.c_str(), 1); }, 0), 1);
    EXPECT_FALSE(loaded);
    EXPECT_EQ(store.line_count(), 0);
    EXPECT_EQ(LastRecord(), "MemStor.cpp error: std::bad_alloc.");
}

TEST_F(StoreFailure, LoadThatFindsNoPagesKeepsTheLinesThatCame)
{
    WString text;
    for (int i = 0; i < 400; ++i)
        text += WString(400, _T('x')) + _T("\n");
    NativePlatform().pagesBeforeFailure = 2;
    EXPECT_FALSE(store.load_text(text.c_str(), 1));
    EXPECT_GT(store.line_count(), 100);
    EXPECT_LT(store.line_count(), 400);
    EXPECT_FALSE(store.comments_valid);
    EXPECT_EQ(store.line_length(store.line_count() - 1), 400);
}

TEST_F(StoreFailure, RescanThatRunsOutOfMemoryIsTriedAgain)
{
    Load(_T("x"));
    store.lines[0] = xTExtString(_T("a /* b"));
    store.note_change(0, 0);
    store.comments_valid = false;
    ASSERT_EQ(FailuresIn([&] { store.rescan_comments(); }, 0), 1);
    EXPECT_FALSE(store.comments_valid);
    EXPECT_EQ(window.TakeCalls(), "");
    store.rescan_comments();
    EXPECT_TRUE(store.comments_valid);
    EXPECT_EQ(Marks(0), "..####");
}

TEST_F(StoreFailure, CopyOfAStoreThatRunsOutOfMemoryLeavesNoLines)
{
    xTMemStorage source(nullptr, nullptr);
    source.load_text(_T("one\ntwo"), 1);
    source.set_exec_point(1);
    Load(_T("old"));
    ASSERT_EQ(FailuresIn([&] { store.copy_from(source); }, 0), 1);
    EXPECT_EQ(store.line_count(), 0);
    EXPECT_EQ(store.exec_line, 1);
    EXPECT_EQ(LastRecord(), "MemStor.cpp error: std::bad_alloc.");
}

TEST_F(StoreFailure, ReadingThatRunsOutOfMemoryAnswersZero)
{
    Load(_T("one\ntwo"));
    CString text;
    xTPos to(1, 1);
    std::int32_t length = -1;
    ASSERT_EQ(FailuresIn([&] { length = store.get_text({0, 1}, to, text); }, 0), 1);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(LastRecord(), "MemStorBase.cpp error: std::bad_alloc.");
}

}  // namespace
