// What the page says of a bad handle is what the control answers.

#include "tests/support/win/ControlHost.h"

#include <gtest/gtest.h>

#include <cstring>
#include <future>
#include <string>
#include <thread>

namespace {

struct Row {
    const char* name;
    const char* answer;  ///< as the page says it
};

const Row pageRows[] = {
#include "bad_handles.inc"
};

/// Any export: on 64-bit Windows all of them can be called with more arguments than they take, all of them 0 but the
/// handle.
using Export = std::uint64_t (*)(HWND, std::uint64_t, std::uint64_t, std::uint64_t, std::uint64_t);

void ExpectThePagesAnswers(HWND bad, const char* what)
{
    const HMODULE library = ::GetModuleHandleW(L"scrivctl3.dll");
    ASSERT_TRUE(library);
    for (const Row& row : pageRows) {
        SCOPED_TRACE(std::string(row.name) + " of " + what);
        const FARPROC found = ::GetProcAddress(library, row.name);
        ASSERT_TRUE(found);
        Export call = nullptr;
        std::memcpy(&call, &found, sizeof call);
        const std::string answer = row.answer;
        const std::uint64_t told = call(answer == "no handle" ? nullptr : bad, 0, 0, 0, 0);
        if (answer == "0" || answer == "no handle")
            EXPECT_EQ(static_cast<std::int32_t>(told), 0);
        else if (answer == "-1")
            EXPECT_EQ(static_cast<std::int32_t>(told), -1);
        else if (answer == "null")
            EXPECT_EQ(told, 0u);
        else
            EXPECT_EQ(answer, "nothing");
    }
}

TEST(PageAnswers, AreThoseOfANullHandle)
{
    ASSERT_EQ(std::size(pageRows), 35u);
    ExpectThePagesAnswers(nullptr, "a null handle");
}

TEST(PageAnswers, AreThoseOfADestroyedControl)
{
    ControlHost host;
    const HWND control = host.Create();
    edDestroyCtrl(control);
    ExpectThePagesAnswers(control, "a destroyed control");
}

TEST(PageAnswers, AreThoseOfAWindowThatIsNoControl)
{
    ControlHost host;
    ExpectThePagesAnswers(host.Window(), "a window that is no control");
    EXPECT_TRUE(::IsWindow(host.Window()));
}

TEST(PageAnswers, AreThoseOfAControlOfAnotherThread)
{
    ControlHost host;
    const HWND control = host.Create();
    edLoadText(control, L"one\ntwo", 1);
    std::async(std::launch::async, [&] { ExpectThePagesAnswers(control, "a control of another thread"); }).get();
    EXPECT_EQ(edGetHWND(control), control);
    EXPECT_EQ(edGetLineCount(control), 2u);
}

TEST(PageAnswers, DestroyingWithTheParentLeavesADeadHandle)
{
    HWND control = nullptr;
    {
        ControlHost host;
        control = host.Create();
    }
    EXPECT_EQ(edGetHWND(control), nullptr);
}

}  // namespace
