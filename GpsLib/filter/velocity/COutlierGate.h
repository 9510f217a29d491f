// COutlierGate.h: is a fix believed?
#pragma once

#include "GpsLib/filter/velocity/EastNorth.h"

namespace GPS
{

/// A fix that lies far from where the velocity leads is an outlier, unless the velocity is what is wrong or
/// the position jumped for good. (Navon and Bobrovsky 2021; robust statistics for GNSS: Sensors 2019, 5402
/// and 2021, 1250)
/// Thread: one at a time.
class COutlierGate
{
public:
    enum VERDICT {
        VERDICT_BELIEVE,
        VERDICT_COAST,   ///< the fix is an outlier: on by the velocity alone
        VERDICT_GO_OVER, ///< the fix is right and what led away from it wrong: everything starts from it
    };

    /// What a fix is judged by.
    struct Surprise {
        double square;    ///< [m2] of the way from the fix to where it was expected
        double bestScore; ///< [m2] mean of that an axis, of late
        EastNorth change; ///< [m/s] of the velocity
        bool moved;       ///< the position isn't that of the fix before, to the last bit
    };

    /// Starts from a fix.
    void Begin() noexcept { *this = COutlierGate(); }

    /// seconds: since the step before.
    VERDICT Step(const Surprise& surprise, double seconds) noexcept;

    /// Result: whether it is too early to know that the start was no outlier itself.
    bool InDoubt() const noexcept { return doubt > 0.0; }

private:
    static constexpr double DOUBT = 15.0; // [s] after a start, in which near jumps are believed

    double coasting = 0.0; // [s] without a believed fix
    double first = 0.0;    // [m2] squared surprise of the first that wasn't
    double doubt = DOUBT;  // [s] left
    int frozen = 0;        // equal positions in a row
};

} // namespace GPS
