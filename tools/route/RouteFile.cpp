#include "tools/route/RouteFile.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

#include <pugixml.hpp>

#include "tools/errors/ToolError.h"
#include "tools/files/WholeFile.h"

namespace kestgps
{

namespace
{

using Points = std::vector<tagLonLat>;

/// A place in a file, for the reason why it can't be read.
class Place
{
public:
    Place(const std::string& name, const std::string& text) : name(name), text(text) {}

    [[noreturn]] void Refuse(std::size_t offset, const std::string& reason) const
    {
        const auto upTo = text.begin() + static_cast<std::ptrdiff_t>(std::min(offset, text.size()));
        const auto line = std::count(text.begin(), upTo, '\n') + 1;
        throw ToolError(name + ", line " + std::to_string(line) + ": " + reason);
    }

private:
    const std::string& name; // borrowed
    const std::string& text; // borrowed
};

constexpr std::string_view SPACE = " \t\r\n";
constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF"; // some spreadsheets put one in front

std::string_view Trimmed(std::string_view text)
{
    const std::size_t begin = std::min(text.find_first_not_of(SPACE), text.size());
    text.remove_prefix(begin);
    return text.substr(0, text.find_last_not_of(SPACE) + 1);
}

/// Result: false when the text is anything but one decimal number.
bool ReadNumber(std::string_view text, double& number)
{
    text = Trimmed(text);
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

void Add(Points& points, const Place& place, std::size_t offset, std::string_view lon, std::string_view lat)
{
    tagLonLat point{};
    if (!ReadNumber(lon, point.lon) || !ReadNumber(lat, point.lat)) {
        place.Refuse(offset, "longitude and latitude must be decimal degrees");
    }
    if (!IsOnEarth(point)) {
        place.Refuse(offset, "longitude must lie between -180 and 180, latitude between -90 and 90");
    }
    points.push_back(point);
}

void AddGpxPoints(Points& points, const Place& place, const pugi::xml_node& parent, const char* element)
{
    for (const pugi::xml_node point : parent.children(element)) {
        Add(points, place, static_cast<std::size_t>(point.offset_debug()), point.attribute("lon").value(),
            point.attribute("lat").value());
    }
}

Points ReadGpx(const std::string& text, const Place& place)
{
    pugi::xml_document document;
    const pugi::xml_parse_result parsed = document.load_buffer(text.data(), text.size());
    if (!parsed) {
        place.Refuse(static_cast<std::size_t>(parsed.offset), parsed.description());
    }
    const pugi::xml_node gpx = document.child("gpx");
    if (!gpx) {
        place.Refuse(0, "no GPX: the outermost element must be gpx");
    }
    Points points;
    for (const pugi::xml_node track : gpx.children("trk")) {
        for (const pugi::xml_node segment : track.children("trkseg")) {
            AddGpxPoints(points, place, segment, "trkpt");
        }
    }
    if (points.empty()) {
        for (const pugi::xml_node route : gpx.children("rte")) {
            AddGpxPoints(points, place, route, "rtept");
        }
    }
    return points;
}

/// A line that begins as a number does is no heading, whatever is wrong with it, so that no point is lost.
bool IsHeading(std::string_view line)
{
    return std::string_view("+-.0123456789").find(line.front()) == std::string_view::npos;
}

Points ReadCsv(const std::string& text, std::size_t begin, const Place& place)
{
    Points points;
    bool first = true;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string_view line = Trimmed(std::string_view(text).substr(begin, end - begin));
        if (!line.empty() && !(first && IsHeading(line))) {
            const std::size_t comma = line.find(',');
            if (comma == std::string_view::npos) {
                place.Refuse(begin, "a line must be lon,lat");
            }
            Add(points, place, begin, line.substr(0, comma), line.substr(comma + 1));
        }
        first = first && line.empty();
        begin = end + 1;
    }
    return points;
}

} // namespace

Points ReadRoute(const std::string& text, const std::string& name)
{
    constexpr std::size_t POINTS_MIN = 2;
    const Place place(name, text);
    const std::size_t mark =
        text.compare(0, BYTE_ORDER_MARK.size(), BYTE_ORDER_MARK) == 0 ? BYTE_ORDER_MARK.size() : 0;
    const std::size_t begin = std::min(text.find_first_not_of(SPACE, mark), text.size());
    const bool isXml = text[begin] == '<';
    Points points = isXml ? ReadGpx(text, place) : ReadCsv(text, begin, place);
    if (points.size() < POINTS_MIN) {
        place.Refuse(text.size(), "a route needs two points, here are " + std::to_string(points.size()));
    }
    return points;
}

Points ReadRouteFile(const std::string& path)
{
    return ReadRoute(ReadWholeFile(path), path);
}

} // namespace kestgps
