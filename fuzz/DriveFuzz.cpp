// A drive along a polyline that the route layer cuts into blocks.
#include <algorithm>
#include <cmath>
#include <vector>

#include "GpsLib/simu/CGPSSimuDevice.h"
#include "fuzz/CInput.h"
#include "fuzz/Require.h"
#include "layers/route/CGuidePath.h"

namespace
{

// A point between two others is worked out by a difference and a sum, each rounded to half a unit in the last
// place, of at most 360 and 180 degrees: 2.9e-14 and 1.5e-14.
constexpr double ROUNDING = 5e-14;               // [deg]
constexpr double METRES_PER_DEGREE_MAX = 1.12e5; // more than any degree has, in either direction
constexpr double STEPS_MAX = 500.0;              // for a drive; longer ones are driven in longer steps

struct Box {
    tagLonLat low;
    tagLonLat high;

    explicit Box(const tagLonLat& point) noexcept : low(point), high(point) {}

    void Include(const tagLonLat& point) noexcept
    {
        low = {std::min(low.lon, point.lon), std::min(low.lat, point.lat)};
        high = {std::max(high.lon, point.lon), std::max(high.lat, point.lat)};
    }

    bool Holds(const tagLonLat& point) const noexcept
    {
        return point.lon >= low.lon - ROUNDING && point.lon <= high.lon + ROUNDING &&
               point.lat >= low.lat - ROUNDING && point.lat <= high.lat + ROUNDING;
    }
};

struct Route {
    std::vector<tagLonLat> points;
    Box box;
    double lengthMax = 0.0; // [m] at least the route's, by whatever norm and wherever it is measured

    /// A start anywhere, then differences of points in a unit of 1e-7 to 1 degrees.
    explicit Route(CInput& input)
        : points{tagLonLat{input.Between(-180.0, 180.0), input.Between(-90.0, 90.0)}}, box(points[0])
    {
        const double unit = std::pow(10.0, -(input.Byte() % 8));
        while (!input.Empty()) {
            const tagLonLat& last = points.back();
            const double lon = std::clamp(last.lon + input.Small() * unit, -179.9, 179.9);
            const double lat = std::clamp(last.lat + input.Small() * unit, -89.9, 89.9);
            lengthMax += (std::fabs(lon - last.lon) + std::fabs(lat - last.lat)) * METRES_PER_DEGREE_MAX;
            points.push_back({lon, lat});
            box.Include(points.back());
        }
    }
};

} // namespace

// A step shortens what is left of a segment by its length over the whole segment's, so that a segment takes
// at most its length over that of a step, and one step more onto its end.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr double KMH_TO_MS = 1.0 / 3.6;
    CInput input(data, size);
    const double speed = 1.0 + input.Byte() * 2.0;
    const Route route(input);
    const double metresPerSecond = std::min(speed, 300.0) * KMH_TO_MS;
    const double timeStep = std::max(1.0, route.lengthMax / metresPerSecond / STEPS_MAX);
    const double stepsMax =
        route.lengthMax / (metresPerSecond * timeStep) + 2.0 * static_cast<double>(route.points.size());

    route::CGuidePath path(route.points);
    GPS::CGPSSimuDevice device;
    device.SetSimuParam(&path, timeStep, speed);
    Require(device.BeginSimu() == (route.points.size() > 1), "two points make a route");
    _GPS_Data record;
    int steps = 0;
    while (device.GetGPSData(record)) {
        Require(++steps <= stepsMax, "a drive ends");
        Require(route.box.Holds(record.lonLat), "a drive stays in the box around its route");
        Require(record.heading >= 0.0 && record.heading <= 360.0, "a heading is one");
    }
    Require(route.points.size() < 2 || BytesOf(record.lonLat) == BytesOf(route.points.back()),
            "a drive arrives at the last point");
    return 0;
}
