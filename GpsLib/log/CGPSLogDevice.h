// CGPSLogDevice.h: replays a log as if a receiver were speaking, and writes logs.
//
// - OpenLogFileForRead, then GetGPSData by the loop that stands there: one false isn't the end yet.
// - A record ends with a GGA that has a position. Talker "GP" alone counts.
// - No event is sent: the caller's reads are what sets the pace.
// - A log is the sentences themselves, each ended by CR LF; a receiver's log (StartWriteLog in
//   device/CGPSCOMDevice.h) is one.
// - records/GPSRecords.h says which fields of a record can be relied on.
#pragma once

#include "GpsLib/device/CGPSDeviceEx.h"
#include "GpsLib/filter/FILTERMODEL.h"

namespace GPS
{

class CGPSLogDeviceImpl;

/// A recorded drive. It has no thread and no clock: each GetGPSData reads on to the next record, so the rate
/// of calls sets the pace. It can write a log at the same time, through a stream of its own.
///
/// Copies share one device; the streams close with the last of them. A device that found no memory answers
/// false.
/// Thread: replay on one thread at a time; OpenFilter, CloseFilter, SetFilterModel and WriteLog on any. No
/// exception leaves any operation.
///
/// Virtual operations in slot order, which is ABI.
class KEST_GPS_API CGPSLogDevice : public CGPSDeviceEx
{
public:
    CGPSLogDevice();
    CGPSLogDevice(const CGPSLogDevice& other);
    CGPSLogDevice& operator=(const CGPSLogDevice& other);
    ~CGPSLogDevice() override;

    /// Reads on to the next GGA with which the record holds a longitude other than 0.
    /// Result: false with no log open (`data` untouched), at the end, or at a line that begins with NUL, as
    /// a power cut leaves them (`data` not to be used). True doesn't say that the fix is valid: ask
    /// `data.valid`.
    ///
    /// The next call goes on behind a line that begins with NUL, without what its epoch had gathered; at the
    /// end every call gives false, at once. A false steps over up to 254 bytes of NUL, so many in a row are
    /// the end:
    ///
    ///     for (int misses = 0; misses < 65536; ++misses) {
    ///         while (log.GetGPSData(fix)) {
    ///             Use(fix);
    ///             misses = 0;
    ///         }
    ///     }
    bool GetGPSData(_GPS_Data& data) override;
    /// The last record that GetGPSData gave. Reads no line.
    /// Result: false when that had no valid fix.
    bool GetGPSDataWithoutSate(_GPS_Data_Without_Sate& data) override;
    /// The satellites of the last record that GetGPSData gave. Reads no line.
    /// Result: false when that had no valid fix.
    bool GetWholeSate(_GPS_Satellite& satellite) override;

    /// Starts the replay of a file from its beginning; one that was open before is closed.
    /// Result: false for a null path, which changes nothing, or a file that can't be opened; no log is then
    /// open.
    bool OpenLogFileForRead(char* path);
    /// Smooths fixes from the next record on, by the model that SetFilterModel chose.
    void OpenFilter();
    /// Leaves records as they are from the next one on. The state of the smoothing stays.
    void CloseFilter();
    /// Chooses how fixes are smoothed from the next record on, and doesn't switch smoothing on. Whenever the
    /// model changes, the new one starts fresh; choosing the one at work changes nothing. The velocity model
    /// starts fresh with each log too, the acceleration model goes on from the state that it has. It is
    /// FILTERMODEL_ACCELERATION until this is called.
    /// model: a value that is no model changes nothing.
    void SetFilterModel(FILTERMODEL model);

    /// Opens a file to write behind what is there; one that can't be opened for that is begun anew, if that
    /// can be done. A log that is open stays open, and the path is ignored.
    /// Result: false for a null path, or when the file can't be opened.
    bool OpenLogFileForWrite(const char* path);
    /// Writes one line: the text, and CR LF unless it ends so already. It is sure to be in the file once the
    /// device is gone. A full disk goes unnoticed.
    /// Result: false with no log open for writing or a null text.
    bool WriteLog(const char* text);

private:
    CGPSLogDeviceImpl*
        impl; // shared with the copies; the last one deletes it. Null when the allocation failed
};
static_assert(sizeof(CGPSLogDevice) == 2 * sizeof(void*));

} // namespace GPS
