// A save that does not come to its end: whichever of the control's calls of the system it is that fails, or in which
// the process dies, the file has its old bytes or the new ones, and the control has its text.

#include "tests/control/files/FileCalls.h"
#include "tests/support/TestFolder.h"
#include "tests/support/win/ControlHost.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace {

constexpr std::string_view oldBytes = "the old text\r\nof the file\r\n";
constexpr const wchar_t* childPath = L"SCRIV_SAVE_PATH";
constexpr const wchar_t* childCall = L"SCRIV_SAVE_CALL";

// More than is written to the file at once, so that it takes several writes.
std::wstring NewText()
{
    std::wstring text;
    for (int line = 0; text.size() < 300'000; ++line)
        text += L"line " + std::to_wstring(line) + L" of the new text\n";
    return text + L"end";
}

std::string NewBytes()
{
    const std::wstring text = NewText();
    return {text.begin(), text.end()};
}

/// A file that can be replaced, or one that another program holds open so that it can only be overwritten in place.
enum class Way { replaced, inPlace };

class InterruptedSave : public testing::TestWithParam<Way> {
protected:
    InterruptedSave()
    {
        wchar_t usual[MAX_PATH + 1] = L"";
        ::GetTempPathW(MAX_PATH, usual);
        m_usualTemp = usual;
        ::SetEnvironmentVariableW(L"TMP", rescue.path().c_str());
        Prepare();
    }
    ~InterruptedSave() override
    {
        LetGo();
        ::SetEnvironmentVariableW(L"TMP", m_usualTemp.c_str());
    }

    void Prepare()
    {
        LetGo();
        for (const xTTestFolder* each : {&folder, &rescue}) {
            for (const std::string& name : each->names())
                std::filesystem::remove(each->path() / name);
        }
        folder.put("t", oldBytes);
        if (GetParam() == Way::inPlace)
            m_held = ::CreateFileW(Path().c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                   OPEN_EXISTING, 0, nullptr);
    }
    [[nodiscard]] std::wstring Path() const { return folder.file("t"); }

    /// The number of file calls of a save that goes well.
    int CallsOfASave(HWND control)
    {
        Prepare();
        FileCalls calls;
        EXPECT_TRUE(edSaveFile(control, Path().c_str(), ED_ENCODING_UTF8));
        EXPECT_TRUE(folder.bytes("t") == NewBytes());
        EXPECT_EQ(folder.names().size(), 1u);
        return FileCalls::Count();
    }
    /// After a process that died: a file in place may be between old and new, with the old bytes kept beside.
    void ExpectNothingLost()
    {
        const std::string now = folder.bytes("t");
        if (now == oldBytes || now == NewBytes())
            return;
        ASSERT_EQ(GetParam(), Way::inPlace) << now.size() << " bytes: " << now.substr(0, 40);
        ASSERT_EQ(rescue.names().size(), 1u);
        EXPECT_EQ(rescue.bytes(rescue.names()[0]), oldBytes);
        ++between;
    }
    /// Another process loads, saves and dies in the call of that number. @return its status
    [[nodiscard]] std::optional<DWORD> SaveInAnotherProcess(int call) const
    {
        ::SetEnvironmentVariableW(childPath, Path().c_str());
        ::SetEnvironmentVariableW(childCall, std::to_wstring(call).c_str());
        wchar_t program[MAX_PATH];
        ::GetModuleFileNameW(nullptr, program, MAX_PATH);
        std::wstring command = L"\"" + std::wstring(program) + L"\" --gtest_also_run_disabled_tests --gtest_brief=1 " +
                               L"--gtest_filter=AnotherProcess.DISABLED_SavesAndDies --gtest_output=";
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        if (!::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                              &start, &process))
            return std::nullopt;
        DWORD status = STILL_ACTIVE;
        ::WaitForSingleObject(process.hProcess, 30'000);
        ::GetExitCodeProcess(process.hProcess, &status);
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
        return status;
    }

    xTTestFolder folder;
    xTTestFolder rescue;  // the folder for temporary files
    int between = 0;

private:
    void LetGo()
    {
        if (m_held != INVALID_HANDLE_VALUE)
            ::CloseHandle(m_held);
        m_held = INVALID_HANDLE_VALUE;
    }

    HANDLE m_held = INVALID_HANDLE_VALUE;
    std::wstring m_usualTemp;
};

// Every call with SCRIV_FULL=1, since a process a call takes its time.
int Stride()
{
    const char* const full = std::getenv("SCRIV_FULL");
    return full && *full == '1' ? 1 : 8;
}

}  // namespace

TEST_P(InterruptedSave, LeavesOldOrNewBytesAndTheTextWhicheverCallFails)
{
    ControlHost host;
    const HWND control = host.Show(NewText().c_str());
    const int calls = CallsOfASave(control);
    ASSERT_GT(calls, 10);
    for (const DWORD error : {ERROR_DISK_FULL, ERROR_ACCESS_DENIED}) {
        for (int n = 1; n <= calls; ++n) {
            SCOPED_TRACE(testing::Message() << "call " << n << " of " << calls << ", error " << error);
            Prepare();
            BOOL saved = FALSE;
            {
                const FileCalls faults(FileCalls::Then::callFails, n, error);
                saved = edSaveFile(control, Path().c_str(), ED_ENCODING_UTF8);
            }
            EXPECT_TRUE(folder.bytes("t") == (saved ? NewBytes() : oldBytes));
            ASSERT_TRUE(TextOf(control) == NewText());
        }
    }
}

TEST_P(InterruptedSave, LosesNothingWhereTheRightToTheFilesIsTakenAway)
{
    ControlHost host;
    const HWND control = host.Show(NewText().c_str());
    const int calls = CallsOfASave(control);
    for (int n = 1; n <= calls; ++n) {
        SCOPED_TRACE(testing::Message() << "from call " << n << " of " << calls << " on");
        Prepare();
        {
            const FileCalls faults(FileCalls::Then::allFail, n, ERROR_ACCESS_DENIED);
            edSaveFile(control, Path().c_str(), ED_ENCODING_UTF8);
        }
        ExpectNothingLost();
        ASSERT_TRUE(TextOf(control) == NewText());
    }
    // In place there is a moment in which the file is neither: the test must have met it.
    EXPECT_EQ(between > 0, GetParam() == Way::inPlace);
}

TEST_P(InterruptedSave, LosesNothingWhereverTheProcessDies)
{
    int calls = 0;
    {
        ControlHost host;
        calls = CallsOfASave(host.Show(NewText().c_str()));
    }
    RecordProperty("calls", calls);
    for (int n = 1; n <= calls; n += Stride()) {
        SCOPED_TRACE(testing::Message() << "died in call " << n << " of " << calls);
        Prepare();
        ASSERT_EQ(SaveInAnotherProcess(n), FileCalls::endedStatus);
        ExpectNothingLost();
    }
    Prepare();
    ASSERT_EQ(SaveInAnotherProcess(calls + 1), 0u);  // the numbers are those of the other process too
    EXPECT_TRUE(folder.bytes("t") == NewBytes());
}

INSTANTIATE_TEST_SUITE_P(Ways, InterruptedSave, testing::Values(Way::replaced, Way::inPlace),
                         [](const auto& info) { return info.param == Way::replaced ? "Replaced" : "InPlace"; });

// What InterruptedSave starts; nothing to run by itself.
TEST(AnotherProcess, DISABLED_SavesAndDies)
{
    wchar_t path[MAX_PATH] = L"";
    wchar_t call[16] = L"";
    ASSERT_NE(::GetEnvironmentVariableW(childPath, path, MAX_PATH), 0u);
    ASSERT_NE(::GetEnvironmentVariableW(childCall, call, 16), 0u);
    ControlHost host;
    const HWND control = host.Create();
    edLoadText(control, NewText().c_str(), 1);
    const FileCalls death(FileCalls::Then::processEnds, _wtoi(call));
    ASSERT_TRUE(edSaveFile(control, path, ED_ENCODING_UTF8));
}
