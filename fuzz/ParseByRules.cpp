#include "fuzz/ParseByRules.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

#include "fuzz/Require.h"

namespace
{

constexpr GPS::CNMEAParser PARSER{};
constexpr std::uint32_t ALL_MASK_BITS = 0x7FF;

/// Result: the text of a field, counted from 1; null when it is empty or the sentence has fewer.
const char* Field(const char* sentence, int number)
{
    for (; number > 0 && sentence != nullptr; --number) {
        sentence = std::strchr(sentence, ',');
        sentence = sentence == nullptr ? nullptr : sentence + 1;
    }
    return sentence == nullptr || *sentence == ',' ? nullptr : sentence;
}

bool IsType(const char* sentence, const char* type)
{
    return std::strncmp(sentence, "$GP", 3) == 0 && std::strncmp(sentence + 3, type, 3) == 0;
}

/// Result: the int nearest to the number in a field; 0 for no field.
int Int(const char* field)
{
    using Limits = std::numeric_limits<int>;
    const long long value = field == nullptr ? 0 : std::strtoll(field, nullptr, 10);
    return static_cast<int>(std::clamp<long long>(value, Limits::min(), Limits::max()));
}

/// The last message of a group, or one that doesn't say which it is.
bool EndsGroup(const char* sentence)
{
    const char* const number = Field(sentence, 2);
    return number == nullptr || Int(number) == Int(Field(sentence, 1));
}

/// What GSV alone writes.
_GPS_Satellite InView(_GPS_Satellite satellite)
{
    std::memset(satellite.used, 0, sizeof satellite.used);
    return satellite;
}

void RequireSatelliteRange(const _GPS_Satellite& satellite, bool mayBeCleared)
{
    for (std::size_t i = 0; i < GPS_SATELLITE_SLOTS; ++i) {
        const std::uint8_t prn = satellite.prn[i];
        Require(prn == i + 1 || prn == GPS_SATELLITE_EMPTY || (mayBeCleared && prn == 0),
                "a slot holds its own satellite or none");
        Require(satellite.used[i] <= 1, "a used flag is 0 or 1");
    }
    Require(satellite.viewCount <= GPS_SATELLITE_SLOTS, "no more satellites in view than slots");
}

void RequireRange(const _GPS_Data& record)
{
    RequireSatelliteRange(record.satellite, true);
    for (const double value : {record.lonLat.lon, record.lonLat.lat, record.speed, record.altitude,
                               record.heading, record.pdop, record.hdop, record.vdop}) {
        Require(!std::isnan(value), "no text gives NaN");
    }
    Require((record.mask & ~ALL_MASK_BITS) == 0 && record.valid <= 1, "known bits, valid 0 or 1");
    for (const std::uint8_t reserved : {record.time.reserved[0], record.time.reserved[1],
                                        record.time.reserved[2], record.reserved[0], record.reserved[1]}) {
        Require(reserved == 0, "nothing writes the reserved bytes");
    }
}

void RequireWholeGroups(const char* sentence, bool taken, const Feed& before, const Feed& after)
{
    const bool isGsv = IsType(sentence, "GSV");
    if (!isGsv) {
        Require(BytesOf(before.group) == BytesOf(after.group), "GSV alone touches the group");
    }
    if (!isGsv || !taken || !EndsGroup(sentence)) {
        Require(BytesOf(InView(before.record.satellite)) == BytesOf(InView(after.record.satellite)),
                "satellites in view change with the end of a group alone");
        return;
    }
    _GPS_Satellite cleared;
    GPS::CNMEAParser::ResetAccumulator(cleared);
    Require(BytesOf(after.group) == BytesOf(cleared), "a published group is gone");
    Require((after.record.mask & GPS_MASK_SATELLITE) != 0, "a published group shows in the mask");
}

} // namespace

void ParseByRules(const std::string& text, std::int32_t length, Feed& feed)
{
    const std::size_t size = std::strlen(text.c_str()) + 1;
    const std::unique_ptr<char[]> sentence(new char[size]);
    std::memcpy(sentence.get(), text.c_str(), size);

    const Feed before = feed;
    Feed dispatched = feed;
    const bool accepted = PARSER.Parse(sentence.get(), length, 0, feed.record, feed.group);
    const bool taken = accepted && PARSER.Dispatch(sentence.get(), dispatched.record, dispatched.group);

    Require(BytesOf(feed) == BytesOf(dispatched), "the gate does what the dispatch does, or nothing");
    Require(taken || BytesOf(feed.record) == BytesOf(before.record), "a refused sentence changes no byte");
    RequireWholeGroups(sentence.get(), taken, before, feed);
    RequireSatelliteRange(feed.group, false);
    RequireRange(feed.record);
}
