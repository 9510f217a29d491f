// CGPSCOMDeviceImpl.h: state and work of the live receiver.
#pragma once

#include <cstdint>

#include "GpsLib/contracts/KestThread.h"
#include "GpsLib/device/CSharers.h"
#include "GpsLib/device/HEADINGSTATETYPE.h"
#include "GpsLib/device/MOVESTATETYPE.h"
#include "GpsLib/filter/CSmoothing.h"
#include "GpsLib/log/LOGTYPE.h"
#include "GpsLib/records/GPSRecords.h"

class CommPort;
class CommReader;

namespace GPS
{

class CGPSLogDeviceImpl;
class CGPSStreamListener;

/// The live receiver behind CGPSCOMDevice, whose operations of the same name say what each does.
///
/// Two threads meet here. The reader thread alone writes the records, in TakeFix, and so reads them freely;
/// it publishes an epoch whole under `recordsLock`, and every other thread copies under it. No event goes out
/// and no smoothing runs under that lock, so a handler of an event may ask the device.
class CGPSCOMDeviceImpl
{
public:
    CGPSCOMDeviceImpl() noexcept;
    /// Leaves reader, port and listener alone: an open device is closed before.
    ~CGPSCOMDeviceImpl();
    CGPSCOMDeviceImpl(const CGPSCOMDeviceImpl&) = delete;
    CGPSCOMDeviceImpl& operator=(const CGPSCOMDeviceImpl&) = delete;

    void SetGPSCOMParam(std::uint32_t portNumber, std::uint32_t baudRate, std::uint32_t parity,
                        std::uint32_t byteSize, std::uint32_t stopBits) noexcept;
    bool OpenGPS();
    /// Result: false when the port refused to close, or on the reader thread; everything then stays as it
    /// was.
    bool CloseGPS();

    bool GetGPSData(_GPS_Data& data);
    bool GetGPSDataWithoutSate(_GPS_Data_Without_Sate& data);
    bool GetWholeSate(_GPS_Satellite& satellite);
    bool IsGPSValid();
    bool GetLastValidData(_GPS_Data& data);

    void OpenFilter() noexcept { smoothing.SwitchOn(); }
    void CloseFilter() noexcept { smoothing.SwitchOff(); }
    void SetFilterModel(FILTERMODEL model) noexcept { smoothing.SetModel(model); }
    bool StartWriteLog(const char* path, LOGTYPE type);
    bool StopWriteLog();

    MOVESTATETYPE GetVehicleCurrMoveState();
    HEADINGSTATETYPE GetVehicleCurrHeadingState();

    /// Takes a closed epoch in: history, smoothing, publication, events 1002 and 1003.
    /// fix: with smoothing on its position, speed and heading are rewritten.
    /// Thread: the reader thread, with the listener's lock held.
    void TakeFix(_GPS_Data& fix);

private:
    /// The last three epochs, newest first, as of one moment.
    struct Epochs {
        _GPS_Data_Without_Sate newest;
        _GPS_Data_Without_Sate before;
        _GPS_Data_Without_Sate beforeThat;
    };

    bool MakeParts();
    void DeleteParts();
    bool StartReader();

    void Publish(const _GPS_Data& fix);
    void AnnounceMove() const;
    void WatchLoss();

    Epochs CopyEpochs();
    static bool InRange(const Epochs& epochs) noexcept;

    _GPS_Data current;               // the last epoch taken in
    _GPS_Data lastValid;             // the last one with a valid fix
    CommReader* reader;              // owned; from OpenGPS to CloseGPS
    CommPort* port;                  // owned; from OpenGPS to CloseGPS
    CGPSStreamListener* listener;    // owned; from OpenGPS to CloseGPS
    CGPSLogDeviceImpl* logWriter;    // owned; null when the allocation failed
    CSmoothing smoothing;            // switched by the application's threads, worked by the reader thread
    _GPS_Data_Without_Sate history1; // the epoch before `current`
    _GPS_Data_Without_Sate history2; // the epoch before `history1`
    std::uint32_t lossSeconds;       // [s] seconds clock at the last loss of the fix; reader thread only
    std::uint32_t portNumber;
    std::uint32_t baudRate; // this and the next three have no default worth having; 0 until they are set
    std::uint32_t parity;
    std::uint32_t byteSize;
    std::uint32_t stopBits;
    bool opened; // the thread that opens and closes

    KestThread::FastMutex
        recordsLock; // guards the four records where they are written and where others read them

public:
    CSharers sharers; // the façades that hold this object
};

} // namespace GPS
