#include "tests/support/FailingNew.h"

#include <atomic>
#include <cstdlib>
#include <limits>

namespace {

constexpr int noFailure = std::numeric_limits<int>::max();

std::atomic<int> allocationsLeft{noFailure};  // until the first that fails
std::atomic<bool> failsFromThenOn{false};
std::atomic<int> failures{0};
std::atomic<long long> allocations{0};

bool MustFail() noexcept
{
    ++allocations;
    if (allocationsLeft.load() == noFailure)
        return false;
    const int left = allocationsLeft.fetch_sub(1);
    if (left > 0 || (left < 0 && !failsFromThenOn.load()))
        return false;
    ++failures;
    return true;
}

void* Allocate(std::size_t size) noexcept
{
    return MustFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment) noexcept
{
    if (MustFail())
        return nullptr;
    const auto bytes = static_cast<std::size_t>(alignment);
#ifdef _WIN32
    return _aligned_malloc(size == 0 ? 1 : size, bytes);
#else
    return std::aligned_alloc(bytes, (size + bytes - 1) / bytes * bytes);
#endif
}

void FreeAligned(void* memory) noexcept
{
#ifdef _WIN32
    _aligned_free(memory);
#else
    std::free(memory);
#endif
}

void* OrThrow(void* memory)
{
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

}  // namespace

xTFailingNew::xTFailingNew(int before, xTHowLong howLong) noexcept
{
    failures = 0;
    failsFromThenOn = howLong == xTHowLong::fromThenOn;
    allocationsLeft = before;
}

xTFailingNew::~xTFailingNew()
{
    allocationsLeft = noFailure;
}

int xTFailingNew::Failures() noexcept
{
    return failures;
}

long long xTFailingNew::Allocations() noexcept
{
    return allocations;
}

void* operator new(std::size_t size) { return OrThrow(Allocate(size)); }
void* operator new[](std::size_t size) { return OrThrow(Allocate(size)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment) { return OrThrow(AllocateAligned(size, alignment)); }
void* operator new[](std::size_t size, std::align_val_t alignment) { return OrThrow(AllocateAligned(size, alignment)); }
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return AllocateAligned(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return AllocateAligned(size, alignment);
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { FreeAligned(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { FreeAligned(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { FreeAligned(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { FreeAligned(memory); }
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept { FreeAligned(memory); }
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept { FreeAligned(memory); }
