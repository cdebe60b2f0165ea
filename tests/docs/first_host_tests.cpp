// The first programs of the page, as a reader builds them: they show a file, take keys, save and end.

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
    Program(const std::wstring& name, const wchar_t* windowClass, const std::wstring& file) : m_class(windowClass)
    {
        std::wstring command = name + L" \"" + file + L"\"";
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
        while ((window = ::FindWindowExW(nullptr, window, m_class, nullptr)) != nullptr) {
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
    const wchar_t* m_class;
    PROCESS_INFORMATION m_process{};
};

/// The editor below a window, however deep.
HWND EditorBelow(HWND window)
{
    HWND found = nullptr;
    ::EnumChildWindows(
        window,
        [](HWND child, LPARAM to) -> BOOL {
            wchar_t name[40] = L"";
            ::GetClassNameW(child, name, 40);
            if (std::wstring(name) != L"ScrivCtl3")
                return TRUE;
            *reinterpret_cast<HWND*>(to) = child;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

bool Fills(HWND editor, HWND window)
{
    RECT client{};
    RECT place{};
    ::GetClientRect(window, &client);
    ::GetWindowRect(editor, &place);
    return client.right > 0 && place.right - place.left == client.right && place.bottom - place.top == client.bottom;
}

/// @param changedTitle  what the title begins with while there is something to save
void ExpectAnEditorThatSaves(const Program& program, const xTTestFolder& folder, const std::wstring& changedTitle)
{
    const auto title = [&] {
        wchar_t text[300] = L"";
        ::GetWindowTextW(program.Window(), text, 300);
        return std::wstring(text);
    };
    ASSERT_TRUE(Becomes([&] { return ::IsWindowVisible(program.Window()); }));
    const HWND window = program.Window();
    const HWND editor = EditorBelow(window);
    ASSERT_TRUE(editor);
    EXPECT_EQ(::GetDlgCtrlID(editor), 103);
    EXPECT_TRUE(Becomes([&] { return ::IsWindowVisible(editor) && Fills(editor, window); }));

    const std::wstring before = title();
    for (const wchar_t ch : std::wstring(L"new "))
        ::SendMessageW(editor, WM_CHAR, ch, 0);
    EXPECT_EQ(title(), changedTitle + before);
    ::SendMessageW(window, WM_COMMAND, commandSave, 0);
    EXPECT_EQ(title(), before);
    EXPECT_EQ(folder.bytes("text.txt"), "new old\r\nlines");
    ::PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(program.Ended(), 0u);
}

class PagePrograms : public testing::Test {
protected:
    PagePrograms() { folder.put("text.txt", "old\r\nlines"); }
    xTTestFolder folder;
};

TEST_F(PagePrograms, TheOneInCShowsAFileTakesKeysSavesAndEnds)
{
    const Program program(L"first_host.exe", L"FirstHost", folder.file("text.txt"));
    ExpectAnEditorThatSaves(program, folder, L"");
}

TEST_F(PagePrograms, TheOneInCppShowsAFileTakesKeysSavesAndEnds)
{
    const Program program(L"first_cpp_host.exe", L"FirstCppHost", folder.file("text.txt"));
    ExpectAnEditorThatSaves(program, folder, L"* ");
}

}  // namespace
