// What a record begins with, and the narrowing copy.
#include <array>
#include <cstring>
#include <new>

#include <gtest/gtest.h>

#include "GpsLib/records/GPSRecords.h"
#include "tests/support/Sentence.h"

namespace
{

using support::BytesOf;
using Bytes = std::array<unsigned char, sizeof(_GPS_Data)>;

TEST(Records, DefaultIsZeroButForEmptySlotsAndNoPosition)
{
    alignas(_GPS_Data) Bytes place;
    place.fill(0xA5);
    const _GPS_Data* const record = new (place.data()) _GPS_Data;
    Bytes expected{};
    std::memset(&expected[20], 255, 64); // prn
    const double noPosition[] = {180.0, 90.0};
    std::memcpy(&expected[408], noPosition, sizeof noPosition);
    EXPECT_EQ(BytesOf(*record), expected);
}

TEST(Records, NarrowCopyHasEveryFieldButTheSatellites)
{
    Bytes source;
    for (std::size_t i = 0; i < source.size(); ++i) {
        source[i] = static_cast<unsigned char>(i * 7 + 1);
    }
    _GPS_Data record;
    std::memcpy(static_cast<void*>(&record), source.data(), sizeof record);
    std::array<unsigned char, sizeof(_GPS_Data_Without_Sate)> narrow;
    narrow.fill(0);
    auto* const target = new (narrow.data()) _GPS_Data_Without_Sate();
    CopyToWithoutSate(record, *target);
    // Fields up to satUsed stand at the same places; those from lonLat on moved up by the satellite block.
    EXPECT_EQ(std::memcmp(narrow.data(), source.data(), 14), 0);
    EXPECT_EQ(std::memcmp(&narrow[16], &source[16], 4), 0);
    EXPECT_EQ(std::memcmp(&narrow[24], &source[408], 67), 0);
}

} // namespace
