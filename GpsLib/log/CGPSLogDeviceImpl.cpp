#include "GpsLib/log/CGPSLogDeviceImpl.h"

#include "GpsLib/filter/CGPSFilter.h"
#include "GpsLib/nmea/CNMEAParser.h"

namespace GPS
{

CGPSLogDeviceImpl::CGPSLogDeviceImpl() noexcept
    : logType(LOGTYPE_NMEA), readFormat(0), filterOn(false), filter(CGPSFilter::Make())
{
    CNMEAParser::ResetAccumulator(accumulator);
}

CGPSLogDeviceImpl::~CGPSLogDeviceImpl()
{
    readFile.reset();
    writeFile.reset();
    delete filter;
    filter = nullptr;
}

} // namespace GPS
