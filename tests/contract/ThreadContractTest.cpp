// What the library relies on in the threading library.
#include "GpsLib/contracts/KestThread.h"

#include <atomic>
#include <functional>
#include <list>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "GpsLib/comm/LockGuard.h"

namespace
{

using KestThread::LockGuard;
using KestThread::Thread;

struct Body final : KestThread::Runnable {
    explicit Body(std::function<void()> work) : work(std::move(work)) {}
    void run() override { work(); }

    const std::function<void()> work;
};

/// Result: whether the lock is free for the calling thread.
bool TakesAtOnce(KestThread::Lockable& lock)
{
    if (!lock.tryAcquire()) {
        return false;
    }
    lock.release();
    return true;
}

/// What a test and its bodies share is under `lock`.
class ThreadContract : public testing::Test
{
protected:
    template <class WORK>
    auto Locked(WORK work)
    {
        const LockGuard guard(lock);
        return work();
    }

    /// Lets the bodies run until something holds.
    template <class READY>
    void Until(READY ready)
    {
        while (!Locked(ready)) {
            Thread::sleep(1);
        }
    }

    KestThread::Mutex lock;
    KestThread::Condition condition{lock};
};

TEST_F(ThreadContract, WaitEndsWithALaterSignalAndHoldsTheLock)
{
    int runs = 0;
    Body body([&runs, this] {
        const LockGuard guard(lock);
        ++runs;
        condition.signal();
    });
    const LockGuard guard(lock);
    condition.broadcast(); // nobody waits, so both are lost
    condition.signal();
    const Thread thread(&body); // would never return if it waited for a body that needs the lock
    EXPECT_EQ(runs, 0);
    condition.wait();
    EXPECT_EQ(runs, 1);

    std::atomic<int> taken{-1};
    Body intruder([&taken, this] { taken = TakesAtOnce(lock) ? 1 : 0; });
    const Thread second(&intruder);
    while (taken == -1) {
        Thread::sleep(1);
    }
    EXPECT_EQ(taken, 0);
}

TEST_F(ThreadContract, SignalsWakeInOrderOfWaitingAndABroadcastAllTheRest)
{
    int waiting = 0;
    std::vector<int> woken;
    std::list<Body> waiters;
    for (int number = 0; number < 4; ++number) {
        const Thread thread(&waiters.emplace_back([&, number, this] {
            const LockGuard guard(lock);
            ++waiting;
            condition.wait();
            woken.push_back(number);
        }));
        Until([&] { return waiting > number; }); // and has given the lock up, so it waits
    }
    for (std::size_t signals = 1; signals <= 2; ++signals) {
        Locked([this] { condition.signal(); });
        Until([&] { return woken.size() >= signals; });
    }
    EXPECT_TRUE(Locked([&] { return woken == std::vector<int>{0, 1}; }));
    Locked([this] { condition.broadcast(); });
    Until([&] { return woken.size() == 4; });
}

template <class LOCK>
class LockContract : public ThreadContract
{
};
using LockTypes = testing::Types<KestThread::Mutex, KestThread::FastMutex>;
TYPED_TEST_SUITE(LockContract, LockTypes, );

TYPED_TEST(LockContract, HeldLockIsRefusedOrWaitedForAndAFreeOneGiven)
{
    TypeParam contested;
    std::string steps; // under `lock`
    const auto note = [&steps, this](char step) { this->Locked([&] { steps += step; }); };
    Body body([&] {
        note(TakesAtOnce(contested) ? 'g' : 'r');
        const LockGuard guard(contested);
        note('a');
    });
    {
        const LockGuard guard(contested);
        const Thread thread(&body);
        this->Until([&steps] { return !steps.empty(); });
        Thread::sleep(1); // the body gets as far as it can
        note('f');
    }
    this->Until([&steps] { return steps.size() == 3; });
    EXPECT_EQ(steps, "rfa") << "refused, freed, acquired";
    while (!TakesAtOnce(contested)) { // the body is on its way out
        Thread::sleep(1);
    }
}

} // namespace
