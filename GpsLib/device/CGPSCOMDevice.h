// CGPSCOMDevice.h: a live NMEA 0183 receiver on a serial port.
//
// - GGA closes an epoch: a receiver that sends none gives no record and no event.
// - Talker "GP" alone counts. A sentence of any other, or a proprietary one, empties the epoch so far.
// - A receiver that sends GGA first in its burst gives each record the speed, date and satellites of the
//   burst before.
// - The Linux layers open /dev/ttyS(n-1) as COMn; platform::AssignPort in layers/platform/PortMap.h puts
//   another device there.
// - device/GpsEvents.h lists the events; event::RegisterReceiver in layers/event/EventReceivers.h is how to
//   get them.
// - records/GPSRecords.h says which fields of a record can be relied on.
#pragma once

#include "GpsLib/device/CGPSDeviceEx.h"
#include "GpsLib/device/HEADINGSTATETYPE.h"
#include "GpsLib/device/MOVESTATETYPE.h"
#include "GpsLib/filter/FILTERMODEL.h"
#include "GpsLib/log/LOGTYPE.h"

namespace GPS
{

class CGPSCOMDeviceImpl;

/// A live receiver. Set its port, open it, read fixes as they come, close it before the last copy dies or is
/// assigned another device: either leaves an open device's thread running without what it works on.
///
/// Copies share one device. A device that found no memory answers false, the unknown state or nothing.
///
/// Thread: the queries work from any thread, on a closed device too, and from inside a handler of any event;
/// each sees whole epochs. SetGPSCOMParam, OpenGPS, CloseGPS, StartWriteLog and StopWriteLog are for one
/// thread at a time. OpenFilter, CloseFilter and SetFilterModel: any. No exception leaves any of them.
///
/// Virtual operations in slot order, which is ABI.
class KEST_GPS_API CGPSCOMDevice : public CGPSDeviceEx
{
public:
    CGPSCOMDevice();
    CGPSCOMDevice(const CGPSCOMDevice& other);
    CGPSCOMDevice& operator=(const CGPSCOMDevice& other);
    ~CGPSCOMDevice() override;

    /// The last closed epoch.
    /// Result: false when it has no valid fix; `data` is then untouched. Never waits for the receiver.
    bool GetGPSData(_GPS_Data& data) override;
    /// As GetGPSData, without the satellites.
    bool GetGPSDataWithoutSate(_GPS_Data_Without_Sate& data) override;
    /// The satellites of the last closed epoch.
    /// Result: false when it has no valid fix, also while satellites are in view.
    bool GetWholeSate(_GPS_Satellite& satellite) override;
    /// Result: true when the last closed epoch has a valid fix. Turns false with the first epoch without one,
    /// not when the signal goes.
    virtual bool IsGPSValid();
    /// The last epoch that had a valid fix.
    /// Result: true; before the first such epoch with a default-constructed record.
    virtual bool GetLastValidData(_GPS_Data& data);

    /// Port settings for the next OpenGPS; an open port isn't touched. Parity stands before the byte size.
    /// Until it is called the port number is 1 and the others are settings that no port takes.
    /// portNumber: 1 to 9, the n of "COMn:".
    /// baudRate: [bit/s].
    /// parity: 0 none, 1 odd, 2 even, 3 mark, 4 space.
    /// byteSize: 5 to 8.
    /// stopBits: 0 for one, 2 for two.
    void SetGPSCOMParam(unsigned int portNumber, unsigned int baudRate, unsigned int parity,
                        unsigned int byteSize, unsigned int stopBits);

    /// Opens the port and starts the reader thread.
    /// Result: true, also on an open device, which goes on as it is. False when the port won't open with
    /// these settings, or without memory or a thread; the device is then closed.
    bool OpenGPS();

    /// Closes the port and waits until the reader thread has ended. The records stay and go on answering. A
    /// closed device stays closed. On the reader thread, that is from inside an event, it changes nothing.
    /// Beware: it waits for event handlers too, so a caller that holds a lock which a handler wants waits for
    /// ever.
    /// Takes: at most a read time-out (0.61 s) and 0.1 s, and what the handlers take for the epochs of the
    /// bytes that are already read, at most 512.
    void CloseGPS();

    /// Smooths fixes from the next epoch on, by the model that SetFilterModel chose.
    void OpenFilter();
    /// Leaves fixes as they are from the next epoch on. The state of the smoothing stays.
    void CloseFilter();
    /// Chooses how fixes are smoothed from the next epoch on, and doesn't switch smoothing on. Whenever the
    /// model changes, the new one starts fresh; choosing the one at work changes nothing. The velocity model
    /// starts fresh with OpenGPS too, the acceleration model goes on from the state that it has. It is
    /// FILTERMODEL_ACCELERATION until this is called.
    /// model: a value that is no model changes nothing.
    void SetFilterModel(FILTERMODEL model);

    /// Copies the raw sentences to a file, behind what is there; a log that is open goes on in its own file.
    /// CloseGPS ends the copying but leaves the file open, until StopWriteLog or the end of the device; after
    /// another OpenGPS nothing is copied until this is called anew.
    /// path: borrowed for the call.
    /// Result: false before OpenGPS and after CloseGPS, or when no log is open and the path is null or can't
    /// be opened.
    bool StartWriteLog(char* path, LOGTYPE type);
    /// Ends the copying and closes the file, which then holds all that was copied; on a closed device too.
    /// Result: true when a log was open.
    bool StopWriteLog();

    /// How the speed behaves over the last three epochs, on whole km/h. A speed beyond int's range counts as
    /// the nearest int, one that is no number as 0.
    MOVESTATETYPE GetVehicleCurrMoveState();
    /// How the heading behaves over the last three epochs. A heading that is not finite counts as a turn.
    HEADINGSTATETYPE GetVehicleCurrHeadingState();

private:
    CGPSCOMDeviceImpl*
        impl; // shared with the copies; the last one deletes it. Null when the allocation failed
};
static_assert(sizeof(CGPSCOMDevice) == 2 * sizeof(void*));

} // namespace GPS
