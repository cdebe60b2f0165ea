#pragma once

#include "appearance/HighlightHook.h"

/// One call of a host's hook, while it runs on this thread. A hook may call back into the control, which then classifies
/// lines again: without an end, if each of them asked the hook anew.
class xTHookCall {
public:
    explicit xTHookCall(const xTHighlightHook& hook) noexcept;
    xTHookCall(const xTHookCall&) = delete;
    xTHookCall& operator=(const xTHookCall&) = delete;
    ~xTHookCall();

    /// True while that hook, with that context, runs on this thread.
    [[nodiscard]] static bool IsRunning(const xTHighlightHook& hook) noexcept;

private:
    const xTHighlightHook m_hook;
    const xTHookCall* const m_outer;
};
