// Observable.h: an ordered set of listeners, each of which gets every chunk once.
#pragma once

#include <cstdint>
#include <set>

#include "GpsLib/GpsExport.h"
#include "GpsLib/comm/CommListener.h"
#include "GpsLib/contracts/KestThread.h"

namespace KestThread
{

/// Virtual operations in slot order, which is ABI: destructor, subscribe, unsubscribe.
/// Thread: any; a listener may subscribe and unsubscribe from inside its own call.
template <class LISTENER, class LOCK>
class Observable
{
public:
    /// No listeners. Without memory for its lock nothing can subscribe.
    Observable() noexcept;
    /// The copy has the same listeners, or none without memory for them, and a lock of its own, so that
    /// either can die first.
    Observable(const Observable& other) noexcept;
    Observable& operator=(const Observable&) = delete;
    /// Calls no listener.
    virtual ~Observable();

    /// Adds a listener; one that is there already stays there once. Without memory for it nothing changes.
    /// listener: borrowed; must outlive this object or be unsubscribed before.
    virtual void subscribe(LISTENER* listener);

    /// Removes a listener; one that is not there changes nothing. A chunk that is on its way still reaches
    /// it.
    virtual void unsubscribe(LISTENER* listener);

    /// For use inside the library, which doesn't export it.
    /// Result: true while the listener is subscribed.
    bool isSubscribed(LISTENER* listener) const;

    /// For use inside the library, which doesn't export it.
    /// Hands a chunk to every listener, in ascending order of address, with the lock free.
    /// Throws std::bad_alloc when more listeners are subscribed than the stack has room for and the heap has
    /// none either; no listener has then been called.
    void notify(const char* data, const std::uint32_t& length);

private:
    LOCK* lock;    // guards `listeners`; null when there was no memory for it, and then nothing can subscribe
    bool ownsLock; // true from construction on
    std::set<LISTENER*> listeners KEST_GUARDED_BY(*lock);
};

extern template class KEST_GPS_API Observable<CommListener, Mutex>;
static_assert(sizeof(Observable<CommListener, Mutex>) == 3 * sizeof(void*) + sizeof(std::set<CommListener*>));

} // namespace KestThread
