// One step of a simulated drive.
#include <cmath>
#include <vector>

#include <benchmark/benchmark.h>

#include "GpsLib/simu/CGPSSimuDevice.h"
#include "layers/route/CGuidePath.h"

namespace
{

/// A winding road of 100,000 points, about 10 m apart.
std::vector<tagLonLat> Road()
{
    std::vector<tagLonLat> points;
    tagLonLat at{5.0, 45.0};
    for (int i = 0; i < 100000; ++i) {
        const double heading = 0.8 + 0.6 * std::sin(i * 0.01);
        points.push_back(at);
        at.lon += 10.0 / 78000.0 * std::sin(heading);
        at.lat += 10.0 / 111200.0 * std::cos(heading);
    }
    return points;
}

void DriveStep(benchmark::State& state)
{
    route::CGuidePath path(Road());
    GPS::CGPSSimuDevice device;
    device.SetSimuParam(&path, 1.0, 60.0);
    device.BeginSimu();
    _GPS_Data fix;
    while (state.KeepRunning()) {
        if (!device.GetGPSData(fix)) {
            device.BeginSimu();
        }
        benchmark::DoNotOptimize(fix);
    }
}
BENCHMARK(DriveStep);

} // namespace
