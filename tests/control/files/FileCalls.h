#pragma once

#include <windows.h>

/// While it lives, the control's calls of the system's file functions are counted, and the one of a number is where
/// something happens. One at a time.
class FileCalls {
public:
    enum class Then {
        nothing,
        processEnds,     ///< before the call does anything; a write has written half of its bytes
        callFails,       ///< with the error given; a write has written half of its bytes
        allFail,         ///< and so do all calls behind it
    };

    /// @param at  the number of the call, from 1
    explicit FileCalls(Then then = Then::nothing, int at = 0, DWORD error = ERROR_DISK_FULL);
    FileCalls(const FileCalls&) = delete;
    FileCalls& operator=(const FileCalls&) = delete;
    ~FileCalls();

    /// How many there were since the last of these began.
    [[nodiscard]] static int Count() noexcept;

    static constexpr UINT endedStatus = 77;  ///< of a process that was ended by a call
};
