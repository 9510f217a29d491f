#include "GpsLib/log/CGPSLogDeviceImpl.h"

#include "GpsLib/nmea/CNMEAParser.h"

namespace GPS
{

CGPSLogDeviceImpl::CGPSLogDeviceImpl() noexcept : logType(LOGTYPE_NMEA), readFormat(0)
{
    CNMEAParser::ResetAccumulator(accumulator);
}

CGPSLogDeviceImpl::~CGPSLogDeviceImpl()
{
    readFile.reset();
    writeFile.reset();
}

} // namespace GPS
