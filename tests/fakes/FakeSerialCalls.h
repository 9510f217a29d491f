// FakeSerialCalls.h: one serial port that does what the test says, call by call.
#pragma once

#include <deque>
#include <set>
#include <string>
#include <vector>

#include "GpsLib/contracts/WinSerial.h"

/// Left alone it is a port that works and that nothing comes from. Its handle is 0, which is as good a handle
/// as any: INVALID_HANDLE_VALUE alone means closed.
class FakeSerialCalls
{
public:
    static void Reset();

    /// The next reads, in order; a chunk goes over as many as it needs. With nothing left, a read on a
    /// started thread pauses until there is or the port closes; on the test's own it times out.
    static void Play(const std::string& chunk) { script.push_back({chunk, false}); }
    static void PlayTimeOut() { Play(""); }
    static void PlayFailure() { script.push_back({"", true}); }

    struct Step {
        std::string bytes; // none: a time-out
        bool fails;
    };

    static inline bool open = false;
    static inline std::deque<Step> script;
    static inline std::set<std::string> failing; // names of the calls that fail, and have then no effect
    /// Each call: its name and plain arguments, "PurgeComm 15"; a read says whether its buffer came in
    /// zeroed. A call on a port that isn't open ends with "on no port".
    static inline std::vector<std::string> journal;
    static inline DCB settings{};          // the driver's, then those last handed in
    static inline COMMTIMEOUTS timeouts{}; // likewise
    static inline std::string written;
};
