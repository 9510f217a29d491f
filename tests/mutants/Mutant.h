// Mutant.h: put before every source of a mutated tree; tells which of the compiled-in mutants is alive.
#pragma once

#include <cstdlib>
#include <type_traits>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace mutant
{

/// The living mutant's number, counted from 1, from KEST_MUTANT; 0 without.
inline int Living() noexcept
{
    const char* const number = std::getenv("KEST_MUTANT");
    return number != nullptr ? std::atoi(number) : 0;
}

/// A byte for each mutant in the file KEST_MUTANTS_REACHED, which is as long; null without. What is stored in
/// it outlives any end of the process, and that of its children.
inline unsigned char* ReachedFile() noexcept
{
    const char* const name = std::getenv("KEST_MUTANTS_REACHED");
    const int file = name != nullptr ? open(name, O_RDWR | O_CLOEXEC) : -1;
    if (file < 0) {
        return nullptr;
    }
    const auto length = static_cast<std::size_t>(lseek(file, 0, SEEK_END));
    void* const bytes = mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    close(file);
    return bytes != MAP_FAILED ? static_cast<unsigned char*>(bytes) : nullptr;
}

inline const int LIVING = Living();
inline unsigned char* const REACHED = ReachedFile();

inline bool IsLiving(int number) noexcept
{
    if (REACHED != nullptr) {
        REACHED[number] = 1;
    }
    return number == LIVING;
}

/// Result: whether the mutant is the one that lives. What the compiler works out itself never is.
constexpr bool On(int number) noexcept
{
    return !__builtin_is_constant_evaluated() && IsLiving(number);
}

} // namespace mutant
