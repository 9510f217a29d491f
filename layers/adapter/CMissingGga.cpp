#include "layers/adapter/CMissingGga.h"

namespace adapter
{

bool CMissingGga::Times::Take(const CTimeText& time) noexcept
{
    if (!time.Known() || time.SameAs(last)) {
        return false;
    }
    last = time;
    ++count;
    return true;
}

CMissingGga::USE CMissingGga::TakeGns(const CTimeText& time) noexcept
{
    if (making != FROM_NOTHING) {
        making = FROM_GNS; // it knows the altitude, an RMC doesn't
        return MAKE;
    }
    ofGns.Take(time);
    if (ggaSeen && ofGns.count <= TIMES_FORGOTTEN) {
        return NO_NEED;
    }
    if (ggaSeen) {
        *this = CMissingGga();
        ofGns.Take(time);
    }
    ofRmc.count = 0;
    if (ofGns.count <= TIMES_WITHOUT) {
        return WAIT;
    }
    making = FROM_GNS;
    return MAKE;
}

bool CMissingGga::TakeRmc(const CTimeText& time) noexcept
{
    if (!ofRmc.Take(time)) {
        return false;
    }
    if (ggaSeen && ofRmc.count > TIMES_FORGOTTEN) {
        *this = CMissingGga();
        ofRmc.Take(time);
    }
    if (!ggaSeen && ofRmc.count > TIMES_WITHOUT) {
        making = FROM_RMC;
    }
    return making == FROM_RMC;
}

void CMissingGga::NoteGga() noexcept
{
    ggaSeen = true;
    ofGns.count = 0;
    ofRmc.count = 0;
}

} // namespace adapter
