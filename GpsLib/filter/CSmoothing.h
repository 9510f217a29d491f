// CSmoothing.h: the smoothing of one feed of fixes: its switch, its models and the choice between them.
#pragma once

#include <atomic>
#include <memory>

#include "GpsLib/filter/CGPSFilter.h"
#include "GpsLib/filter/FILTERMODEL.h"
#include "GpsLib/filter/velocity/CVelocityFilter.h"
#include "GpsLib/records/GPSRecords.h"

namespace GPS
{

/// What the live receiver and the replay have in common. Off at first.
/// Thread: SwitchOn, SwitchOff and SetModel: any. The rest: one at a time.
class CSmoothing
{
public:
    CSmoothing() noexcept;

    /// From the next fix on. Neither touches the state of a model.
    void SwitchOn() noexcept { on = true; }
    void SwitchOff() noexcept { on = false; }
    /// From the next fix on, which then is the first that the model meets. A value that is no model changes
    /// nothing, and neither does the model that is at work.
    void SetModel(FILTERMODEL model) noexcept;

    /// Another drive comes: the velocity model knows nothing yet. The acceleration model goes on from the
    /// state that it has, until a fix that isn't valid breaks its run.
    void BeginDrive() noexcept { velocity = CVelocityFilter(); }

    /// Rewrites position, speed and heading of the fix, when smoothing is on; everything else stays as
    /// parsed. A fix that isn't valid has its part in it: it breaks a run.
    void Smooth(_GPS_Data& fix) noexcept;

private:
    void BeginModel(FILTERMODEL model) noexcept;

    std::atomic<bool> on;
    std::atomic<FILTERMODEL> chosen;
    FILTERMODEL atWork;                       // the model of the latest smoothed fix
    std::unique_ptr<CGPSFilter> acceleration; // null when the allocation failed: fixes then stay as they are
    CVelocityFilter velocity;
};

} // namespace GPS
