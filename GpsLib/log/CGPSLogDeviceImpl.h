// CGPSLogDeviceImpl.h: writes a log and replays one, with a stream for each direction.
#pragma once

#include <atomic>
#include <cstdint>

#include "GpsLib/contracts/KestThread.h"
#include "GpsLib/device/CSharers.h"
#include "GpsLib/filter/CSmoothing.h"
#include "GpsLib/log/CStdioFile.h"
#include "GpsLib/log/LOGTYPE.h"
#include "GpsLib/records/GPSRecords.h"

namespace GPS
{

/// The work behind CGPSLogDevice, whose operations of the same name say what each does, and the receiver's
/// log writer.
///
/// Thread: the writing side on any thread, each line whole; the replay on one at a time.
class CGPSLogDeviceImpl
{
public:
    CGPSLogDeviceImpl() noexcept;
    ~CGPSLogDeviceImpl();
    CGPSLogDeviceImpl(const CGPSLogDeviceImpl&) = delete;
    CGPSLogDeviceImpl& operator=(const CGPSLogDeviceImpl&) = delete;

    // ---- Writing

    void SetLogType(LOGTYPE type) noexcept { logType = type; }
    bool OpenLogFileForWrite(const char* path);
    /// Result: false with no log open for writing or a null text; true with a log type that writes nothing.
    bool WriteLog(const char* text);
    /// Writes out what the stream holds and closes it; a write in flight ends first.
    /// Result: false with no log open for writing.
    bool CloseLogFile();

    // ---- Replay

    bool OpenLogFileForRead(const char* path);
    void OpenFilter() noexcept { smoothing.SwitchOn(); }
    void CloseFilter() noexcept { smoothing.SwitchOff(); }
    void SetFilterModel(FILTERMODEL model) noexcept { smoothing.SetModel(model); }
    /// Reads a line, or a piece of 254 bytes of a longer one; a bare LF comes out as CR LF.
    /// buffer: 256 bytes; gets the text, terminated. What stands behind the terminator is nobody's.
    /// size: 255 [byte], for the longest piece and its terminator.
    /// Result: the length [byte], 0 with no log open (`buffer` untouched) and for a line that begins with
    /// NUL, -1 at the end of the file.
    std::int32_t ReadLine(char* buffer, std::int32_t size);
    bool NextFix(_GPS_Data& record);
    bool GetGPSDataWithoutSate(_GPS_Data_Without_Sate& data) const noexcept;
    bool GetWholeSate(_GPS_Satellite& satellite) const noexcept;

private:
    void WriteLine(const char* text) KEST_REQUIRES(writeLock);
    bool GatherFix(_GPS_Data& record);

    CStdioFile writeFile KEST_GUARDED_BY(writeLock);
    CStdioFile readFile;          // its read position is the whole state of the replay
    std::atomic<LOGTYPE> logType; // set by the application's threads, read by the reader thread
    std::uint32_t readFormat;     // the parser's format; 0, the only one there is
    KestThread::Mutex writeLock;  // held around each write and each change of `writeFile`
    _GPS_Data lastData;           // the last record that the replay gave
    CSmoothing smoothing;         // switched by any thread, worked by the replay
    _GPS_Satellite accumulator;   // this feed's own GSV group, which no other feed can disturb

public:
    CSharers sharers; // the façades that hold this object
};

} // namespace GPS
