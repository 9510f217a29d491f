// The places of virtual operations in their tables, which a program built against older headers goes by.
#include <cstdint>
#include <cstring>

#include <gtest/gtest.h>

#include "GpsLib/Kest_GPS.h"
#include "GpsLib/comm/CommPort.h"
#include "GpsLib/contracts/KestRoute.h"

namespace
{

constexpr int NOT_VIRTUAL = -1;

/// Result: the slot of a virtual operation, by what the Itanium C++ ABI and its variant for ARM make of a
/// pointer to it: its offset in the table, and a mark in the offset's lowest bit or, on ARM, in the second
/// word's. The language itself can't say it in a constant expression. A destructor takes slots 0 and 1.
template <class OPERATION>
int SlotOf(OPERATION operation)
{
    std::intptr_t words[2];
    static_assert(sizeof words == sizeof operation);
    std::memcpy(words, &operation, sizeof words);
#ifdef __arm__
    const std::intptr_t mark = words[1] & 1;
    const std::intptr_t offset = words[0];
#else
    const std::intptr_t mark = words[0] & 1;
    const std::intptr_t offset = words[0] - 1;
#endif
    return mark == 0 ? NOT_VIRTUAL : static_cast<int>(offset / static_cast<std::intptr_t>(sizeof(void*)));
}

template <class DEVICE>
void ExpectDeviceSlots()
{
    EXPECT_EQ(SlotOf(&DEVICE::GetGPSData), 2);
    EXPECT_EQ(SlotOf(&DEVICE::GetGPSDataWithoutSate), 3);
    EXPECT_EQ(SlotOf(&DEVICE::GetWholeSate), 4);
}

TEST(VirtualSlots, AreWhereProgramsLookForThem)
{
    ExpectDeviceSlots<GPS::CGPSDeviceEx>();
    ExpectDeviceSlots<GPS::CGPSCOMDevice>();
    ExpectDeviceSlots<GPS::CGPSLogDevice>();
    ExpectDeviceSlots<GPS::CGPSSimuDevice>();
    EXPECT_EQ(SlotOf(&GPS::CGPSCOMDevice::IsGPSValid), 5);
    EXPECT_EQ(SlotOf(&GPS::CGPSCOMDevice::GetLastValidData), 6);
    EXPECT_EQ(SlotOf(&GPS::CGPSCOMDevice::OpenGPS), NOT_VIRTUAL);
    EXPECT_EQ(SlotOf(&CommListener::onData), 0);
    EXPECT_EQ(SlotOf(&CommPort::Open), 2);
    EXPECT_EQ(SlotOf(&CommPort::Close), 3);
    EXPECT_EQ(SlotOf(&CommPort::Read), 4);
    EXPECT_EQ(SlotOf(&CommPort::Write), 5);
    using Listeners = KestThread::Observable<CommListener, KestThread::Mutex>;
    EXPECT_EQ(SlotOf(&Listeners::subscribe), 2);
    EXPECT_EQ(SlotOf(&Listeners::unsubscribe), 3);
    EXPECT_EQ(SlotOf(&CPath::StartGuid), 2);
    EXPECT_EQ(SlotOf(&CPath::NextGuid), 3);
    EXPECT_EQ(SlotOf(&CPath::GetNextGuid), 4);
}

} // namespace
