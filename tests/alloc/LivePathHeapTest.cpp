// What the live road takes from the heap.
#include "tests/alloc/CountedHeap.h"
#include "tests/live/LiveReceiver.h"

namespace
{

using live::Epoch;

/// The port as it is by itself, and with what can be asked of it.
class LivePathHeap : public live::LiveReceiver, public testing::WithParamInterface<bool>
{
protected:
    LivePathHeap()
    {
        if (GetParam()) {
            platform::PortOptions options;
            options.adapt = true;
            options.prompt = true;
            platform::AssignPort(PORT, line.Path(), options);
        }
    }

    void Send(unsigned first, unsigned last)
    {
        for (unsigned k = first; k <= last; ++k) {
            line.Write(drive[k % 2]);
            ASSERT_TRUE(AwaitEpochs(k));
            ASSERT_TRUE(device.GetGPSData(fix));
        }
    }

    // Made beforehand: the test itself must not allocate in between.
    const std::string drive[2] = {Epoch(2), Epoch(1)};
    _GPS_Data fix;
};

INSTANTIATE_TEST_SUITE_P(Options, LivePathHeap, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& options) {
                             return options.param ? "On" : "Off";
                         });

TEST_P(LivePathHeap, EpochsTakeNothingAfterTheFirst)
{
    ASSERT_TRUE(device.OpenGPS());
    Send(1, 1);
    const std::uint64_t before = heap::Allocations();
    Send(2, 12);
    device.SetFilterModel(FILTERMODEL_VELOCITY);
    device.OpenFilter();
    Send(13, 14);
    EXPECT_FALSE(live::IsWhole(fix)) << "smoothed";
    EXPECT_EQ(heap::Allocations(), before);
}

TEST_P(LivePathHeap, OpeningAndClosingGivesEverythingBack)
{
    ASSERT_TRUE(device.OpenGPS());
    device.CloseGPS(); // what is made once and kept is there from now on
    const std::int64_t before = heap::Living();
    for (int cycle = 0; cycle < 20; ++cycle) {
        ASSERT_TRUE(device.OpenGPS());
        device.CloseGPS();
    }
    for (int tries = 0; tries < 3000 && heap::Living() > before; ++tries) {
        KestThread::Thread::sleep(10); // the last reader's thread is on its way out
    }
    EXPECT_LE(heap::Living(), before) << "the first reader's thread may have been on its way out before";
}

TEST_P(LivePathHeap, OpeningOutlivesEachFailingAllocation)
{
    std::uint64_t n = 1;
    bool opened = false;
    for (; heap::Failing(n, [&] { opened = device.OpenGPS(); }); ++n) {
        EXPECT_FALSE(opened) << "without allocation " << n;
        device.CloseGPS();
        ASSERT_TRUE(device.OpenGPS()) << "after the failure of allocation " << n;
        device.CloseGPS();
    }
    EXPECT_TRUE(opened);
    EXPECT_GT(n, 6U) << "port, its platform part, listener, its parser, reader, its lock";
}

} // namespace
