#include "bench/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

#include <malloc.h>

namespace
{

std::atomic<std::size_t> allocations{0};
std::atomic<std::size_t> living{0};

void Give(void* block) noexcept
{
    living -= malloc_usable_size(block);
    std::free(block);
}

} // namespace

std::size_t Allocations() noexcept
{
    return allocations;
}

std::size_t LivingBytes() noexcept
{
    return living;
}

// The array and the non-throwing forms of the standard library call these two.
void* operator new(std::size_t size)
{
    ++allocations;
    if (void* const block = std::malloc(size)) {
        living += malloc_usable_size(block);
        return block;
    }
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept
{
    Give(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept
{
    Give(block);
}
