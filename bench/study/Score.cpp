#include "bench/study/Score.h"

#include <algorithm>
#include <cmath>

namespace study
{

namespace
{

constexpr double SETTLED = 30.0; // [s]
constexpr double MOVES = 0.3;    // [m/s] from where on there is a heading to be wrong

double Root(double squares, std::size_t count) noexcept
{
    return count == 0 ? 0.0 : std::sqrt(squares / static_cast<double>(count));
}

} // namespace

void Score::Add(const Moment& truth, const _GPS_Data& told)
{
    const Metres error = Way(truth.at, told.lonLat);
    squares += Square(error);
    distances.push_back(Length(error));
    const Metres velocity{truth.east, truth.north};
    const double speed = Length(velocity);
    speedSquares += std::pow(told.speed - speed / KMH, 2.0);
    if (speed > MOVES) {
        headingSquares += std::pow(Apart(told.heading, HeadingOf(velocity)), 2.0);
        ++headings;
    }
    late -= error.east * velocity.east + error.north * velocity.north;
    way += speed;
    if (hasLast) {
        jitterSquares += Square(error - last);
        ++jitters;
    }
    last = error;
    hasLast = true;
}

void Score::Add(const Score& other)
{
    squares += other.squares;
    distances.insert(distances.end(), other.distances.begin(), other.distances.end());
    speedSquares += other.speedSquares;
    headingSquares += other.headingSquares;
    headings += other.headings;
    jitterSquares += other.jitterSquares;
    jitters += other.jitters;
    late += other.late;
    way += other.way;
    Break();
}

Figures Score::Result() const
{
    std::vector<double> sorted = distances;
    std::sort(sorted.begin(), sorted.end());
    const std::size_t count = sorted.size();
    if (count == 0) {
        return {};
    }
    return {Root(squares, count),         sorted[count * 95 / 100],  sorted.back(),
            Root(jitterSquares, jitters), Root(speedSquares, count), Root(headingSquares, headings),
            way > 0.0 ? late / way : 0.0};
}

OfModels<Score> Ride(const Track& track, const Traits& traits, Dice& dice)
{
    OfModels<Score> scores;
    Smoothers smoothers;
    Receiver receiver(track, traits, dice);
    for (std::optional<Epoch> epoch = receiver.Next(); epoch; epoch = receiver.Next()) {
        const OfModels<_GPS_Data> told = smoothers.Step(epoch->fix);
        for (std::size_t model = 0; model < MODELS; ++model) {
            if (epoch->time >= SETTLED && epoch->fix.valid != 0) {
                scores[model].Add(epoch->truth, told[model]);
            } else {
                scores[model].Break();
            }
        }
    }
    return scores;
}

} // namespace study
