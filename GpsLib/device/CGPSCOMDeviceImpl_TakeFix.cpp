// The intake of a closed epoch, on the reader thread.
#include "GpsLib/device/CGPSCOMDeviceImpl.h"

#include "GpsLib/comm/LockGuard.h"
#include "GpsLib/contracts/WinTick.h"
#include "GpsLib/device/GpsEvents.h"
#include "GpsLib/device/SendGpsEvent.h"

namespace
{

constexpr double MOVE_LIMIT = 5e-5;       // [deg] a move is more than this, in longitude or in latitude
constexpr std::uint32_t FIX_TIMEOUT = 60; // [s] a loss is announced when it lasts longer
constexpr std::uint32_t MILLISECONDS_A_SECOND = 1000;

/// [s] since system start; wraps with the tick count.
std::uint32_t SecondsClock()
{
    return static_cast<std::uint32_t>(GetTickCount()) / MILLISECONDS_A_SECOND;
}

/// Plain difference of degrees: a step across the 180 degree meridian counts as a large one.
bool IsMove(double now, double before) noexcept
{
    const double distance = now > before ? now - before : before - now;
    return distance > MOVE_LIMIT;
}

} // namespace

namespace GPS
{

void CGPSCOMDeviceImpl::TakeFix(_GPS_Data& fix)
{
    smoothing.Smooth(fix); // outside the lock: it takes far longer than a copy
    Publish(fix);
    AnnounceMove();
    WatchLoss();
}

// History and fix go over under one lock, so that nobody sees the same epoch as the newest and the one before
// it.
void CGPSCOMDeviceImpl::Publish(const _GPS_Data& fix)
{
    const KestThread::LockGuard guard(recordsLock);
    history2 = history1;
    CopyToWithoutSate(current, history1);
    current = fix;
    if (current.valid != 0) {
        lastValid = fix;
    }
}

void CGPSCOMDeviceImpl::AnnounceMove() const
{
    if (current.valid == 0) {
        return;
    }
    if (IsMove(current.lonLat.lon, history1.lonLat.lon) || IsMove(current.lonLat.lat, history1.lonLat.lat)) {
        SendGpsEvent(GPS_EVENT_MOVED);
    }
}

void CGPSCOMDeviceImpl::WatchLoss()
{
    if (current.valid != 0) {
        return;
    }
    if (history1.valid != 0) {
        lossSeconds = SecondsClock();
    } else if (history2.valid == 0 && SecondsClock() - lossSeconds > FIX_TIMEOUT) {
        SendGpsEvent(GPS_EVENT_FIX_TIMEOUT); // at every such epoch, until a fix comes
    }
}

} // namespace GPS
