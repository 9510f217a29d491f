// Score.h: how far from the truth a row of epochs is.
#pragma once

#include <cstddef>
#include <vector>

#include "bench/study/Models.h"
#include "bench/study/Receiver.h"

namespace study
{

/// What a score comes to.
struct Figures {
    double rms;     ///< [m] position, root mean square,
    double most95;  ///< [m] not exceeded in 95 % of the epochs,
    double largest; ///< [m]
    double jitter;  ///< [m] root mean square change of the error from epoch to epoch
    double speed;   ///< [km/h] root mean square
    double heading; ///< [deg] root mean square, of who moves
    double behind;  ///< [m] mean lag along the way
};

class Score
{
public:
    /// Errors of an epoch, if it is valid; one that isn't breaks the row.
    void Add(const Moment& truth, const _GPS_Data& told);
    /// The next epoch doesn't follow the last one.
    void Break() noexcept { hasLast = false; }
    /// Takes in another score.
    void Add(const Score& other);

    Figures Result() const;

private:
    double squares = 0.0;          // [m2]
    std::vector<double> distances; // [m]
    double speedSquares = 0.0;
    double headingSquares = 0.0;
    std::size_t headings = 0;
    double jitterSquares = 0.0;
    std::size_t jitters = 0;
    double late = 0.0; // [m2/s] error backwards, times speed
    double way = 0.0;  // [m/s] speeds
    Metres last{};
    bool hasLast = false;
};

/// A drive through all models, from when they have settled on.
OfModels<Score> Ride(const Track& track, const Traits& traits, Dice& dice);

} // namespace study
