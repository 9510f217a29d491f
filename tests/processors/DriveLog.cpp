#include "tests/processors/DriveLog.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <utility>

#include "tests/support/Sentence.h"

namespace processors
{

namespace
{

/// A whole number in at least so many digits, the last `places` of them behind a point.
std::string Decimal(int value, std::size_t digits, std::size_t places = 0)
{
    std::string text = std::to_string(value);
    text.insert(0, digits - std::min(digits, text.size()), '0');
    return places == 0 ? text : text.insert(text.size() - places, 1, '.');
}

// What no receiver should send: nothing, signs, spaces, numbers that overflow or vanish, bytes from 0x80 up,
// which are negative where `char` is signed.
const char* const ODD_FIELDS[] = {
    "",
    "-5",
    "+7.25",
    " 12",
    "1e999",
    "99999999999999999999.5",
    "4.9e-324",
    "\x8f\xff",
    "1\xb5.2",
    "0x1F",
    ".5",
    "1e-400",
    "NaN",
    "A",
    "123456789.123456789",
    "1e22",
    "300",
    "-0",
    "65",
    "\xb2",
    "9007199254740993",
    "2.2250738585072011e-308",
};

constexpr int MINUTE = 10000; // positions count in units of the fourth decimal of a minute
constexpr int DEGREE = 60 * MINUTE;
constexpr int FULL_COURSE = 3600; // courses and speeds count in tenths

/// How far a course leads east, of 900: up and down in straight lines, since a sine would be the processor's.
int EastPart(int course) noexcept
{
    const int quarter = course % 1800;
    const int part = quarter <= 900 ? quarter : 1800 - quarter;
    return course < 1800 ? part : -part;
}

/// The vehicle and its receiver.
class Drive
{
public:
    /// Appends the sentences of one second; GGA ends it. Result: how many.
    std::size_t AppendSecond(std::string& log)
    {
        Move();
        AppendMotion(log);
        AppendSatellites(log);
        Append(log, "GPGLL", {Latitude(), "N", Longitude(), "E", Time(), Fix() ? "A" : "V"});
        Append(log, "GPZDA", {Time(), Decimal(day, 2), "11", "2026", "00", "00"});
        Append(log, "GPGGA",
               {Time(), Latitude(), "N", Longitude(), dice.Once(3000) ? "W" : "E", Quality(),
                Decimal(3 + dice.Below(10), 2), "0.9", Decimal(dice.Below(30000), 3, 1), "M", "", "M", "",
                ""});
        return std::exchange(appended, 0);
    }

private:
    void Move()
    {
        second = (second + 1) % 86400;
        day = second == 0 ? day % 28 + 1 : day;
        if (dice.Once(40)) {
            target = dice.Once(3) ? dice.Below(40) : dice.Below(900); // crawls, or drives
            turn = dice.Around(120);
        }
        speed += std::clamp(target - speed, -35, 35);
        course = (course + turn + dice.Around(8) + FULL_COURSE) % FULL_COURSE;
        longitude = std::clamp(longitude + speed * EastPart(course) / 3000, DEGREE, 170 * DEGREE);
        latitude =
            std::clamp(latitude + speed * EastPart((course + 900) % FULL_COURSE) / 3000, DEGREE, 80 * DEGREE);
        if (lossLeft > 0) {
            --lossLeft;
        } else if (dice.Once(150)) {
            lossLeft = 1 + dice.Below(12);
        }
    }

    void AppendMotion(std::string& log)
    {
        Append(log, "GPRMC",
               {Time(), Fix() ? "A" : "V", Latitude(), "N", Longitude(), "E", Decimal(speed, 4, 1),
                Decimal(course, 4, 1), Decimal(day, 2) + "1126", "", ""});
        Append(log, "GPVTG",
               {Decimal(course, 4, 1), "T", "", "M", Decimal(speed, 4, 1), "N", Decimal(speed * 1852, 7, 4),
                "K"});
    }

    void AppendSatellites(std::string& log)
    {
        Append(log, "GPGSA",
               {"A", Fix() ? "3" : "1", Number(), Number(), Number(), Number(), "", "", "", "", "", "", "",
                "", Decimal(dice.Below(300), 3, 1), Decimal(dice.Below(200), 3, 1),
                Decimal(dice.Below(250), 3, 1)});
        const int messages = 1 + dice.Below(3);
        for (int i = 1; i <= messages; ++i) {
            Append(log, "GPGSV",
                   {Decimal(messages, 1), Decimal(i, 1), Decimal(4 * messages, 2), Number(), Elevation(),
                    Azimuth(), Signal(), Number(), Elevation(), Azimuth(), Signal(), Number(), Elevation(),
                    Azimuth(), Signal()});
        }
    }

    /// The fields of a braced list are made from left to right, so the dice fall alike with every compiler.
    void Append(std::string& log, const char* type, std::initializer_list<std::string> fields)
    {
        std::string body = type;
        for (const std::string& field : fields) {
            body += ',';
            body += dice.Once(2000) ? ODD_FIELDS[dice.Below(static_cast<int>(std::size(ODD_FIELDS)))] : field;
        }
        log += Send(body);
        ++appended;
    }

    /// The sentence, or now and then one that something happened to.
    std::string Send(const std::string& body)
    {
        std::string whole = support::Sentence(body);
        switch (dice.Below(1500)) {
        case 0:
            return support::Spoilt(whole);
        case 1:
            return whole.substr(0, whole.size() - 2) + "\n";
        case 2:
            return support::Sentence("GL" + body.substr(2));
        case 3:
            return whole.substr(0, whole.size() / 2) + "\r\n";
        case 4:
            return "$" + body + "\r\n";
        default:
            return whole;
        }
    }

    bool Fix() const noexcept { return lossLeft == 0; }
    std::string Quality() { return Fix() ? Decimal(1 + dice.Below(2), 1) : "0"; }
    std::string Number() { return Decimal(1 + dice.Below(64), 2); }
    std::string Elevation() { return Decimal(dice.Below(91), 2); }
    std::string Azimuth() { return Decimal(dice.Below(360), 3); }
    std::string Signal() { return dice.Once(9) ? "" : Decimal(dice.Below(60), 2); }
    std::string Latitude() const { return Decimal(latitude / DEGREE, 2) + Decimal(latitude % DEGREE, 6, 4); }
    std::string Longitude() const
    {
        return Decimal(longitude / DEGREE, 3) + Decimal(longitude % DEGREE, 6, 4);
    }
    std::string Time() const
    {
        return Decimal(second / 3600, 2) + Decimal(second / 60 % 60, 2) + Decimal(second % 60, 2);
    }

    Dice dice;
    std::size_t appended = 0;
    int second = 86000;
    int day = 20;
    int longitude = 121 * DEGREE;
    int latitude = 31 * DEGREE;
    int speed = 0;    // [0.1 kn]
    int target = 0;   // [0.1 kn]
    int course = 0;   // [0.1 deg]
    int turn = 0;     // [0.1 deg] a second
    int lossLeft = 0; // [s] until the fix is back
};

} // namespace

std::string MakeDriveLog(std::size_t sentences)
{
    Drive drive;
    std::string log;
    for (std::size_t made = 0; made < sentences;) {
        made += drive.AppendSecond(log);
    }
    return log;
}

_GPS_Data Receiver::See(const _GPS_Data& truth)
{
    constexpr int DAY_IN_HUNDREDTHS = 86400 * 100;
    _GPS_Data fix = truth;
    time = (time + step) % DAY_IN_HUNDREDTHS;
    const int second = time / 100;
    fix.time = {static_cast<std::uint8_t>(second / 3600),
                static_cast<std::uint8_t>(second / 60 % 60),
                static_cast<std::uint8_t>(second % 60),
                {}};
    fix.lonLat.lon += dice.Around(50) * 1e-6;
    fix.lonLat.lat += dice.Around(50) * 1e-6 + (dice.Once(100) ? 0.005 : 0.0);
    fix.valid = dice.Once(100) ? 0 : 1;
    standing = standing == 0 && dice.Once(120) ? 30 : std::max(standing - 1, 0);
    if (standing > 0) { // or creeps, at first
        fix.speed = dice.Below(standing > 20 ? 40 : 8) * 0.1;
        fix.heading = standing > 20 ? 355.0 : dice.Below(FULL_COURSE) * 0.1;
    }
    if (dice.Once(50)) {
        fix.speed = fix.heading = 0.0;
    }
    return fix;
}

std::vector<tagLonLat> MakeRoute(std::size_t points)
{
    constexpr int SCALE = 1000000; // one division by it is exact or rounded alike everywhere
    Dice dice;
    std::vector<tagLonLat> route;
    int lon = 11 * SCALE;
    int lat = -50 * SCALE;
    const int climb = 2 * 110 * SCALE / static_cast<int>(points); // so that the mean step leads there
    while (route.size() < points) {
        route.push_back({static_cast<double>(lon) / SCALE, static_cast<double>(lat) / SCALE});
        if (!dice.Once(50)) {
            lon += dice.Around(climb);
            lat += dice.Below(climb);
        }
    }
    return route;
}

} // namespace processors
