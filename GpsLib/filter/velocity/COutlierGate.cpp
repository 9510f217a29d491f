#include "GpsLib/filter/velocity/COutlierGate.h"

#include <algorithm>
#include <cmath>

namespace GPS
{

namespace
{

constexpr double LEAST = 8.0; // [m] a nearer fix is never an outlier
constexpr double TURN = 2.0;  // [s] what a change of velocity, and so its lag, adds to that [m for each m/s]
constexpr double SIGMAS_SQUARE = 18.0; // of the score of an axis: 3 sigma, of two axes
constexpr double FAR = 200.0;          // [m] not believed in doubt either
constexpr double COAST_MOST = 10.0;    // [s] without a believed fix; an outlier is over by then
constexpr double GROWTH = 4.0; // of the square: a surprise twice the first one is the velocity's fault
constexpr int FROZEN = 2;      // equal positions in a row, after which a jump is only the way caught up

/// Result: [m2]
double Limit(const COutlierGate::Surprise& surprise) noexcept
{
    const double gate = LEAST + TURN * std::sqrt(Square(surprise.change));
    return std::max(gate * gate, SIGMAS_SQUARE * surprise.bestScore);
}

} // namespace

COutlierGate::VERDICT COutlierGate::Step(const Surprise& surprise, double seconds) noexcept
{
    const bool thawed = frozen >= FROZEN;
    frozen = surprise.moved ? 0 : std::min(frozen + 1, FROZEN);
    doubt -= seconds;
    if (surprise.square <= Limit(surprise)) {
        coasting = 0.0;
        return VERDICT_BELIEVE;
    }
    if (coasting == 0.0) {
        first = surprise.square;
    }
    coasting += seconds;
    const bool nearInDoubt = InDoubt() && surprise.square < FAR * FAR;
    const bool goOver = coasting > COAST_MOST || surprise.square > GROWTH * first || thawed || nearInDoubt;
    return goOver ? VERDICT_GO_OVER : VERDICT_COAST;
}

} // namespace GPS
