// What replay, smoothing and the simulated drive take from the heap.
#include <memory>

#include "GpsLib/filter/CGPSFilter.h"
#include "layers/route/CGuidePath.h"
#include "tests/alloc/CountedHeap.h"
#include "tests/live/LiveReceiver.h"
#include "tests/support/TemporaryFolder.h"

namespace
{

TEST(DeviceHeap, RecordsOfADriveOrAReplayTakeNothing)
{
    route::CGuidePath path({{11.0, 48.0}, {11.1, 48.0}, {11.1, 48.1}});
    GPS::CGPSSimuDevice drive;
    ASSERT_TRUE(drive.SetSimuParam(&path, 1.0, 100.0) && drive.BeginSimu());
    const support::TemporaryFolder folder;
    std::string log = folder.File("log", live::Epoch(1) + live::Epoch(2) + live::Epoch(3));
    GPS::CGPSLogDevice replay;
    ASSERT_TRUE(replay.OpenLogFileForRead(log.data()));
    const std::uint64_t before = heap::Allocations();
    _GPS_Data fix;
    while (drive.GetGPSData(fix)) {
    }
    EXPECT_EQ(fix.valid, 1) << "arrived";
    int records = 0;
    while (replay.GetGPSData(fix)) {
        ++records;
    }
    EXPECT_EQ(records, 3);
    EXPECT_EQ(heap::Allocations(), before);
}

TEST(DeviceHeap, SmoothingKeepsNothingOverAMillionSteps)
{
    const std::unique_ptr<GPS::CGPSFilter> filter(GPS::CGPSFilter::Make());
    ASSERT_NE(filter, nullptr);
    std::int64_t before = 0;
    for (int second = 1; second < 1000000; ++second) {
        _GPS_Filter_Data fix{
            {11.0 + second % 1000 * 1e-4, 48.0}, 40.0, 90.0, 1.3e-5, 9e-6, second % 1000 != 0};
        filter->Filter(fix);
        before = second == 2 ? heap::Living() : before; // all matrices have their shapes
    }
    EXPECT_EQ(heap::Living(), before);
}

} // namespace
