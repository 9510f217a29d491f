#include "GpsLib/filter/velocity/CStandstill.h"

#include <algorithm>

namespace GPS
{

namespace
{

constexpr double WINDOW = 5.0;     // [s] of the mean: a start from standstill shows in it within some seconds
constexpr double SLOW_FIRST = 2.0; // [s] of slowness before standing is thought of: no stop and go

} // namespace

bool CStandstill::Step(double speed, EastNorth velocity, double seconds) noexcept
{
    if (speed > SLOW) {
        Begin();
        return false;
    }
    const double slowBefore = slowFor;
    slowFor = std::min(slowFor + seconds, WINDOW);
    mean = mean + seconds / std::max(slowFor, seconds) * (velocity - mean);
    return slowBefore >= SLOW_FIRST && Square(mean) < STILL * STILL;
}

} // namespace GPS
