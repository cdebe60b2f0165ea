// The first program of the page, as a reader builds it: it shows a file, takes keys, saves and ends.

#include "tests/support/TestFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

constexpr DWORD patience = 20000;  // milliseconds
constexpr WPARAM commandSave = 1;

bool Becomes(const std::function<bool()>& condition)
{
    for (const ULONGLONG end = ::GetTickCount64() + patience; ::GetTickCount64() < end; ::Sleep(20))
        if (condition())
            return true;
    return false;
}

/// The program, started with a file; ended by force if a test leaves it running.
class Program {
public:
    explicit Program(const std::wstring& file)
    {
        std::wstring command = L"first_host.exe \"" + file + L"\"";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        if (::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                             &m_process))
            ::CloseHandle(m_process.hThread);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program()
    {
        ::TerminateProcess(m_process.hProcess, 99);
        ::CloseHandle(m_process.hProcess);
    }

    [[nodiscard]] HWND Window() const
    {
        HWND window = nullptr;
        DWORD process = 0;
        while ((window = ::FindWindowExW(nullptr, window, L"FirstHost", nullptr)) != nullptr) {
            ::GetWindowThreadProcessId(window, &process);
            if (process == m_process.dwProcessId)
                break;
        }
        return window;
    }
    /// Its exit code; 98 when it does not end.
    [[nodiscard]] DWORD Ended() const
    {
        DWORD code = 98;
        if (::WaitForSingleObject(m_process.hProcess, patience) == WAIT_OBJECT_0)
            ::GetExitCodeProcess(m_process.hProcess, &code);
        return code;
    }

private:
    PROCESS_INFORMATION m_process{};
};

TEST(PageProgram, ShowsAFileTakesKeysSavesAndEnds)
{
    const xTTestFolder folder;
    folder.put("text.txt", "old\r\nlines");
    const Program program(folder.file("text.txt"));
    ASSERT_TRUE(Becomes([&] { return ::IsWindowVisible(program.Window()); }));
    const HWND window = program.Window();
    const HWND editor = ::FindWindowExW(window, nullptr, L"ScrivCtl3", nullptr);
    ASSERT_TRUE(::IsWindowVisible(editor));
    EXPECT_EQ(::GetDlgCtrlID(editor), 103);
    EXPECT_TRUE(Becomes([&] {
        RECT client{};
        RECT place{};
        ::GetClientRect(window, &client);
        ::GetWindowRect(editor, &place);
        return client.right > 0 && place.right - place.left == client.right &&
               place.bottom - place.top == client.bottom;
    })) << "the editor fills the window";

    for (const wchar_t ch : std::wstring(L"new "))
        ::SendMessageW(editor, WM_CHAR, ch, 0);
    ::SendMessageW(window, WM_COMMAND, commandSave, 0);
    EXPECT_EQ(folder.bytes("text.txt"), "new old\r\nlines");
    ::PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(program.Ended(), 0u);
}

}  // namespace
