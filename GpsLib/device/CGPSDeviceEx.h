// CGPSDeviceEx.h: the interface behind which an application reads fixes from any device.
#pragma once

#include "GpsLib/GpsExport.h"
#include "GpsLib/records/GPSRecords.h"

namespace GPS
{

/// A source of fixes. Virtual operations in slot order, which is ABI.
class KEST_GPS_API CGPSDeviceEx
{
public:
    CGPSDeviceEx();
    CGPSDeviceEx(const CGPSDeviceEx& other);
    CGPSDeviceEx& operator=(const CGPSDeviceEx& other);
    virtual ~CGPSDeviceEx();

    /// Result: true with the whole fix in `data`; each device says what a false leaves in it.
    virtual bool GetGPSData(_GPS_Data& data) = 0;
    /// Result: true with the fix, less its satellites, in `data`; on false it is untouched.
    virtual bool GetGPSDataWithoutSate(_GPS_Data_Without_Sate& data) = 0;
    /// Result: true with the satellites of the fix in `satellite`; on false it is untouched.
    virtual bool GetWholeSate(_GPS_Satellite& satellite) = 0;
};
static_assert(sizeof(CGPSDeviceEx) == sizeof(void*));

} // namespace GPS
