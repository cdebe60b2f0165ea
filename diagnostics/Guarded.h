#pragma once

#include <utility>

/// A place in our source, for the log.
struct xTWhere {
    const char* file;
    unsigned line;
};

/// Reports the exception in flight, and ends its life where it is thrown by pointer. Call it in a catch block.
void ReportCurrent(xTWhere where) noexcept;

/// Runs `body`; an exception is reported with the caller's place and `onFailure` is the answer.
template <typename Result, typename Body>
Result Guarded(Result onFailure, Body&& body, xTWhere where = {__builtin_FILE(), __builtin_LINE()}) noexcept
{
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        ReportCurrent(where);
        return onFailure;
    }
}

/// The same for a body without an answer.
template <typename Body>
void Guarded(Body&& body, xTWhere where = {__builtin_FILE(), __builtin_LINE()}) noexcept
{
    try {
        std::forward<Body>(body)();
    } catch (...) {
        ReportCurrent(where);
    }
}
