// Our threading layer under load.
#include "GpsLib/contracts/KestThread.h"

#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "GpsLib/comm/LockGuard.h"

namespace
{

using KestThread::LockGuard;

constexpr int ROUNDS = 2000;
constexpr int THREADS = 4;

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
    std::vector<std::thread> threads(THREADS);
    for (std::thread& thread : threads) {
        thread = std::thread(wait);
    }
    while (signalled < THREADS * ROUNDS) { // this thread alone writes it
        const LockGuard guard(lock);
        if (waiting > signalled) { // one signal for each wait begun, so none is lost
            ++signalled;
            meeting.signal();
        }
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(woken, THREADS * ROUNDS);
    EXPECT_EQ(early, 0);
}

} // namespace
