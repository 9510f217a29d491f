#include "tools/live/NoticeQueue.h"

namespace kestgps
{

bool NoticeQueue::Push(const ReceiverNotice& notice)
{
    const std::lock_guard<std::mutex> guard(lock);
    if (notices.size() >= CAPACITY) {
        return false;
    }
    notices.push_back(notice);
    arrival.Set();
    return true;
}

void NoticeQueue::Finish() noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    finished = true;
    arrival.Set();
}

std::optional<ReceiverNotice> NoticeQueue::Pop()
{
    const std::lock_guard<std::mutex> guard(lock);
    if (notices.empty()) {
        return std::nullopt;
    }
    const ReceiverNotice oldest = notices.front();
    notices.pop_front();
    if (notices.empty() && !finished) {
        arrival.Clear();
    }
    return oldest;
}

bool NoticeQueue::AtEnd() const
{
    const std::lock_guard<std::mutex> guard(lock);
    return finished && notices.empty();
}

} // namespace kestgps
