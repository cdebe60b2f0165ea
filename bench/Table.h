#pragma once

/// One row of the table. All times are in nanoseconds.
struct TableRow {
    const char* size;
    const char* what;
    double figure;
    const char* floorName;  ///< what the figure is compared with
    double floor;
    double goal = 0;        ///< the most that the figure may be, as a multiple of the floor; 0: no goal
};

/// Prints a row: figure, floor, multiple, goal and whether it is met.
void Print(const TableRow& row);
/// Prints the line below a row whose goal leaves out what a control is bound to do: the calls that it is bound to make,
/// measured alone in the same run, and the figure as a multiple of their sum.
void PrintBound(const TableRow& row, const char* calls, double sum);
/// Prints a row of bytes a character.
void PrintBytes(const char* size, const char* what, double bytes, double goal);
