// Drags between two programs that both hold a control. The other one is this program again.

#include "tests/control/drag/DragFixture.h"

namespace {

constexpr const wchar_t* otherTitle = L"ScrivDragOtherProcess";
constexpr const wchar_t* otherMayEnd = L"ScrivDragOtherProcessMayEnd";

// Not a test but the other process of those below. It tells its text by the title of its window.
TEST(OtherProcess, DISABLED_HoldsAControl)
{
    ControlHost other(500, 200);
    const HWND control = other.Show(L"");
    GivenMarked(control, L"u[vw]|xyz");
    ::SetWindowPos(other.Window(), HWND_TOP, 650, 20, 0, 0, SWP_NOSIZE);
    other.onMessage = [&](const ControlHost::Message& message) {
        if (message.id == ED_NOTIFY_CARET && message.wParam)
            ::SetWindowTextW(other.Window(), TextOf(control).c_str());
    };
    ::SetWindowTextW(other.Window(), otherTitle);
    const HANDLE end = ::CreateEventW(nullptr, TRUE, FALSE, otherMayEnd);
    while (::MsgWaitForMultipleObjects(1, &end, FALSE, 20000, QS_ALLINPUT) == WAIT_OBJECT_0 + 1)
        Pump();
    ::CloseHandle(end);
}

class DragBetweenProcesses : public Drag {
protected:
    HANDLE end = ::CreateEventW(nullptr, TRUE, FALSE, otherMayEnd);
    PROCESS_INFORMATION process{};
    HWND otherHost = nullptr;
    HWND other = nullptr;

    void SetUp() override
    {
        wchar_t program[MAX_PATH];
        ::GetModuleFileNameW(nullptr, program, MAX_PATH);
        std::wstring command = L"\"" + std::wstring(program) +
                               L"\" --gtest_also_run_disabled_tests --gtest_filter=OtherProcess.DISABLED_HoldsAControl";
        STARTUPINFOW start{};
        start.cb = sizeof start;
        ASSERT_TRUE(::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                                     &start, &process));
        for (int i = 0; i < 300 && !otherHost; ++i) {
            Pump(30);
            otherHost = ::FindWindowW(nullptr, otherTitle);
        }
        other = ::GetWindow(otherHost, GW_CHILD);
        ASSERT_TRUE(::IsWindow(other));
        ::SetForegroundWindow(host.Window());
        Pump(100);
    }
    void TearDown() override
    {
        ::SetEvent(end);
        EXPECT_EQ(::WaitForSingleObject(process.hProcess, 20000), static_cast<DWORD>(WAIT_OBJECT_0));
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
        ::CloseHandle(end);
    }
    std::wstring otherText() const
    {
        wchar_t title[100] = L"";
        ::GetWindowTextW(otherHost, title, 100);
        return title;
    }
};

TEST_F(DragBetweenProcesses, AMoveOutIsDeletedHereAndArrivesThere)
{
    GivenMarked(control, L"a[bc]|def");
    EXPECT_TRUE(dragTo(At(0, 1), other, At(0, 3)));
    Pump(200);
    EXPECT_EQ(TextOf(control), L"adef");
    EXPECT_EQ(otherText(), L"vwbcxyz");  // with the first character gone, as by every first move from elsewhere
}

TEST_F(DragBetweenProcesses, ACopyFromThereArrivesHere)
{
    GivenMarked(control, L"|abcdef");
    EXPECT_TRUE(PlaySteps({
        [this] { PutPointer(other, At(0, 1)); },
        [] { PutButton(true); },
        [this] { PutPointer(other, {At(0, 1).x + 2, At(0, 1).y}); },
        [] {},
        [this] { PutPointer(control, {At(0, 3).x, At(0, 3).y + 3}); },
        [] {},
        [this] { PutPointer(control, At(0, 3)); },
        [] {},
        [] { PutKey(VK_CONTROL, true); },
        [] { PutButton(false); },
        [] {},
    }));
    Pump(200);
    EXPECT_EQ(TextOf(control), L"abcvwdef");
    EXPECT_EQ(otherText(), otherTitle);  // nothing has changed there
}

}  // namespace
