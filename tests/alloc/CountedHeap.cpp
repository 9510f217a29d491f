#include "tests/alloc/CountedHeap.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{

std::atomic<std::uint64_t> allocations{0};
std::atomic<std::int64_t> living{0};
thread_local std::uint64_t untilFailure = 0; // 0: none is to fail
thread_local bool failed = false;

void* Take(std::size_t size) noexcept
{
    if (untilFailure != 0 && --untilFailure == 0) {
        failed = true;
        return nullptr;
    }
    ++allocations;
    ++living;
    return std::malloc(size == 0 ? 1 : size);
}

void Give(void* block) noexcept
{
    if (block != nullptr) {
        --living;
        std::free(block);
    }
}

} // namespace

namespace heap
{

std::uint64_t Allocations()
{
    return allocations;
}

std::int64_t Living()
{
    return living;
}

void FailAt(std::uint64_t n)
{
    untilFailure = n;
    failed = false;
}

bool HasFailed()
{
    return failed;
}

} // namespace heap

void* operator new(std::size_t size)
{
    void* const block = Take(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Take(size);
}
void* operator new[](std::size_t size)
{
    return operator new(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return Take(size);
}
void operator delete(void* block) noexcept
{
    Give(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    Give(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept
{
    Give(block);
}
void operator delete[](void* block) noexcept
{
    Give(block);
}
void operator delete[](void* block, std::size_t) noexcept
{
    Give(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept
{
    Give(block);
}
