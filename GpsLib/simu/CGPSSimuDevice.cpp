#include "GpsLib/simu/CGPSSimuDevice.h"

#include <new>

#include "GpsLib/simu/CGPSSimuDeviceImpl.h"

namespace GPS
{

CGPSSimuDevice::CGPSSimuDevice() : impl(nullptr) {}

CGPSSimuDevice::CGPSSimuDevice(const CGPSSimuDevice& other) : CGPSDeviceEx(other), impl(ShareImpl(other.impl))
{
}

// Safe for itself: AssignImpl shares before it leaves.
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment,cert-oop54-cpp)
CGPSSimuDevice& CGPSSimuDevice::operator=(const CGPSSimuDevice& other)
{
    AssignImpl(impl, other.impl);
    return *this;
}

CGPSSimuDevice::~CGPSSimuDevice()
{
    LeaveImpl(impl);
}

bool CGPSSimuDevice::SetSimuParam(CPath* path, double timeStep, double speed)
{
    if (impl == nullptr) {
        impl = new (std::nothrow) CGPSSimuDeviceImpl;
    }
    if (impl == nullptr) {
        return false;
    }
    impl->SetSpeed(timeStep, speed);
    impl->SetPath(path);
    return true;
}

bool CGPSSimuDevice::BeginSimu()
{
    try {
        return impl != nullptr && impl->BeginSimu();
    } catch (...) { // of the route's
        return false;
    }
}

bool CGPSSimuDevice::GetGPSData(_GPS_Data& data)
{
    try {
        return impl != nullptr && impl->NextStep(data) == CGPSSimuDeviceImpl::STEP_MADE;
    } catch (...) { // of the route's; the drive has failed
        return false;
    }
}

bool CGPSSimuDevice::GetGPSDataWithoutSate(_GPS_Data_Without_Sate& /*data*/)
{
    return false;
}

bool CGPSSimuDevice::GetWholeSate(_GPS_Satellite& /*satellite*/)
{
    return false;
}

bool CGPSSimuDevice::EndSimu()
{
    if (impl == nullptr) {
        return false;
    }
    impl->EndSimu();
    impl->SetPath(nullptr); // copies keep the object, and the route is its owner's to free
    LeaveImpl(impl);
    return true;
}

} // namespace GPS
