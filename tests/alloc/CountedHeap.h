// CountedHeap.h: the heap of this program, counted, and made to fail on demand.
#pragma once

#include <cstddef>
#include <cstdint>

namespace heap
{

/// Allocations so far, on all threads.
std::uint64_t Allocations();
/// Allocations not freed yet, on all threads.
std::int64_t Living();

/// Lets the n-th allocation of this thread from now on fail, once; 0 lets none fail. The C library's own
/// allocations, as for a stream, are among them but under a sanitizer, which has a heap of its own.
void FailAt(std::uint64_t n);
/// Result: whether the allocation that was to fail has come, since the last FailAt.
bool HasFailed();

/// Does `work` with its n-th allocation failing.
/// Result: whether there was one; once there isn't, all have had their turn.
template <class WORK>
bool Failing(std::uint64_t n, WORK&& work)
{
    FailAt(n);
    work();
    const bool failed = HasFailed();
    FailAt(0);
    return failed;
}

} // namespace heap
