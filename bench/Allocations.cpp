#include "bench/Allocations.h"

#include <cstdlib>
#include <new>

namespace
{
std::size_t allocations = 0;
}

std::size_t Allocations() noexcept
{
    return allocations;
}

// The array and the non-throwing forms of the standard library call these two.
void* operator new(std::size_t size)
{
    ++allocations;
    if (void* const block = std::malloc(size)) {
        return block;
    }
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept
{
    std::free(block);
}
