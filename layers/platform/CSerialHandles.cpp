#include "layers/platform/CSerialHandles.h"

#include <utility>

namespace platform
{

namespace
{

std::uintptr_t NumberOf(HANDLE handle)
{
    return reinterpret_cast<std::uintptr_t>(handle);
}

HANDLE HandleFrom(std::uintptr_t number)
{
    return reinterpret_cast<HANDLE>(number); // NOLINT(performance-no-int-to-ptr): a number nobody follows
}

} // namespace

CSerialHandles::Use::Use(CSerialHandles& handles, HANDLE handle) noexcept : handles(handles), entry(nullptr)
{
    const std::lock_guard<std::mutex> guard(handles.lock);
    const auto found = handles.lines.find(NumberOf(handle));
    if (found != handles.lines.end() && !found->second.closing) {
        entry = &found->second;
        ++entry->users;
    }
}

CSerialHandles::Use::~Use()
{
    if (entry == nullptr) {
        return;
    }
    const std::lock_guard<std::mutex> guard(handles.lock);
    if (--entry->users == 0) {
        handles.lastLeft.notify_all(); // under the lock: the entry may be gone as soon as it is free
    }
}

HANDLE CSerialHandles::Add(std::unique_ptr<CSerialLine> line)
{
    const std::lock_guard<std::mutex> guard(lock);
    if (lastNumber + 1 == NumberOf(INVALID_HANDLE_VALUE)) {
        return INVALID_HANDLE_VALUE;
    }
    lines[lastNumber + 1].line = std::move(line);
    ++lastNumber;
    return HandleFrom(lastNumber);
}

HANDLE CSerialHandles::HandleOf(std::uint32_t portNumber) noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    for (auto entry = lines.rbegin(); entry != lines.rend(); ++entry) {
        if (!entry->second.closing && entry->second.line->PortNumber() == portNumber) {
            return HandleFrom(entry->first);
        }
    }
    return INVALID_HANDLE_VALUE;
}

bool CSerialHandles::Close(HANDLE handle) noexcept
{
    std::unique_lock<std::mutex> guard(lock);
    const auto found = lines.find(NumberOf(handle));
    if (found == lines.end() || found->second.closing) {
        return false;
    }
    Entry& entry = found->second;
    entry.closing = true;
    entry.line->Interrupt();
    lastLeft.wait(guard, [&entry] { return entry.users == 0; });
    const std::unique_ptr<CSerialLine> line = std::move(entry.line);
    lines.erase(found);
    guard.unlock(); // closing the device may take its time
    return true;
}

} // namespace platform
