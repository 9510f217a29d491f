// A velocity that is wrong for a while: what it does meanwhile, and how long it is felt.
#include <cmath>

#include "GpsLib/filter/velocity/CVelocityFilter.h"
#include "bench/study/Drives.h"
#include "bench/study/Receiver.h"
#include "bench/study/Report.h"
#include "bench/study/Sections.h"

namespace study
{

namespace
{

constexpr int RUNS = 20;                       // of each drive
constexpr std::size_t LEAD = 100;              // [s] before the fault
constexpr std::size_t WINDOW = 20;             // [s] that errors are taken together over
constexpr double HALF = 0.25;                  // of the square of an error
constexpr double USUAL = 1.25 * 1.25;          // likewise
constexpr std::size_t LENGTHS[] = {5, 30, 60}; // [s] that the fault lasts

struct Fault {
    const char* name;
    void (*spoil)(_GPS_Data& fix, const _GPS_Data& before);
};

constexpr Fault FAULTS[] = {
    {"the heading is lost, the speed isn't",
     [](_GPS_Data& fix, const _GPS_Data& /*before*/) { fix.heading = 0.0; }},
    {"speed and heading are stuck",
     [](_GPS_Data& fix, const _GPS_Data& before) {
         fix.speed = before.speed;
         fix.heading = before.heading;
     }},
    {"the position is stuck", [](_GPS_Data& fix, const _GPS_Data& before) { fix.lonLat = before.lonLat; }},
};

/// Sums of squared errors at a second, over all drives. [m2]
struct Errors {
    double raw = 0.0;
    double smoothed = 0.0;
    double spared = 0.0; // of the same fixes without the fault
};

Errors operator+(const Errors& a, const Errors& b) noexcept
{
    return {a.raw + b.raw, a.smoothed + b.smoothed, a.spared + b.spared};
}

double SquareError(GPS::CVelocityFilter& filter, const Epoch& epoch, _GPS_Data fix)
{
    filter.Filter(fix);
    return Square(Way(epoch.truth.at, fix.lonLat));
}

void Add(const std::vector<Epoch>& epochs, const Fault& fault, std::size_t length, std::vector<Errors>& sums)
{
    GPS::CVelocityFilter filter;
    GPS::CVelocityFilter sparedFilter;
    sums.resize(epochs.size());
    for (std::size_t second = 0; second < epochs.size(); ++second) {
        const Epoch& epoch = epochs[second];
        _GPS_Data fix = epoch.fix;
        if (second >= LEAD && second < LEAD + length) {
            fault.spoil(fix, epochs[LEAD - 1].fix);
        }
        const double raw = Square(Way(epoch.truth.at, fix.lonLat));
        const double smoothed = SquareError(filter, epoch, fix);
        sums[second] = sums[second] + Errors{raw, smoothed, SquareError(sparedFilter, epoch, epoch.fix)};
    }
}

Errors SumOf(const std::vector<Errors>& sums, std::size_t from, std::size_t count)
{
    Errors sum;
    for (std::size_t second = from; second < from + count; ++second) {
        sum = sum + sums[second];
    }
    return sum;
}

/// Result: [s] from the end of the fault until the errors are right and stay so.
template <class RIGHT>
std::string RightAfter(const std::vector<Errors>& sums, std::size_t end, const RIGHT& right)
{
    const std::size_t last = sums.size() - WINDOW;
    std::size_t from = last;
    while (from > end && right(SumOf(sums, from - 1, WINDOW))) {
        --from;
    }
    return from == last ? "above " + std::to_string(last - end) : std::to_string(from - end);
}

std::vector<std::string> RowOf(const Fault& fault, std::size_t length)
{
    std::vector<Errors> sums;
    for (const Drive& drive : Drives()) {
        for (int run = 0; run < RUNS; ++run) {
            Dice dice("wrong/" + std::string(drive.name) + "/" + std::to_string(run));
            Add(Received(TrackOf(drive), {}, dice), fault, length, sums);
        }
    }
    const double count = static_cast<double>(length * Drives().size()) * RUNS;
    const Errors during = SumOf(sums, LEAD, length);
    const std::size_t end = LEAD + length;
    return {fault.name,
            std::to_string(length),
            Number(std::sqrt(during.raw / count), 1),
            Number(std::sqrt(during.smoothed / count), 1),
            RightAfter(sums, end, [](const Errors& e) { return e.smoothed < e.raw; }),
            RightAfter(sums, end, [](const Errors& e) { return e.smoothed < HALF * e.raw; }),
            RightAfter(sums, end, [](const Errors& e) { return e.smoothed < USUAL * e.spared; })};
}

} // namespace

void StudyWrongVelocities(Report& report)
{
    Table table({"fault", "for [s]", "meanwhile raw [m]", "velocity [m]", "below raw after [s]",
                 "below half of it after [s]", "usual after [s]"});
    for (const Fault& fault : FAULTS) {
        for (const std::size_t length : LENGTHS) {
            table.Row(RowOf(fault, length));
        }
    }
    report.Put("wrong velocities", table);
}

} // namespace study
