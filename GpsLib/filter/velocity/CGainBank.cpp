#include "GpsLib/filter/velocity/CGainBank.h"

#include <algorithm>

namespace GPS
{

namespace
{

// Share of a surprise that a point takes over: fixes of 1, 2, 6 and 25. Three points do markedly less.
constexpr double GAINS[] = {1.0, 0.55, 0.17, 0.04};
constexpr double GROWTH =
    0.5; // fixes that a moving average gets longer by with each: its start has less weight
constexpr double SHRINKING = 0.5; // the average of a standstill gets shorter by halves when the vehicle goes
constexpr double STOOD_MOST = 300.0; // fixes averaged at most at rest: a drift of the receiver's is followed
constexpr double MEMORY = 64.0;      // fixes that the scores look back
constexpr double SCORE_START = 25.0; // [m2] an axis: a common receiver's
constexpr double SCORE_LEAST = 0.01; // [m2] an axis: positions aren't told finer
constexpr int DOUBLINGS = 6;         // weights are (lowest score / score) to the power of 2 to this

} // namespace

CGainBank::CGainBank() noexcept
{
    for (Point& point : points) {
        point.score = SCORE_START;
    }
    Begin();
}

void CGainBank::Begin() noexcept
{
    for (Point& point : points) {
        point.fixes = 1.0;
        point.offset = EastNorth();
    }
    offset = EastNorth();
}

void CGainBank::Step(EastNorth farther, bool believed, bool stands) noexcept
{
    if (believed && !stands) {
        scored = std::min(scored + 1.0, MEMORY);
    }
    for (std::size_t i = 0; i < POINTS; ++i) {
        Point& point = points[i];
        point.offset = point.offset - farther;
        if (!believed) {
            continue;
        }
        if (stands) {
            point.fixes = std::min(point.fixes + 1.0, STOOD_MOST);
        } else {
            const double most = 1.0 / GAINS[i];
            point.fixes = point.fixes <= most ? std::min(point.fixes + GROWTH, most)
                                              : std::max(SHRINKING * point.fixes, most);
            Score(point);
        }
        point.offset = point.offset - point.offset / point.fixes;
    }
    Mix();
}

void CGainBank::Score(Point& point) const noexcept
{
    const double surprise = 0.5 * Square(point.offset); // of the two axes
    point.score = std::max(point.score + (surprise - point.score) / (scored + 1.0), SCORE_LEAST);
}

double CGainBank::BestScore() const noexcept
{
    double best = points[0].score;
    for (const Point& point : points) {
        best = std::min(best, point.score);
    }
    return best;
}

void CGainBank::Mix() noexcept
{
    const double best = BestScore();
    double total = 0.0;
    EastNorth sum;
    for (const Point& point : points) {
        double weight = best / point.score;
        for (int i = 0; i < DOUBLINGS; ++i) {
            weight *= weight;
        }
        total += weight;
        sum = sum + weight * point.offset;
    }
    offset = sum / total;
}

} // namespace GPS
