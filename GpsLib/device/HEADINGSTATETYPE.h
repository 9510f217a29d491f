// HEADINGSTATETYPE.h: how the vehicle's heading behaves over the last three epochs.
#pragma once

/// Mind the values: 4 is a steady heading here and a changing speed in MOVESTATETYPE.
enum HEADINGSTATETYPE {
    HEADINGSTATE_TURNING =
        1, ///< the heading changed by 5 degrees or more on at least one of the last two steps
    HEADINGSTATE_STEADY = 4,  ///< the heading changed by less than 5 degrees on both of the last two steps
    HEADINGSTATE_UNKNOWN = 5, ///< no valid fix, or a position out of range
};
