// The heap of a smoothing step: nothing is kept, and the k-th allocation may fail, for every k.
#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>

#include <gtest/gtest.h>

#include "GpsLib/filter/CGPSFilter.h"

namespace
{

std::atomic<long> liveBlocks{0};
std::atomic<long> untilFailure{0}; // the allocation that fails, counted down; 0 for none

void* Allocate(std::size_t size) noexcept
{
    if (untilFailure > 0 && --untilFailure == 0) {
        return nullptr;
    }
    void* const block = std::malloc(size > 0 ? size : 1);
    liveBlocks += block != nullptr ? 1 : 0;
    return block;
}

void Release(void* block) noexcept
{
    liveBlocks -= block != nullptr ? 1 : 0;
    std::free(block);
}

} // namespace

// For the whole test program; all forms that it calls, since a sanitizer brings its own of the others.
void* operator new(std::size_t size)
{
    void* const block = Allocate(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void* operator new[](std::size_t size)
{
    return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept
{
    return Allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept
{
    return Allocate(size);
}

void operator delete(void* block) noexcept
{
    Release(block);
}

void operator delete[](void* block) noexcept
{
    Release(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept
{
    Release(block);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept
{
    Release(block);
}

namespace
{

constexpr _GPS_Filter_Data FIRST{{121.0, 31.0}, 3.0, 90.0, 1e-5, 9e-6, true};
constexpr _GPS_Filter_Data SECOND{{121.0001, 31.0001}, 3.0, 100.0, 1e-5, 9e-6, true};
constexpr _GPS_Filter_Data THIRD{{121.0002, 31.0003}, 4.0, 110.0, 1e-5, 9e-6, true};

using Filter = std::unique_ptr<GPS::CGPSFilter>;

bool Same(const _GPS_Filter_Data& left, const _GPS_Filter_Data& right)
{
    return left.lonLat.lon == right.lonLat.lon && left.lonLat.lat == right.lonLat.lat &&
           left.speed == right.speed && left.heading == right.heading;
}

_GPS_Filter_Data Filtered(const Filter& filter, _GPS_Filter_Data fix)
{
    filter->Filter(fix);
    return fix;
}

/// The same with the k-th allocation failing. reached: set to whether there was a k-th one.
_GPS_Filter_Data FilteredFailing(const Filter& filter, _GPS_Filter_Data fix, long k, bool& reached)
{
    untilFailure = k;
    filter->Filter(fix);
    reached = untilFailure.exchange(0) == 0;
    return fix;
}

TEST(SmoothingMemory, AStepLeavesNothingBehind)
{
    const Filter filter(GPS::CGPSFilter::Make());
    Filtered(filter, FIRST);
    Filtered(filter, SECOND); // from here on all seven matrices have their shapes
    const long before = liveBlocks;
    for (int i = 0; i < 20; ++i) {
        Filtered(filter, i % 2 == 0 ? THIRD : SECOND);
        ASSERT_EQ(liveBlocks, before);
    }
}

TEST(SmoothingMemory, AFilterThatFindsNoMemoryIsNull)
{
    const long before = liveBlocks;
    long k = 1;
    for (; k < 100; ++k) {
        untilFailure = k;
        Filter filter(GPS::CGPSFilter::Make());
        if (untilFailure.exchange(0) != 0) {
            EXPECT_NE(filter, nullptr);
            break;
        }
        EXPECT_EQ(filter, nullptr) << k;
        EXPECT_EQ(liveBlocks, before) << k;
    }
    EXPECT_GT(k, 7); // seven parts and more
    EXPECT_EQ(liveBlocks, before);
}

/// Each step of a run in turn fails at its k-th allocation: the fix comes back as parsed, and what follows is
/// a run that begins.
void FailEachAllocationOfStep(int step)
{
    const Filter fresh(GPS::CGPSFilter::Make());
    Filtered(fresh, FIRST);
    const _GPS_Filter_Data smoothed = Filtered(fresh, SECOND);
    ASSERT_FALSE(Same(smoothed, SECOND));
    long k = 1;
    for (bool reached = true; reached; ++k) {
        const Filter filter(GPS::CGPSFilter::Make());
        for (int i = 0; i < step; ++i) {
            Filtered(filter, i == 0 ? FIRST : SECOND);
        }
        const _GPS_Filter_Data failed = FilteredFailing(filter, THIRD, k, reached);
        if (reached) {
            ASSERT_TRUE(Same(failed, THIRD)) << k;
            ASSERT_TRUE(Same(Filtered(filter, FIRST), FIRST)) << k; // a seed
            ASSERT_TRUE(Same(Filtered(filter, SECOND), smoothed)) << k;
        }
    }
    EXPECT_GT(k, 2);
}

TEST(SmoothingMemory, ASeedThatFailsLeavesTheFilterUnseeded)
{
    FailEachAllocationOfStep(0);
}

TEST(SmoothingMemory, TheFirstStepThatFailsEndsTheRun)
{
    FailEachAllocationOfStep(1);
}

TEST(SmoothingMemory, ALaterStepThatFailsEndsTheRun)
{
    FailEachAllocationOfStep(2);
}

} // namespace
