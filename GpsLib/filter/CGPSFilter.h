// CGPSFilter.h: smooths position and speed, one fix an epoch.
#pragma once

#include <memory>

#include "GpsLib/filter/CKalmanFilter.h"
#include "GpsLib/filter/CMatrix.h"
#include "GpsLib/filter/_GPS_Filter_Data.h"

namespace GPS
{

struct SinCos;

/// A constant-acceleration Kalman filter on longitude and latitude [deg], east and north velocity [m/s] and
/// east and north acceleration [m/s per step]; position and velocity are observed. Every step counts as one
/// second. Values are not range-tested.
/// Thread: one at a time.
class CGPSFilter
{
public:
    /// Result: a filter, owned by the caller; null when there is no memory for it.
    static CGPSFilter* Make() noexcept;

    CGPSFilter(const CGPSFilter&) = delete;
    CGPSFilter& operator=(const CGPSFilter&) = delete;

    /// Smooths the fix in place. The first fix of a run seeds the filter and comes back as it is; a fix that
    /// isn't valid comes back as it is and ends the run. A step that finds no memory leaves the fix as it is
    /// and ends the run too.
    void Filter(_GPS_Filter_Data& data) noexcept;

private:
    /// Throws std::bad_alloc.
    CGPSFilter();

    void Seed(const _GPS_Filter_Data& data, const SinCos& direction);
    void Step(_GPS_Filter_Data& data, const SinCos& direction);
    void WriteTransition(const _GPS_Filter_Data& data, double accelerationFactor) noexcept;
    void Correct(CMatrix& observed, _GPS_Filter_Data& data);

    std::unique_ptr<CKalmanFilter> kalman;      // reads the matrices below; declared first, so destroyed last
    std::unique_ptr<CMatrix> initialState;      // 6 by 1
    std::unique_ptr<CMatrix> transition;        // 6 by 6, rewritten at each step
    std::unique_ptr<CMatrix> initialCovariance; // 6 by 6
    std::unique_ptr<CMatrix> processNoise;      // 6 by 6
    std::unique_ptr<CMatrix> measurementMatrix; // 4 by 6
    std::unique_ptr<CMatrix> measurementNoise;  // 4 by 4
    double lastHeading;                         // [deg] of the step before, after averaging
    bool firstFix;                              // the next valid fix seeds
};

} // namespace GPS
