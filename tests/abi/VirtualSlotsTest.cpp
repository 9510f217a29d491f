// The places of virtual operations in their tables, which a program built against older headers goes by: of
// classes that others derive from. Those of the exported classes stand in the baseline beside this file.
#include <cstdint>
#include <cstring>

#include <gtest/gtest.h>

#include "GpsLib/comm/CommListener.h"
#include "GpsLib/comm/CommPort.h"
#include "GpsLib/contracts/KestRoute.h"

namespace
{

/// Result: the slot of a virtual operation, by what the Itanium C++ ABI and its variant for ARM make of a
/// pointer to it: its offset in the table, with a mark in the lowest bit but on ARM. The language itself
/// can't say it in a constant expression. A destructor takes slots 0 and 1.
template <class OPERATION>
std::intptr_t SlotOf(OPERATION operation)
{
    std::intptr_t words[2];
    static_assert(sizeof words == sizeof operation);
    std::memcpy(words, &operation, sizeof words);
#ifdef __arm__
    const std::intptr_t offset = words[0];
#else
    const std::intptr_t offset = words[0] - 1;
#endif
    return offset / static_cast<std::intptr_t>(sizeof(void*));
}

TEST(VirtualSlots, AreWhereProgramsPutThem)
{
    EXPECT_EQ(SlotOf(&CommListener::onData), 0);
    EXPECT_EQ(SlotOf(&CommPort::Open), 2);
    EXPECT_EQ(SlotOf(&CommPort::Close), 3);
    EXPECT_EQ(SlotOf(&CommPort::Read), 4);
    EXPECT_EQ(SlotOf(&CommPort::Write), 5);
    EXPECT_EQ(SlotOf(&CPath::StartGuid), 2);
    EXPECT_EQ(SlotOf(&CPath::NextGuid), 3);
    EXPECT_EQ(SlotOf(&CPath::GetNextGuid), 4);
}

} // namespace
