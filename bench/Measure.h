#pragma once

#include <windows.h>

#include <algorithm>
#include <functional>
#include <vector>

/// Nanoseconds since some point in the past.
inline double Now()
{
    LARGE_INTEGER count;
    LARGE_INTEGER frequency;
    ::QueryPerformanceCounter(&count);
    ::QueryPerformanceFrequency(&frequency);
    return static_cast<double>(count.QuadPart) * 1e9 / static_cast<double>(frequency.QuadPart);
}

inline double MedianOf(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

/// The median time of one call, in nanoseconds. `prepare` runs before each call and is not counted.
/// @param batch  calls in one measurement, for what is shorter than the clock
inline double MedianTime(int rounds, const std::function<void()>& work, const std::function<void()>& prepare = {},
                         int batch = 1)
{
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        if (prepare)
            prepare();
        const double start = Now();
        for (int k = 0; k < batch; ++k)
            work();
        times.push_back((Now() - start) / batch);
    }
    return MedianOf(times);
}

/// Handles the messages that wait, so that the next measurement starts from rest.
inline void Drain()
{
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        ::DispatchMessageW(&message);
}
