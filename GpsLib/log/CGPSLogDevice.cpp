#include "GpsLib/log/CGPSLogDevice.h"

#include <new>

#include "GpsLib/log/CGPSLogDeviceImpl.h"

namespace GPS
{

CGPSLogDevice::CGPSLogDevice() : impl(new (std::nothrow) CGPSLogDeviceImpl) {}

CGPSLogDevice::CGPSLogDevice(const CGPSLogDevice& other) : CGPSDeviceEx(other), impl(ShareImpl(other.impl)) {}

// Safe for itself: AssignImpl shares before it leaves.
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment,cert-oop54-cpp)
CGPSLogDevice& CGPSLogDevice::operator=(const CGPSLogDevice& other)
{
    AssignImpl(impl, other.impl);
    return *this;
}

CGPSLogDevice::~CGPSLogDevice()
{
    LeaveImpl(impl);
}

bool CGPSLogDevice::GetGPSData(_GPS_Data& data)
{
    return impl != nullptr && impl->NextFix(data);
}

bool CGPSLogDevice::GetGPSDataWithoutSate(_GPS_Data_Without_Sate& data)
{
    return impl != nullptr && impl->GetGPSDataWithoutSate(data);
}

bool CGPSLogDevice::GetWholeSate(_GPS_Satellite& satellite)
{
    return impl != nullptr && impl->GetWholeSate(satellite);
}

bool CGPSLogDevice::OpenLogFileForRead(char* path)
{
    return impl != nullptr && impl->OpenLogFileForRead(path);
}

void CGPSLogDevice::OpenFilter()
{
    if (impl != nullptr) {
        impl->OpenFilter();
    }
}

void CGPSLogDevice::CloseFilter()
{
    if (impl != nullptr) {
        impl->CloseFilter();
    }
}

void CGPSLogDevice::SetFilterModel(FILTERMODEL model)
{
    if (impl != nullptr) {
        impl->SetFilterModel(model);
    }
}

bool CGPSLogDevice::OpenLogFileForWrite(const char* path)
{
    return impl != nullptr && impl->OpenLogFileForWrite(path);
}

bool CGPSLogDevice::WriteLog(const char* text)
{
    return impl != nullptr && impl->WriteLog(text);
}

} // namespace GPS
