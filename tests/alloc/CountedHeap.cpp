#include "tests/alloc/CountedHeap.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <new>

namespace
{

std::atomic<std::uint64_t> allocations{0};
std::atomic<std::int64_t> living{0};
thread_local std::uint64_t untilFailure = 0; // 0: none is to fail
thread_local bool failed = false;

bool IsToFail() noexcept
{
    if (untilFailure == 0 || --untilFailure != 0) {
        return false;
    }
    failed = true;
    return true;
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define KEST_SANITIZED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define KEST_SANITIZED
#endif
#endif

void* Counted(void* block) noexcept
{
    if (block != nullptr) {
        ++allocations;
        ++living;
    }
    return block;
}

void* Take(std::size_t size) noexcept
{
#ifdef KEST_SANITIZED
    return Counted(IsToFail() ? nullptr : std::malloc(size == 0 ? 1 : size));
#else
    return Counted(std::malloc(size == 0 ? 1 : size)); // which fails by itself
#endif
}

void* TakeAligned(std::size_t size, std::size_t alignment) noexcept
{
    const std::size_t whole = (size + alignment - 1) / alignment * alignment;
    return Counted(IsToFail() ? nullptr : std::aligned_alloc(alignment, whole));
}

void* OrThrow(void* block)
{
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
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

#ifndef KEST_SANITIZED
extern "C" void* __libc_malloc(std::size_t size) noexcept;

// In front of the C library's, for its own calls too.
extern "C" void* malloc(std::size_t size) noexcept
{
    if (IsToFail()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_malloc(size);
}
#endif

// Those that the library and the standard library's parts in it use. Those of arrays are here since a
// sanitizer has its own, which wouldn't come through these.
void* operator new(std::size_t size)
{
    return OrThrow(Take(size));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Take(size);
}
void* operator new[](std::size_t size)
{
    return OrThrow(Take(size));
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return Take(size);
}
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return OrThrow(TakeAligned(size, static_cast<std::size_t>(alignment)));
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
void operator delete(void* block, std::align_val_t) noexcept
{
    Give(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept
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
