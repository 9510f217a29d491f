#include "layers/route/CGuidePath.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>

#include "GpsLib/contracts/KestMath.h"

namespace route
{

namespace
{

constexpr double NO_BLOCK_FOLLOWS = -1.0;

// A block's place in the route stands in its first bytes, which no walker reads.
using BlockNumber = std::uint32_t;

void WriteNumber(PathGuid& block, std::size_t number) noexcept
{
    const auto written = static_cast<BlockNumber>(number);
    std::memcpy(block.opaque0, &written, sizeof written);
}

std::size_t ReadNumber(const PathGuid& block) noexcept
{
    BlockNumber number = 0;
    std::memcpy(&number, block.opaque0, sizeof number);
    return number;
}

/// [m] on the plane that touches the Earth midway: right to millimetres over the hundreds of metres of a
/// segment.
double SegmentLength(const tagLonLat& from, const tagLonLat& to)
{
    const tagLonLat midway{(from.lon + to.lon) * 0.5, (from.lat + to.lat) * 0.5};
    double metresLon = 0.0;
    double metresLat = 0.0;
    GetUnitLength(midway, metresLon, metresLat);
    const double x = (to.lon - from.lon) * metresLon;
    const double y = (to.lat - from.lat) * metresLat;
    return std::sqrt(x * x + y * y); // not hypot, whose last bit differs between processors
}

PathGuid MakeBlock(const tagLonLat* points, std::size_t count)
{
    PathGuid block{};
    block.points = points;
    block.pointCount = static_cast<std::uint16_t>(count);
    for (std::size_t i = 1; i < count; ++i) {
        block.blockLength += SegmentLength(points[i - 1], points[i]);
    }
    block.nextLength = NO_BLOCK_FOLLOWS;
    block.endPoint = points[count - 1];
    return block;
}

} // namespace

CGuidePath::CGuidePath(std::vector<PathGuid> blocks) : blocks(std::move(blocks))
{
    NumberBlocks();
}

CGuidePath::CGuidePath(std::vector<tagLonLat> polyline) : points(std::move(polyline))
{
    for (std::size_t first = 0; first + 1 < points.size(); first += BLOCK_POINTS - 1) {
        blocks.push_back(MakeBlock(&points[first], std::min(BLOCK_POINTS, points.size() - first)));
    }
    for (std::size_t i = 1; i < blocks.size(); ++i) {
        blocks[i - 1].nextLength = blocks[i].blockLength;
    }
    NumberBlocks();
}

CGuidePath::CGuidePath(std::initializer_list<tagLonLat> polyline)
    : CGuidePath(std::vector<tagLonLat>(polyline))
{
}

CGuidePath::~CGuidePath() = default;

void CGuidePath::NumberBlocks() noexcept
{
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        WriteNumber(blocks[i], i);
    }
}

int CGuidePath::StartGuid() const
{
    return blocks.empty() ? 0 : 1;
}

int CGuidePath::NextGuid(PathGuid& block) const
{
    if (blocks.empty()) {
        return 0;
    }
    block = blocks.front();
    return 1;
}

int CGuidePath::GetNextGuid(const PathGuid& from, PathGuid& to) const
{
    const std::size_t next = ReadNumber(from) + 1;
    if (next >= blocks.size()) {
        return 0;
    }
    to = blocks[next];
    return 1;
}

double CGuidePath::Length() const noexcept
{
    double length = 0.0;
    for (const PathGuid& block : blocks) {
        length += block.blockLength;
    }
    return length;
}

} // namespace route
