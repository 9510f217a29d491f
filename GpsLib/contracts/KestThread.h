// KestThread.h: what the library needs of the in-house threading library.
//
// The virtual operations stand in slot order, which is ABI. Nothing here relies on a lock being recursive.
#pragma once

#include <cstddef>

#include "GpsLib/contracts/KestApi.h"

// Clang's thread safety analysis; empty elsewhere.
#if defined(__clang__)
#define KEST_CAPABILITY(name) __attribute__((capability(name)))
#define KEST_SCOPED_CAPABILITY __attribute__((scoped_lockable))
#define KEST_GUARDED_BY(lock) __attribute__((guarded_by(lock)))
#define KEST_ACQUIRE(...) __attribute__((acquire_capability(__VA_ARGS__)))
#define KEST_TRY_ACQUIRE(...) __attribute__((try_acquire_capability(__VA_ARGS__)))
#define KEST_RELEASE(...) __attribute__((release_capability(__VA_ARGS__)))
#define KEST_REQUIRES(...) __attribute__((requires_capability(__VA_ARGS__)))
#define KEST_NO_THREAD_SAFETY_ANALYSIS __attribute__((no_thread_safety_analysis))
#else
#define KEST_CAPABILITY(name)
#define KEST_SCOPED_CAPABILITY
#define KEST_GUARDED_BY(lock)
#define KEST_ACQUIRE(...)
#define KEST_TRY_ACQUIRE(...)
#define KEST_RELEASE(...)
#define KEST_REQUIRES(...)
#define KEST_NO_THREAD_SAFETY_ANALYSIS
#endif

namespace KestThread
{

/// The body of a thread. Its table lives with whoever derives from it.
class Runnable
{
public:
    virtual ~Runnable() = default;
    /// Called once, on the new thread. No exception may leave it.
    virtual void run() = 0;
};

/// A lock that one thread holds at a time.
class KEST_API KEST_CAPABILITY("lock") Lockable
{
public:
    virtual ~Lockable() = default;
    /// Blocks until the caller holds the lock.
    virtual void acquire() KEST_ACQUIRE() = 0;
    /// Result: true when the lock was free and is the caller's now; never blocks.
    virtual bool tryAcquire() KEST_TRY_ACQUIRE(true) = 0;
    /// Gives the lock up.
    virtual void release() KEST_RELEASE() = 0;

protected:
    Lockable() = default;
    Lockable(const Lockable&) = delete;
    Lockable& operator=(const Lockable&) = delete;
};

/// An ordinary lock. Must not be held when it is destroyed. Making one allocates nothing.
class KEST_API KEST_CAPABILITY("mutex") Mutex : public Lockable
{
public:
    Mutex();
    ~Mutex() override;
    void acquire() override KEST_ACQUIRE();
    bool tryAcquire() override KEST_TRY_ACQUIRE(true);
    void release() override KEST_RELEASE();

private:
    static constexpr std::size_t NATIVE_SIZE = 48; // room for the platform's own lock
    alignas(std::max_align_t) unsigned char native[NATIVE_SIZE];
};

/// A lock for short stretches; here it differs from Mutex in its type alone.
class KEST_API KEST_CAPABILITY("mutex") FastMutex : public Mutex
{
public:
    FastMutex();
    ~FastMutex() override;
};

/// A meeting point of threads, bound to one lock for its whole life.
class KEST_API Condition
{
public:
    /// lock: borrowed; must outlive this object.
    explicit Condition(Lockable& lock);
    virtual ~Condition();
    /// Wakes every thread that is in `wait` now. Called with the lock held.
    virtual void broadcast();
    /// Gives the lock up, blocks until a `signal` that came after this call, and holds the lock again on
    /// return. Never returns without such a signal. Called with the lock held.
    virtual void wait();
    /// Wakes the thread that has been in `wait` longest, if there is one. Called with the lock held.
    void signal();

    Condition(const Condition&) = delete;
    Condition& operator=(const Condition&) = delete;

private:
    static constexpr std::size_t NATIVE_SIZE = 128;
    Lockable& lock; // borrowed
    alignas(std::max_align_t) unsigned char native[NATIVE_SIZE];
};

/// A thread of execution that nobody joins.
class KEST_API Thread
{
public:
    /// Starts a thread that calls `body->run()` once, and returns without waiting for it.
    /// Throws std::exception when the platform has no thread to give; `run` is then never called.
    /// body: borrowed until its `run` returns.
    explicit Thread(Runnable* body);
    /// Neither stops nor joins: the thread goes on until `run` returns and then makes no further call to the
    /// body.
    ~Thread(); // NOLINT(performance-trivially-destructible): out of line, the threading library's

    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    /// Blocks the calling thread.
    /// milliseconds: [ms]
    static void sleep(unsigned long milliseconds);
};

} // namespace KestThread
