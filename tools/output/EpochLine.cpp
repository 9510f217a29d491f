#include "tools/output/EpochLine.h"

#include "tools/text/DecimalText.h"

namespace kestgps
{

namespace
{

std::string RightAligned(std::string text, std::size_t width)
{
    return text.size() < width ? text.insert(0, width - text.size(), ' ') : text;
}

std::string TimeText(const _GPS_Time& time)
{
    return ScaledText(time.hour, 0, 2) + ":" + ScaledText(time.minute, 0, 2) + ":" +
           ScaledText(time.second, 0, 2);
}

const char* Word(MOVESTATETYPE move)
{
    switch (move) {
    case MOVESTATE_SLOW:
        return "slow";
    case MOVESTATE_STEADY:
        return "steady";
    case MOVESTATE_CHANGING:
        return "changing";
    case MOVESTATE_UNKNOWN:
        break;
    }
    return "unknown";
}

const char* Word(HEADINGSTATETYPE heading)
{
    switch (heading) {
    case HEADINGSTATE_TURNING:
        return "turning";
    case HEADINGSTATE_STEADY:
        return "steady";
    case HEADINGSTATE_UNKNOWN:
        break;
    }
    return "unknown";
}

} // namespace

std::string EpochLine(const _GPS_Data& fix)
{
    if (fix.valid == 0) {
        return TimeText(fix.time) + "  no fix";
    }
    return TimeText(fix.time) + "  fix " + RightAligned(DecimalText(fix.lonLat.lat, 7), 12) +
           RightAligned(DecimalText(fix.lonLat.lon, 7), 13) + RightAligned(DecimalText(fix.speed, 1), 7) +
           " km/h" + RightAligned(DecimalText(fix.heading, 1), 7) + " deg  satellites " +
           RightAligned(std::to_string(fix.satUsed), 2) + "/" +
           RightAligned(std::to_string(fix.satellite.viewCount), 2) + "  pdop " + DecimalText(fix.pdop, 1) +
           " hdop " + DecimalText(fix.hdop, 1) + " vdop " + DecimalText(fix.vdop, 1);
}

std::string NoFixLine()
{
    return "--:--:--  no fix";
}

std::string StateWords(MOVESTATETYPE move, HEADINGSTATETYPE heading)
{
    return std::string("  move ") + Word(move) + ", heading " + Word(heading);
}

} // namespace kestgps
