// CGainBank.h: averages of fixes along the way, heard by how well they foretell the next one.
#pragma once

#include <cstddef>

#include "GpsLib/filter/velocity/EastNorth.h"

namespace GPS
{

/// Four points go along with the velocity, and each is drawn to the fixes by a gain of its own; the first
/// takes over the fix whole. The more of the error is white noise, the longer the average that foretells
/// best. Where the velocity contradicts the positions, or the noise is slow drift, it is the shortest, and
/// the raw fix comes out by itself. (Averaging along precise changes: R. Hatch 1982; with the velocity in
/// place of the phase: Zhou and Li 2010, 2016. The bank: D. T. Magill 1965. Scores by prediction error: L.
/// Ljung) Thread: one at a time.
class CGainBank
{
public:
    CGainBank() noexcept;

    /// Sets all points on the fix. The scores stay.
    void Begin() noexcept;

    /// farther: [m] how much farther the fixes went than the points do.
    /// believed: whether the fix is; the points then are drawn to it.
    /// stands: whether the vehicle does; all points then average over as long as it stands, unscored.
    void Step(EastNorth farther, bool believed, bool stands) noexcept;

    /// [m] from the latest fix to what the points say together.
    EastNorth Offset() const noexcept { return offset; }

    /// [m2] mean squared surprise an axis of the point that foretells best.
    double BestScore() const noexcept;
    /// [m2] the same of a point that averages over some fixes, as the one does that the lag is learnt by.
    double MiddleScore() const noexcept { return points[2].score; }

private:
    struct Point {
        double score;     // [m2] mean squared surprise an axis
        double fixes;     // averaged
        EastNorth offset; // [m] from the latest fix
    };
    static constexpr std::size_t POINTS = 4;

    void Score(Point& point) const noexcept;
    void Mix() noexcept;

    Point points[POINTS];
    double scored = 0.0; // fixes in the scores, up to how far they look back
    EastNorth offset;    // [m] what the points say together
};

} // namespace GPS
