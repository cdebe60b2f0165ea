#include "tests/failure/Fault.h"

#include "tests/failure/FailingFunctions.h"
#include "tests/failure/Imports.h"

namespace {

struct {
    bool armed = false;
    DWORD thread = 0;
    const Import* function = nullptr;
    int before = Fault::never;
    bool fromThenOn = false;
    int calls = 0;
    int failures = 0;
} plan;

}  // namespace

extern "C" bool MustFail(Import* import) noexcept;
using Arguments = ULONG_PTR(WINAPI*)(ULONG_PTR, ULONG_PTR, ULONG_PTR);
extern "C" ULONG_PTR FailNow(ULONG_PTR first, ULONG_PTR second, ULONG_PTR third, const Import* import) noexcept;

bool MustFail(Import* import) noexcept
{
    if (!plan.armed || ::GetCurrentThreadId() != plan.thread)
        return false;
    ++import->calls;
    const bool meant = plan.function ? import == plan.function : import->how && import->how->givesMemory;
    if (!meant)
        return false;
    const int call = plan.calls++;
    if (call < plan.before || (call > plan.before && !plan.fromThenOn))
        return false;
    ++plan.failures;
    return true;
}

ULONG_PTR FailNow(ULONG_PTR first, ULONG_PTR second, ULONG_PTR third, const Import* import) noexcept
{
    if (import->how->releases)
        reinterpret_cast<Arguments>(import->target)(first, second, third);
    if (import->how->error != 0)
        ::SetLastError(import->how->error);
    return static_cast<ULONG_PTR>(import->how->answer);
}

Fault::Fault(const Import* function, int before, HowLong howLong) noexcept
{
    plan = {true, ::GetCurrentThreadId(), function, before, howLong == HowLong::fromThenOn, 0, 0};
}

Fault::~Fault()
{
    plan.armed = false;
}

int Fault::Calls() noexcept
{
    return plan.calls;
}

int Fault::Failures() noexcept
{
    return plan.failures;
}

void Fault::Recover() noexcept
{
    plan.armed = false;
}
