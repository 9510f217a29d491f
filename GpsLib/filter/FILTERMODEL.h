// FILTERMODEL.h: how fixes are smoothed.
#pragma once

#include <cstdint>

/// Any value can be passed; one that stands not here chooses nothing.
enum FILTERMODEL : std::int32_t {
    FILTERMODEL_ACCELERATION = 0, ///< position and speed, by a constant acceleration; the default
    FILTERMODEL_VELOCITY = 1,     ///< position and heading, along the receiver's own velocity
};
