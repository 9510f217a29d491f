// The satellite sentences: GSA (in use, dilutions) and GSV (in view). Both add their bits to the mask.
#include "GpsLib/nmea/CNMEAParser.h"

#include <cstring>

#include "GpsLib/nmea/CFieldCursor.h"
#include "GpsLib/nmea/FieldConversions.h"

namespace
{

constexpr bool IsSatelliteNumber(int number) noexcept
{
    return number >= 1 && number <= static_cast<int>(GPS_SATELLITE_SLOTS);
}

constexpr _GPS_Satellite EmptyAccumulator() noexcept
{
    _GPS_Satellite empty{};
    for (std::uint8_t& prn : empty.prn) {
        prn = GPS_SATELLITE_EMPTY;
    }
    return empty;
}

// ---- GSA

/// Stands on field 2, the fix mode.
/// Result: false when the sentence ends first or the field is empty.
bool FindFixMode(CFieldCursor& field) noexcept
{
    while (field.Next()) {
        if (field.Number() == 2) {
            return !field.Empty();
        }
    }
    return false;
}

/// Reads the dilutions backwards from the sentence's end, VDOP first, and leaves those it doesn't reach.
/// Result: the comma before PDOP, or null when field 2 came first.
const char* TakeDilutions(const char* fixMode, _GPS_Data& record) noexcept
{
    double* const dilutions[] = {&record.vdop, &record.hdop, &record.pdop};
    std::size_t found = 0;
    for (const char* at = fixMode + std::strlen(fixMode); at != fixMode; --at) {
        if (*at != ',') {
            continue;
        }
        *dilutions[found] = ToDouble(at + 1);
        if (++found == 3) {
            return at;
        }
    }
    return nullptr;
}

/// Flags the satellites listed between field 2 and the dilutions; numbers that no slot has are passed over.
void TakeUsed(CFieldCursor field, const char* end, _GPS_Satellite& satellite) noexcept
{
    while (field.Next() &&
           field.Text() <= end) { // the text behind a comma before `end` starts at `end` at the latest
        const int number = field.TakeInt();
        if (IsSatelliteNumber(number)) {
            satellite.used[number - 1] = 1;
        }
    }
}

// ---- GSV

constexpr std::size_t FIRST_ENTRY_FIELD = 4;
constexpr std::size_t LAST_ENTRY_FIELD = 19;

/// Reads one message of a group into the accumulator.
class GroupMessage
{
public:
    explicit GroupMessage(_GPS_Satellite& group) noexcept : group(group) {}

    /// Result: false for a message that can't be; the accumulator is then cleared, but for a bad message
    /// number.
    bool Take(CFieldCursor& field) noexcept
    {
        const int value = field.TakeInt();
        const std::size_t fieldNumber = field.Number();
        if (fieldNumber >= FIRST_ENTRY_FIELD) {
            return TakeEntry(fieldNumber, value);
        }
        switch (fieldNumber) {
        case 1:
            total = value;
            return true;
        case 2:
            return TakeNumber(value);
        default:
            return TakeViewCount(value);
        }
    }

    /// More messages of this group are to come. A message that doesn't say its number counts as the last.
    bool GroupGoesOn() const noexcept { return number >= 1 && number < total; }

private:
    bool TakeNumber(int value) noexcept
    {
        number = value;
        if (number < 1 || number > total) {
            return false;
        }
        if (total == 1) {
            GPS::CNMEAParser::ResetAccumulator(group); // a group of one begins afresh; longer ones don't
        }
        return true;
    }

    bool TakeViewCount(int value) noexcept
    {
        group.viewCount = static_cast<std::uint8_t>(value); // cut to 8 bits, as the field is, then judged
        return group.viewCount <= GPS_SATELLITE_SLOTS || Drop();
    }

    /// Entries are four fields each: number, elevation, azimuth, signal.
    bool TakeEntry(std::size_t fieldNumber, int value) noexcept
    {
        const std::size_t part = fieldNumber % 4;
        if (part == 0) {
            return TakeSatellite(value);
        }
        if (slot < 0) {
            return Drop(); // data of no satellite
        }
        if (part == 1) {
            group.elevation[slot] = static_cast<std::uint8_t>(value); // cut to 8 bits, as the field is
        } else if (part == 2) {
            group.azimuth[slot] = static_cast<std::uint16_t>(value); // cut to 16 bits, as the field is
        } else {
            group.snr[slot] = static_cast<std::uint8_t>(value);
        }
        return true;
    }

    bool TakeSatellite(int value) noexcept
    {
        if (!IsSatelliteNumber(value)) {
            return Drop();
        }
        slot = value - 1;
        group.prn[slot] = static_cast<std::uint8_t>(value);
        ++group.listedCount; // wraps at 256, as the field does
        return true;
    }

    bool Drop() noexcept
    {
        GPS::CNMEAParser::ResetAccumulator(group);
        return false;
    }

    _GPS_Satellite& group; // borrowed
    int total = 0;
    int number = 0;
    int slot = -1; // of the latest satellite number in this sentence; none yet
};

/// Result: false as soon as a field can't be.
bool TakeMessage(const char* sentence, GroupMessage& message) noexcept
{
    CFieldCursor field(sentence);
    while (field.Next() && field.Number() <= LAST_ENTRY_FIELD) {
        if (!field.Empty() && !message.Take(field)) {
            return false;
        }
    }
    return true;
}

/// Moves a whole group into the record. `used` of a listed satellite stays: it is GSA's.
void PublishGroup(const _GPS_Satellite& group, _GPS_Data& record) noexcept
{
    _GPS_Satellite& target = record.satellite;
    record.mask |= GPS_MASK_SATELLITE;
    target.viewCount = group.viewCount;
    target.listedCount = group.listedCount;
    std::memcpy(target.prn, group.prn, sizeof target.prn);
    std::memcpy(target.snr, group.snr, sizeof target.snr);
    std::memcpy(target.elevation, group.elevation, sizeof target.elevation);
    std::memcpy(target.azimuth, group.azimuth, sizeof target.azimuth);
    // Every slot is written, so that they go many at a time.
    for (std::size_t i = 0; i < GPS_SATELLITE_SLOTS; ++i) {
        target.used[i] = group.prn[i] == GPS_SATELLITE_EMPTY ? std::uint8_t{0} : target.used[i];
    }
}

} // namespace

namespace GPS
{

_GPS_Satellite CNMEAParser::gsvAccumulator = EmptyAccumulator();

void CNMEAParser::ResetAccumulator(_GPS_Satellite& accumulator) noexcept
{
    accumulator = EmptyAccumulator();
}

bool CNMEAParser::ParseGSA(const char* sentence, _GPS_Data& record) const noexcept
{
    if (!PassesFrame(sentence)) {
        return false;
    }
    CFieldCursor field(sentence);
    if (!FindFixMode(field)) {
        return false;
    }
    const char mode = field.First();
    std::memset(record.satellite.used, 0, sizeof record.satellite.used);
    record.valid = mode == '2' || mode == '3' ? 1 : 0;
    const char* const satellitesEnd = TakeDilutions(field.Text(), record);
    if (satellitesEnd != nullptr) {
        TakeUsed(field, satellitesEnd, record.satellite);
    }
    record.mask |= GPS_MASK_STATUS | GPS_MASK_SATELLITE;
    return true;
}

bool CNMEAParser::ParseGSV(const char* sentence, _GPS_Data& record,
                           _GPS_Satellite& accumulator) const noexcept
{
    if (!PassesFrame(sentence)) {
        return false;
    }
    GroupMessage message(accumulator);
    if (!TakeMessage(sentence, message)) {
        return false;
    }
    if (!message.GroupGoesOn()) {
        PublishGroup(accumulator, record);
        ResetAccumulator(accumulator);
    }
    return true;
}

} // namespace GPS
