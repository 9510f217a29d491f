// What the library relies on in the threading library.
#include "GpsLib/contracts/KestThread.h"

#include <vector>

#include <gtest/gtest.h>

#include "GpsLib/comm/LockGuard.h"
#include "tests/support/FunctionBody.h"

namespace
{

using KestThread::LockGuard;
using KestThread::Thread;
using Body = support::FunctionBody;
using Order = std::vector<int>;

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
    /// Lets the bodies run until something holds.
    template <class READY>
    void Until(READY ready)
    {
        while (!Holds(ready)) {
            Thread::sleep(1);
        }
    }

    template <class READY>
    bool Holds(READY ready)
    {
        const LockGuard guard(lock);
        return ready();
    }

    /// The body of a thread that waits for a signal and then notes its number.
    Body Waiter(int number)
    {
        return Body([this, number] {
            const LockGuard guard(lock);
            ++waiting;
            condition.wait();
            woken.push_back(number);
        });
    }

    KestThread::Mutex lock;
    KestThread::Condition condition{lock};
    int waiting = 0;
    Order woken;
};

TEST_F(ThreadContract, BodyRunsOnceAndNobodyWaitsForIt)
{
    int runs = 0;
    Body body([&runs, this] {
        const LockGuard guard(lock);
        ++runs;
        condition.signal();
    });
    const LockGuard guard(lock);
    const Thread thread(&body); // would never return if it waited for a body that needs the lock
    EXPECT_EQ(runs, 0);
    condition.wait();
    EXPECT_EQ(runs, 1);
}

TEST_F(ThreadContract, WaitEndsHoldingTheLock)
{
    Body signaller([this] {
        const LockGuard guard(lock);
        condition.signal();
    });
    const LockGuard guard(lock);
    const Thread thread(&signaller);
    condition.wait();
    bool taken = true;
    KestThread::Mutex outer; // carries the answer while the lock stays held
    KestThread::Condition answered(outer);
    Body intruder([&, this] {
        const LockGuard outerGuard(outer);
        taken = TakesAtOnce(lock);
        answered.signal();
    });
    const LockGuard outerGuard(outer);
    const Thread second(&intruder);
    answered.wait();
    EXPECT_FALSE(taken);
}

TEST_F(ThreadContract, SignalWithoutAWaiterIsLost)
{
    bool later = false;
    Body body([&later, this] {
        const LockGuard guard(lock);
        later = true;
        condition.signal();
    });
    const LockGuard guard(lock);
    condition.broadcast();
    condition.signal();
    const Thread thread(&body);
    condition.wait();
    EXPECT_TRUE(later);
}

TEST_F(ThreadContract, SignalsWakeOneByOneInOrderOfWaiting)
{
    Body bodies[] = {Waiter(0), Waiter(1), Waiter(2)};
    for (Body& body : bodies) {
        const int before = waiting;
        const Thread thread(&body);
        Until([this, before] { return waiting > before; }); // and has given the lock up, so it waits
    }
    for (std::size_t signals = 1; signals <= 3; ++signals) {
        {
            const LockGuard guard(lock);
            condition.signal();
        }
        Until([this, signals] { return woken.size() >= signals; });
    }
    EXPECT_TRUE(Holds([this] { return woken == Order{0, 1, 2}; }));
}

TEST_F(ThreadContract, BroadcastWakesEveryWaiter)
{
    Body bodies[] = {Waiter(0), Waiter(1), Waiter(2)};
    for (Body& body : bodies) {
        const Thread thread(&body);
    }
    Until([this] { return waiting == 3; });
    {
        const LockGuard guard(lock);
        condition.broadcast();
    }
    Until([this] { return woken.size() == 3; });
}

template <class LOCK>
class LockContract : public ThreadContract
{
};
using LockTypes = testing::Types<KestThread::Mutex, KestThread::FastMutex>;
TYPED_TEST_SUITE(LockContract, LockTypes, );

TYPED_TEST(LockContract, HeldLockIsRefusedAndAFreeOneGiven)
{
    TypeParam contested;
    int given = -1; // under `lock`
    Body body([&, this] {
        const bool taken = TakesAtOnce(contested);
        const LockGuard guard(this->lock);
        given = taken ? 1 : 0;
    });
    {
        const LockGuard guard(contested);
        const Thread thread(&body);
        this->Until([&given] { return given != -1; });
        EXPECT_EQ(given, 0);
    }
    EXPECT_TRUE(TakesAtOnce(contested));
}

TYPED_TEST(LockContract, AcquireWaitsForTheRelease)
{
    TypeParam contested;
    Order order; // under `contested`
    bool done = false;
    Body body([&, this] {
        {
            const LockGuard guard(contested);
            order.push_back(2);
        }
        const LockGuard guard(this->lock);
        done = true;
    });
    {
        const LockGuard guard(contested);
        const Thread thread(&body);
        Thread::sleep(1); // the body gets as far as it can
        order.push_back(1);
    }
    this->Until([&done] { return done; });
    EXPECT_EQ(order, (Order{1, 2}));
}

} // namespace
