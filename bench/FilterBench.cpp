// One smoothing step: time, and heap blocks as a counter.
#include <memory>

#include <benchmark/benchmark.h>

#include "GpsLib/filter/CGPSFilter.h"
#include "bench/Allocations.h"

namespace
{

void SmoothingStep(benchmark::State& state)
{
    const std::unique_ptr<GPS::CGPSFilter> filter(GPS::CGPSFilter::Make());
    const _GPS_Filter_Data fix{{121.0, 31.0}, 36.0, 90.0, 1e-5, 9e-6, true};
    _GPS_Filter_Data seed = fix;
    filter->Filter(seed);
    const std::size_t blocksBefore = Allocations();
    int steps = 0;
    for ([[maybe_unused]] auto step : state) {
        ++steps;
        _GPS_Filter_Data data = fix;
        data.lonLat.lon += steps % 100 * 1e-4;
        data.heading += steps % 3;
        filter->Filter(data);
        benchmark::DoNotOptimize(data);
    }
    state.counters["blocks"] =
        static_cast<double>(Allocations() - blocksBefore) / static_cast<double>(state.iterations());
}

BENCHMARK(SmoothingStep);

} // namespace
