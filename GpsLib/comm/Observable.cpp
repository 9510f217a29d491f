#include "GpsLib/comm/Observable.h"

#include <array>
#include <cstddef>
#include <memory_resource>
#include <new>
#include <vector>

#include "GpsLib/comm/LockGuard.h"

namespace KestThread
{

namespace
{
constexpr std::size_t LISTENERS_ON_STACK =
    16; // copies up to here need no heap; the receiver has one listener
}

template <class LISTENER, class LOCK>
Observable<LISTENER, LOCK>::Observable() noexcept : lock(new (std::nothrow) LOCK), ownsLock(true)
{
}

template <class LISTENER, class LOCK>
Observable<LISTENER, LOCK>::Observable(const Observable& other) noexcept : Observable()
{
    if (lock == nullptr || other.lock == nullptr) {
        return;
    }
    const LockGuard guard(*other.lock);
    try {
        listeners = other.listeners;
    } catch (const std::bad_alloc&) {
        listeners.clear(); // all of them or none
    }
}

template <class LISTENER, class LOCK>
Observable<LISTENER, LOCK>::~Observable()
{
    if (ownsLock) {
        delete lock;
    }
}

template <class LISTENER, class LOCK>
void Observable<LISTENER, LOCK>::subscribe(LISTENER* listener)
{
    if (lock == nullptr) {
        return;
    }
    const LockGuard guard(*lock);
    try {
        listeners.insert(listener);
    } catch (
        const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): told by isSubscribed; no exception goes out
    }
}

template <class LISTENER, class LOCK>
void Observable<LISTENER, LOCK>::unsubscribe(LISTENER* listener)
{
    if (lock == nullptr) {
        return;
    }
    const LockGuard guard(*lock);
    const auto found = listeners.find(listener);
    if (found != listeners.end()) {
        listeners.erase(found);
    }
}

template <class LISTENER, class LOCK>
bool Observable<LISTENER, LOCK>::isSubscribed(LISTENER* listener) const
{
    if (lock == nullptr) {
        return false;
    }
    const LockGuard guard(*lock);
    return listeners.count(listener) != 0;
}

template <class LISTENER, class LOCK>
void Observable<LISTENER, LOCK>::notify(const char* data, const std::uint32_t& length)
{
    if (lock == nullptr) {
        return;
    }
    // A listener may unsubscribe in onData, so a copy is walked, with the lock free.
    alignas(LISTENER*) std::array<std::byte, LISTENERS_ON_STACK * sizeof(LISTENER*)> room;
    std::pmr::monotonic_buffer_resource pool(room.data(), room.size());
    std::pmr::vector<LISTENER*> copy(&pool);
    {
        const LockGuard guard(*lock);
        copy.assign(listeners.begin(), listeners.end());
    }
    for (LISTENER* listener : copy) {
        listener->onData(data, length);
    }
}

template class Observable<CommListener, Mutex>;

} // namespace KestThread
