#include "GpsLib/filter/velocity/CVelocityLag.h"

#include "GpsLib/filter/velocity/CStandstill.h"

namespace GPS
{

namespace
{

constexpr double GAIN = 0.125; // share of a surprise that the point takes over
constexpr double PRIOR = 1.0;  // [1/s2] 0 s +- 1 s before anything is known

} // namespace

void CVelocityLag::Begin() noexcept
{
    point = EastNorth();
    perSecond = EastNorth();
}

void CVelocityLag::Step(EastNorth farther, double speed, EastNorth change, bool believed,
                        double score) noexcept
{
    point = point - farther;
    perSecond = perSecond + change;
    if (!believed) {
        return;
    }
    if (speed > CStandstill::SLOW) {
        product -= Dot(point, perSecond) / score;
        square += Square(perSecond) / score;
        lag = product / (square + PRIOR);
    }
    point = (1.0 - GAIN) * point;
    perSecond = (1.0 - GAIN) * perSecond;
}

} // namespace GPS
