// The threading contract on the standard library.
#include "GpsLib/contracts/KestThread.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <new>
#include <thread>

namespace
{

/// A queue of waiting threads by ticket: each signal calls the next number, so no wait ends without one of
/// its own.
struct TicketQueue {
    std::mutex lock;
    std::condition_variable called;
    std::uint64_t given = 0;  // tickets handed out
    std::uint64_t served = 0; // tickets called
};

/// An object of ours in the room that a contract's class keeps for it.
template <class NATIVE, std::size_t SIZE>
NATIVE& In(unsigned char (&room)[SIZE]) noexcept
{
    static_assert(sizeof(NATIVE) <= SIZE && alignof(NATIVE) <= alignof(std::max_align_t));
    return *std::launder(static_cast<NATIVE*>(static_cast<void*>(room)));
}

} // namespace

namespace KestThread
{

Mutex::Mutex()
{
    new (native) std::mutex;
}

Mutex::~Mutex()
{
    In<std::mutex>(native).~mutex();
}

void Mutex::acquire()
{
    In<std::mutex>(native).lock();
}

bool Mutex::tryAcquire()
{
    return In<std::mutex>(native).try_lock();
}

void Mutex::release()
{
    In<std::mutex>(native).unlock();
}

FastMutex::FastMutex() = default;

FastMutex::~FastMutex() = default;

Condition::Condition(Lockable& lock) : lock(lock)
{
    new (native) TicketQueue;
}

Condition::~Condition()
{
    In<TicketQueue>(native).~TicketQueue();
}

// Gives up and takes back a lock that its caller holds, which the analysis can't follow.
void Condition::wait() KEST_NO_THREAD_SAFETY_ANALYSIS
{
    auto& queue = In<TicketQueue>(native);
    {
        std::unique_lock<std::mutex> held(queue.lock);
        const std::uint64_t ticket = queue.given++;
        lock.release(); // the ticket is drawn, so a signal from here on counts
        queue.called.wait(held, [&queue, ticket] { return ticket < queue.served; });
    }
    lock.acquire();
}

void Condition::signal()
{
    auto& queue = In<TicketQueue>(native);
    const std::lock_guard<std::mutex> held(queue.lock);
    if (queue.served < queue.given) {
        ++queue.served;
        queue.called.notify_all(); // the threads look for their own number
    }
}

void Condition::broadcast()
{
    auto& queue = In<TicketQueue>(native);
    const std::lock_guard<std::mutex> held(queue.lock);
    queue.served = queue.given;
    queue.called.notify_all();
}

Thread::Thread(Runnable* body)
{
    std::thread([body] { body->run(); }).detach();
}

Thread::~Thread() = default;

void Thread::sleep(unsigned long milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace KestThread
