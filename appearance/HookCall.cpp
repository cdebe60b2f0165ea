#include "appearance/HookCall.h"

namespace {

thread_local const xTHookCall* innermost = nullptr;

}  // namespace

xTHookCall::xTHookCall(const xTHighlightHook& hook) noexcept : m_hook(hook), m_outer(innermost)
{
    innermost = this;
}

xTHookCall::~xTHookCall()
{
    innermost = m_outer;
}

bool xTHookCall::IsRunning(const xTHighlightHook& hook) noexcept
{
    for (const xTHookCall* call = innermost; call; call = call->m_outer)
        if (call->m_hook.fn == hook.fn && call->m_hook.ctx == hook.ctx)
            return true;
    return false;
}
