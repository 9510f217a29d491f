#include "GpsLib/device/CGPSDeviceEx.h"

namespace GPS
{

CGPSDeviceEx::CGPSDeviceEx() = default;
CGPSDeviceEx::CGPSDeviceEx(const CGPSDeviceEx& other) = default;
CGPSDeviceEx& CGPSDeviceEx::operator=(const CGPSDeviceEx& other) = default;
CGPSDeviceEx::~CGPSDeviceEx() = default;

} // namespace GPS
