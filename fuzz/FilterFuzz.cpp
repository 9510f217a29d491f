// Fixes through the smoothing step: first of any bits, then a run of plausible ones.
#include <cmath>
#include <memory>

#include "GpsLib/filter/CGPSFilter.h"
#include "GpsLib/filter/SmoothFix.h"
#include "fuzz/CInput.h"
#include "fuzz/Require.h"

namespace
{

_GPS_Data Fix(bool valid, const tagLonLat& position, double speed, double heading)
{
    _GPS_Data fix;
    fix.valid = valid ? 1 : 0;
    fix.lonLat = position;
    fix.speed = speed;
    fix.heading = heading;
    return fix;
}

_GPS_Data AnyFix(CInput& input)
{
    const bool valid = (input.Byte() & 7U) != 0;
    const tagLonLat position{input.AnyDouble(), input.AnyDouble()};
    const double speed = input.AnyDouble();
    return Fix(valid, position, speed, input.AnyDouble());
}

/// A receiver's fix anywhere on Earth, at up to 1000 km/h; no fix need follow from the one before.
_GPS_Data PlausibleFix(CInput& input)
{
    const bool valid = (input.Byte() & 15U) != 0;
    const tagLonLat position{input.Between(-180.0, 180.0), input.Between(-90.0, 90.0)};
    const double speed = std::fabs(input.Between(-1000.0, 1000.0)); // by the sign bit, a run can stand still
    return Fix(valid, position, speed, input.Between(0.0, 360.0));
}

bool IsFinite(const _GPS_Data& fix) noexcept
{
    return std::isfinite(fix.lonLat.lon) && std::isfinite(fix.lonLat.lat) && std::isfinite(fix.speed) &&
           std::isfinite(fix.heading);
}

void SmoothByRules(GPS::CGPSFilter& filter, _GPS_Data& fix)
{
    const _GPS_Data before = fix;
    SmoothFix(filter, fix);
    if (before.valid == 0) {
        Require(BytesOf(fix) == BytesOf(before), "a fix that isn't valid comes back as it was");
    }
}

} // namespace

// The first byte: how many fixes of any bits there are.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CInput input(data, size);
    const std::unique_ptr<GPS::CGPSFilter> filter(GPS::CGPSFilter::Make());
    int anyFixes = input.Byte();
    const std::unique_ptr<GPS::CGPSFilter> fresh(anyFixes > 0 ? GPS::CGPSFilter::Make() : nullptr);
    for (; anyFixes > 0 && !input.Empty(); --anyFixes) {
        _GPS_Data fix = AnyFix(input);
        SmoothByRules(*filter, fix);
    }
    _GPS_Data gap;
    SmoothByRules(*filter, gap);
    while (!input.Empty()) {
        _GPS_Data fix = PlausibleFix(input);
        _GPS_Data twin = fix;
        SmoothByRules(*filter, fix);
        Require(IsFinite(fix), "a plausible run stays finite");
        if (fresh != nullptr) {
            SmoothByRules(*fresh, twin);
            Require(BytesOf(fix) == BytesOf(twin), "nothing from before a gap lives on behind it");
        }
    }
    return 0;
}
