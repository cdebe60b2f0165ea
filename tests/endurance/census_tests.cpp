#include "tests/endurance/Census.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

// The counters find one object of each kind: a count that cannot see a leak would prove nothing.

namespace {

struct Leak {
    const char* name;
    std::function<void()> make;
    std::function<void()> end;
    std::int64_t (*count)();
};

void PrintTo(const Leak& leak, std::ostream* out)
{
    *out << leak.name;
}

HPEN pen;
HWND window;
HMENU menu;
HCURSOR cursor;
HANDLE event;
void* volatile block;

const Leak leaks[] = {
    {"pen", [] { pen = ::CreatePen(PS_SOLID, 1, RGB(1, 2, 3)); }, [] { ::DeleteObject(pen); }, &Census::Gdi},
    {"window",
     [] { window = ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr); },
     [] { ::DestroyWindow(window); }, &Census::Windows},
    {"menu", [] { menu = ::CreatePopupMenu(); }, [] { ::DestroyMenu(menu); }, &Census::User},
    {"cursor",
     [] {
         const BYTE bits[128] = {};
         cursor = ::CreateCursor(nullptr, 0, 0, 32, 32, bits, bits);
     },
     [] { ::DestroyCursor(cursor); }, &Census::User},
    {"event", [] { event = ::CreateEventW(nullptr, FALSE, FALSE, nullptr); }, [] { ::CloseHandle(event); },
     &Census::Handles},
    {"block", [] { block = std::malloc(40); }, [] { std::free(block); },
     [] { return Census::TakeMemory().heapBlocks; }},
};

class CensusFinds : public testing::TestWithParam<Leak> {};

}  // namespace

TEST_P(CensusFinds, OneThatIsLeftBehind)
{
    const Leak& leak = GetParam();
    leak.make();  // what the first of its kind brings along stays
    leak.end();
    const std::int64_t before = leak.count();
    leak.make();
    EXPECT_EQ(leak.count() - before, 1);
    leak.end();
    EXPECT_EQ(leak.count() - before, 0);
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, CensusFinds, testing::ValuesIn(leaks),
                         [](const auto& info) { return std::string(info.param.name); });
