// One smoothing step of each model: time, and heap blocks as a counter.
#include <memory>

#include <benchmark/benchmark.h>

#include "GpsLib/filter/CGPSFilter.h"
#include "GpsLib/filter/velocity/CVelocityFilter.h"
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

/// Fixes of an hour's drive north, a second apart, over and over. speed: [km/h]; one who creeps takes an arc
/// tangent more.
void VelocityStep(benchmark::State& state)
{
    GPS::CVelocityFilter filter;
    constexpr double DEGREES_A_KMH = 2.5e-6; // of latitude, in a second
    const auto speed = static_cast<double>(state.range(0));
    const std::size_t blocksBefore = Allocations();
    int steps = 0;
    for ([[maybe_unused]] auto step : state) {
        ++steps;
        _GPS_Data fix;
        fix.valid = 1;
        fix.time.second = static_cast<std::uint8_t>(steps % 60);
        fix.time.minute = static_cast<std::uint8_t>(steps / 60 % 60);
        fix.time.hour = static_cast<std::uint8_t>(steps / 3600 % 24);
        fix.lonLat = {121.0 + steps % 7 * 1e-5, 31.0 + steps % 3600 * speed * DEGREES_A_KMH};
        fix.speed = speed;
        fix.heading = 1.0 + steps % 3;
        filter.Filter(fix);
        benchmark::DoNotOptimize(fix);
    }
    state.counters["blocks"] =
        static_cast<double>(Allocations() - blocksBefore) / static_cast<double>(state.iterations());
}

BENCHMARK(VelocityStep)->Arg(50)->Arg(2);

} // namespace
