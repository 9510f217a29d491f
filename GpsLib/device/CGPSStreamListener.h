// CGPSStreamListener.h: turns the byte stream of a receiver into epochs.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "GpsLib/comm/CommListener.h"
#include "GpsLib/contracts/KestThread.h"
#include "GpsLib/records/GPSRecords.h"

namespace GPS
{

class CGPSCOMDeviceImpl;
class CGPSLogDeviceImpl;
class CNMEAParser;

/// Cuts chunks into sentences, has each parsed into one working record, and hands the record to the device at
/// each closing sentence, which is GGA. One listener serves one opening of the device.
/// Thread: onData on the reader thread; SetWriteLog on any.
class CGPSStreamListener : public CommListener
{
public:
    /// Bytes after which a sentence that is still not complete is dropped.
    static constexpr std::int32_t SENTENCE_MAX = 82;

    /// device, logWriter: borrowed; both outlive this object. logWriter may be null.
    CGPSStreamListener(CGPSCOMDeviceImpl* device, CGPSLogDeviceImpl* logWriter) noexcept;
    CGPSStreamListener(const CGPSStreamListener&) = delete;
    CGPSStreamListener& operator=(const CGPSStreamListener&) = delete;

    /// A sentence is complete when "$" follows it or the chunk ends behind it. Bytes that begin no "GP"
    /// sentence wipe what the epoch has gathered.
    void onData(const char* data, const std::uint32_t& length) override;

    virtual ~CGPSStreamListener();

    /// Result: false when it found no memory for its parser, and so ignores every chunk.
    bool CanParse() const noexcept { return parser != nullptr; }

    /// Turns the copying of accepted sentences to the log writer on or off.
    void SetWriteLog(bool on) noexcept { writeLogFlag = on; }

private:
    std::size_t Gather(std::string_view chunk) noexcept;
    void TakeSentence();
    void CloseEpoch();

    CNMEAParser* parser;            // owned; null when the allocation failed
    CGPSCOMDeviceImpl* device;      // borrowed
    CGPSLogDeviceImpl* logWriter;   // borrowed; may be null
    KestThread::Mutex lock;         // held around TakeFix, and so while it sends its events
    bool noFix;                     // the last closed epoch had no valid fix
    std::int32_t index;             // bytes in `sentence`, 0 to 8 between two chunks
    char sentence[201];             // terminated when it is whole
    _GPS_Data record;               // all that was parsed since the last close or wipe
    std::atomic<bool> writeLogFlag; // set by the application's threads, read by the reader thread
    _GPS_Satellite accumulator;     // this opening's own GSV group, which no other feed can disturb
};

} // namespace GPS
