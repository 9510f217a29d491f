// Bursts.h: where a receiver's bursts begin in a text of NMEA sentences.
#pragma once

#include <string_view>
#include <vector>

namespace kestgps
{

/// Cuts a text into the bursts in which a receiver sends it; put together they are the text, byte for byte.
///
/// A burst begins at a GGA, GLL, RMC or ZDA when one of the same address already stands in the current burst
/// with another time or with none; every other line belongs to the burst in which it stands. A sentence is
/// compared with its like alone: receivers give the sentences of one burst different times, and send no time
/// at all without a fix.
/// text: any; torn lines and foreign bytes are lines without a time. Result: views into it.
std::vector<std::string_view> SplitBursts(std::string_view text);

} // namespace kestgps
