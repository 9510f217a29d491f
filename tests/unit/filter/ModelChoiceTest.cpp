// Which model smooths, and from where it goes on.
#include <string>

#include "GpsLib/filter/CSmoothing.h"
#include "tests/support/FakeWorld.h"
#include "tests/support/Sentence.h"

namespace
{

/// Smooths the second's fix of a drive that zigzags.
/// Result: "r" for a raw one, "a" for one of the acceleration model, which rewrites the speed, "v" for one of
/// the velocity model, which leaves it.
char Step(GPS::CSmoothing& smoothing, int second)
{
    const double longitude = 10.0 + second * 1e-4 + second % 2 * 2e-5;
    _GPS_Data fix = support::FixAt(longitude, 45.0);
    fix.time.second = static_cast<std::uint8_t>(second);
    fix.speed = 36.0;
    fix.heading = 90.0;
    smoothing.Smooth(fix);
    if (fix.speed != 36.0) {
        return 'a';
    }
    return fix.lonLat.lon != longitude ? 'v' : 'r';
}

/// "." is a fix, a digit chooses a model, "+" and "-" switch, "|" begins another drive.
/// Result: what the fixes came out as.
std::string Play(const std::string& story)
{
    GPS::CSmoothing smoothing;
    std::string steps;
    for (const char letter : story) {
        if (letter == '.') {
            steps += Step(smoothing, static_cast<int>(steps.size()));
        } else if (letter == '+') {
            smoothing.SwitchOn();
        } else if (letter == '-') {
            smoothing.SwitchOff();
        } else if (letter == '|') {
            smoothing.BeginDrive();
        } else {
            smoothing.SetModel(static_cast<FILTERMODEL>(letter - '0'));
        }
    }
    return steps;
}

class ModelChoice : public support::FakeWorld
{
};

TEST_F(ModelChoice, CountsFromTheNextFixOn)
{
    const struct {
        const char* rule;
        const char* story;
        const char* steps;
    } ROWS[] = {
        {"off at first", "1...", "rrr"},
        {"acceleration unless chosen", "+...", "raa"},
        {"a model that is chosen starts fresh", "+..1..0..1..0..", "rarvrarvra"},
        {"the same model goes on", "1+..1..-.+.", "rvvvrv"},
        {"no model changes nothing", "+..2.1..2./.", "raarvvv"},
        {"a choice that is taken back is none", "+..10.", "raa"},
        {"another drive", "1+..|..", "rvrv"},
        {"means nothing to the acceleration model", "+..|..", "raaa"},
    };
    for (const auto& row : ROWS) {
        EXPECT_EQ(Play(row.story), row.steps) << row.rule;
    }
}

} // namespace
