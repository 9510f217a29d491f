#include "layers/event/EventReceivers.h"

#include <algorithm>
#include <condition_variable>
#include <iterator>
#include <memory>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace event
{

namespace
{

struct Registration {
    Registration(ReceiverId number, std::uint16_t id, Receiver handler)
        : number(number), id(id), handler(std::move(handler))
    {
    }

    const ReceiverId number;
    const std::uint16_t id;
    const Receiver handler;
    bool removed = false; // guarded by Registry::lock
    int running = 0;      // calls under way on all threads; guarded by Registry::lock
};

/// The calls under way on this thread, innermost first: a handler may send events itself.
struct Call {
    const Registration* registration;
    const Call* outer;
};
thread_local const Call* innermostCall = nullptr;

int CallsOnThisThread(const Registration& registration) noexcept
{
    int calls = 0;
    for (const Call* call = innermostCall; call != nullptr; call = call->outer) {
        calls += call->registration == &registration ? 1 : 0;
    }
    return calls;
}

/// All registrations. The list is never changed but replaced, so that a delivery walks the one it began with,
/// with the lock free and without allocating.
class Registry
{
public:
    ReceiverId Add(std::uint16_t id, Receiver handler)
    {
        const std::lock_guard<std::mutex> held(lock);
        const std::shared_ptr<List> longer = Present();
        longer->push_back(std::make_shared<Registration>(lastNumber + 1, id, std::move(handler)));
        list = longer;
        return ++lastNumber;
    }

    bool Remove(ReceiverId number)
    {
        std::shared_ptr<Registration> leaving; // outlives the lock: its handler's own parts may die with it
        std::unique_lock<std::mutex> held(lock);
        const auto found = std::find_if(list->begin(), list->end(), [number](const auto& entry) {
            return entry->number == number && !entry->removed;
        });
        if (found == list->end()) {
            return false;
        }
        leaving = *found;
        leaving->removed = true;
        const int own = CallsOnThisThread(*leaving);
        callEnded.wait(held, [&leaving, own] { return leaving->running == own; });
        try {
            list = Present(); // else the next registration drops it
        } catch (
            const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): it isn't called any more all the same
        }
        return true;
    }

    void Deliver(const CustomEvent& event)
    {
        std::shared_ptr<const List> present; // outlives the lock, as above
        std::unique_lock<std::mutex> held(lock);
        present = list;
        for (const auto& entry : *present) {
            if (entry->id == event.Id() && !entry->removed) {
                ++entry->running;
                held.unlock();
                CallHandler(*entry, event);
                held.lock();
                --entry->running;
                callEnded.notify_all();
            }
        }
    }

private:
    using List = std::vector<std::shared_ptr<Registration>>;

    /// A list of those that are registered now, for a change.
    std::shared_ptr<List> Present() const
    {
        auto present = std::make_shared<List>();
        std::copy_if(list->begin(), list->end(), std::back_inserter(*present),
                     [](const auto& entry) { return !entry->removed; });
        return present;
    }

    static void CallHandler(const Registration& registration, const CustomEvent& event) noexcept
    {
        const Call call{&registration, innermostCall};
        innermostCall = &call;
        try {
            registration.handler(event);
        } catch (...) { // NOLINT(bugprone-empty-catch): one handler's failure is no other's
        }
        innermostCall = call.outer;
    }

    std::mutex lock;
    std::condition_variable callEnded;
    std::shared_ptr<const List> list = std::make_shared<List>();
    ReceiverId lastNumber = 0;
};

/// Never destroyed: a reader thread may still send while the process ends.
Registry& TheRegistry()
{
    static Registry& registry = *new Registry;
    return registry;
}

} // namespace

CustomEvent::CustomEvent(std::uint16_t id, void* payload) : id(id), payload(payload) {}

CustomEvent::~CustomEvent() = default;

std::uint16_t CustomEvent::Id() const noexcept
{
    return id;
}

void* CustomEvent::Payload() const noexcept
{
    return payload;
}

void EventHouse::SendEvent(CustomEvent* event)
{
    TheRegistry().Deliver(*event);
}

ReceiverId RegisterReceiver(std::uint16_t id, Receiver handler)
{
    return TheRegistry().Add(id, std::move(handler));
}

bool RemoveReceiver(ReceiverId registration)
{
    return TheRegistry().Remove(registration);
}

} // namespace event
