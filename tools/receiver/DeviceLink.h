// DeviceLink.h: a name of the user's choice for a device.
#pragma once

#include <string>

namespace kestgps
{

/// A symbolic link that lasts as long as this object.
class DeviceLink
{
public:
    /// Throws ToolError when there is something of that name, or it can't be made.
    DeviceLink(const std::string& device, const std::string& name);
    ~DeviceLink();
    DeviceLink(const DeviceLink&) = delete;
    DeviceLink& operator=(const DeviceLink&) = delete;

private:
    const std::string device;
    const std::string name;
};

} // namespace kestgps
