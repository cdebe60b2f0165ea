// The hosts in several languages, each a process of its own: it opens a file, highlights it, is typed into and saves.

#include <windows.h>

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <string>

namespace {

constexpr DWORD patienceMs = 10000;
// Of the classic theme; seen only where a hook has said so.
constexpr COLORREF numberColour = RGB(255, 0, 0);
constexpr COLORREF stringColour = RGB(0, 128, 128);

struct Host {
    const char* language;
    const wchar_t* program;
    const wchar_t* windowClass;
};

void PrintTo(const Host& host, std::ostream* out)
{
    *out << host.language;
}

/// Asks until it is so; false when that takes too long.
bool Until(const std::function<bool()>& so)
{
    for (const DWORD begun = GetTickCount(); GetTickCount() - begun < patienceMs; Sleep(20)) {
        if (so())
            return true;
    }
    return so();
}

class Hosts : public testing::TestWithParam<Host> {
protected:
    ~Hosts() override
    {
        if (process.hProcess) {
            TerminateProcess(process.hProcess, 99);  // nothing happens to one that has ended
            CloseHandle(process.hThread);
            CloseHandle(process.hProcess);
        }
        DeleteFileW(Path().c_str());
    }

    static std::wstring Path()
    {
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        return std::wstring(folder) + L"файл для хоста.txt";
    }
    static std::string Bytes()
    {
        std::ifstream file(Path().c_str(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    void Start(const std::wstring& argument)
    {
        std::wstring command = std::wstring(GetParam().program) + L" " + argument;
        STARTUPINFOW start{};
        start.cb = sizeof start;
        ASSERT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process));
    }
    void WaitForWindow()
    {
        ASSERT_TRUE(Until([&] { return (window = FindWindowW(GetParam().windowClass, nullptr)) != nullptr; }));
        ASSERT_TRUE(Until([&] { return GetForegroundWindow() == window; }));
    }
    [[nodiscard]] DWORD StatusAtEnd() const
    {
        DWORD status = STILL_ACTIVE;
        WaitForSingleObject(process.hProcess, patienceMs);
        GetExitCodeProcess(process.hProcess, &status);
        return status;
    }

    /// How many pixels of the window, as the screen shows it, have that colour.
    [[nodiscard]] int Pixels(COLORREF colour) const
    {
        RECT area{};
        GetClientRect(window, &area);
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
        const HDC screen = GetDC(nullptr);
        const HDC dc = CreateCompatibleDC(screen);
        const int width = 200, height = 60;
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        const HGDIOBJ before = SelectObject(dc, bitmap);
        BitBlt(dc, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
        GdiFlush();
        int count = 0;
        for (const auto* pixel = static_cast<const RGBQUAD*>(bits), *end = pixel + width * height; pixel != end; ++pixel)
            count += RGB(pixel->rgbRed, pixel->rgbGreen, pixel->rgbBlue) == colour;
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
        ReleaseDC(nullptr, screen);
        return count;
    }

    /// A key as the host's loop gets it, whichever window has the focus.
    void Press(WPARAM key) const
    {
        HWND control = window;
        while (const HWND child = GetWindow(control, GW_CHILD))
            control = child;
        PostMessageW(control, WM_KEYDOWN, key, 1);
        PostMessageW(control, WM_KEYUP, key, 1);
    }

    /// Real input, for the host asks whether Ctrl is down.
    static void PressSave()
    {
        INPUT inputs[4]{};
        const struct { WORD key; DWORD flags; } steps[] = {
            {VK_CONTROL, 0}, {'S', 0}, {'S', KEYEVENTF_KEYUP}, {VK_CONTROL, KEYEVENTF_KEYUP}};
        for (int i = 0; i < 4; ++i) {
            inputs[i].type = INPUT_KEYBOARD;
            inputs[i].ki.wVk = steps[i].key;
            inputs[i].ki.dwFlags = steps[i].flags;
        }
        SendInput(4, inputs, sizeof(INPUT));
    }
    /// Saves as a user does, who presses again when the window was not yet ready for it.
    [[nodiscard]] static bool Saves(const std::string& bytes)
    {
        return Until([&, presses = 0, tries = 0]() mutable {
            if (tries++ % 50 == 0 && presses++ < 5)
                PressSave();
            return Bytes() == bytes;
        });
    }

    /// The question that the host asks, answered by a button; what it said.
    [[nodiscard]] std::wstring Answer(WORD button) const
    {
        HWND box = nullptr;
        wchar_t text[200] = L"";
        if (Until([&] { return (box = Box()) != nullptr && GetDlgItem(box, button); })) {
            GetDlgItemTextW(box, 0xFFFF, text, 200);
            PostMessageW(box, WM_COMMAND, button, 0);
            Until([&] { return !IsWindow(box); });
        }
        return text;
    }

    /// The message box of the host, null without one.
    [[nodiscard]] HWND Box() const
    {
        HWND found = nullptr;
        EnumThreadWindows(
            GetWindowThreadProcessId(window, nullptr),
            [](HWND each, LPARAM result) -> BOOL {
                wchar_t name[20];
                GetClassNameW(each, name, 20);
                if (std::wstring(name) == L"#32770" && IsWindowVisible(each))
                    *reinterpret_cast<HWND*>(result) = each;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }

    PROCESS_INFORMATION process{};
    HWND window = nullptr;
};

TEST_P(Hosts, OpensHighlightsAsksAndSaves)
{
    const std::string bytes = "\xD1\x87 123\r\n\"\xD1\x8F 5\" 6";
    std::ofstream(Path().c_str(), std::ios::binary) << bytes;
    Start(L"\"" + Path() + L"\"");
    if (HasFatalFailure())
        return;
    WaitForWindow();
    EXPECT_TRUE(Until([&] { return Pixels(numberColour) > 30 && Pixels(stringColour) > 15; }));
    const int digits = Pixels(numberColour);
    Press('7');
    EXPECT_TRUE(Until([&] { return Pixels(numberColour) > digits; }));
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(Answer(IDNO), L"Закрыть, не сохранив текст?");
    EXPECT_EQ(Bytes(), bytes);
    ASSERT_TRUE(Until([&] { return GetForegroundWindow() == window; }));
    EXPECT_TRUE(Saves("7" + bytes)) << Bytes();
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(StatusAtEnd(), 0u);
}

TEST_P(Hosts, EndsWithoutAFileToOpen)
{
    Start(L"");
    EXPECT_EQ(StatusAtEnd(), 1u);
}

constexpr Host hosts[] = {
    {"C", L"host_c.exe", L"HostInC"},
    {"Cpp", L"host_cpp.exe", L"HostInCpp"},
#ifdef SCRIV_HOST_IN_RUST
    {"Rust", L"host_rust.exe", L"HostInRust"},
#endif
#ifdef SCRIV_HOST_IN_GO
    {"Go", L"host_go.exe", L"HostInGo"},
#endif
};
INSTANTIATE_TEST_SUITE_P(Languages, Hosts, testing::ValuesIn(hosts), [](const auto& test) { return test.param.language; });

}  // namespace
