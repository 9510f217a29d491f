// LockGuard.h: holds a lock for a scope.
#pragma once

#include "GpsLib/contracts/KestThread.h"

namespace KestThread
{

/// Acquires on construction, releases on destruction.
class KEST_SCOPED_CAPABILITY LockGuard
{
public:
    /// lock: borrowed; must outlive this object.
    explicit LockGuard(Lockable& lock) KEST_ACQUIRE(lock) : lock(lock) { lock.acquire(); }

    ~LockGuard() KEST_RELEASE()
    {
        if (!locked) {
            return;
        }
        try {
            lock.release();
        } catch (...) { // NOLINT(bugprone-empty-catch): a destructor has nobody to tell
        }
    }

    LockGuard(const LockGuard&) = delete;
    LockGuard& operator=(const LockGuard&) = delete;

private:
    Lockable& lock; // borrowed
    bool locked = true;
};

} // namespace KestThread
