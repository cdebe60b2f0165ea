#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

/// Nanoseconds since some point in the past.
inline double Now()
{
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::nano>(time).count();
}

inline double MedianOf(std::vector<double> values)
{
    if (values.empty())
        return 0;
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

/// The time of one call, in nanoseconds.
inline double TimeOf(const std::function<void()>& work)
{
    const double start = Now();
    work();
    return Now() - start;
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
