// What replay, smoothing and the simulated drive take from the heap.
#include <memory>
#include <vector>

#include "GpsLib/filter/CGPSFilter.h"
#include "GpsLib/log/CGPSLogDevice.h"
#include "GpsLib/simu/CGPSSimuDevice.h"
#include "layers/route/CGuidePath.h"
#include "tests/alloc/CountedHeap.h"
#include "tests/live/LiveReceiver.h"
#include "tests/support/TemporaryFolder.h"

namespace
{

TEST(DeviceHeap, StepsOfADriveTakeNothing)
{
    route::CGuidePath path(std::vector<tagLonLat>{{11.0, 48.0}, {11.1, 48.0}, {11.1, 48.1}});
    GPS::CGPSSimuDevice device;
    ASSERT_TRUE(device.SetSimuParam(&path, 1.0, 100.0) && device.BeginSimu());
    const std::uint64_t before = heap::Allocations();
    _GPS_Data fix;
    while (device.GetGPSData(fix)) {
    }
    EXPECT_EQ(fix.valid, 1) << "arrived";
    EXPECT_EQ(heap::Allocations(), before);
}

TEST(DeviceHeap, ReplayTakesNothingForARecord)
{
    const support::TemporaryFolder folder;
    std::string path = folder.File("log", live::Epoch(1) + live::Epoch(2) + live::Epoch(3));
    GPS::CGPSLogDevice device;
    ASSERT_TRUE(device.OpenLogFileForRead(path.data()));
    const std::uint64_t before = heap::Allocations();
    int records = 0;
    for (_GPS_Data fix; device.GetGPSData(fix);) {
        ++records;
    }
    EXPECT_EQ(records, 3);
    EXPECT_EQ(heap::Allocations(), before);
}

TEST(DeviceHeap, SmoothingKeepsNothingOverAMillionSteps)
{
    const std::unique_ptr<GPS::CGPSFilter> filter(GPS::CGPSFilter::Make());
    ASSERT_NE(filter, nullptr);
    const auto step = [&filter](int second) {
        _GPS_Filter_Data fix{
            {11.0 + second % 1000 * 1e-4, 48.0}, 40.0, 90.0, 1.3e-5, 9e-6, second % 1000 != 0};
        filter->Filter(fix);
    };
    step(1);
    step(2);
    const std::int64_t before = heap::Living();
    for (int second = 3; second < 1000000; ++second) {
        step(second);
    }
    EXPECT_EQ(heap::Living(), before);
}

} // namespace
