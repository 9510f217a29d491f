// MinimalApp.cpp: prints where a receiver is, for half a minute.
#include <chrono>
#include <cstdio>
#include <thread>

#include "GpsLib/Kest_GPS.h"
#include "layers/event/EventReceivers.h"
#include "layers/platform/PortMap.h"

int main(int argc, char** argv)
{
    platform::AssignPort(1, argc > 1 ? argv[1] : "/dev/ttyUSB0");
    GPS::CGPSCOMDevice receiver;
    event::RegisterReceiver(GPS_EVENT_EPOCH, [&receiver](const event::CustomEvent&) {
        GPS::_GPS_Data fix;
        if (receiver.GetGPSData(fix)) {
            std::printf("%.6f %.6f  %.1f km/h\n", fix.lonLat.lat, fix.lonLat.lon, fix.speed);
        }
    });
    receiver.SetGPSCOMParam(1, 9600, 0, 8, 0); // COM1, 9600 bit/s, no parity, 8 bits, one stop bit
    if (!receiver.OpenGPS()) {
        std::printf("the receiver's port won't open\n");
        return 1;
    }
    std::this_thread::sleep_for(std::chrono::seconds(30));
    receiver.CloseGPS(); // no event comes any more
    return 0;
}
