#include "tests/endurance/Census.h"
#include "tests/endurance/Life.h"
#include "tests/support/RunLength.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/HostLog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <iostream>
#include <memory>
#include <random>
#include <thread>

// Many controls in one process: a thousand with a thousand lines each, a tenth of them in view, dialogs open in some;
// and some on each of several threads. 100 controls; SCRIV_FULL=1 makes it 1,000, SCRIV_CONTROLS as many as one likes.

namespace {

constexpr int columns = 10;
constexpr SIZE cell{80, 45};

std::wstring TextOfControl(int number)
{
    return L"control " + std::to_wstring(number) + L"\n" + life::Text(999);
}

HWND Make(ControlHost& host, int number, bool shown)
{
    const int place = number / columns;
    const RECT rect{(place % columns) * cell.cx, place / columns % columns * cell.cy, (place % columns + 1) * cell.cx,
                    (place / columns % columns + 1) * cell.cy};
    edCreateParams params{};
    params.rect = &rect;
    params.flags = number % 7 == 0 ? ED_CREATE_READONLY : 0;
    const HWND control = host.Create(params);
    edLoadText(control, TextOfControl(number).c_str(), 1);
    if (shown)
        ::ShowWindow(control, SW_SHOW);
    return control;
}

/// What is wrong with a control that nobody else may have touched; empty when nothing is.
std::string Fault(HWND control, int number)
{
    if (edGetHWND(control) != control || edGetLineCount(control) != 1000)
        return "control " + std::to_string(number) + " is gone or has lost lines";
    std::wstring first(40, L'\0');
    auto room = static_cast<UINT32>(first.size());
    edGetLine(control, 0, FALSE, first.data(), &room);
    first.resize(room - 1);
    return first == L"control " + std::to_wstring(number)
        ? "" : "control " + std::to_string(number) + " has another text";
}

/// As many controls, made in order, and destroyed in a random one while find dialogs and tuning pages are open.
void LiveTogether(ControlHost& host, int count)
{
    std::vector<std::pair<HWND, int>> controls;
    for (int number = 0; number < count; ++number)
        controls.emplace_back(Make(host, number, number % columns == 0), number);
    Pump(300);  // so that all timers come
    std::cout << count << " controls: " << testing::PrintToString(Census::Take()) << "\n";
    for (const auto& [control, number] : controls)
        ASSERT_EQ(Fault(control, number), "");

    std::shuffle(controls.begin(), controls.end(), std::mt19937(2026));
    for (std::size_t i = 0; i < 5; ++i)
        ASSERT_NE(life::OpenFind(controls[i * 7].first), nullptr);
    auto pages = std::make_unique<life::Tuning>(host.Window());
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const auto [control, number] = controls[i];
        ASSERT_EQ(Fault(control, number), "");
        if (pages && i % 20 == 0)
            pages->ApplyTo(controls.back().first);
        edDestroyCtrl(control);
        ASSERT_EQ(edGetHWND(control), nullptr);
        if (i == controls.size() / 2)
            pages.reset();
        if (i % 20 == 19)
            Pump();
    }
    Pump();
    host.Forget();
}

}  // namespace

TEST(Crowd, AThousandControlsLiveBesideEachOtherAndGoInAnyOrder)
{
    const HostLog log;
    const auto count = static_cast<int>(RunLength("SCRIV_CONTROLS", 100, 1000));
    ControlHost host(columns * cell.cx, columns * cell.cy);
    LiveTogether(host, 50);  // what the first of all controls, dialogs and pages bring along stays
    const Census before = Census::Take();
    LiveTogether(host, count);
    const Census left = Census::Take() - before;
    EXPECT_EQ(left.gdi, 0);
    EXPECT_EQ(left.windows, 0);
    EXPECT_EQ(left.user, 0);
    EXPECT_EQ(left.handles, 0);
    EXPECT_LT(left.heapBlocks, 20) << testing::PrintToString(left);
    EXPECT_EQ(log.News(), "");
}

namespace {

constexpr int threadCount = 4;

/// One thread's work: its own host, its own controls, and now and then a hand on a control of another thread, which is
/// a bad handle to it.
class Worker {
public:
    Worker(int number, std::vector<std::atomic<HWND>>& shared) : m_number(number), m_shared(shared) {}

    void Run(int rounds)
    {
        ControlHost host(300, 200);
        std::vector<HWND> controls;
        for (int round = 0; round < rounds; ++round) {
            controls.push_back(Make(host, m_number * 1000 + round, round % 2 == 0));
            Own(controls.back());
            Foreign();
            Pump();
            if (controls.size() > 8)
                Destroy(controls);
        }
        m_shared[static_cast<std::size_t>(m_number)] = nullptr;
        while (!controls.empty())
            Destroy(controls);
    }

    std::string fault;

private:
    void Own(HWND control)
    {
        const std::wstring before = TextOf(control);
        edInsertText(control, L"/* one\r\ntwo */ слово");
        edSetCaretPositionAdv(control, 500, 3, 0);
        ::UpdateWindow(control);
        edTakeSnapshot(control);
        life::Print(control);
        ::SendMessageW(control, WM_CHAR, L'x', 1);
        ::SetFocus(control);
        while (edExecCommand(control, ED_COMMAND_UNDO) != 0) {
        }
        if (TextOf(control) != before)
            fault = "a text is not what it was";
        m_shared[static_cast<std::size_t>(m_number)] = control;
    }
    void Foreign()
    {
        const HWND other = m_shared[static_cast<std::size_t>((m_number + 1) % threadCount)];
        edPoint point{-5, -5};
        if (edGetHWND(other) || edGetLineCount(other) != 0 || edGetPosition(other, ED_POSITION_CARET, &point) ||
            edLoadText(other, L"x", 1) || edExecCommand(other, ED_COMMAND_SELECT_ALL) || edGetSnapshotNewLine(other,
                0) != -1)
            fault = "a control of another thread has answered";
    }
    void Destroy(std::vector<HWND>& controls)
    {
        if (m_shared[static_cast<std::size_t>(m_number)] == controls.front())
            m_shared[static_cast<std::size_t>(m_number)] = nullptr;
        edDestroyCtrl(controls.front());
        controls.erase(controls.begin());
    }

    int m_number;
    std::vector<std::atomic<HWND>>& m_shared;
};

}  // namespace

TEST(Crowd, SeveralThreadsHaveControlsOfTheirOwn)
{
    const HostLog log;
    const auto rounds = static_cast<int>(RunLength("SCRIV_CONTROLS", 100, 1000)) / threadCount;
    std::vector<std::atomic<HWND>> shared(threadCount);
    std::vector<Worker> workers;
    for (int number = 0; number < threadCount; ++number)
        workers.emplace_back(number, shared);
    std::vector<std::thread> threads;
    for (Worker& worker : workers)
        threads.emplace_back([&worker, rounds] { worker.Run(rounds); });
    for (std::thread& thread : threads)
        thread.join();
    for (const Worker& worker : workers)
        EXPECT_EQ(worker.fault, "");
    EXPECT_EQ(log.News(), "");
}
