// A drive along a route that hands out whatever the input says.
#include <memory>

#include "GpsLib/contracts/KestRoute.h"
#include "GpsLib/simu/CGPSSimuDevice.h"
#include "fuzz/CInput.h"
#include "fuzz/Require.h"

namespace
{

/// Blocks from the input, with points in a heap array of their exact number that lives no longer than until
/// the next block is asked for.
class ScriptedPath final : public CPath
{
public:
    /// input: borrowed.
    explicit ScriptedPath(CInput& input) : input(input) {}

    int StartGuid() const override { return static_cast<int>(input.Byte() % 16U) - 1; }
    int NextGuid(PathGuid& block) const override { return Fill(block); }
    int GetNextGuid(const PathGuid& /*from*/, PathGuid& to) const override { return Fill(to); }

    /// Result: where the last block handed out says that the drive ends.
    const tagLonLat& EndPoint() const noexcept { return endPoint; }

private:
    // Bits of a block's first byte.
    enum : unsigned { FAILS = 15, LEAVES_ALONE = 16, NO_POINTS = 32, ANY_POINTS = 64, ANY_LENGTHS = 128 };

    int Fill(PathGuid& block) const
    {
        const unsigned flags = input.Byte();
        if ((flags & LEAVES_ALONE) == 0) {
            FillPoints(block, flags);
            block.blockLength = (flags & ANY_LENGTHS) != 0 ? input.AnyDouble() : input.Byte() * 4.0;
            block.nextLength = (flags & ANY_LENGTHS) != 0 ? input.AnyDouble() : input.Small();
            block.endPoint = Point(flags);
            endPoint = block.endPoint;
        } else {
            block.pointCount = 0; // the points of the block before are gone
        }
        return (flags & FAILS) == FAILS ? 0 : 1;
    }

    void FillPoints(PathGuid& block, unsigned flags) const
    {
        block.pointCount = input.Byte() % 8U;
        points.reset(new tagLonLat[block.pointCount]);
        for (std::size_t i = 0; i < block.pointCount; ++i) {
            points[i] = Point(flags);
        }
        block.points = (flags & NO_POINTS) != 0 ? nullptr : points.get();
    }

    tagLonLat Point(unsigned flags) const
    {
        if ((flags & ANY_POINTS) != 0) {
            const double lon = input.AnyDouble();
            return {lon, input.AnyDouble()};
        }
        const double lon = 121.0 + input.Small() * 1e-4; // a street map's width
        return {lon, 31.0 + input.Small() * 1e-4};
    }

    CInput& input; // borrowed
    mutable std::unique_ptr<tagLonLat[]> points;
    mutable tagLonLat endPoint{};
};

_GPS_Data Marked()
{
    _GPS_Data record;
    std::memset(static_cast<void*>(&record), 0xA5, sizeof record);
    return record;
}

/// Result: the drive goes on.
bool StepByRules(GPS::CGPSSimuDevice& device, const ScriptedPath& path)
{
    constexpr std::uint32_t MASK = 862;
    const _GPS_Data marked = Marked();
    _GPS_Data record = marked;
    const bool goesOn = device.GetGPSData(record);
    if (!goesOn && BytesOf(record) == BytesOf(marked)) {
        return false;
    }
    Require(record.mask == MASK && record.valid == 1 && record.satUsed == 4, "a step fills the record");
    Require(!(record.heading < 0.0 || record.heading > 360.0), "a heading is one, or none from no position");
    Require(goesOn ? IsOnEarth(record.lonLat) : BytesOf(record.lonLat) == BytesOf(path.EndPoint()),
            "a step leads to a place on Earth, the last one to where its block says");
    return goesOn;
}

void SetParam(CInput& input, GPS::CGPSSimuDevice& device, CPath* path)
{
    const unsigned flags = input.Byte();
    CPath* const given = (flags & 15U) == 15U ? nullptr : path;
    const double timeStep = (flags & 16U) != 0 ? input.AnyDouble() : 1.0;
    const double speed = (flags & 32U) != 0 ? input.AnyDouble() : input.Byte() * 2.0;
    Require(device.SetSimuParam(given, timeStep, speed), "there is memory for a drive");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CInput input(data, size);
    ScriptedPath path(input);
    GPS::CGPSSimuDevice device;
    SetParam(input, device, &path);
    bool driving = device.BeginSimu();
    while (!input.Empty()) {
        const unsigned action = input.Byte();
        if (action < 240) {
            const bool goesOn = StepByRules(device, path);
            Require(driving || !goesOn, "no step without a drive");
            driving = goesOn;
        } else if (action < 245) {
            SetParam(input, device, &path);
        } else if (action < 252) {
            driving = device.BeginSimu() || driving; // refused for its speed, a drive goes on
        } else {
            device.EndSimu();
            driving = false;
        }
    }
    return 0;
}
