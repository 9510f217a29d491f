#include "tools/receiver/LinePace.h"

#include <algorithm>

namespace kestgps
{

namespace
{

constexpr double BITS_A_BYTE = 10.0; // on the line
constexpr double SLICE_TIME = 0.01;  // [s]
constexpr std::chrono::milliseconds CAUGHT_UP(200);

Clock::duration Seconds(double seconds)
{
    return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

} // namespace

LinePace::LinePace(const LineSettings& settings, Clock::time_point start)
    : byteTime(BITS_A_BYTE / settings.baudRate / settings.factor),
      period(Seconds(settings.period / settings.factor)),
      nextBurst(start),
      lineFree(start)
{
}

std::size_t LinePace::SliceLength() const noexcept
{
    return static_cast<std::size_t>(std::clamp(SLICE_TIME / byteTime, 1.0, 512.0));
}

Clock::time_point LinePace::BeginBurst() noexcept
{
    lineFree = std::max(lineFree, nextBurst);
    nextBurst = lineFree + period;
    return lineFree;
}

Clock::time_point LinePace::Send(std::size_t bytes) noexcept
{
    lineFree += Seconds(static_cast<double>(bytes) * byteTime);
    return lineFree;
}

void LinePace::HandedOver(Clock::time_point now) noexcept
{
    const Clock::duration delay = now - lineFree;
    if (delay > CAUGHT_UP) {
        lineFree += delay;
        nextBurst += delay;
    }
}

} // namespace kestgps
