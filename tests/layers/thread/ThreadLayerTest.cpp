// Our threading layer under load.
#include "GpsLib/contracts/KestThread.h"

#include <functional>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "GpsLib/comm/LockGuard.h"

namespace
{

using KestThread::LockGuard;

constexpr int ROUNDS = 2000;
constexpr int THREADS = 4;

/// Does the work on four threads at once, and something else beside them.
void OnThreads(const std::function<void()>& work, const std::function<void()>& beside)
{
    std::vector<std::thread> threads;
    threads.reserve(THREADS);
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back(work);
    }
    beside();
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(ThreadLayer, LockLetsOneThreadInAtATime)
{
    KestThread::FastMutex lock;
    int count = 0;
    const auto work = [&] {
        for (int i = 0; i < 10 * ROUNDS; ++i) {
            const LockGuard guard(lock);
            ++count;
        }
    };
    OnThreads(work, work);
    EXPECT_EQ(count, (THREADS + 1) * 10 * ROUNDS);
}

TEST(ThreadLayer, NoWaitEndsWithoutASignalOfItsOwn)
{
    KestThread::Mutex lock;
    KestThread::Condition meeting(lock);
    int waiting = 0;
    int signalled = 0;
    int woken = 0;
    int early = 0;
    const auto wait = [&] {
        for (int i = 0; i < ROUNDS; ++i) {
            const LockGuard guard(lock);
            ++waiting;
            meeting.wait();
            ++woken;
            early += woken > signalled ? 1 : 0;
        }
    };
    OnThreads(wait, [&] {
        while (signalled < THREADS * ROUNDS) { // this thread alone writes it
            const LockGuard guard(lock);
            if (waiting > signalled) { // one signal for each wait begun, so none is lost
                ++signalled;
                meeting.signal();
            }
        }
    });
    EXPECT_EQ(woken, THREADS * ROUNDS);
    EXPECT_EQ(early, 0);
}

} // namespace
