#include "framework/base/CString.h"

#include <algorithm>
#include <array>

/// The shared runs of one character, each made when first asked for. Reading one takes no lock: controls may live on
/// several threads, and a load asks once a line.
class xTSharedRuns {
public:
    static constexpr std::int32_t longest = 512;

    constexpr explicit xTSharedRuns(WCHAR ch) noexcept : m_ch(ch) {}
    xTSharedRuns(const xTSharedRuns&) = delete;
    xTSharedRuns& operator=(const xTSharedRuns&) = delete;
    ~xTSharedRuns()
    {
        for (auto& run : m_runs)
            if (WCHAR* text = run.load(std::memory_order_relaxed))
                Free(text);
    }

    /// @param length 1 to `longest`
    CString Get(std::int32_t length)
    {
        auto& run = m_runs[static_cast<std::size_t>(length)];
        WCHAR* text = run.load(std::memory_order_acquire);
        return {text ? text : Make(run, length), CString::xTAdopt{}};
    }

    [[nodiscard]] bool Holds(const CString& run) const noexcept
    {
        const std::int32_t length = run.GetLength();
        return length >= 1 && length <= longest &&
               m_runs[static_cast<std::size_t>(length)].load(std::memory_order_relaxed) == run.m_text;
    }

private:
    using xTRun = std::atomic<WCHAR*>;

    WCHAR* Make(xTRun& run, std::int32_t length)
    {
        WCHAR* fresh = CString::NewBuffer(length, length);
        CString::HeaderOf(fresh)->capacity = CString::forever;
        std::fill_n(fresh, length, m_ch);
        WCHAR* other = nullptr;
        if (run.compare_exchange_strong(other, fresh, std::memory_order_acq_rel))
            return fresh;
        Free(fresh);  // another thread was faster
        return other;
    }

    static void Free(WCHAR* text) noexcept { CString::FreeBuffer(text); }

    WCHAR m_ch;
    std::array<xTRun, longest + 1> m_runs{};
};

namespace {

constinit xTSharedRuns plainRuns{0x0001};
constinit xTSharedRuns commentRuns{0x0005};

// Those of a character, null for one whose runs are not kept.
inline xTSharedRuns* RunsOf(WCHAR ch) noexcept
{
    return ch == 0x0001 ? &plainRuns : ch == 0x0005 ? &commentRuns : nullptr;
}

}  // namespace

CString SharedRun(WCHAR ch, std::int32_t length)
{
    xTSharedRuns* const runs = RunsOf(ch);
    if (!runs || length < 1 || length > xTSharedRuns::longest)
        return {ch, length};
    return runs->Get(length);
}

bool IsSharedRun(const CString& run, WCHAR ch) noexcept
{
    const xTSharedRuns* const runs = RunsOf(ch);
    return runs && runs->Holds(run);
}

bool TurnSharedRun(CString& run, WCHAR from, WCHAR to)
{
    const xTSharedRuns* const held = RunsOf(from);
    xTSharedRuns* const wanted = RunsOf(to);
    if (!held || !wanted || !held->Holds(run))
        return false;
    run = wanted->Get(run.GetLength());
    return true;
}
