#pragma once

/// While it lives, a crash of the program is told together with `what` was going on.
class CrashNote {
public:
    explicit CrashNote(const char* what) noexcept;
    CrashNote(const CrashNote&) = delete;
    CrashNote& operator=(const CrashNote&) = delete;
    ~CrashNote();
};
