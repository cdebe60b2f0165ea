#include "tests/control/live/Day.h"
#include "tests/endurance/Census.h"
#include "tests/endurance/Life.h"
#include "tests/support/RunLength.h"
#include "tests/support/win/HostLog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <memory>

// A day of one user, ten events a second, on five controls of which at most one is in view, as behind the tabs of an
// editor. An event is a key, a character, a click, a turn of the wheel, a change of size or focus, a command or a mark.
// Every stretch of work is undone to the text that it began with; the tuning pages come and go and give the controls
// other themes. Memory does not grow, and nothing is logged. 5,000 events; SCRIV_FULL=1 makes it 864,000, SCRIV_EVENTS
// as many as one likes.

namespace {

constexpr int controlCount = 5;
constexpr int atAVisit = 20;       // doings, before the user turns to the next control
constexpr int betweenThemes = 80;  // visits
constexpr int betweenViews = 10;   // visits; the others are of a control behind the scenes

/// A control with the one who works in it.
struct Desk {
    Desk(ControlHost& host, unsigned seed) : live(host, {0, 0, 240, 120}), day(live, seed) { Load(); }

    /// A fresh text, with which what can be undone and redone goes.
    void Load()
    {
        UINT32 encoding = ED_ENCODING_UTF8;
        EXPECT_TRUE(edLoadFile(live.Window(), L"Z:" SCRIV_SAMPLE, &encoding));
        edRemoveAllBreakPoints(live.Window());
        edSetCaretPosition(live.Window(), 0, 0);
        edits = 0;
    }

    LiveControl live;
    Day day;
    int edits = 0;
};

class Soak {
public:
    explicit Soak(std::int64_t events) : m_events(events)
    {
        for (unsigned i = 0; i < controlCount; ++i) {
            m_desks[i] = std::make_unique<Desk>(m_host, 2005 + i);
            ::ShowWindow(m_desks[i]->live.Window(), SW_HIDE);
        }
        m_text = TextOf(m_desks[0]->live.Window());
    }

    void Run()
    {
        const std::int64_t samples = std::clamp<std::int64_t>(m_events / 400, 12, 100);
        for (int visit = 0; m_done < m_events && !testing::Test::HasFatalFailure(); ++visit) {
            Visit(*m_desks[static_cast<std::size_t>(visit % controlCount)], visit % betweenViews == 0);
            if (visit % betweenThemes == 0)
                Tune(visit / betweenThemes);
            if (m_done * samples / m_events > static_cast<std::int64_t>(m_samples.size()))
                Sample();
        }
    }

    [[nodiscard]] std::int64_t Done() const { return m_done; }
    [[nodiscard]] const std::vector<Census>& Samples() const { return m_samples; }

private:
    void Visit(Desk& desk, bool inView)
    {
        if (inView)
            ::ShowWindow(desk.live.Window(), SW_SHOW);
        for (int i = 0; i < atAVisit; ++i) {
            const std::int64_t strokes = desk.live.Strokes();
            desk.edits += desk.day.Event() ? 1 : 0;
            m_done += std::max<std::int64_t>(desk.live.Strokes() - strokes, 1);
        }
        if (inView)
            ::ShowWindow(desk.live.Window(), SW_HIDE);
        if (desk.edits > Day::editsInAStretch - atAVisit)
            GoHome(desk);
        Pump();
        m_host.Forget();
    }

    void GoHome(Desk& desk)
    {
        m_done += desk.day.UndoAll();
        ASSERT_TRUE(TextOf(desk.live.Window()) == m_text) << "a stretch of work is not undone";
        desk.Load();
    }

    // Between two stretches: what has been indented is not undone to the letter with other tabs, as required.
    void Tune(int turn)
    {
        Desk& desk = *m_desks[static_cast<std::size_t>(turn % controlCount)];
        GoHome(desk);
        life::Tuning pages(m_host.Window());
        pages.Choose(1 + turn % 5);
        pages.ApplyTo(desk.live.Window());
    }

    /// All texts fresh and nothing to undo: the same state each time.
    void Sample()
    {
        for (const auto& desk : m_desks)
            GoHome(*desk);
        Pump();
        m_samples.push_back(Census::TakeMemory());
    }

    std::int64_t m_events;
    std::int64_t m_done = 0;
    ControlHost m_host{840, 420};
    std::array<std::unique_ptr<Desk>, controlCount> m_desks;
    std::wstring m_text;
    std::vector<Census> m_samples;
};

/// The growth from the first to the last sample along the straight line of least squares.
double Growth(const std::vector<Census>& samples, std::int64_t Census::*what)
{
    const auto n = static_cast<double>(samples.size());
    double meanY = 0;
    for (const Census& sample : samples)
        meanY += static_cast<double>(sample.*what) / n;
    double above = 0;
    double below = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double x = static_cast<double>(i) - (n - 1) / 2;
        above += x * (static_cast<double>(samples[i].*what) - meanY);
        below += x * x;
    }
    return above / below * (n - 1);
}

}  // namespace

TEST(Soak, ADayOfWorkOnFiveControlsDoesNotGrow)
{
    const HostLog log;
    const std::int64_t events = RunLength("SCRIV_EVENTS", 5'000, 864'000);
    Soak soak(events);
    soak.Run();
    const auto& all = soak.Samples();
    ASSERT_GE(all.size(), 11u);
    const std::vector<Census> warm(all.begin() + static_cast<std::ptrdiff_t>(all.size() / 4), all.end());
    std::cout << soak.Done() << " events; at a quarter " << testing::PrintToString(warm.front()) << ", at the end "
              << testing::PrintToString(warm.back()) << "; growth " << Growth(warm, &Census::heapBlocks) << " blocks, "
              << Growth(warm, &Census::heapBytes) << " bytes, " << Growth(warm, &Census::privateKb) << " KB private\n";
    EXPECT_NEAR(Growth(warm, &Census::heapBlocks), 0, 50);
    EXPECT_NEAR(Growth(warm, &Census::heapBytes), 0, 16 * 1024);
    // Wine keeps a copy of the text, here some 1 KB, for each reading of the clipboard: blocks of its own heap.
    EXPECT_LT(Growth(warm, &Census::privateKb), 1024 + 2 * Growth(warm, &Census::systemBlocks));
    EXPECT_EQ(log.News(), "");
}
