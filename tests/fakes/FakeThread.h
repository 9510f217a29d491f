// FakeThread.h: threads that take turns, so that every order of events is the test's choice.
#pragma once

#include <cstddef>
#include <vector>

/// A started body is kept until the test lets it run. It has a thread of its own, since the code under test
/// asks which thread it is on, but of the test and the bodies one alone runs at a time: a body goes on until
/// it ends, waits, meets a lock that is held, or pauses. Nothing depends on the clock.
///
/// The test fails on a lock that one thread takes twice, on the release of one it doesn't hold, on the
/// destruction of one that is held, and where its own thread would block for ever.
class FakeThread
{
public:
    /// Forgets everything; a body that hasn't ended never goes on.
    static void Reset() noexcept;
    /// Lets each body go on, in order of their start. The test's own sleep, wait and acquire do the same.
    static void Run();
    /// Gives the turn back to the test until it lets the bodies run again.
    /// Result: false on the test's own thread, which goes on at once.
    static bool Pause();
    /// Bodies that have not ended.
    static std::size_t Running() noexcept;

    static inline bool refuses = false;              // the platform has no thread to give
    static inline std::vector<unsigned long> sleeps; // [ms] in order, on whatever thread
};
