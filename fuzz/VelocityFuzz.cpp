// Fixes through the velocity model: first of any bits, then a run of plausible ones behind a long loss.
#include <cmath>

#include "GpsLib/filter/CSmoothing.h"
#include "fuzz/CInput.h"
#include "fuzz/Require.h"

namespace
{

constexpr double SPEED_MOST = 1260.0; // [km/h]

_GPS_Time TimeOf(int second)
{
    second %= 86400;
    return {static_cast<std::uint8_t>(second / 3600),
            static_cast<std::uint8_t>(second / 60 % 60),
            static_cast<std::uint8_t>(second % 60),
            {}};
}

_GPS_Data AnyFix(CInput& input)
{
    _GPS_Data fix;
    fix.valid = input.Byte() & 7U;
    fix.mask = input.Byte();
    fix.time = {input.Byte(), input.Byte(), input.Byte(), {}};
    fix.lonLat = {input.AnyDouble(), input.AnyDouble()};
    fix.speed = input.AnyDouble();
    fix.heading = input.AnyDouble();
    return fix;
}

/// A receiver's fix anywhere it likes, up to 3 s after the one before; no fix need follow from it.
_GPS_Data PlausibleFix(CInput& input, int& second)
{
    _GPS_Data fix;
    const unsigned flags = input.Byte();
    second += flags >> 6U;
    fix.valid = (flags & 15U) != 0 ? 1 : 0;
    fix.mask = (flags & 16U) != 0 ? GPS_MASK_TIME : 0;
    fix.time = TimeOf(second);
    fix.lonLat = {input.Between(-180.0, 180.0), input.Between(-90.0, 90.0)};
    fix.speed = std::fabs(input.Between(-SPEED_MOST, SPEED_MOST)); // by the sign bit, a run can stand still
    fix.heading = input.Between(0.0, 360.0);
    return fix;
}

bool IsWithin(double value, double low, double high) noexcept
{
    return value >= low && value <= high;
}

bool IsOnEarth(const _GPS_Data& fix) noexcept
{
    return IsWithin(fix.lonLat.lon, -180.0, 180.0) && IsWithin(fix.lonLat.lat, -90.0, 90.0);
}

void SmoothByRules(GPS::CSmoothing& smoothing, _GPS_Data& fix)
{
    const _GPS_Data before = fix;
    smoothing.Smooth(fix);
    Require(before.valid != 0 || BytesOf(fix) == BytesOf(before),
            "a fix that isn't valid comes back as it was");
    Require(IsOnEarth(fix) || !IsOnEarth(before), "a fix on Earth stays there");
    Require(IsWithin(fix.speed, 0.0, SPEED_MOST) || !IsWithin(before.speed, 0.0, SPEED_MOST),
            "so with its speed");
    Require(IsWithin(fix.heading, 0.0, 360.0) || !IsWithin(before.heading, 0.0, 360.0),
            "so with its heading");
    _GPS_Data rest = fix;
    rest.lonLat = before.lonLat;
    rest.speed = before.speed;
    rest.heading = before.heading;
    Require(BytesOf(rest) == BytesOf(before), "all else stays as parsed");
}

/// An epoch without a fix, and a usable fix 7 s later.
void LoseTheFix(GPS::CSmoothing& smoothing, int& second)
{
    _GPS_Data fix;
    fix.time = TimeOf(second);
    fix.mask = GPS_MASK_TIME;
    SmoothByRules(smoothing, fix);
    second += 7;
    fix.time = TimeOf(second);
    fix.valid = 1;
    fix.lonLat = {11.0, 48.0};
    fix.speed = 50.0;
    fix.heading = 90.0;
    const _GPS_Data before = fix;
    SmoothByRules(smoothing, fix);
    Require(BytesOf(fix) == BytesOf(before), "the first fix after a long loss begins anew");
}

void SwitchOn(GPS::CSmoothing& smoothing)
{
    smoothing.SwitchOn();
    smoothing.SetModel(FILTERMODEL_VELOCITY);
}

} // namespace

// The first byte: how many fixes of any bits there are, and in its highest bit whether another drive begins.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CInput input(data, size);
    GPS::CSmoothing smoothing;
    GPS::CSmoothing fresh;
    SwitchOn(smoothing);
    SwitchOn(fresh);
    const unsigned first = input.Byte();
    const bool another = (first & 128U) != 0;
    for (unsigned anyFixes = first & 127U; anyFixes > 0 && !input.Empty(); --anyFixes) {
        _GPS_Data fix = AnyFix(input);
        SmoothByRules(smoothing, fix);
    }
    int second = 86390; // midnight is near
    if (another) {
        smoothing.BeginDrive();
    }
    LoseTheFix(smoothing, second);
    second -= 7;
    LoseTheFix(fresh, second);
    while (!input.Empty()) {
        _GPS_Data fix = PlausibleFix(input, second);
        _GPS_Data twin = fix;
        SmoothByRules(smoothing, fix);
        SmoothByRules(fresh, twin);
        Require(!another || BytesOf(fix) == BytesOf(twin), "nothing of one drive lives on in another");
    }
    return 0;
}
