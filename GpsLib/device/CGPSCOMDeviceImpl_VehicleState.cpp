// How the vehicle moves, told from the last three epochs.
#include "GpsLib/device/CGPSCOMDeviceImpl.h"

#include <cmath>
#include <cstdlib>
#include <limits>

#include "GpsLib/comm/LockGuard.h"

namespace
{

constexpr std::int64_t SLOW_BELOW = 10;  // [km/h] all three speeds
constexpr std::int64_t STEADY_UP_TO = 5; // [km/h] largest change that still counts as steady
constexpr double TURN_FROM = 5.0;        // [deg] smallest change that counts as a turn
constexpr double HALF_TURN = 180.0;      // [deg]
constexpr double FULL_TURN = 360.0;      // [deg]

/// Cut towards zero to the range of 32 bits; what is no number counts as 0. Wider than 32 bits, so that two
/// of them can be subtracted.
std::int64_t WholeSpeed(double speed) noexcept
{
    constexpr double LOWEST = std::numeric_limits<std::int32_t>::min();
    constexpr double HIGHEST = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(speed)) {
        return 0;
    }
    if (speed < LOWEST || speed > HIGHEST) {
        return static_cast<std::int64_t>(speed < LOWEST ? LOWEST : HIGHEST);
    }
    return static_cast<std::int64_t>(speed);
}

bool IsSteady(std::int64_t newer, std::int64_t older) noexcept
{
    return std::abs(newer - older) <= STEADY_UP_TO;
}

/// [deg] the change of heading, brought towards -180 to 180.
double Turn(double newer, double older) noexcept
{
    double turn = newer - older;
    if (turn > HALF_TURN) {
        turn -= FULL_TURN;
    }
    if (turn < -HALF_TURN) {
        turn += FULL_TURN;
    }
    return turn;
}

bool HoldsHeading(double newer, double older) noexcept
{
    return std::fabs(Turn(newer, older)) < TURN_FROM;
}

} // namespace

namespace GPS
{

CGPSCOMDeviceImpl::Epochs CGPSCOMDeviceImpl::CopyEpochs()
{
    Epochs epochs;
    const KestThread::LockGuard guard(recordsLock);
    CopyToWithoutSate(current, epochs.newest);
    epochs.before = history1;
    epochs.beforeThat = history2;
    return epochs;
}

/// Only the newest epoch is asked for a fix: one without any position stands at 0, 0, which is in range.
bool CGPSCOMDeviceImpl::InRange(const Epochs& epochs) noexcept
{
    return epochs.newest.valid != 0 && IsOnEarth(epochs.newest.lonLat) && IsOnEarth(epochs.before.lonLat) &&
           IsOnEarth(epochs.beforeThat.lonLat);
}

MOVESTATETYPE CGPSCOMDeviceImpl::GetVehicleCurrMoveState()
{
    const Epochs epochs = CopyEpochs();
    const std::int64_t newest = WholeSpeed(epochs.newest.speed);
    const std::int64_t before = WholeSpeed(epochs.before.speed);
    const std::int64_t beforeThat = WholeSpeed(epochs.beforeThat.speed);
    if (!InRange(epochs)) {
        return MOVESTATE_UNKNOWN;
    }
    if (newest < SLOW_BELOW && before < SLOW_BELOW && beforeThat < SLOW_BELOW) {
        return MOVESTATE_SLOW;
    }
    if (IsSteady(newest, before) || IsSteady(before, beforeThat)) {
        return MOVESTATE_STEADY;
    }
    return MOVESTATE_CHANGING;
}

HEADINGSTATETYPE CGPSCOMDeviceImpl::GetVehicleCurrHeadingState()
{
    const Epochs epochs = CopyEpochs();
    if (!InRange(epochs)) {
        return HEADINGSTATE_UNKNOWN;
    }
    if (HoldsHeading(epochs.newest.heading, epochs.before.heading) &&
        HoldsHeading(epochs.before.heading, epochs.beforeThat.heading)) {
        return HEADINGSTATE_STEADY;
    }
    return HEADINGSTATE_TURNING;
}

} // namespace GPS
