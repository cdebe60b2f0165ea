#pragma once

#include <windows.h>

#include <array>
#include <vector>

/// What the machine asks for the same work without a control: the yardsticks of all figures.
enum class Floor {
    line,        ///< F1: invalidate one line, paint it with ten runs, move the caret
    page,        ///< F2: paint a page of 46 rows with ten runs each
    scrollBar,   ///< F3: one scroll bar call that changes something
    restedLine,  ///< F1 behind a painted page and a rest: the first of what follows finds the machine asleep
    // What a control is bound to do beyond these, in the calls that it is bound to do it with.
    boundLine,   ///< a line as above, drawn in a bitmap of the screen's size, the caret hidden and shown around it
    boundPage,   ///< a page the same way
    boundRestedLine,  ///< such a line behind such a page and a rest
    invalidate,  ///< one invalidation
    shift,       ///< ScrollWindow by a line, the caret on the page
    keyState,    ///< one question about the keyboard's state
    count
};

/// The medians of one stretch of measuring, in nanoseconds.
struct Floors {
    std::array<double, static_cast<std::size_t>(Floor::count)> ns{};

    [[nodiscard]] double operator[](Floor floor) const { return ns[static_cast<std::size_t>(floor)]; }
};

/// Lets the display server end what it goes on working at when the call that painted a page is over.
void Rest();

/// Memory, in nanoseconds a byte.
struct MemoryFloors {
    double fault;  ///< F4: page faults of fresh memory
    double scan;   ///< F5: reading it once
    double copy;   ///< F6: copying it
};

[[nodiscard]] MemoryFloors MeasureMemoryFloors();

constexpr int pageRows = 46;
constexpr int rowRuns = 10;
constexpr int rowChars = 32;

/// A bare window of the control's size and style, on which the floors are measured. A shared machine changes its pace
/// within seconds, so this is done again and again between the calls that are compared with it.
class FloorWindow {
public:
    /// @param host  the parent, which the control has too @param client  the size of the client area
    FloorWindow(HWND host, SIZE client);
    FloorWindow(const FloorWindow&) = delete;
    FloorWindow& operator=(const FloorWindow&) = delete;
    ~FloorWindow();

    /// Measures each floor some times, in focus and with a caret.
    void Sample();
    /// The medians of all samples since the last call.
    [[nodiscard]] Floors Take();

private:
    enum class Paints { nothing, direct, bound };

    static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
    void Paint();
    void PaintRows(HDC dc, const RECT& area) const;
    void PaintOffScreen(HDC dc, const RECT& area) const;
    void SampleAs(Paints paints, Floor line, Floor page, Floor restedLine);
    void SampleCalls();
    void Time(Floor floor, int rounds, void (FloorWindow::*work)(), void (FloorWindow::*prepare)() = nullptr);

    void InvalidateLine();
    void InvalidatePage();
    void PaintLine();
    void PaintPage();
    void PaintPageAndRest();
    void MoveCaret();
    void SetBar();
    void Shift();
    void AskKeys();
    void Validate();

    HWND m_window;
    SIZE m_client;
    SIZE m_screen;
    HFONT m_font;
    HDC m_memory;
    Paints m_paints = Paints::direct;
    int m_step = 0;
    std::array<std::vector<double>, static_cast<std::size_t>(Floor::count)> m_samples;
};
