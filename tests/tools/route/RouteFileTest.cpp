// Routes from files, and what is said of the files that hold none.
#include <gtest/gtest.h>

#include "tests/support/Row.h"
#include "tools/errors/ToolError.h"
#include "tools/route/RouteFile.h"

namespace
{

using kestgps::ReadRoute;
using support::operator<<; // how a failing row is printed

struct RouteCase {
    const char* rule;
    std::string text;
    std::vector<tagLonLat> points;
};

const std::vector<tagLonLat> TWO{{11.5, 48.25}, {-0.5, -33.0}};

const std::string POINTS =
    R"(<trkpt lat="48.25" lon="11.5"/><trkpt lat="-33" lon="-0.5"><ele>1</ele></trkpt>)";
const std::string ROUTE_POINTS = R"(<rte><rtept lat="48.25" lon="11.5"/><rtept lat="-33" lon="-0.5"/></rte>)";

const RouteCase ROUTES[] = {
    {"Csv", "11.5,48.25\n-0.5,-33\n", TWO},
    {"CsvWithHeadingsAndEmptyLines", "\nlon,lat\r\n\r\n 11.5 , 48.25 \r\n\r\n-0.5,-33", TWO},
    {"CsvBehindAByteOrderMark",
     "\xEF\xBB\xBF"
     "11.5,48.25\n-0.5,-33",
     TWO},
    {"GpxTrack", "<gpx><trk><trkseg>" + POINTS + "</trkseg></trk></gpx>", TWO},
    {"GpxBehindAByteOrderMark", "\xEF\xBB\xBF<gpx>" + ROUTE_POINTS + "</gpx>", TWO},
    {"GpxTrackGoesBeforeRoute",
     "<gpx>" + ROUTE_POINTS +
         R"(<trk><trkseg><trkpt lat="1" lon="2"/></trkseg><trkseg><trkpt lat="3" lon="4"/></trkseg></trk></gpx>)",
     {{2, 1}, {4, 3}}},
    {"GpxRoute", "<gpx>" + ROUTE_POINTS + "</gpx>", TWO},
};

class RouteText : public testing::TestWithParam<RouteCase>
{
};

TEST_P(RouteText, GivesItsPoints)
{
    const std::vector<tagLonLat> points = ReadRoute(GetParam().text, "route");
    ASSERT_EQ(points.size(), GetParam().points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_EQ(points[i].lon, GetParam().points[i].lon);
        EXPECT_EQ(points[i].lat, GetParam().points[i].lat);
    }
}

INSTANTIATE_TEST_SUITE_P(Rules, RouteText, testing::ValuesIn(ROUTES), support::RuleName());

struct RefusalCase {
    const char* rule;
    std::string text;
    std::string place;
};

const RefusalCase REFUSALS[] = {
    {"Empty", "", "route, line 1: "},
    {"OnePoint", "1,2\n", "route, line 2: "},
    {"NoComma", "1,2\n3\n", "route, line 2: "},
    {"NoNumber", "1,2\n3,x\n", "route, line 2: "},
    {"NumberWithATail", "1,2\n3,4x\n", "route, line 2: "},
    {"NotFinite", "1,2\nnan,4\n", "route, line 2: "},
    {"EdgeOfTheRange", "1,2\n180,4\n", "route, line 2: "},
    {"FirstLineWithAPlusIsNoHeading", "+1,2\n3,4\n5,6\n", "route, line 1: "},
    {"FirstLineBeyondAllNumbersIsNone", "1e999,2\n3,4\n5,6\n", "route, line 1: "},
    {"CutXml", "<gpx><trk>\n<trkseg>", "route, line 2: "},
    {"OtherXml", "<kml></kml>", "route, line 1: "},
    {"GpxWithoutLatitude", "<gpx><trk><trkseg>\n\n<trkpt lon=\"1\"/></trkseg></trk></gpx>",
     "route, line 3: "},
    {"Nuls", std::string(100, '\0'), "route, line 1: "},
};

class RouteRefusal : public testing::TestWithParam<RefusalCase>
{
};

TEST_P(RouteRefusal, NamesThePlaceInOneLine)
{
    try {
        ReadRoute(GetParam().text, "route");
        FAIL() << "taken for a route";
    } catch (const kestgps::ToolError& error) {
        const std::string reason = error.what();
        EXPECT_EQ(reason.substr(0, GetParam().place.size()), GetParam().place) << reason;
        EXPECT_EQ(reason.find('\n'), std::string::npos);
    }
}

INSTANTIATE_TEST_SUITE_P(Rules, RouteRefusal, testing::ValuesIn(REFUSALS), support::RuleName());

} // namespace
