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

#include "layers/platform/TermiosSettings.h"

namespace platform
{

namespace
{

using std::chrono::milliseconds;

constexpr milliseconds BETWEEN_TRIES(100); // to open a device that has gone
constexpr milliseconds AFTER_NOTHING(10);  // when a device says that it is ready and gives nothing
constexpr milliseconds FOR_MORE(5);        // between two looks at a line that a prompt read waits for
constexpr milliseconds FOR_ROOM(10);       // in a full output queue; never drains one in between

constexpr std::size_t TAKEN_MAX = 512;         // [byte] from the kernel in one go
constexpr std::size_t KEPT_MAX = 16384;        // [byte] about two seconds of what the library takes
constexpr std::size_t ADAPTED_MAX = 4096;      // [byte] more than an adapter makes of TAKEN_MAX
constexpr int GOES_MAX = KEPT_MAX / TAKEN_MAX; // to catch up in, or a flood of what is dropped held a read

constexpr int BOTH_LINES = TIOCM_DTR | TIOCM_RTS;
constexpr DWORD USUAL_SPEED = 9600; // [bit/s], for a device that was left hung up

bool HasHungUp(int tty)
{
    pollfd watched{tty, POLLIN, 0};
    PollUntil(&watched, 1, Clock::now());
    return (watched.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

bool HasAny(const PortOptions& options)
{
    return options.adapt || options.prompt || options.cutAtSentences || options.tap;
}

// What the caller's function throws mustn't cost the library a byte.
void Tap(const PortOptions& options, const char* bytes, std::size_t length)
{
    try {
        options.tap(bytes, length);
    } catch (...) { // NOLINT(bugprone-empty-catch): as told beside the option
    }
}

} // namespace

CSerialLine::CSerialLine(std::shared_ptr<const PortAssignment> assigned)
    : assignment(std::move(assigned)),
      keepsMuch(HasAny(assignment->options)),
      interruption(-1),
      settings(),
      timeouts(),
      raisedLines(BOTH_LINES), // as the kernel raises them at each open
      received(keepsMuch ? KEPT_MAX + ADAPTED_MAX : READ_MAX, assignment->options.cutAtSentences),
      adapter(assignment->options.adapt
                  ? std::make_unique<adapter::CSentenceAdapter>(assignment->options.talkers)
                  : nullptr)
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

bool CSerialLine::Open() noexcept
{
    interruption = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (interruption < 0 || !tty.Open(assignment->path.c_str()) || !ReadSettings(tty.Get(), settings)) {
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
    const std::size_t room = std::min(length, READ_MAX);
    CReadTimer timer(GetTimeouts(), room); // the gap behind kept bytes begins here too: the caller was away
    CatchUp();
    bool gap = false;
    for (HELD held = Held(room); held != HELD::ENOUGH; held = Held(room)) {
        const EVENT event = Await(timer.End(held));
        if (event == EVENT::INTERRUPTED) {
            return false;
        }
        if (event == EVENT::DEVICE) {
            if (TakeAll(room)) {
                timer.BytesCame();
            }
            if (!keepsMuch) { // else the adapter may drop all that comes, and time must end the read
                continue;
            }
        }
        held = Held(room);
        if (held != HELD::ENOUGH && Clock::now() >= timer.End(held)) {
            gap = timer.EndsByGap(held);
            break;
        }
    }
    const std::lock_guard<std::mutex> guard(lock);
    count = static_cast<DWORD>(received.MoveOut(buffer, room, gap));
    return count != 0 || tty.IsOpen();
}

// Takes the kernel's queue out whole: on a fast line it holds no more than a tenth of a second.
void CSerialLine::CatchUp() noexcept
{
    int goes = keepsMuch ? GOES_MAX : 0;
    while (goes > 0 && Await(Clock::time_point::min()) == EVENT::DEVICE && TakeIn(0) == TAKEN_MAX) {
        --goes;
    }
}

// Result: whether bytes have come.
bool CSerialLine::TakeAll(std::size_t room) noexcept
{
    const std::size_t taken = TakeIn(room);
    if (taken == TAKEN_MAX) {
        CatchUp();
    } else if (taken > 0 && assignment->options.prompt) {
        // A line arrives in pieces. To wake at each would cost more than the rests that a prompt read leaves
        // out.
        restUntil = Clock::now() + FOR_MORE;
    }
    return taken > 0;
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

// room: of the read that waits; a port that keeps much takes in more.
// Result: the bytes that have come.
std::size_t CSerialLine::TakeIn(std::size_t room) noexcept
{
    std::unique_lock<std::mutex> guard(lock);
    if (!tty.IsOpen()) {
        Reopen();
        return 0;
    }
    const std::size_t most = std::min(TAKEN_MAX, RoomFor(room));
    if (most == 0) {
        return 0;
    }
    char bytes[TAKEN_MAX];
    const ssize_t taken = read(tty.Get(), bytes, most);
    if (taken > 0) {
        const auto length = static_cast<std::size_t>(taken);
        if (assignment->options.tap) {
            guard.unlock(); // only for the caller's function; a purge meanwhile doesn't reach these bytes
            Tap(assignment->options, bytes, length);
            guard.lock();
        }
        Keep(bytes, length);
        return length;
    }
    const bool empty = taken < 0 && (errno == EAGAIN || errno == EINTR);
    if (empty && !HasHungUp(tty.Get())) {
        restUntil = Clock::now() + AFTER_NOTHING;
    } else {
        LoseDevice();
    }
    return 0;
}

void CSerialLine::Keep(const char* bytes, std::size_t length) noexcept
{
    if (adapter != nullptr) {
        adapter->Take(bytes, length, received);
    } else {
        received.Add(bytes, length);
    }
}

std::size_t CSerialLine::RoomFor(std::size_t room) const noexcept
{
    if (keepsMuch) {
        return received.Room() > ADAPTED_MAX ? received.Room() - ADAPTED_MAX : 0;
    }
    return room - received.Count();
}

HELD CSerialLine::Held(std::size_t room) noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    const bool prompt = assignment->options.prompt;
    if (received.Count() >= room || (prompt && received.HoldsGga())) {
        return HELD::ENOUGH;
    }
    if (prompt && received.HoldsLine()) {
        return HELD::LINES;
    }
    return received.Count() != 0 ? HELD::BYTES : HELD::NOTHING;
}

void CSerialLine::DropTornLine() noexcept
{
    received.DropTornLine();
    if (adapter != nullptr) {
        adapter->DropTorn();
    }
}

void CSerialLine::Reopen() noexcept
{
    if (!tty.Open(assignment->path.c_str()) || !ApplySettings(tty.Get(), settings)) {
        LoseDevice();
        return;
    }
    ApplyLines(); // a device without them is as good as before
}

// Closed at once: a device that comes back gets its old name only while nobody holds it.
void CSerialLine::LoseDevice() noexcept
{
    tty.Close();
    DropTornLine();
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
        DropTornLine();
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

bool CSerialLine::GetCounts(adapter::AdapterCounts& counts) noexcept
{
    if (adapter == nullptr) {
        return false;
    }
    const std::lock_guard<std::mutex> guard(lock);
    counts = adapter->Counts();
    return true;
}

} // namespace platform
