#include "layers/platform/CSerialLine.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <iterator>
#include <utility>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include "layers/platform/CReadTimer.h"
#include "layers/platform/TermiosSettings.h"

namespace platform
{

namespace
{

using std::chrono::milliseconds;

constexpr milliseconds BETWEEN_TRIES(100); // to open a device that has gone
constexpr milliseconds AFTER_NOTHING(10);  // when a device says that it is ready and gives nothing
constexpr milliseconds FOR_ROOM(10);       // in a full output queue; never drains one in between

constexpr int BOTH_LINES = TIOCM_DTR | TIOCM_RTS;
constexpr DWORD USUAL_SPEED = 9600; // [bit/s], for a device that was left hung up

bool HasHungUp(int tty)
{
    pollfd watched{tty, POLLIN, 0};
    PollUntil(&watched, 1, Clock::now());
    return (watched.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

} // namespace

CSerialLine::CSerialLine() noexcept
    : interruption(-1),
      settings(),
      timeouts(),
      raisedLines(BOTH_LINES) // as the kernel raises them at each open
{
    settings.DCBlength = sizeof settings;
    settings.fBinary = 1;
    settings.fDtrControl = DTR_CONTROL_ENABLE;
    settings.fRtsControl = RTS_CONTROL_ENABLE;
}

CSerialLine::~CSerialLine()
{
    if (interruption >= 0) {
        close(interruption);
    }
}

bool CSerialLine::Open(std::string path) noexcept
{
    this->path = std::move(path);
    interruption = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (interruption < 0 || !tty.Open(this->path.c_str()) || !ReadSettings(tty.Get(), settings)) {
        return false;
    }
    if (settings.BaudRate == 0) {
        settings.BaudRate = USUAL_SPEED;
    }
    return ApplySettings(tty.Get(), settings);
}

void CSerialLine::Interrupt() noexcept
{
    eventfd_write(interruption, 1);
}

bool CSerialLine::Read(char* buffer, std::size_t length, DWORD& count) noexcept
{
    count = 0;
    const std::lock_guard<std::mutex> turn(readTurn);
    const std::size_t room = std::min(length, CReceivedBytes::CAPACITY);
    CReadTimer timer(GetTimeouts(), room); // the gap behind kept bytes begins here too: the caller was away
    bool gap = false;
    while (HeldCount() < room) {
        const EVENT event = Await(timer.End(HeldCount() != 0));
        if (event == EVENT::INTERRUPTED) {
            return false;
        }
        if (event == EVENT::DEVICE) {
            if (TakeIn(room)) {
                timer.BytesCame();
            }
            continue;
        }
        const bool holding = HeldCount() != 0;
        if (Clock::now() >= timer.End(holding)) {
            gap = timer.EndsByGap(holding);
            break;
        }
    }
    const std::lock_guard<std::mutex> guard(lock);
    count = static_cast<DWORD>(received.MoveOut(buffer, room, gap));
    return count != 0 || tty.IsOpen();
}

// Looks at the device even if the deadline has passed: bytes may have come while this thread had no
// processor.
CSerialLine::EVENT CSerialLine::Await(Clock::time_point deadline) const noexcept
{
    const Clock::time_point now = Clock::now();
    const bool resting = now < restUntil;
    const bool dueForTry = !resting && !tty.IsOpen();
    if (resting) {
        deadline = std::min(deadline, restUntil);
    } else if (dueForTry) {
        deadline = now;
    }
    const int device = resting ? -1 : tty.Get(); // -1 is passed over
    pollfd watched[] = {{interruption, POLLIN, 0}, {device, POLLIN, 0}};
    PollUntil(watched, std::size(watched), deadline);
    if (watched[0].revents != 0) {
        return EVENT::INTERRUPTED;
    }
    return dueForTry || watched[1].revents != 0 ? EVENT::DEVICE : EVENT::NOTHING;
}

// Result: whether bytes have come.
bool CSerialLine::TakeIn(std::size_t room) noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    if (!tty.IsOpen()) {
        Reopen();
        return false;
    }
    const ssize_t taken = read(tty.Get(), received.Free(), room - received.Count());
    if (taken > 0) {
        received.Add(static_cast<std::size_t>(taken));
        return true;
    }
    const bool empty = taken < 0 && (errno == EAGAIN || errno == EINTR);
    if (empty && !HasHungUp(tty.Get())) {
        restUntil = Clock::now() + AFTER_NOTHING;
    } else {
        LoseDevice();
    }
    return false;
}

void CSerialLine::Reopen() noexcept
{
    if (!tty.Open(path.c_str()) || !ApplySettings(tty.Get(), settings)) {
        LoseDevice();
        return;
    }
    ApplyLines(); // a device without them is as good as before
}

// Closed at once: a device that comes back gets its old name only while nobody holds it.
void CSerialLine::LoseDevice() noexcept
{
    tty.Close();
    received.DropTornLine();
    restUntil = Clock::now() + BETWEEN_TRIES;
}

bool CSerialLine::Write(const char* data, std::size_t length, DWORD& count) noexcept
{
    count = 0;
    const std::lock_guard<std::mutex> turn(writeTurn);
    const COMMTIMEOUTS limits = GetTimeouts();
    const Clock::time_point deadline = DeadlineIn(limits.WriteTotalTimeoutConstant +
                                                  std::uint64_t{limits.WriteTotalTimeoutMultiplier} * length);
    while (count < length) {
        const Clock::time_point now = Clock::now();
        {
            const std::lock_guard<std::mutex> guard(lock);
            const ssize_t sent = write(tty.Get(), data + count, length - count);
            if (sent > 0) {
                count += static_cast<DWORD>(sent);
                continue;
            }
            if (sent < 0 && errno != EAGAIN && errno != EINTR) {
                return false;
            }
        }
        if (now >= deadline) {
            return true;
        }
        // Timed, not polled: the descriptor may be the reader's to close as soon as the lock is free.
        if (RestInterrupted(std::min(deadline, now + FOR_ROOM))) {
            return false;
        }
    }
    return true;
}

bool CSerialLine::RestInterrupted(Clock::time_point until) const noexcept
{
    pollfd watched{interruption, POLLIN, 0};
    PollUntil(&watched, 1, until);
    return watched.revents != 0;
}

bool CSerialLine::GetState(DCB& settings) noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    settings = this->settings; // the flags as they were set
    return ReadSettings(tty.Get(), settings);
}

bool CSerialLine::SetState(const DCB& settings) noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    if (!ApplySettings(tty.Get(), settings)) {
        return false;
    }
    this->settings = settings;
    return true;
}

COMMTIMEOUTS CSerialLine::GetTimeouts() noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    return timeouts;
}

void CSerialLine::SetTimeouts(const COMMTIMEOUTS& timeouts) noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    this->timeouts = timeouts;
}

bool CSerialLine::RaiseLine(int line, bool raise) noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    raisedLines = raise ? raisedLines | line : raisedLines & ~line;
    return ApplyLines();
}

bool CSerialLine::ApplyLines() const noexcept
{
    const int lowered = BOTH_LINES & ~raisedLines;
    return ioctl(tty.Get(), TIOCMBIS, &raisedLines) == 0 && ioctl(tty.Get(), TIOCMBIC, &lowered) == 0;
}

bool CSerialLine::Purge(DWORD queues) noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    bool purged = tty.IsOpen();
    if ((queues & PURGE_RXCLEAR) != 0) {
        received.Clear();
        purged = tcflush(tty.Get(), TCIFLUSH) == 0 && purged;
    }
    if ((queues & PURGE_TXCLEAR) != 0) {
        purged = tcflush(tty.Get(), TCOFLUSH) == 0 && purged;
    }
    return purged;
}

bool CSerialLine::GetQueues(COMSTAT& state) noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    int waiting = 0;
    int unsent = 0;
    if (ioctl(tty.Get(), FIONREAD, &waiting) != 0 || ioctl(tty.Get(), TIOCOUTQ, &unsent) != 0) {
        return false;
    }
    state.cbInQue = static_cast<DWORD>(waiting) + static_cast<DWORD>(received.Count());
    state.cbOutQue = static_cast<DWORD>(unsent);
    return true;
}

std::size_t CSerialLine::HeldCount() noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    return received.Count();
}

} // namespace platform
