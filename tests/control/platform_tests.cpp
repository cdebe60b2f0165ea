// The engine's questions as the system itself answers them.

#include "framework/base/Platform.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>

namespace {

class Keys : public testing::Test {
protected:
    static void SetKey(int key, BYTE value)
    {
        std::array<BYTE, 256> state{};
        state[static_cast<std::size_t>(key)] = value;
        ::SetKeyboardState(state.data());
    }
    ~Keys() override { SetKey(0, 0); }
};

TEST_F(Keys, AKeyThatIsDownIsDown)
{
    SetKey(VK_SHIFT, 0x80);
    EXPECT_TRUE(PlatformKeyDown(VK_SHIFT));
    EXPECT_FALSE(PlatformKeyDown(VK_CONTROL));
}

TEST_F(Keys, AToggleThatIsOnIsNotDown)
{
    SetKey(VK_INSERT, 0x01);
    EXPECT_FALSE(PlatformKeyDown(VK_INSERT));
}

TEST_F(Keys, AKeyTypesOnItsOwnLayoutWhatItIsFoundBy)
{
    const xTKeyLayout layout = PlatformKeyLayout();
    EXPECT_NE(layout, 0u);
    for (const WCHAR ch : {L'a', L'A', L'7', L'%', L';', L' '}) {
        const unsigned scan = PlatformKeyScan(ch, layout);
        ASSERT_NE(scan, 0xFFFFu);
        std::array<BYTE, 256> state{};
        state[scan & 0xFF] = 0xF0;
        state[VK_SHIFT] = (scan & 0x100) != 0 ? 0xF0 : 0;
        std::array<WCHAR, 2> text{};
        EXPECT_EQ(PlatformKeyText(scan & 0xFF, PlatformScanCode(scan & 0xFF, layout), state, layout, text), 1);
        EXPECT_EQ(text[0], ch);
    }
    EXPECT_EQ(PlatformKeyScan(0x4E00, layout), 0xFFFF);
}

TEST_F(Keys, TheOnlyLayoutFollowsItself)
{
    const xTKeyLayout layout = PlatformKeyLayout();
    PlatformNextKeyLayout();
    if (::GetKeyboardLayoutList(0, nullptr) < 2) {
        EXPECT_EQ(PlatformKeyLayout(), layout);
    }
}

struct xTOpenClipboard {
    xTOpenClipboard() { EXPECT_TRUE(PlatformOpenClipboard(nullptr)); }
    ~xTOpenClipboard() { PlatformCloseClipboard(); }
};

TEST(Clipboard, GivesBackTheTextThatWasWritten)
{
    const xTOpenClipboard open;
    PlatformWriteClipboard(L"one\r\nдва");
    EXPECT_EQ(PlatformNextClipboardFormat(0), static_cast<unsigned>(CF_UNICODETEXT));
    CString text;
    EXPECT_TRUE(PlatformReadClipboard(clipboardWide, text));
    EXPECT_EQ(text, L"one\r\nдва");
}

TEST(Clipboard, EndsATextWithoutATerminatorAtTheEndOfItsMemory)
{
    const xTOpenClipboard open;
    ::EmptyClipboard();
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, 16);
    auto* to = static_cast<WCHAR*>(::GlobalLock(memory));
    std::fill_n(to, 8, L'x');
    ::GlobalUnlock(memory);
    ::SetClipboardData(CF_UNICODETEXT, memory);
    CString text;
    EXPECT_TRUE(PlatformReadClipboard(clipboardWide, text));
    EXPECT_GE(text.GetLength(), 7);  // some systems put a terminator in the last place themselves
    EXPECT_LE(text.GetLength(), 8);
    EXPECT_EQ(text.view().find_first_not_of(L'x'), WStrView::npos);
}

TEST(Clipboard, ReadsBytesInTheAnsiCodePage)
{
    const xTOpenClipboard open;
    ::EmptyClipboard();
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, 5);
    std::copy_n("\xC0z", 3, static_cast<char*>(::GlobalLock(memory)));
    ::GlobalUnlock(memory);
    ::SetClipboardData(CF_TEXT, memory);
    WString expected;
    ASSERT_TRUE(PlatformToWide(xTCodePage::ansi, "\xC0z", expected));
    CString text;
    EXPECT_TRUE(PlatformReadClipboard(clipboardBytes, text));
    EXPECT_EQ(text.view(), WStrView(expected));
}

TEST(Clipboard, WithoutATextThereIsNothingToRead)
{
    const xTOpenClipboard open;
    ::EmptyClipboard();
    CString text;
    EXPECT_EQ(PlatformNextClipboardFormat(0), 0u);
    EXPECT_FALSE(PlatformReadClipboard(clipboardWide, text));
    EXPECT_FALSE(PlatformReadClipboard(clipboardBytes, text));
}

std::wstring shownText;
std::wstring shownCaption;
LONG_PTR shownIcon;

// Presses OK as soon as the box stands.
LRESULT CALLBACK PressOk(int code, WPARAM window, LPARAM)
{
    const auto box = reinterpret_cast<HWND>(window);
    std::array<WCHAR, 200> text{};
    ::GetClassNameW(box, text.data(), 200);
    if (code != HCBT_ACTIVATE || WStrView(text.data()) != L"#32770")
        return 0;
    ::GetDlgItemTextW(box, 0xFFFF, text.data(), 200);
    shownText = text.data();
    ::GetWindowTextW(box, text.data(), 200);
    shownCaption = text.data();
    shownIcon = 0;
    for (HWND child = ::GetWindow(box, GW_CHILD); child && !shownIcon; child = ::GetWindow(child, GW_HWNDNEXT))
        shownIcon = ::SendMessageW(child, STM_GETICON, 0, 0);
    ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    return 0;
}

TEST(MessageBox, ShowsTextCaptionAndIcon)
{
    const HHOOK hook = ::SetWindowsHookExW(WH_CBT, PressOk, nullptr, ::GetCurrentThreadId());
    PlatformMessageBox(L"Это текст", L"Ошибка!", xTBoxIcon::error);
    EXPECT_EQ(shownText, L"Это текст");
    EXPECT_EQ(shownCaption, L"Ошибка!");
    EXPECT_NE(shownIcon, 0);
    ::UnhookWindowsHookEx(hook);
}

TEST(Machine, TellsTheExecutable)
{
    std::array<WCHAR, 260> path{};
    const int length = PlatformExecutablePath(path.data(), 260);
    EXPECT_TRUE(WStrView(path.data()).ends_with(L"\\platform_tests.exe"));
    EXPECT_EQ(WStrView(path.data()).size(), static_cast<std::size_t>(length));
    std::array<WCHAR, 6> small{};
    EXPECT_EQ(PlatformExecutablePath(small.data(), 6), 5);
    EXPECT_EQ(WStrView(small.data()), WStrView(path.data(), 5));
}

TEST(Machine, TellsTheResolutionOfTheScreen)
{
    const HDC screen = ::GetDC(nullptr);
    EXPECT_EQ(PlatformScreenResolution().x, ::GetDeviceCaps(screen, LOGPIXELSX));
    EXPECT_EQ(PlatformScreenResolution().y, ::GetDeviceCaps(screen, LOGPIXELSY));
    ::ReleaseDC(nullptr, screen);
}

TEST(Machine, TellsTheLocalTime)
{
    // Between two answers of the system's other clock lies ours.
    const auto stamp = [](const SYSTEMTIME& t) {
        return ((((t.wYear * 100LL + t.wMonth) * 100 + t.wDay) * 100 + t.wHour) * 100 + t.wMinute) * 100 + t.wSecond;
    };
    SYSTEMTIME before{};
    SYSTEMTIME after{};
    ::GetLocalTime(&before);
    const xTLocalTime now = PlatformLocalTime();
    ::GetLocalTime(&after);
    const auto ours = ((((now.year * 100LL + now.month) * 100 + now.day) * 100 + now.hour) * 100 + now.minute) * 100 + now.second;
    EXPECT_GE(ours, stamp(before));
    EXPECT_LE(ours, stamp(after));
    EXPECT_GE(now.millisecond, 0);
    EXPECT_LT(now.millisecond, 1000);
}

TEST(Machine, HasNoTextForANumberThatIsNotInTheTable)
{
    EXPECT_TRUE(PlatformString(64321).IsEmpty());
}

TEST(Machine, GivesAlignedPages)
{
    constexpr std::size_t size = 64 * 1024;
    auto* pages = static_cast<unsigned char*>(PlatformAllocPages(2 * size));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(pages) % size, 0u);
    pages[2 * size - 1] = 1;
    PlatformFreePages(pages, 2 * size);
    EXPECT_THROW(static_cast<void>(PlatformAllocPages(std::size_t{1} << 60)), std::bad_alloc);
}

}  // namespace
