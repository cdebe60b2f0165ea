#pragma once

struct Import;

/// While it lives, calls of this thread fail: of one function, or every request for memory whatever function it is put
/// to. The one behind the first `before` calls fails, or that one and all behind it. One at a time.
class Fault {
public:
    enum class HowLong { once, fromThenOn };

    static constexpr int never = 0x7FFFFFFF;  ///< as `before`: the calls are counted only

    /// @param function  null: every request for memory
    /// @param before    how many calls go well first, from 0
    explicit Fault(const Import* function, int before = never, HowLong howLong = HowLong::once) noexcept;
    Fault(const Fault&) = delete;
    Fault& operator=(const Fault&) = delete;
    ~Fault();

    /// How many calls of what is to fail have been made, and how many of them have failed.
    [[nodiscard]] static int Calls() noexcept;
    [[nodiscard]] static int Failures() noexcept;
    /// All goes well from now on, as when the user has closed other programs.
    static void Recover() noexcept;
};
