// CGuidePath.h: a planned route that an application builds, from guide blocks or from a polyline.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <vector>

#include "GpsLib/contracts/KestRoute.h"

namespace route
{

/// A route in memory. A drive borrows it and its points: it must outlive the drive, unchanged.
/// Thread: any, since nothing changes after construction.
class KEST_API CGuidePath final : public CPath
{
public:
    /// Points of a block that is cut from a polyline; a block begins with the last point of the one before.
    static constexpr std::size_t BLOCK_POINTS = 512;

    /// Takes the blocks as they are, right or wrong; only the first bytes of each, which are opaque, are this
    /// class's own: they say which block it is. points: borrowed.
    /// Throws std::bad_alloc.
    explicit CGuidePath(std::vector<PathGuid> blocks);

    /// Cuts a polyline into blocks and works out their lengths. Fewer than two points make no route.
    /// polyline: [deg].
    /// Throws std::bad_alloc.
    explicit CGuidePath(std::vector<tagLonLat> polyline);
    /// The same of points that are written out: `CGuidePath path({{10.0, 50.0}, {10.01, 50.0}});`.
    explicit CGuidePath(std::initializer_list<tagLonLat> polyline);

    CGuidePath(const CGuidePath&) = delete;
    CGuidePath& operator=(const CGuidePath&) = delete;
    ~CGuidePath() override;

    int StartGuid() const override;
    int NextGuid(PathGuid& block) const override;
    int GetNextGuid(const PathGuid& from, PathGuid& to) const override;

    /// Result: [m] the lengths of all blocks together.
    double Length() const noexcept;

private:
    void NumberBlocks() noexcept;

    std::vector<tagLonLat> points; // of a polyline; the blocks point into it
    std::vector<PathGuid> blocks;
};

} // namespace route
