#include "bench/Table.h"

#include <cstdio>

namespace {

void EndRow(double goal, bool met)
{
    if (goal != 0)
        std::printf("  goal %4.2f  %s", goal, met ? "met" : "MISSED");
    std::printf("\n");
    std::fflush(stdout);
}

}  // namespace

void Print(const TableRow& row)
{
    std::printf("%-2s %-44s %12.0f ns  %-50s %12.0f ns  %6.2f x", row.size, row.what, row.figure, row.floorName,
                row.floor, row.figure / row.floor);
    EndRow(row.goal, row.figure <= row.goal * row.floor);
}

void PrintBound(const TableRow& row, const char* calls, double sum)
{
    std::printf("%-2s %-44s %12s     %-50s %12.0f ns  %6.2f x\n", row.size, "   beside the calls it is bound to make",
                "", calls, sum, row.figure / sum);
}

void PrintBytes(const char* size, const char* what, double bytes, double goal)
{
    std::printf("%-2s %-44s %12.2f bytes a character %62s", size, what, bytes, "");
    EndRow(goal, bytes <= goal);
}
