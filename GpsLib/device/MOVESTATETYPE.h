// MOVESTATETYPE.h: how the vehicle's speed behaves over the last three epochs.
#pragma once

/// Mind the values: 4 is a changing speed here and a steady heading in HEADINGSTATETYPE.
enum MOVESTATETYPE {
    MOVESTATE_SLOW = 0,     ///< all three speeds are below 10 km/h
    MOVESTATE_STEADY = 1,   ///< the speed changed by 5 km/h or less on at least one of the last two steps
    MOVESTATE_CHANGING = 4, ///< the speed changed by more than 5 km/h on both of the last two steps
    MOVESTATE_UNKNOWN = 5,  ///< no valid fix, or a position out of range
};
