// LiveRun.h: one run with a receiver, from opening its port to the summary.
#pragma once

#include <optional>
#include <string>

#include "GpsLib/Kest_GPS.h"
#include "layers/adapter/AdapterCounts.h"
#include "tools/live/EventTap.h"
#include "tools/live/LiveOptions.h"
#include "tools/live/NoticeQueue.h"
#include "tools/live/RawRecording.h"
#include "tools/output/LineOutput.h"
#include "tools/receiver/Emulator.h"
#include "tools/receiver/PlayingThread.h"
#include "tools/signals/StopSignals.h"

namespace kestgps
{

/// The reader thread fills the queue, the thread that calls Run prints from it.
class LiveRun
{
public:
    /// Throws ToolError when the system is short of descriptors.
    explicit LiveRun(const LiveOptions& options);
    ~LiveRun();
    LiveRun(const LiveRun&) = delete;
    LiveRun& operator=(const LiveRun&) = delete;

    /// Runs until a stop signal, the end that the options name, or the end of the demonstration.
    /// Result: the exit status. Throws ToolError when the port won't open, a file can't be written or no
    /// epoch came. Called once.
    int Run();

private:
    std::uint32_t Port() const noexcept;
    void AssignPort();
    void OpenReceiver();
    void StartLog();
    void StartDemo();
    void PrintNotices();
    bool PrintNotice(const ReceiverNotice& notice);
    void TellLostLines();
    void TellReceiver();
    int Finish();
    std::string WhyNoEpoch() const;

    std::string DevicePath() const;

    const LiveOptions options;
    std::optional<Clock::time_point> deadline;
    StopSignals signals; // before whatever makes a thread
    LineOutput output;
    NoticeQueue queue;
    std::optional<RawRecording> raw; // before what feeds it
    std::uint64_t epochsPrinted = 0;
    adapter::AdapterCounts counts; // of the port's adapter, the last that were asked for
    GPS::CGPSCOMDevice device;
    EventTap tap;
    std::optional<Emulator> emulator;    // of the demonstration
    std::optional<PlayingThread> player; // likewise; goes before what it plays
};

} // namespace kestgps
