#pragma once

#include "bench/Floors.h"
#include "bench/Table.h"

#include <array>
#include <functional>
#include <string>

// What the benchmarks of a live control share.

constexpr SIZE clientSize{1000, pageRows * 15 + 4};

struct Size {
    const char* name;
    std::size_t characters;
};

/// What one topic works with.
struct Bench {
    const Size& size;
    const std::wstring& text;
    FloorWindow& floors;
};

/// The median of a figure and those of the floors, measured by turns.
struct Beside {
    double ns;
    Floors floors;
};

/// Measures `rounds` calls in stretches, with the floors between them. `prepare` runs before each call and is not counted.
[[nodiscard]] Beside MeasureBeside(FloorWindow& floors, int rounds, const std::function<void()>& work,
                                   const std::function<void()>& prepare = {});

/// Some floors together, each so many times.
struct FloorSum {
    struct Part {
        Floor floor;
        int times;
    };
    const char* name;
    std::array<Part, 5> parts;

    [[nodiscard]] double In(const Floors& floors) const;
};

/// What a gesture is held against: what its goal counts, and the calls that a control is bound to make.
struct Goal {
    FloorSum floor;
    double multiple;
    FloorSum bound;
};

/// Prints a figure beside the two.
void Report(const Bench& bench, const char* what, const Beside& measured, const Goal& goal);

/// The window that all others stand in.
[[nodiscard]] HWND HostWindow();
/// A shown control in focus, with a client area of `clientSize`.
[[nodiscard]] HWND MakeControl();
/// The committed memory that belongs to this process alone, in bytes.
[[nodiscard]] double PrivateBytes();
/// The time of a load from memory up to the painted view.
[[nodiscard]] double TimeOfLoad(HWND control, const std::wstring& text);
/// Puts the caret somewhere and lets all that this leaves to paint come to its end.
void PutCaret(HWND control, int line, int column);

// A key as the system sends it, up to the moment when nothing of it is left to paint.
void Type(HWND control, UINT key, wchar_t ch);
void Press(HWND control, UINT key);

void BenchLoad(const Bench& bench);
void BenchLife(const Bench& bench);
void BenchView(const Bench& bench);
void BenchComments(const Bench& bench);
void BenchTyping(const Bench& bench);
void BenchCaretKeys(const Bench& bench);
void BenchEdits(const Bench& bench);
void BenchFind(const Bench& bench);
