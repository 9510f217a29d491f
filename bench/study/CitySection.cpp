// A picture: once through a city, on the map.
#include "bench/study/Drives.h"
#include "bench/study/Models.h"
#include "bench/study/Receiver.h"
#include "bench/study/Report.h"
#include "bench/study/Sections.h"

namespace study
{

namespace
{

constexpr double SECONDS = 165.0;
constexpr double SHOWN_FROM = 60.0; // [s] when both models have settled

/// [m] east and north.
std::string Point(const tagLonLat& origin, const tagLonLat& at)
{
    const Metres way = Way(origin, at);
    return Number(way.east, 1) + " " + Number(way.north, 1) + " ";
}

} // namespace

void DrawCity(Report& report)
{
    Dice dice("through the city");
    const Track track(ThroughTheCity, 50.0 * KMH, SECONDS);
    const tagLonLat origin = track.At(SHOWN_FROM)->at;
    Smoothers smoothers;
    for (const Epoch& epoch : Received(track, {}, dice)) {
        const OfModels<_GPS_Data> told = smoothers.Step(epoch.fix);
        if (epoch.time < SHOWN_FROM) {
            continue;
        }
        std::string positions = Point(origin, epoch.truth.at);
        std::string errors;
        for (const _GPS_Data& fix : told) {
            positions += Point(origin, fix.lonLat);
            errors += Number(Length(Way(epoch.truth.at, fix.lonLat)), 1) + " ";
        }
        report.Data("city.dat", Number(epoch.time - SHOWN_FROM, 0) + " ");
        report.Data("city.dat", positions);
        report.Data("city.dat", errors + "\n");
    }
}

} // namespace study
