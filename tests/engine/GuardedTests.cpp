#include "diagnostics/Guarded.h"

#include "diagnostics/ExceptSettings.h"
#include "framework/base/Exceptions.h"
#include "tests/support/FailingNew.h"
#include "tests/support/LogFile.h"
#include "tests/support/native/PlatformNative.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace {

constexpr xTWhere here{"Somewhere", 12};
const std::string head = "1.2.2015  9:5:7.31: in Somewhere(12) ";

class Guard : public testing::Test {
protected:
    xTLogFile log;

    // Runs a body that fails and gives the one record it leaves.
    template <typename Body>
    std::string RecordOf(Body&& body)
    {
        EXPECT_EQ(Guarded(-7, [&]() -> int { body(); return 1; }, here), -7);
        const auto records = log.Records();
        EXPECT_EQ(records.size(), 1u);
        return records.empty() ? std::string() : records.back();
    }
};

TEST_F(Guard, WithoutAFaultItAnswersWhatTheBodyAnswers)
{
    EXPECT_EQ(Guarded(-7, [] { return 5; }), 5);
    bool done = false;
    Guarded([&] { done = true; });
    EXPECT_TRUE(done);
    EXPECT_TRUE(log.Records().empty());
}

TEST_F(Guard, AStandardExceptionIsLoggedByWhat)
{
    EXPECT_EQ(RecordOf([] { throw std::runtime_error("can't open clipboard"); }), head + "error: can't open clipboard.");
}

TEST_F(Guard, ALackOfMemoryIsAStandardException)
{
    EXPECT_EQ(RecordOf([] { throw std::bad_alloc(); }), head + "error: std::bad_alloc.");
}

TEST_F(Guard, AFrameworkExceptionIsLoggedAndDeleted)
{
    EXPECT_EQ(RecordOf([] { ThrowInvalidArgException(); }), head + "error: Encountered an improper argument..");
}

TEST_F(Guard, AFrameworkMemoryExceptionIsLoggedAndStays)
{
    EXPECT_EQ(RecordOf([] { ThrowMemoryException(); }), head + "error: Out of memory..");
    Guarded([] { ThrowMemoryException(); }, here);
    EXPECT_EQ(log.Records().size(), 2u);
}

TEST_F(Guard, AnythingElseIsAnUnknownError)
{
    EXPECT_EQ(RecordOf([] { throw 42; }), head + "unknown error.");
}

TEST_F(Guard, ALostFontThatNobodyCaughtIsAnUnknownError)
{
    const int boxes = NativePlatform().boxCount;
    EXPECT_EQ(RecordOf([] { throw xTExceptSettings{_T("message"), _T("place")}; }), head + "unknown error.");
    EXPECT_EQ(NativePlatform().boxCount, boxes);
}

TEST_F(Guard, ABodyWithoutAnAnswerIsGuardedToo)
{
    Guarded([] { throw std::runtime_error("fault"); }, here);
    EXPECT_EQ(log.Records(), std::vector{head + "error: fault."});
}

TEST_F(Guard, TheRecordTellsThePlaceOfTheGuard)
{
    const auto line = __LINE__ + 1;
    Guarded([] { throw std::runtime_error("fault"); });
    const auto records = log.Records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_NE(records[0].find("tests/engine/GuardedTests.cpp(" + std::to_string(line) + ") error: fault."), std::string::npos)
        << records[0];
    EXPECT_EQ(records[0].find(": in /"), std::string::npos) << "a path of the building machine: " << records[0];
}

// An exception object that tells of its end.
class xTCounted final : public CException {
public:
    explicit xTCounted(int& ended) noexcept : CException(_T("counted")), m_ended(ended) {}
    ~xTCounted() override { ++m_ended; }

private:
    int& m_ended;
};

TEST_F(Guard, TheExceptionObjectEndsOnce)
{
    int ended = 0;
    EXPECT_EQ(RecordOf([&] { throw new xTCounted(ended); }), head + "error: counted.");
    EXPECT_EQ(ended, 1);
}

TEST_F(Guard, AReportInsideACatchBlockLeavesTheOuterExceptionInFlight)
{
    Guarded([] {
        try {
            throw std::runtime_error("inner");
        } catch (...) {
            ReportCurrent(here);
            throw;
        }
    }, here);
    EXPECT_EQ(log.Records(), (std::vector{head + "error: inner.", head + "error: inner."}));
}

TEST(FrameworkExceptions, TellTheirTextCutToTheRoom)
{
    const CInvalidArgException e;
    WCHAR text[100];
    EXPECT_TRUE(e.GetErrorMessage(text, 100));
    EXPECT_EQ(WStrView(text), _T("Encountered an improper argument."));
    EXPECT_TRUE(e.GetErrorMessage(text, 5));
    EXPECT_EQ(WStrView(text), _T("Enco"));
}

TEST(FrameworkExceptions, WithoutRoomThereIsNoText)
{
    const CInvalidArgException e;
    WCHAR text[2] = {_T('x'), _T('y')};
    EXPECT_FALSE(e.GetErrorMessage(nullptr, 100));
    EXPECT_FALSE(e.GetErrorMessage(text, 0));
    EXPECT_FALSE(e.GetErrorMessage(text, -1));
    EXPECT_EQ(text[0], _T('x'));
    EXPECT_FALSE(e.GetErrorMessage(text, 1));
    EXPECT_EQ(text[0], 0);
}

TEST(FrameworkExceptions, EachThrowerThrowsItsOwn)
{
    EXPECT_THROW(
        try { ThrowResourceException(); } catch (CException* e) {
            EXPECT_NE(dynamic_cast<CResourceException*>(e), nullptr);
            e->Delete();
            throw 1;
        }, int);
    EXPECT_THROW(
        try { ThrowMemoryException(); } catch (CMemoryException* e) {
            e->Delete();
            throw 1;
        }, int);
}

TEST(FrameworkExceptions, WithoutMemoryAStandardOneComesInstead)
{
    bool standard = false;
    EXPECT_EQ(FailuresIn([&] {
        try {
            ThrowInvalidArgException();
        } catch (const std::bad_alloc&) {
            standard = true;
        }
    }, 0), 1);
    EXPECT_TRUE(standard);
}

TEST(FrameworkExceptions, AMemoryExceptionNeedsNoMemory)
{
    bool framework = false;
    EXPECT_EQ(FailuresIn([&] {
        try {
            ThrowMemoryException();
        } catch (CMemoryException* e) {
            framework = true;
            e->Delete();
        }
    }, 0, xTFailingNew::xTHowLong::fromThenOn), 0);
    EXPECT_TRUE(framework);
}

}  // namespace
