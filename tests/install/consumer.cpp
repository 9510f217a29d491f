// Uses each class that the library exports, and what an application needs of the layers.
#include <cstdio>

#include "GpsLib/Kest_GPS.h"
#include "layers/event/EventReceivers.h"
#include "layers/platform/PortMap.h"
#include "layers/route/CGuidePath.h"

namespace
{

struct Listener final : CommListener {
    void onData(const char* /*data*/, const std::uint32_t& /*length*/) override {}
};

bool Drives()
{
    route::CGuidePath path({{11.0, 48.0}, {11.001, 48.0}});
    GPS::CGPSSimuDevice simulation;
    _GPS_Data fix;
    return simulation.SetSimuParam(&path, 1.0, 60.0) && simulation.BeginSimu() &&
           simulation.GetGPSData(fix) && fix.lonLat.lon > 11.0;
}

bool Listens()
{
    Listener listener;
    KestThread::Observable<CommListener, KestThread::Mutex> listeners;
    listeners.subscribe(&listener);
    listeners.unsubscribe(&listener);
    const event::ReceiverId receiver =
        event::RegisterReceiver(GPS_EVENT_EPOCH, [](const event::CustomEvent&) {});
    return event::RemoveReceiver(receiver);
}

} // namespace

int main()
{
    platform::AssignPort(1, "/dev/null"); // which is no port
    GPS::CGPSCOMDevice receiver;
    receiver.SetGPSCOMParam(1, 9600, 0, 8, 0);
    GPS::CGPSLogDevice log;
    GPS::_GPS_Data fix;
    const bool right = !receiver.OpenGPS() && !log.GetGPSData(fix) && Drives() && Listens();
    std::puts(right ? "installed library works" : "installed library fails");
    return right ? 0 : 1;
}
