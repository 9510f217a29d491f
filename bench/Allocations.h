// Allocations.h: counts the heap blocks that the program asks for.
#pragma once

#include <cstddef>

/// Blocks asked for since the program began, on all threads.
std::size_t Allocations() noexcept;
/// [byte] of the blocks not freed yet, with what the heap rounds up, on all threads.
std::size_t LivingBytes() noexcept;
