#include "tools/output/EpochLine.h"

#include <gtest/gtest.h>

namespace
{

TEST(EpochLine, WithoutAFixShowsNoPosition)
{
    _GPS_Data lost;
    lost.time = {23, 5, 9, {}};
    EXPECT_EQ(kestgps::EpochLine(lost), "23:05:09  no fix");
    lost.valid = 1;
    lost.lonLat = {-179.12345678, -0.00000001}; // rounds to a zero without a sign
    EXPECT_NE(kestgps::EpochLine(lost).find("   0.0000000 -179.1234568"), std::string::npos);
}

} // namespace
