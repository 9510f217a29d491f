#include "bench/study/Track.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "bench/study/Units.h"

namespace study
{

namespace
{

constexpr double STEPS_A_SECOND = 100.0;
constexpr double STEP = 1.0 / STEPS_A_SECOND;
constexpr tagLonLat ORIGIN{121.0, 31.0};
constexpr double FIRST_HEADING = 40.0; // [deg] along no axis

double Ramped(double speed, const Demand& demand) noexcept
{
    const double change = demand.rate * STEP;
    return std::clamp(demand.speed, speed - change, speed + change);
}

} // namespace

Track::Track(const Driver& driver, double start, double seconds)
{
    const auto steps = static_cast<std::size_t>(std::lround(seconds * STEPS_A_SECOND));
    moments.reserve(steps);
    tagLonLat at = ORIGIN;
    double speed = start;
    double heading = FIRST_HEADING;
    for (std::size_t step = 0; step < steps; ++step) {
        const Metres velocity = speed * Towards(heading);
        moments.push_back({at, velocity.east, velocity.north});
        const Demand demand = driver(static_cast<double>(step) * STEP, speed);
        speed = Ramped(speed, demand);
        heading += demand.yaw * STEP;
        at = Moved(at, STEP * speed * Towards(heading));
    }
}

const Moment* Track::At(double time) const noexcept
{
    const auto step = static_cast<std::size_t>(std::lround(std::max(0.0, time) * STEPS_A_SECOND));
    return step < moments.size() ? &moments[step] : nullptr;
}

} // namespace study
