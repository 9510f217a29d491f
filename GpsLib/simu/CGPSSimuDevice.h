// CGPSSimuDevice.h: a drive along a planned route, read like a receiver.
//
// - A route is a CPath: route::CGuidePath in layers/route/CGuidePath.h makes one of a list of points, and
//   contracts/KestRoute.h says what any other has to do.
// - SetSimuParam, BeginSimu, then GetGPSData once a time step until it gives false, then EndSimu.
#pragma once

#include "GpsLib/device/CGPSDeviceEx.h"

class CPath;

namespace GPS
{

class CGPSSimuDeviceImpl;

/// A simulated drive. It has no thread and no clock: each GetGPSData is one step, so the stated speed holds
/// when the caller calls once a time step.
///
/// Copies share the drive: each step is everybody's, and EndSimu on one ends it for all. A device without a
/// drive answers false.
/// Thread: one at a time over all copies. No exception leaves any operation; what a route throws ends the
/// drive.
///
/// Virtual operations in slot order, which is ABI.
class KEST_GPS_API CGPSSimuDevice : public CGPSDeviceEx
{
public:
    CGPSSimuDevice();
    CGPSSimuDevice(const CGPSSimuDevice& other);
    CGPSSimuDevice& operator=(const CGPSSimuDevice& other);
    ~CGPSSimuDevice() override;

    /// Sets route, time step and speed; on a drive under way they count from the next step on, the route's
    /// first block from the next BeginSimu on.
    /// path: borrowed until EndSimu; null is refused by BeginSimu, and under way ends the drive where
    /// the next block is due.
    /// timeStep: [s]. speed: [km/h], at most 300; more counts as 300. Both must be above 0, which BeginSimu
    /// tests; with one that is no number the first step fails.
    /// Result: false without memory for the drive.
    bool SetSimuParam(CPath* path, double timeStep, double speed);

    /// Places the vehicle on the route's first point; a drive under way starts anew.
    /// Result: false without SetSimuParam, for a speed or time step of 0 or less, which leaves a drive under
    /// way as it is, or for a route that gives no block of at least two points.
    bool BeginSimu();

    /// Makes one step.
    /// Result: true while the drive goes on. False at its end, with the last record in `data` and its `valid`
    /// 1; false with `data` untouched for a route that failed, after the end, and before BeginSimu. Clear
    /// `data.valid` before the call to tell an arrival.
    bool GetGPSData(_GPS_Data& data) override;
    /// Result: false; a drive keeps no last record.
    bool GetGPSDataWithoutSate(_GPS_Data_Without_Sate& data) override;
    /// Result: false; a drive has no satellites.
    bool GetWholeSate(_GPS_Satellite& satellite) override;

    /// Ends the drive and forgets route, time step and speed.
    /// Result: false when there was nothing to end.
    bool EndSimu();

private:
    CGPSSimuDeviceImpl* impl; // shared with the copies; the last one deletes it. From SetSimuParam to EndSimu
};
static_assert(sizeof(CGPSSimuDevice) == 2 * sizeof(void*));

} // namespace GPS
