#pragma once

#include <new>
#include <utility>

/// While it lives, allocations by `operator new` fail: the one behind the first `before` allocations, or that one and
/// all behind it. One at a time; it replaces the operators of the whole program and does nothing when there is none.
class xTFailingNew {
public:
    enum class xTHowLong { once, fromThenOn };

    /// @param before  how many allocations go well first, from 0
    explicit xTFailingNew(int before, xTHowLong howLong = xTHowLong::once) noexcept;
    xTFailingNew(const xTFailingNew&) = delete;
    xTFailingNew& operator=(const xTFailingNew&) = delete;
    ~xTFailingNew();

    /// How many allocations have failed through the one that lives.
    [[nodiscard]] static int Failures() noexcept;

    /// How many allocations the program has made so far.
    [[nodiscard]] static long long Allocations() noexcept;
};

/// Runs `action` with failing allocations and swallows the std::bad_alloc that may come of it.
/// @return how many allocations have failed; 0 means that `action` makes no more than `before` of them
template <typename Action>
int FailuresIn(Action&& action, int before, xTFailingNew::xTHowLong howLong = xTFailingNew::xTHowLong::once)
{
    const xTFailingNew failing(before, howLong);
    try {
        std::forward<Action>(action)();
    } catch (const std::bad_alloc&) {
        return xTFailingNew::Failures();
    }
    return xTFailingNew::Failures();
}

/// How many allocations `action` makes.
template <typename Action>
long long AllocationsIn(Action&& action)
{
    const long long before = xTFailingNew::Allocations();
    std::forward<Action>(action)();
    return xTFailingNew::Allocations() - before;
}
