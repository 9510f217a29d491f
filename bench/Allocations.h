// Allocations.h: counts the heap blocks that the program asks for.
#pragma once

#include <cstddef>

/// Blocks asked for since the program began. Thread: the only one.
std::size_t Allocations() noexcept;
