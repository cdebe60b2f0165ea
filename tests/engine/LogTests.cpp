#include "diagnostics/comdefines.h"

#include "diagnostics/ExceptSettings.h"
#include "framework/base/Exceptions.h"
#include "tests/support/FailingNew.h"
#include "tests/support/LogFile.h"
#include "tests/support/native/PlatformNative.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace {

class Log : public testing::Test {
protected:
    Log() { ResetNativePlatform(); }
    ~Log() override { ResetNativePlatform(); }
};

const std::string stamp = "1.2.2015  9:5:7.31";

TEST_F(Log, StandsBesideTheExecutable)
{
    NativePlatform().executablePath = _T("C:\\Program Files\\Host\\host.exe");
    EXPECT_EQ(LogPath(), _T("C:\\Program Files\\Host\\scrivctl.log"));
}

TEST_F(Log, IsABareNameWhenTheSystemDoesNotTellTheExecutable)
{
    EXPECT_EQ(LogPath(), _T("scrivctl.log"));
    NativePlatform().executablePath = _T("host.exe");
    EXPECT_EQ(LogPath(), _T("scrivctl.log"));
}

TEST_F(Log, AVeryLongPathOfTheExecutableIsCutBeforeItsFolderIsTaken)
{
    const WString folder(200, _T('a'));
    NativePlatform().executablePath = _T("C:\\") + folder + _T("\\") + folder + _T("\\host.exe");
    EXPECT_EQ(LogPath(), _T("C:\\") + folder + _T("\\scrivctl.log"));
}

TEST_F(Log, ARecordHasStampPlaceAndMessage)
{
    const xTLogFile log;
    LogReport("..\\AttribTable", 433, _T("bad allocation"));
    EXPECT_EQ(log.Records(), std::vector{stamp + ": in ..\\AttribTable(433) error: bad allocation."});
}

TEST_F(Log, NumbersOfTheStampAreNotPadded)
{
    const xTLogFile log;
    NativePlatform().time = {31, 12, 2026, 23, 0, 59, 999};
    LogReport("x", 1, nullptr);
    EXPECT_EQ(log.Records(), std::vector<std::string>{"31.12.2026  23:0:59.999: in x(1) unknown error."});
}

TEST_F(Log, NullAndEmptyMessagesGiveTheSameRecord)
{
    const xTLogFile log;
    LogReport("MyStr", 7, nullptr);
    LogReport("MyStr", 7, _T(""));
    EXPECT_EQ(log.Records(), (std::vector{stamp + ": in MyStr(7) unknown error.", stamp + ": in MyStr(7) unknown error."}));
}

TEST_F(Log, TwoRecordsAreTwoLinesWithTheSystemsLineEnd)
{
    const xTLogFile log;
    LogReport("a", 1, _T("first"));
    LogReport("b", 2, _T("second"));
#ifdef _WIN32
    const std::string end = "\r\n";
#else
    const std::string end = "\n";
#endif
    EXPECT_EQ(log.Bytes(), stamp + ": in a(1) error: first." + end + stamp + ": in b(2) error: second." + end);
}

TEST_F(Log, AMessageIsWrittenInTheAnsiCodePage)
{
    const xTLogFile log;
    LogReport("a", 1, _T("Ошибка"));
    std::string bytes;
    static_cast<void>(PlatformToBytes(xTCodePage::ansi, _T("Ошибка"), true, bytes));
    EXPECT_EQ(log.Records(), std::vector{stamp + ": in a(1) error: " + bytes + "."});
#ifndef _WIN32
    EXPECT_EQ(bytes, "\xCE\xF8\xE8\xE1\xEA\xE0");
#endif
}

TEST_F(Log, ALongMessageIsWrittenWhole)
{
    const xTLogFile log;
    LogReport("a", 1, WString(5000, _T('m')).c_str());
    EXPECT_EQ(log.Records(), std::vector{stamp + ": in a(1) error: " + std::string(5000, 'm') + "."});
}

TEST_F(Log, WhatTheLogHoldsStays)
{
    const xTLogFile log;
    std::ofstream(log.Folder() + "/scrivctl.log") << "old\n";
    LogReport("a", 1, nullptr);
    EXPECT_EQ(log.Records(), (std::vector<std::string>{"old", stamp + ": in a(1) unknown error."}));
}

TEST_F(Log, AFileThatOthersHaveOpenIsWrittenToo)
{
    const xTLogFile log;
    std::ofstream other(log.Folder() + "/scrivctl.log", std::ios::app);
    std::ifstream reader(log.Folder() + "/scrivctl.log");
    LogReport("a", 1, nullptr);
    EXPECT_EQ(log.Records().size(), 1u);
}

TEST_F(Log, AMissingFolderLosesTheRecordInSilence)
{
    NativePlatform().executablePath = _T("\\no\\such\\folder\\host.exe");
    LogReport("a", 1, _T("lost"));
    EXPECT_EQ(NativePlatform().boxCount, 0);
}

TEST_F(Log, AFileThatCannotBeWrittenLosesTheRecordInSilence)
{
    const xTLogFile log;
    std::filesystem::create_directory(log.Folder() + "/scrivctl.log");  // a folder in the file's place
    LogReport("a", 1, _T("lost"));
    EXPECT_EQ(NativePlatform().boxCount, 0);
}

TEST_F(Log, StandardExceptionsAreLoggedByWhat)
{
    const xTLogFile log;
    const std::runtime_error e("can't open clipboard");
    LogReportStd("a", 1, &e);
    LogReportStd("a", 2, nullptr);
    EXPECT_EQ(log.Records(), (std::vector{stamp + ": in a(1) error: can't open clipboard.",
                                          stamp + ": in a(2) unknown error."}));
}

TEST_F(Log, FrameworkExceptionsAreLoggedByTheirText)
{
    const xTLogFile log;
    const CInvalidArgException e;
    LogReportMfc("a", 1, &e);
    LogReportMfc("a", 2, nullptr);
    EXPECT_EQ(log.Records(), (std::vector{stamp + ": in a(1) error: Encountered an improper argument..",
                                          stamp + ": in a(2) unknown error."}));
}

TEST_F(Log, AFrameworkExceptionWithoutATextIsAnUnknownError)
{
    struct xTSilent final : CException {
        xTSilent() noexcept : CException(WStrView()) {}
    };
    const xTLogFile log;
    const CInvalidArgException before;
    LogReportMfc("a", 1, &before);
    const xTSilent silent;
    LogReportMfc("a", 2, &silent);  // nothing of the text before is left in the buffer
    EXPECT_EQ(log.Records().at(1), stamp + ": in a(2) unknown error.");
}

TEST_F(Log, AFrameworkTextIsCutTo511Characters)
{
    static const WString text(600, _T('t'));
    struct xTLong final : CException {
        xTLong() noexcept : CException(text) {}
    };
    const xTLogFile log;
    const xTLong e;
    LogReportMfc("a", 1, &e);
    EXPECT_EQ(log.Records(), std::vector{stamp + ": in a(1) error: " + std::string(511, 't') + "."});
}

TEST_F(Log, ARecordIsWrittenWhenNoMemoryIsLeft)
{
    const xTLogFile log;
    const std::bad_alloc e;
    const std::string message = "a message that is too long for the room inside a string object, so that it needs memory";
    const std::runtime_error longer(message);
    const WString wide(message.begin(), message.end());
    const int failures = FailuresIn([&] {
        LogReportStd("a", 1, &e);
        LogReportStd("a", 2, &longer);
        LogReport("a", 3, wide.c_str());
    }, 0, xTFailingNew::xTHowLong::fromThenOn);
    EXPECT_GT(failures, 0);
    ASSERT_EQ(log.Records().size(), 3u);
    EXPECT_EQ(log.Records()[0], stamp + ": in a(1) error: std::bad_alloc.");
    EXPECT_EQ(log.Records()[1], stamp + ": in a(2) error: " + message + ".");
    EXPECT_EQ(log.Records()[2], stamp + ": in a(3) error: " + message + ".");
}

TEST_F(Log, WithoutMemoryAnyCharacterBeyondAsciiBecomesAQuestionMark)
{
    const xTLogFile log;
    const WString wide = _T("Ошибка ") + WString(100, _T('x'));
    EXPECT_GT(FailuresIn([&] { LogReport("a", 1, wide.c_str()); }, 0, xTFailingNew::xTHowLong::fromThenOn), 0);
    EXPECT_EQ(log.Records(), std::vector{stamp + ": in a(1) error: ?????? " + std::string(100, 'x') + "."});
}

TEST_F(Log, TheReporterStandsEverySingleFailureOfMemory)
{
    const xTLogFile log;
    const std::runtime_error e(std::string(100, 'e'));
    int before = 0;
    while (FailuresIn([&] { LogReportStd("a", 1, &e); }, before) > 0)
        ++before;
    EXPECT_GT(before, 0);
    const auto records = log.Records();
    EXPECT_EQ(records.size(), static_cast<std::size_t>(before) + 1);
    for (const auto& record : records)
        EXPECT_EQ(record, records.front());
}

TEST_F(Log, ALostFontIsShownAndNotLogged)
{
    const xTLogFile log;
    ShowSettingsError({_T("Испорчен шрифт редактора!"), _T("add_font(...)")});
    ASSERT_EQ(NativePlatform().boxCount, 1);
    const auto& box = NativePlatform().LastBox();
    EXPECT_EQ(box.text(), _T("\n Просьба сообщить разработчику!\n Что случилось:Испорчен шрифт редактора!\n Где:add_font(...)"
                             "\n При каких обстоятельствах?\n Большое спасибо."));
    EXPECT_EQ(box.caption(), _T("Ошибка!"));
    EXPECT_EQ(static_cast<unsigned>(box.icon), 16u);
    EXPECT_TRUE(log.Records().empty());
}

TEST_F(Log, ALostFontWithoutMemoryForItsTextIsLogged)
{
    const xTLogFile log;
    const xTExceptSettings e{_T("message"), _T("place")};
    EXPECT_GT(FailuresIn([&] { ShowSettingsError(e); }, 0), 0);
    EXPECT_EQ(NativePlatform().boxCount, 0);
    EXPECT_EQ(log.Records().size(), 1u);
}

}  // namespace
