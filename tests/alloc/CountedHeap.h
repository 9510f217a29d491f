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

/// Lets the n-th allocation of this thread from now on fail, once; 0 lets none fail.
void FailAt(std::uint64_t n);
/// Result: whether the allocation that was to fail has come, since the last FailAt.
bool HasFailed();

} // namespace heap
