// KestRoute.h: what the library needs of the in-house route library.
#pragma once

#include <cstddef>
#include <cstdint>

#include "GpsLib/contracts/KestApi.h"
#include "GpsLib/records/GPSRecords.h"

/// A stretch of a route, as the route library hands it out: 752 bytes, of which this system reads the named
/// fields and passes the others on unread.
struct PathGuid {
    unsigned char opaque0[322];
    std::uint16_t pointCount; ///< points of the polyline; a block with fewer than 2 is not walked
    const tagLonLat* points;  ///< the polyline; the memory stays the route's
    unsigned char opaque1[24 - 2 * sizeof(void*)]; // what follows keeps its place whatever a pointer's width
    double blockLength;                            ///< [m] a step at least this long leaves the block at once
    double nextLength;  ///< negative on the route's last block; 0.0 and up mean that one follows
    tagLonLat endPoint; ///< [deg] where the drive ends; read on the last block alone
    unsigned char opaque2[376];
};
static_assert(offsetof(PathGuid, pointCount) == 322);
static_assert(offsetof(PathGuid, points) == (sizeof(void*) == 4 ? 324 : 328));
static_assert(offsetof(PathGuid, blockLength) == 344 && offsetof(PathGuid, nextLength) == 352);
static_assert(offsetof(PathGuid, endPoint) == 360 && sizeof(PathGuid) == 752);

/// A planned route, handed out as a chain of blocks. Each operation gives 0 for failure.
class KEST_API CPath
{
public:
    virtual ~CPath() = default;
    /// Prepares the route for NextGuid. 0: there is no route.
    virtual int StartGuid() const = 0;
    /// Fills `block` with the first block. The block comes in zeroed, with `nextLength` at -1.0.
    virtual int NextGuid(PathGuid& block) const = 0;
    /// Fills `to` with the block that follows `from`. 0: there is none.
    virtual int GetNextGuid(const PathGuid& from, PathGuid& to) const = 0;
};
static_assert(sizeof(CPath) == sizeof(void*));
