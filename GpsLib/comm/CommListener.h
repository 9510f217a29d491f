// CommListener.h: what takes the chunks of bytes that a port delivers.
#pragma once

#include <cstdint>

#include "GpsLib/GpsExport.h"

/// Whoever wants the bytes of a port derives from this and subscribes. Nobody deletes a listener through it.
class KEST_GPS_API CommListener
{
public:
    /// Takes one chunk, which may begin and end anywhere in a sentence.
    /// data: borrowed for the call. length: [byte] of the chunk.
    /// Thread: the reader thread. No exception may leave it.
    virtual void onData(const char* data, const std::uint32_t& length) = 0;

protected:
    ~CommListener() = default; // not virtual: a subclass that is deleted through a table adds its own
};
static_assert(sizeof(CommListener) == sizeof(void*));
