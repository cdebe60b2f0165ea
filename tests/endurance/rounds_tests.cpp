#include "tests/endurance/Census.h"
#include "tests/endurance/Life.h"
#include "tests/support/RunLength.h"
#include "tests/support/win/ControlHost.h"
#include "tests/support/win/HostLog.h"

#include <gtest/gtest.h>

#include <iostream>

// Controls that come and go leave nothing behind: whole lives from edCreateCtrl to edDestroyCtrl, one after the other,
// and what the process holds is the same after thousands as it was after the first hundred. Every eighth round opens
// the dialogs of the search and of tuning and edits in view; the others edit behind the scenes. 300 rounds;
// SCRIV_FULL=1 makes 10,000 of them, SCRIV_ROUNDS as many as one likes.

namespace {

constexpr int warmUp = 100;

void Tune(ControlHost& host, HWND control, int theme)
{
    life::Tuning pages(host.Window());
    pages.Choose(theme);
    pages.ApplyTo(control);
    ::UpdateWindow(control);
}

void LiveOnce(ControlHost& host, int round)
{
    const bool inView = round % 8 == 0;
    const HWND control = host.Show(life::Text(120).c_str());
    ::UpdateWindow(control);
    if (!inView)
        ::ShowWindow(control, SW_HIDE);
    life::Edit(control);
    if (inView)
        life::Search(control);
    edExecCommand(control, ED_COMMAND_FIND_NEXT);
    life::Print(control);
    if (inView)
        Tune(host, control, 1 + round / 8 % 5);
    edDestroyCtrl(control);
    host.Forget();
    Pump();
}

}  // namespace

TEST(Rounds, ThousandsOfLivesLeaveNothingBehind)
{
    const HostLog log;
    const auto rounds = static_cast<int>(RunLength("SCRIV_ROUNDS", 300, 10'000));
    ControlHost host(840, 420);
    for (int round = 0; round < warmUp; ++round)
        LiveOnce(host, round);
    const Census before = Census::Take();
    for (int round = warmUp; round < rounds; ++round)
        LiveOnce(host, round);
    const Census left = Census::Take() - before;
    std::cout << rounds << " rounds: " << testing::PrintToString(before) << "; more at the end: "
              << testing::PrintToString(left) << "\n";
    EXPECT_EQ(left.gdi, 0);
    EXPECT_EQ(left.windows, 0);
    EXPECT_EQ(left.user, 0);
    EXPECT_EQ(left.handles, 0);
    EXPECT_EQ(left.heapBlocks, 0);
    EXPECT_EQ(left.heapBytes, 0);
    EXPECT_EQ(log.News(), "");
}
