#include "tools/nmea/NmeaWriter.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "tools/nmea/SentenceText.h"
#include "tools/text/DecimalText.h"

namespace kestgps
{

namespace
{

constexpr double KMH_TO_KNOTS = 1.0 / 1.852; // the international nautical mile in kilometres
constexpr double SPEED_MOST = 9999.99;       // [km/h] and [knots]
constexpr double ALTITUDE_MOST = 99999.9;    // [m]
constexpr double DOP_MOST = 99.99;

bool HasPosition(const _GPS_Data& fix) noexcept
{
    return fix.valid != 0 && IsOnEarth(fix.lonLat);
}

const char* QualityOf(const _GPS_Data& fix) noexcept
{
    if (!HasPosition(fix)) {
        return "0";
    }
    if ((fix.mask & GPS_MASK_RTK) != 0) {
        return "4";
    }
    return (fix.mask & GPS_MASK_DGPS) != 0 ? "2" : "1";
}

const char* StatusOf(const _GPS_Data& fix) noexcept
{
    return HasPosition(fix) ? "A" : "V";
}

/// The mode indicator: autonomous, differential, real-time kinematic, none.
const char* ModeOf(const _GPS_Data& fix) noexcept
{
    const char quality = *QualityOf(fix);
    if (quality == '4') {
        return "R";
    }
    if (quality == '2') {
        return "D";
    }
    return quality == '1' ? "A" : "N";
}

/// Degrees and minutes, "ddmm.mmmm". Counted in ten-thousandths of a minute from the start, so that 59.99999
/// minutes become a whole degree and never "60.0000".
/// edge: [deg] where the coordinate ends; it means "no position", so a coordinate beside it stays beside it.
std::string DegreesMinutes(double degrees, int edge)
{
    constexpr std::int64_t STEPS_A_DEGREE = 600000;
    const std::int64_t steps =
        std::min(std::llround(std::fabs(degrees) * static_cast<double>(STEPS_A_DEGREE)),
                 static_cast<long long>(edge * STEPS_A_DEGREE - 1));
    const int degreeDigits = edge < 100 ? 2 : 3;
    return ScaledText(steps / STEPS_A_DEGREE, 0, degreeDigits) + ScaledText(steps % STEPS_A_DEGREE, 4, 2);
}

void AddPosition(SentenceText& sentence, const _GPS_Data& fix)
{
    if (!HasPosition(fix)) {
        sentence.Empty(4);
        return;
    }
    sentence.Text(DegreesMinutes(fix.lonLat.lat, 90)).Text(fix.lonLat.lat < 0.0 ? "S" : "N");
    sentence.Text(DegreesMinutes(fix.lonLat.lon, 180)).Text(fix.lonLat.lon < 0.0 ? "W" : "E");
}

void AddTime(SentenceText& sentence, const _GPS_Time& time)
{
    const auto pair = [](int value) { return ScaledText(std::min(value, 99), 0, 2); };
    sentence.Text(pair(time.hour) + pair(time.minute) + pair(time.second) + ".00");
}

void AddHeading(SentenceText& sentence, double heading)
{
    constexpr std::int64_t CIRCLE = 36000; // [0.01 deg]
    if (!std::isfinite(heading)) {
        sentence.Empty();
        return;
    }
    const std::int64_t steps = Scaled(heading, 2) % CIRCLE;
    sentence.Text(ScaledText(steps < 0 ? steps + CIRCLE : steps, 2));
}

void AddDop(SentenceText& sentence, double dop)
{
    if (dop > 0.0) {
        sentence.Decimal(dop, 0.0, DOP_MOST, 2);
    } else {
        sentence.Empty();
    }
}

void AddSpeed(SentenceText& sentence, double speed)
{
    sentence.Decimal(speed, 0.0, SPEED_MOST, 2);
}

bool IsListed(const _GPS_Satellite& satellite, std::size_t slot) noexcept
{
    return satellite.prn[slot] == slot + 1; // an empty slot has 255, one of a cleared record 0
}

void AddSatellite(SentenceText& sentence, const _GPS_Satellite& satellite, std::size_t slot)
{
    sentence.Whole(static_cast<int>(slot) + 1, 2)
        .Whole(satellite.elevation[slot], 2)
        .Whole(satellite.azimuth[slot], 3);
    if (satellite.snr[slot] != 0) {
        sentence.Whole(satellite.snr[slot], 2);
    } else {
        sentence.Empty();
    }
}

std::vector<std::size_t> ListedSlots(const _GPS_Satellite& satellite)
{
    std::vector<std::size_t> slots;
    for (std::size_t slot = 0; slot < GPS_SATELLITE_SLOTS; ++slot) {
        if (IsListed(satellite, slot)) {
            slots.push_back(slot);
        }
    }
    return slots;
}

/// A record counts years from 2000, but keeps a year up to 2000 whole.
int WholeYear(const _GPS_Date& date) noexcept
{
    return date.year < 100 ? 2000 + date.year : date.year;
}

} // namespace

std::string NmeaWriter::GGA(const _GPS_Data& fix)
{
    SentenceText sentence("GPGGA");
    AddTime(sentence, fix.time);
    AddPosition(sentence, fix);
    sentence.Text(QualityOf(fix)).Whole(fix.satUsed, 2);
    AddDop(sentence, fix.hdop);
    if (HasPosition(fix)) {
        sentence.Decimal(fix.altitude, -ALTITUDE_MOST, ALTITUDE_MOST, 1).Text("M").Empty().Text("M");
    } else {
        sentence.Empty(4);
    }
    return sentence.Empty(2).Finish();
}

std::string NmeaWriter::GLL(const _GPS_Data& fix)
{
    SentenceText sentence("GPGLL");
    AddPosition(sentence, fix);
    AddTime(sentence, fix.time);
    return sentence.Text(StatusOf(fix)).Text(ModeOf(fix)).Finish();
}

std::string NmeaWriter::GSA(const _GPS_Data& fix)
{
    constexpr int CHANNELS = 12;
    SentenceText sentence("GPGSA");
    sentence.Text("A").Text(HasPosition(fix) ? "3" : "1");
    int filled = 0;
    for (std::size_t slot = 0; slot < GPS_SATELLITE_SLOTS && filled < CHANNELS; ++slot) {
        if (fix.satellite.used[slot] != 0) {
            sentence.Whole(static_cast<int>(slot) + 1, 2);
            ++filled;
        }
    }
    sentence.Empty(CHANNELS - filled);
    AddDop(sentence, fix.pdop);
    AddDop(sentence, fix.hdop);
    AddDop(sentence, fix.vdop);
    return sentence.Finish();
}

std::string NmeaWriter::GSV(const _GPS_Data& fix)
{
    constexpr std::size_t ENTRIES = 4;
    const std::vector<std::size_t> slots = ListedSlots(fix.satellite);
    const std::size_t inView =
        std::clamp<std::size_t>(fix.satellite.viewCount, slots.size(), GPS_SATELLITE_SLOTS);
    const std::size_t total = std::max<std::size_t>((slots.size() + ENTRIES - 1) / ENTRIES, 1);
    std::string group;
    for (std::size_t number = 1; number <= total; ++number) {
        SentenceText sentence("GPGSV");
        const int digits = total > 9 ? 2 : 1;
        sentence.Whole(static_cast<int>(total), digits).Whole(static_cast<int>(number), digits);
        sentence.Whole(static_cast<int>(inView), 2);
        const std::size_t end = std::min(slots.size(), number * ENTRIES);
        for (std::size_t i = (number - 1) * ENTRIES; i < end; ++i) {
            AddSatellite(sentence, fix.satellite, slots[i]);
        }
        group += sentence.Finish();
    }
    return group;
}

std::string NmeaWriter::RMC(const _GPS_Data& fix)
{
    SentenceText sentence("GPRMC");
    AddTime(sentence, fix.time);
    sentence.Text(StatusOf(fix));
    AddPosition(sentence, fix);
    if (HasPosition(fix)) {
        AddSpeed(sentence, fix.speed * KMH_TO_KNOTS);
        AddHeading(sentence, fix.heading);
    } else {
        sentence.Empty(2);
    }
    const auto pair = [](int value) { return ScaledText(value % 100, 0, 2); };
    sentence.Text(pair(fix.date.day) + pair(fix.date.month) + pair(fix.date.year));
    return sentence.Empty(2).Text(ModeOf(fix)).Finish();
}

std::string NmeaWriter::VTG(const _GPS_Data& fix)
{
    SentenceText sentence("GPVTG");
    if (!HasPosition(fix)) {
        return sentence.Empty(8).Text(ModeOf(fix)).Finish();
    }
    AddHeading(sentence, fix.heading);
    sentence.Text("T").Empty().Text("M");
    AddSpeed(sentence, fix.speed * KMH_TO_KNOTS);
    sentence.Text("N");
    AddSpeed(sentence, fix.speed);
    return sentence.Text("K").Text(ModeOf(fix)).Finish();
}

std::string NmeaWriter::ZDA(const _GPS_Data& fix)
{
    SentenceText sentence("GPZDA");
    AddTime(sentence, fix.time);
    sentence.Whole(fix.date.day, 2).Whole(fix.date.month, 2).Whole(WholeYear(fix.date), 4);
    return sentence.Text("00").Text("00").Finish();
}

std::string NmeaWriter::Burst(const _GPS_Data& fix)
{
    return ZDA(fix) + RMC(fix) + VTG(fix) + GLL(fix) + GSA(fix) + GSV(fix) + GGA(fix);
}

} // namespace kestgps
