// ReceiverNotice.h: what a receiver's event says, taken down while it is sent.
#pragma once

#include <cstdint>

#include "GpsLib/device/HEADINGSTATETYPE.h"
#include "GpsLib/device/MOVESTATETYPE.h"
#include "GpsLib/records/GPSRecords.h"

namespace kestgps
{

/// All but the id counts with GPS_EVENT_EPOCH alone.
struct ReceiverNotice {
    std::uint16_t eventId = 0;
    bool hasFix = false;
    _GPS_Data fix; ///< only with a fix
    MOVESTATETYPE move = MOVESTATE_UNKNOWN;
    HEADINGSTATETYPE heading = HEADINGSTATE_UNKNOWN;
};

} // namespace kestgps
