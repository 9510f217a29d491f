// LiveOptions.h: what the user asked of "kestgps live".
#pragma once

#include <cstdint>
#include <string>

namespace kestgps
{

struct LiveOptions {
    // Exactly one of these three says where the receiver is.
    std::uint32_t port = 0; ///< 1 to 9; 0 is none
    std::string device;     ///< path; empty is none
    bool demo = false;      ///< the demonstration drive, in this process

    std::uint32_t baudRate = 9600; ///< [bit/s]
    std::string parity = "none";   ///< none, odd, even, mark or space
    std::uint32_t dataBits = 8;    ///< 5 to 8
    std::uint32_t stopBits = 1;    ///< 1 or 2

    /// A burst of the demonstration drive is about 0.5 kB, so this makes 6.5 kB/s; the reader thread rests
    /// 50 ms after at most 512 bytes and so carries about 9. The drive takes some 23 s.
    double factor = 12.0;

    double seconds = 0.0;     ///< [s] after which to end; 0 is never
    std::uint64_t epochs = 0; ///< after which to end; 0 is never
    bool events = false;
    bool state = false;
    std::string smooth; ///< model; empty is none
    std::string log;    ///< file; empty is none
    std::string raw;    ///< file for the bytes as they come; empty is none
    bool asIs = false;  ///< the port leaves the sentences alone
    bool prompt = true; ///< the port ends its reads as soon as a fix is there
};

} // namespace kestgps
