// The clipboard of the system, also while another process holds it.

#include "tests/support/win/ControlHost.h"
#include "tests/support/win/HostLog.h"
#include "tests/support/win/KeyDriver.h"
#include "tests/support/win/MarkedControl.h"

#include <gtest/gtest.h>

#include <cstring>
#include <cwchar>

namespace {

constexpr const wchar_t* heldEvent = L"ScrivClipboardIsHeld";

class Opened {
public:
    Opened() { EXPECT_TRUE(::OpenClipboard(nullptr)); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() { ::CloseClipboard(); }
};

void Put(UINT format, const void* bytes, std::size_t size)
{
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(::GlobalLock(memory), bytes, size);
    ::GlobalUnlock(memory);
    EXPECT_NE(::SetClipboardData(format, memory), nullptr);
}

void SetText(const std::wstring& text)
{
    const Opened opened;
    ::EmptyClipboard();
    Put(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

std::wstring Text()
{
    const Opened opened;
    const HANDLE memory = ::GetClipboardData(CF_UNICODETEXT);
    if (!memory)
        return L"nothing";
    std::wstring text = static_cast<const wchar_t*>(::GlobalLock(memory));
    ::GlobalUnlock(memory);
    return text;
}

/// A second process that holds the clipboard open.
class Holder {
public:
    explicit Holder(int milliseconds)
    {
        m_held = ::CreateEventW(nullptr, TRUE, FALSE, heldEvent);
        ::SetEnvironmentVariableW(L"SCRIV_HOLD_MS", std::to_wstring(milliseconds).c_str());
        wchar_t program[MAX_PATH];
        ::GetModuleFileNameW(nullptr, program, MAX_PATH);
        std::wstring command = L"\"" + std::wstring(program) +
                               L"\" --gtest_also_run_disabled_tests --gtest_filter=OtherProcess.DISABLED_HoldsTheClipboard "
                               L"--gtest_output=";
        STARTUPINFOW start{};
        start.cb = sizeof start;
        EXPECT_TRUE(::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                                     &start, &m_process));
        // Whoever owned the clipboard last has to go on handling messages, or the other waits for it.
        while (::MsgWaitForMultipleObjects(1, &m_held, FALSE, 20000, QS_ALLINPUT) == WAIT_OBJECT_0 + 1)
            Pump();
        EXPECT_EQ(::WaitForSingleObject(m_held, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder()
    {
        while (::MsgWaitForMultipleObjects(1, &m_process.hProcess, FALSE, 20000, QS_ALLINPUT) == WAIT_OBJECT_0 + 1)
            Pump();
        ::CloseHandle(m_process.hThread);
        ::CloseHandle(m_process.hProcess);
        ::CloseHandle(m_held);
    }

private:
    HANDLE m_held = nullptr;
    PROCESS_INFORMATION m_process{};
};

// Not a test but the other process.
TEST(OtherProcess, DISABLED_HoldsTheClipboard)
{
    wchar_t time[16] = L"0";
    ::GetEnvironmentVariableW(L"SCRIV_HOLD_MS", time, 16);
    ASSERT_TRUE(::OpenClipboard(nullptr));
    const HANDLE held = ::CreateEventW(nullptr, TRUE, FALSE, heldEvent);
    ::SetEvent(held);
    ::Sleep(static_cast<DWORD>(std::wcstoul(time, nullptr, 10)));
    ::CloseClipboard();
    ::CloseHandle(held);
}

class SystemClipboard : public testing::Test {
protected:
    ControlHost host;
    HWND control = host.Show(L"");

    void given(std::wstring_view text) { GivenMarked(control, text); }
    std::wstring marked() const { return Marked(control); }
    BOOL exec(int code) { return edExecCommand(control, code); }
};

TEST_F(SystemClipboard, CopyingTwoLinesWritesOneCarriageReturnAndLineFeedAndATerminator)
{
    given(L"a[bc\nd]|e");
    exec(ED_COMMAND_COPY);
    const Opened opened;
    EXPECT_EQ(::EnumClipboardFormats(0), static_cast<UINT>(CF_UNICODETEXT));
    const HANDLE memory = ::GetClipboardData(CF_UNICODETEXT);
    ASSERT_NE(memory, nullptr);
    const auto* text = static_cast<const wchar_t*>(::GlobalLock(memory));
    EXPECT_EQ(std::wstring(text, 6), std::wstring(L"bc\r\nd\0", 6));
    ::GlobalUnlock(memory);
}

TEST_F(SystemClipboard, CopyingWithoutASelectionDoesNotOpenIt)
{
    SetText(L"old");
    const DWORD number = ::GetClipboardSequenceNumber();
    given(L"a|b");
    exec(ED_COMMAND_COPY);
    exec(ED_COMMAND_COPY_APPEND);
    EXPECT_EQ(::GetClipboardSequenceNumber(), number);
    EXPECT_EQ(Text(), L"old");
}

TEST_F(SystemClipboard, AnEmptySelectionLeavesWhatItHolds)
{
    SetText(L"old");
    given(L"|");
    exec(ED_COMMAND_SELECT_ALL);
    ASSERT_EQ(edGetMode(control, ED_MODE_SELECTION), 1);
    exec(ED_COMMAND_COPY);
    EXPECT_EQ(Text(), L"old");
}

TEST_F(SystemClipboard, AppendingToAnEmptyOneGivesJustTheSelection)
{
    {
        const Opened opened;
        ::EmptyClipboard();
    }
    given(L"a[bc]|d");
    exec(ED_COMMAND_COPY_APPEND);
    EXPECT_EQ(Text(), L"bc");
}

TEST_F(SystemClipboard, AppendingPutsALineBreakBetween)
{
    SetText(L"one\r\ntwo");
    given(L"a[b\nc]|d");
    exec(ED_COMMAND_COPY_APPEND);
    EXPECT_EQ(Text(), L"one\r\ntwo\r\nb\r\nc");
}

TEST_F(SystemClipboard, APasteKeepsOneBreakALineAndDropsALoneCarriageReturn)
{
    SetText(L"a\r\nb\rc\nd");
    given(L"|");
    exec(ED_COMMAND_PASTE);
    EXPECT_EQ(marked(), L"a\nbc\nd|");
}

TEST_F(SystemClipboard, CyrillicGoesOutAndComesBack)
{
    edLoadText(control, L"Привет, мир", 0xFFFFFFFF);
    exec(ED_COMMAND_SELECT_ALL);
    exec(ED_COMMAND_COPY);
    EXPECT_EQ(Text(), L"Привет, мир");
    edLoadText(control, L"\n", 0xFFFFFFFF);
    exec(ED_COMMAND_PASTE);
    EXPECT_EQ(TextOf(control), L"Привет, мир");
}

TEST_F(SystemClipboard, TheFormatListedFirstIsPasted)
{
    {
        const Opened opened;
        ::EmptyClipboard();
        Put(CF_TEXT, "bytes", 6);
        Put(CF_UNICODETEXT, L"wide", 10);
    }
    given(L"|");
    exec(ED_COMMAND_PASTE);
    EXPECT_EQ(marked(), L"bytes|");
}

TEST_F(SystemClipboard, ClosesTheClipboardBehindEachCommand)
{
    given(L"[ab]|");
    for (const int code : {ED_COMMAND_COPY, ED_COMMAND_COPY_APPEND, ED_COMMAND_PASTE, ED_COMMAND_CUT}) {
        exec(code);
        edCanExecCommand(control, ED_COMMAND_PASTE);
        EXPECT_EQ(::GetOpenClipboardWindow(), nullptr) << code;
    }
}

TEST_F(SystemClipboard, CopyingWaitsForAShortHolder)
{
    SetText(L"old");
    given(L"[new]|");
    {
        const Holder holder(150);
        exec(ED_COMMAND_COPY);
    }
    EXPECT_EQ(Text(), L"new");
}

TEST_F(SystemClipboard, ALongHolderMakesCopyingReportAndNothingElse)
{
    SetText(L"old");
    given(L"[new]|");
    const HostLog log;
    {
        const Holder holder(2500);
        const ULONGLONG start = ::GetTickCount64();
        EXPECT_EQ(exec(ED_COMMAND_COPY), 1);
        EXPECT_GE(::GetTickCount64() - start, 450u);
        EXPECT_EQ(exec(ED_COMMAND_PASTE), 0);  // what cannot be asked ends the command
        EXPECT_EQ(marked(), L"[new]|");
    }
    EXPECT_NE(log.News().find("can't open clipboard"), std::string::npos);
    EXPECT_EQ(Text(), L"old");
}

}  // namespace
