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
    const _GPS_Data fix = [second] {
        _GPS_Data parsed = support::FixAt(10.0 + second * 1e-4 + second % 2 * 2e-5, 45.0);
        parsed.time.second = static_cast<std::uint8_t>(second);
        parsed.speed = 36.0;
        parsed.heading = 90.0;
        return parsed;
    }();
    _GPS_Data smoothed = fix;
    smoothing.Smooth(smoothed);
    if (smoothed.speed != fix.speed) {
        return 'a';
    }
    return smoothed.lonLat.lon != fix.lonLat.lon ? 'v' : 'r';
}

/// Does what each letter says: on, off, a model, none, another drive; "." is a fix.
std::string Play(const char* story)
{
    GPS::CSmoothing smoothing;
    std::string steps;
    for (const char* letter = story; *letter != '\0'; ++letter) {
        switch (*letter) {
        case '+':
            smoothing.SwitchOn();
            break;
        case '-':
            smoothing.SwitchOff();
            break;
        case 'A':
            smoothing.SetModel(FILTERMODEL_ACCELERATION);
            break;
        case 'V':
            smoothing.SetModel(FILTERMODEL_VELOCITY);
            break;
        case '?':
            smoothing.SetModel(static_cast<FILTERMODEL>(2));
            smoothing.SetModel(static_cast<FILTERMODEL>(-1));
            break;
        case 'D':
            smoothing.BeginDrive();
            break;
        default:
            steps += Step(smoothing, static_cast<int>(steps.size()));
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
        {"off at first", "V...", "rrr"},
        {"acceleration unless chosen", "+...", "raa"},
        {"a model that is chosen starts fresh", "+...V...A...", "raarvvraa"},
        {"and fresh again", "V+..A..V..A..", "rvrarvra"},
        {"the same model goes on", "V+..V..-.+.", "rvvvrv"},
        {"no model changes nothing", "+..?.V..?..", "raarvvv"},
        {"a choice that is taken back is none", "+..VA.", "raa"},
        {"another drive", "V+..D..", "rvrv"},
        {"means nothing to the acceleration model", "+..D..", "raaa"},
    };
    for (const auto& row : ROWS) {
        EXPECT_EQ(Play(row.story), row.steps) << row.rule;
    }
}

} // namespace
