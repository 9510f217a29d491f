// CSharers.h: counts the façades that share one implementation object, so that the last of them deletes it.
#pragma once

#include <atomic>
#include <cstdint>

/// The count lives in the implementation object; a new object has one sharer.
/// Thread: façades of one object may be copied and destroyed on different threads.
class CSharers
{
public:
    void Join() noexcept { ++count; }
    /// Result: true for the last one to leave.
    bool Leave() noexcept { return --count == 0; }

private:
    std::atomic<std::uint32_t> count{1};
};

/// Result: impl, shared by one more façade; null stays null.
template <class IMPL>
IMPL* ShareImpl(IMPL* impl) noexcept
{
    if (impl != nullptr) {
        impl->sharers.Join();
    }
    return impl;
}

/// Gives up a façade's share and nulls its pointer; the last one deletes the object.
template <class IMPL>
void LeaveImpl(IMPL*& impl) noexcept
{
    if (impl != nullptr && impl->sharers.Leave()) {
        delete impl;
    }
    impl = nullptr;
}

/// What assigning one façade to another does; assigning it to itself or to a fellow sharer changes nothing.
template <class IMPL>
void AssignImpl(IMPL*& target, IMPL* source) noexcept
{
    IMPL* const shared = ShareImpl(source);
    LeaveImpl(target);
    target = shared;
}
