// Any text as a route, GPX or CSV.
#include <algorithm>
#include <charconv>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/CInput.h"
#include "fuzz/Require.h"
#include "tools/errors/ToolError.h"
#include "tools/route/RouteFile.h"

namespace
{

using Points = std::vector<tagLonLat>;

/// The shortest text that gives the number again.
std::string Text(double number)
{
    char digits[32];
    return {digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr};
}

std::string Csv(const Points& points)
{
    std::string text = "lon,lat\n";
    for (const tagLonLat& point : points) {
        text += Text(point.lon) + "," + Text(point.lat) + "\n";
    }
    return text;
}

std::string Gpx(const Points& points)
{
    std::string text = "<gpx><trk><trkseg>";
    for (const tagLonLat& point : points) {
        text += "<trkpt lat=\"" + Text(point.lat) + "\" lon=\"" + Text(point.lon) + "\"/>";
    }
    return text + "</trkseg></trk></gpx>";
}

void RequireSame(const Points& points, const Points& again)
{
    Require(points.size() == again.size(), "as many points");
    for (std::size_t i = 0; i < points.size(); ++i) {
        Require(BytesOf(points[i]) == BytesOf(again[i]), "the same points");
    }
}

/// "route, line N: ..." in one line, with a line that the text has.
void RequireReason(std::string_view reason, std::string_view text)
{
    constexpr std::string_view PLACE = "route, line ";
    Require(reason.substr(0, PLACE.size()) == PLACE, "a reason names its place");
    const char* const end = reason.data() + reason.size();
    std::ptrdiff_t line = 0;
    const auto number = std::from_chars(reason.data() + PLACE.size(), end, line);
    Require(line >= 1 && line <= std::count(text.begin(), text.end(), '\n') + 1, "the text has that line");
    Require(end - number.ptr > 2 && std::string_view(number.ptr, 2) == ": ", "a reason follows");
    Require(reason.find('\n') == std::string_view::npos, "a reason is one line");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(data, data + size);
    try {
        const Points points = kestgps::ReadRoute(text, "route");
        Require(points.size() >= 2, "a route has two points");
        for (const tagLonLat& point : points) {
            Require(IsOnEarth(point), "a route lies on Earth");
        }
        RequireSame(points, kestgps::ReadRoute(Csv(points), "csv"));
        RequireSame(points, kestgps::ReadRoute(Gpx(points), "gpx"));
    } catch (const kestgps::ToolError& error) {
        RequireReason(error.what(), text);
    }
    return 0;
}
