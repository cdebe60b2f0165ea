#include "tests/control/appearance/FailingNew.h"

#include "framework/base/Exceptions.h"

#include <cstdlib>
#include <new>

std::size_t failAbove = 0;
bool failWithFramework = false;

void* operator new(std::size_t bytes)
{
    if (failAbove != 0 && bytes > failAbove) {
        failAbove = 0;
        if (failWithFramework)
            ThrowMemoryException();
        throw std::bad_alloc();
    }
    if (void* memory = std::malloc(bytes))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
