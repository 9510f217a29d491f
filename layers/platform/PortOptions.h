// PortOptions.h: what a port may do with its bytes on their way to the library.
#pragma once

#include <cstddef>
#include <functional>

#include "layers/adapter/Talkers.h"

namespace platform
{

/// Everything is off as it is made: the port then hands its bytes on as they come and when it always did.
/// With anything on it takes the kernel's queue out whole at each read and keeps 16 KB.
struct PortOptions {
    /// The sentences go through an adapter::CSentenceAdapter: receivers of today for a library that takes the
    /// older form of talker GP.
    bool adapt = false;
    /// What the adapter takes for GP.
    adapter::Talkers talkers;

    /// A read ends at once when it holds a whole GGA, which closes an epoch, and with other whole lines when
    /// the receiver pauses for 60 ms. It gives all whole lines that are there, and never ends later than
    /// without this.
    bool prompt = false;

    /// A read that ends while bytes keep coming ends at a line feed that "$" follows, where there is one, not
    /// at any line feed. For a receiver with binary frames between its sentences, without the adapter, which
    /// takes them out.
    bool cutAtSentences = false;

    /// Gets every byte that the port takes in, in order and once, as it came, before the adapter. For raw
    /// recordings and counters; empty is none.
    ///
    /// Thread: the one that reads the port. No read goes on before it returns, so it must be quick: for more
    /// than 4 KB of bytes the kernel has no room. It may ask for PortCounts and assign ports; it must not
    /// close the port.
    /// Owner: copied at AssignPort; that copy is destroyed once the port is assigned anew and closed.
    /// What it throws is dropped: the bytes go on to the library, and the next ones come to it again.
    std::function<void(const char* bytes, std::size_t length)> tap;
};

} // namespace platform
