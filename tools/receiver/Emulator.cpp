#include "tools/receiver/Emulator.h"

#include <iterator>
#include <utility>
#include <vector>

#include "tools/receiver/Bursts.h"

namespace kestgps
{

Emulator::Emulator(std::string text, const LineSettings& settings, REPEAT repeat)
    : text(std::move(text)), settings(settings), repeat(repeat)
{
}

void Emulator::Play()
{
    const std::vector<std::string_view> bursts = SplitBursts(text);
    LinePace pace(settings, Clock::now());
    bool going = true;
    do {
        for (auto burst = bursts.begin(); going && burst != bursts.end(); ++burst) {
            going = PlayBurst(*burst, pace);
        }
    } while (going && repeat == REPEAT::FOR_EVER);
    if (going) {
        AwaitDrained();
    }
    terminal.HangUp();
}

// Result: false when stopped, as in what it calls.
bool Emulator::PlayBurst(std::string_view burst, LinePace& pace)
{
    if (!RestUntil(pace.BeginBurst())) {
        return false;
    }
    while (!burst.empty()) {
        const std::string_view slice = burst.substr(0, pace.SliceLength());
        if (!RestUntil(pace.Send(slice.size())) || !HandOver(slice)) {
            return false;
        }
        pace.HandedOver(Clock::now());
        burst.remove_prefix(slice.size());
    }
    return true;
}

bool Emulator::HandOver(std::string_view slice)
{
    constexpr std::chrono::milliseconds LOOK_AGAIN(100); // not every system tells each time that room comes
    while (!slice.empty()) {
        pollfd watched[] = {{stop.Descriptor(), POLLIN, 0}, {terminal.Descriptor(), POLLOUT, 0}};
        PollUntil(watched, std::size(watched), Clock::now() + LOOK_AGAIN);
        if (watched[0].revents != 0) {
            return false;
        }
        const std::size_t taken = terminal.Write(slice);
        played.Take(slice.substr(0, taken));
        slice.remove_prefix(taken);
        terminal.DropInput();
    }
    return true;
}

bool Emulator::RestUntil(Clock::time_point deadline) noexcept
{
    pollfd watched{stop.Descriptor(), POLLIN, 0};
    return !PollUntil(&watched, 1, deadline);
}

void Emulator::AwaitDrained() noexcept
{
    constexpr std::chrono::milliseconds LOOK(20);
    constexpr std::chrono::milliseconds GRACE(500);
    Clock::time_point quietFrom = Clock::now();
    while (Clock::now() - quietFrom < GRACE && RestUntil(Clock::now() + LOOK)) {
        terminal.DropInput();
        if (terminal.Unread() != 0) {
            quietFrom = Clock::now();
        }
    }
}

} // namespace kestgps
