// What the live road takes from the heap.
#include "tests/alloc/CountedHeap.h"
#include "tests/live/LiveReceiver.h"

namespace
{

using live::Epoch;

class LivePathHeap : public live::LiveReceiver
{
protected:
    void Send(unsigned first, unsigned last)
    {
        for (unsigned k = first; k <= last; ++k) {
            line.Write(epoch);
            ASSERT_TRUE(AwaitEpochs(k));
            _GPS_Data fix;
            ASSERT_TRUE(device.GetGPSData(fix));
        }
    }

    const std::string epoch = Epoch(1); // made beforehand: the test itself must not allocate in between
};

TEST_F(LivePathHeap, EpochsTakeNothingAfterTheFirst)
{
    ASSERT_TRUE(device.OpenGPS());
    Send(1, 1);
    const std::uint64_t before = heap::Allocations();
    Send(2, 12);
    EXPECT_EQ(heap::Allocations(), before);
}

TEST_F(LivePathHeap, OpeningAndClosingGivesEverythingBack)
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

TEST_F(LivePathHeap, OpeningOutlivesEachFailingAllocation)
{
    bool failed = true;
    std::uint64_t nth = 1;
    for (; failed; ++nth) {
        heap::FailAt(nth);
        const bool opened = device.OpenGPS();
        failed = heap::HasFailed();
        heap::FailAt(0);
        EXPECT_TRUE(opened || failed);
        device.CloseGPS();
        ASSERT_TRUE(device.OpenGPS()) << "after the failure of allocation " << nth;
        device.CloseGPS();
    }
    EXPECT_GT(nth, 6U) << "port, its platform part, listener, its parser, reader, its lock";
}

TEST(DeviceHeapFailure, DeviceWithoutMemoryAnswersNo)
{
    bool failed = true;
    for (std::uint64_t nth = 1; failed; ++nth) {
        heap::FailAt(nth);
        GPS::CGPSCOMDevice receiver;
        GPS::CGPSLogDevice log;
        failed = heap::HasFailed();
        heap::FailAt(0);
        _GPS_Data fix;
        EXPECT_FALSE(receiver.GetGPSData(fix));
        EXPECT_FALSE(log.GetGPSData(fix));
        receiver.OpenFilter();
        receiver.CloseGPS();
        EXPECT_EQ(receiver.GetVehicleCurrMoveState(), MOVESTATE_UNKNOWN);
        EXPECT_EQ(receiver.GetVehicleCurrHeadingState(), HEADINGSTATE_UNKNOWN);
    }
}

} // namespace
