#pragma once

#include <windows.h>

#include <cstddef>

/// What the machine asks for the same work without a control, in nanoseconds: the yardstick of every figure, measured
/// in the same run.
struct Floors {
    double line;       ///< invalidate one line, paint it with ten runs, move the caret
    double page;       ///< paint a page of 46 rows with ten runs each
    double linePaint;  ///< invalidate one line and paint it with ten runs
    double scrollBar;  ///< one scroll bar call that changes something
    double shift;      ///< ScrollWindow by a line on a page without a caret in it
    double bitmap;     ///< make a bitmap of the screen's size, select it, take it back, delete it
    double caret;      ///< one move of the caret
    double faultByte;  ///< page faults of fresh memory, a byte touched
    double scanByte;   ///< reading memory once, a byte
    double copyByte;   ///< copying memory, a byte
};

constexpr int pageRows = 46;
constexpr int rowRuns = 10;
constexpr int rowChars = 32;

/// @param client  the size of the client area that the control has too
[[nodiscard]] Floors MeasureFloors(SIZE client);
