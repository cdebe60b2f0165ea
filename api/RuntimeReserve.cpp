#include "api/RuntimeReserve.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <exception>

// What the compiler's runtime asks memory for behind our back, in a form that works when there is none left. Its own
// form ends the process then, and that is the host: an exception that finds no memory goes to a pool whose lock wants
// memory itself, without end, and a thread-local variable that finds none aborts. So the library brings these few
// functions along, under the names by which compiled code calls them. They serve this library only.

namespace {

// ---- Exceptions: from the heap, or one of some that are there from the start

// The runtime keeps a record of its own ahead of what is thrown; the room for it need not be exact, only enough.
constexpr std::size_t roomAhead = 256;
constexpr std::size_t largestThrown = 256;

struct alignas(16) xTSpare {
    unsigned char bytes[roomAhead + largestThrown];
};
std::array<xTSpare, 64> spares;
std::array<std::atomic<bool>, spares.size()> spareTaken;

[[nodiscard]] void* TakeSpare() noexcept
{
    for (std::size_t i = 0; i < spares.size(); ++i)
        if (!spareTaken[i].exchange(true))
            return std::memset(spares[i].bytes, 0, sizeof spares[i].bytes);
    return nullptr;
}

[[nodiscard]] void* AllocateException(std::size_t size) noexcept
{
    void* block = std::calloc(1, roomAhead + size);
    if (!block && size <= largestThrown)
        block = TakeSpare();
    if (!block)
        std::terminate();
    return static_cast<unsigned char*>(block) + roomAhead;
}

void FreeException(void* thrown) noexcept
{
    void* const block = static_cast<unsigned char*>(thrown) - roomAhead;
    for (std::size_t i = 0; i < spares.size(); ++i) {
        if (block == spares[i].bytes) {
            spareTaken[i] = false;
            return;
        }
    }
    std::free(block);
}

// ---- Thread-local variables: a few pointers for each thread that has used the library

constexpr std::size_t mostVariables = 16;
constexpr std::size_t largestVariable = 32;

struct alignas(16) xTVariables {
    unsigned char bytes[mostVariables][largestVariable];
};
std::atomic<DWORD> tlsIndex{TLS_OUT_OF_INDEXES};
std::atomic<std::size_t> variablesNumbered{0};
std::array<xTVariables, 64> spareVariables;                        // of threads that began without memory
std::array<std::atomic<DWORD>, spareVariables.size()> spareOwners;  // their ids, 0 for none

[[nodiscard]] DWORD Index() noexcept
{
    DWORD index = tlsIndex;
    if (index != TLS_OUT_OF_INDEXES)
        return index;
    const DWORD fresh = ::TlsAlloc();
    if (tlsIndex.compare_exchange_strong(index, fresh))
        return fresh;
    ::TlsFree(fresh);  // another thread was quicker
    return index;
}

/// @return the place of the thread with this id among the spare ones, -1 when it has none
[[nodiscard]] int SpareOf(DWORD owner) noexcept
{
    for (std::size_t i = 0; i < spareOwners.size(); ++i)
        if (spareOwners[i] == owner)
            return static_cast<int>(i);
    return -1;
}

[[nodiscard]] xTVariables& ClaimSpare() noexcept
{
    const DWORD thread = ::GetCurrentThreadId();
    for (std::size_t i = 0; i < spareOwners.size(); ++i) {
        DWORD none = 0;
        if (spareOwners[i].compare_exchange_strong(none, thread)) {
            std::memset(&spareVariables[i], 0, sizeof spareVariables[i]);
            return spareVariables[i];
        }
    }
    std::terminate();
}

[[nodiscard]] xTVariables& MakeVariables(DWORD index) noexcept
{
    if (const int spare = SpareOf(::GetCurrentThreadId()); spare >= 0)
        return spareVariables[static_cast<std::size_t>(spare)];
    void* const made = std::calloc(1, sizeof(xTVariables));
    if (made && ::TlsSetValue(index, made))
        return *static_cast<xTVariables*>(made);
    std::free(made);
    return ClaimSpare();
}

[[nodiscard]] xTVariables& Variables() noexcept
{
    const DWORD error = ::GetLastError();  // asking for a thread's value resets it
    const DWORD index = Index();
    void* const known = ::TlsGetValue(index);
    xTVariables& found = known ? *static_cast<xTVariables*>(known) : MakeVariables(index);
    ::SetLastError(error);
    return found;
}

/// What compiled code knows of a thread-local variable. `number` is 0 until the first use.
struct xTVariable {
    std::size_t size;
    std::size_t alignment;
    std::atomic<std::size_t> number;
    const unsigned char* initial;  // null: zeros

    /// All that the library has are pointers that begin as null.
    [[nodiscard]] bool IsPlain() const noexcept
    {
        return size <= largestVariable &&
               (!initial || std::all_of(initial, initial + size, [](unsigned char byte) { return byte == 0; }));
    }
};

[[nodiscard]] std::size_t NumberOf(xTVariable& variable) noexcept
{
    std::size_t number = variable.number;
    if (number != 0)
        return number;
    const std::size_t fresh = ++variablesNumbered;
    if (!variable.IsPlain() || fresh > mostVariables)
        std::terminate();  // seen at the first use of a variable that has no room here
    return variable.number.compare_exchange_strong(number, fresh) ? fresh : number;
}

}  // namespace

void ForgetThisThread() noexcept
{
    if (const int spare = SpareOf(::GetCurrentThreadId()); spare >= 0)
        spareOwners[static_cast<std::size_t>(spare)] = 0;
    const DWORD index = tlsIndex;
    if (index == TLS_OUT_OF_INDEXES)
        return;
    std::free(::TlsGetValue(index));
    ::TlsSetValue(index, nullptr);
}

void ForgetAllThreads() noexcept
{
    ForgetThisThread();
    if (const DWORD index = tlsIndex.exchange(TLS_OUT_OF_INDEXES); index != TLS_OUT_OF_INDEXES)
        ::TlsFree(index);
}

extern "C" {

void* __cxa_allocate_exception(std::size_t size) noexcept
{
    return AllocateException(size);
}

void __cxa_free_exception(void* thrown) noexcept
{
    FreeException(thrown);
}

// The record of an exception that is thrown a second time has nothing behind it.
void* __cxa_allocate_dependent_exception() noexcept
{
    return static_cast<unsigned char*>(AllocateException(0)) - roomAhead;
}

void __cxa_free_dependent_exception(void* record) noexcept
{
    FreeException(static_cast<unsigned char*>(record) + roomAhead);
}

void* __emutls_get_address(xTVariable* variable) noexcept
{
    return Variables().bytes[NumberOf(*variable) - 1];
}

}  // extern "C"
