#include "tests/fakes/FakeThread.h"

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <new>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include "GpsLib/contracts/KestThread.h"

namespace
{

using Number = std::int64_t; // of a thread, never used twice

constexpr Number NOBODY = -1;
constexpr Number TEST = 0; // the test's own thread

thread_local Number self = TEST;

/// Hands the turn from thread to thread; all else in this file is touched by whoever has it.
class Turns
{
public:
    void Start(KestThread::Runnable* body)
    {
        const Number number = ++latest;
        living.push_back(number);
        std::thread([this, body, number] {
            self = number;
            Await();
            body->run();
            living.erase(std::find(living.begin(), living.end(), number));
            Pass(TEST);
        }).detach();
    }

    void Give(Number next)
    {
        Pass(next);
        Await();
    }

    std::vector<Number> living; // in order of their start

private:
    void Pass(Number next)
    {
        const std::lock_guard<std::mutex> held(lock);
        turn = next;
        passed.notify_all();
    }

    void Await()
    {
        std::unique_lock<std::mutex> held(lock);
        passed.wait(held, [this] { return turn == self; });
    }

    std::mutex lock;
    std::condition_variable passed;
    Number turn = TEST; // guarded by lock
    Number latest = TEST;
};

Turns& turns = *new Turns; // never destroyed: a forgotten body waits on it for ever

template <class READY>
void BlockUntil(READY ready, const char* call)
{
    for (std::size_t turn = 0; !ready(); ++turn) {
        if (self == TEST && turn > turns.living.size()) {
            ADD_FAILURE() << call << " would block for ever";
            return;
        }
        if (!FakeThread::Pause()) {
            FakeThread::Run();
        }
    }
}

/// The state of a condition: a signal calls the next ticket. That of a lock is the number of its holder.
struct Tickets {
    std::uint64_t given = 0;
    std::uint64_t called = 0;
};

/// In the room that its class keeps.
template <class STATE, std::size_t SIZE>
STATE& In(unsigned char (&room)[SIZE]) noexcept
{
    static_assert(sizeof(STATE) <= SIZE);
    return *std::launder(static_cast<STATE*>(static_cast<void*>(room)));
}

} // namespace

void FakeThread::Reset() noexcept
{
    turns.living.clear();
    refuses = false;
    sleeps.clear();
}

void FakeThread::Run()
{
    for (const Number body : std::vector<Number>(turns.living)) {
        turns.Give(body);
    }
}

bool FakeThread::Pause()
{
    if (self == TEST) {
        return false;
    }
    turns.Give(TEST);
    return true;
}

std::size_t FakeThread::Running() noexcept
{
    return turns.living.size();
}

namespace KestThread
{

Mutex::Mutex()
{
    new (native) Number(NOBODY);
}

Mutex::~Mutex()
{
    EXPECT_EQ(In<Number>(native), NOBODY) << "a lock is destroyed while it is held";
}

void Mutex::acquire()
{
    Number& holder = In<Number>(native);
    if (holder == self) {
        ADD_FAILURE() << "one thread takes a lock twice";
        return;
    }
    BlockUntil([&holder] { return holder == NOBODY; }, "acquire");
    holder = self;
}

bool Mutex::tryAcquire()
{
    Number& holder = In<Number>(native);
    if (holder != NOBODY) {
        return false;
    }
    holder = self;
    return true;
}

void Mutex::release()
{
    Number& holder = In<Number>(native);
    EXPECT_EQ(holder, self) << "a thread releases a lock that it doesn't hold";
    holder = NOBODY;
}

FastMutex::FastMutex() = default;

FastMutex::~FastMutex() = default;

Condition::Condition(Lockable& lock) : lock(lock)
{
    new (native) Tickets;
}

Condition::~Condition() {}

void Condition::wait() KEST_NO_THREAD_SAFETY_ANALYSIS
{
    auto& tickets = In<Tickets>(native);
    const std::uint64_t mine = tickets.given++;
    lock.release();
    BlockUntil([&tickets, mine] { return mine < tickets.called; }, "wait");
    lock.acquire();
}

void Condition::signal()
{
    auto& tickets = In<Tickets>(native);
    tickets.called += tickets.called < tickets.given ? 1 : 0;
}

void Condition::broadcast()
{
    auto& tickets = In<Tickets>(native);
    tickets.called = tickets.given;
}

Thread::Thread(Runnable* body)
{
    if (FakeThread::refuses) {
        throw std::runtime_error("no thread");
    }
    turns.Start(body);
}

Thread::~Thread() {}

void Thread::sleep(unsigned long milliseconds)
{
    FakeThread::sleeps.push_back(milliseconds);
    if (self == TEST) {
        FakeThread::Run();
    }
}

} // namespace KestThread
