// Our threading layer under load.
#include "GpsLib/contracts/KestThread.h"

#include <functional>
#include <list>
#include <utility>

#include <gtest/gtest.h>

#include "GpsLib/comm/LockGuard.h"
#include "tests/support/FunctionBody.h"

namespace
{

using KestThread::LockGuard;

class ThreadLayer : public testing::Test
{
protected:
    void Start(std::function<void()> work)
    {
        support::FunctionBody& body = bodies.emplace_back([this, work = std::move(work)] {
            work();
            const LockGuard guard(lock);
            ++ended;
            allEnded.signal();
        });
        const KestThread::Thread thread(&body);
    }

    void AwaitAll()
    {
        const LockGuard guard(lock);
        while (ended < bodies.size()) {
            allEnded.wait();
        }
    }

    KestThread::Mutex lock;
    KestThread::Condition allEnded{lock};
    std::size_t ended = 0;
    std::list<support::FunctionBody> bodies;
};

TEST_F(ThreadLayer, LockLetsOneThreadInAtATime)
{
    constexpr int ROUNDS = 20000;
    KestThread::FastMutex counting;
    int count = 0;
    for (int thread = 0; thread < 4; ++thread) {
        Start([&counting, &count] {
            for (int i = 0; i < ROUNDS; ++i) {
                const LockGuard guard(counting);
                ++count;
            }
        });
    }
    AwaitAll();
    EXPECT_EQ(count, 4 * ROUNDS);
}

TEST_F(ThreadLayer, NoWaitEndsWithoutASignalOfItsOwn)
{
    constexpr int ROUNDS = 2000;
    constexpr int THREADS = 4;
    KestThread::Condition meeting(lock);
    int waiting = 0;
    int signalled = 0;
    int woken = 0;
    int early = 0;
    for (int thread = 0; thread < THREADS; ++thread) {
        Start([&, this] {
            for (int i = 0; i < ROUNDS; ++i) {
                const LockGuard guard(lock);
                ++waiting;
                meeting.wait();
                ++woken;
                early += woken > signalled ? 1 : 0;
            }
        });
    }
    Start([&, this] {
        while (signalled < THREADS * ROUNDS) { // this thread alone writes it
            const LockGuard guard(lock);
            if (waiting > signalled) { // one signal for each wait begun, so none is lost
                ++signalled;
                meeting.signal();
            }
        }
    });
    AwaitAll();
    EXPECT_EQ(woken, THREADS * ROUNDS);
    EXPECT_EQ(early, 0);
}

} // namespace
