#include "GpsLib/device/CGPSCOMDevice.h"

#include <new>

#include "GpsLib/device/CGPSCOMDeviceImpl.h"

namespace GPS
{

CGPSCOMDevice::CGPSCOMDevice() : impl(new (std::nothrow) CGPSCOMDeviceImpl) {}

CGPSCOMDevice::CGPSCOMDevice(const CGPSCOMDevice& other) : CGPSDeviceEx(other), impl(ShareImpl(other.impl)) {}

// Safe for itself: AssignImpl shares before it leaves.
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment,cert-oop54-cpp)
CGPSCOMDevice& CGPSCOMDevice::operator=(const CGPSCOMDevice& other)
{
    AssignImpl(impl, other.impl);
    return *this;
}

CGPSCOMDevice::~CGPSCOMDevice()
{
    LeaveImpl(impl);
}

bool CGPSCOMDevice::GetGPSData(_GPS_Data& data)
{
    return impl != nullptr && impl->GetGPSData(data);
}

bool CGPSCOMDevice::GetGPSDataWithoutSate(_GPS_Data_Without_Sate& data)
{
    return impl != nullptr && impl->GetGPSDataWithoutSate(data);
}

bool CGPSCOMDevice::GetWholeSate(_GPS_Satellite& satellite)
{
    return impl != nullptr && impl->GetWholeSate(satellite);
}

bool CGPSCOMDevice::IsGPSValid()
{
    return impl != nullptr && impl->IsGPSValid();
}

bool CGPSCOMDevice::GetLastValidData(_GPS_Data& data)
{
    return impl != nullptr && impl->GetLastValidData(data);
}

void CGPSCOMDevice::SetGPSCOMParam(unsigned int portNumber, unsigned int baudRate, unsigned int parity,
                                   unsigned int byteSize, unsigned int stopBits)
{
    if (impl != nullptr) {
        impl->SetGPSCOMParam(portNumber, baudRate, parity, byteSize, stopBits);
    }
}

bool CGPSCOMDevice::OpenGPS()
{
    return impl != nullptr && impl->OpenGPS();
}

void CGPSCOMDevice::CloseGPS()
{
    if (impl != nullptr) {
        impl->CloseGPS();
    }
}

void CGPSCOMDevice::OpenFilter()
{
    if (impl != nullptr) {
        impl->OpenFilter();
    }
}

void CGPSCOMDevice::CloseFilter()
{
    if (impl != nullptr) {
        impl->CloseFilter();
    }
}

void CGPSCOMDevice::SetFilterModel(FILTERMODEL model)
{
    if (impl != nullptr) {
        impl->SetFilterModel(model);
    }
}

bool CGPSCOMDevice::StartWriteLog(char* path, LOGTYPE type)
{
    return impl != nullptr && impl->StartWriteLog(path, type);
}

bool CGPSCOMDevice::StopWriteLog()
{
    return impl != nullptr && impl->StopWriteLog();
}

MOVESTATETYPE CGPSCOMDevice::GetVehicleCurrMoveState()
{
    return impl != nullptr ? impl->GetVehicleCurrMoveState() : MOVESTATE_UNKNOWN;
}

HEADINGSTATETYPE CGPSCOMDevice::GetVehicleCurrHeadingState()
{
    return impl != nullptr ? impl->GetVehicleCurrHeadingState() : HEADINGSTATE_UNKNOWN;
}

} // namespace GPS
