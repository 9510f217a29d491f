// The bytes of a receiver in chunks of any length, to a listener with its device behind.
//
// A second listener gets the same chunks cut further, where a cut must change nothing: with so few bytes
// gathered that nothing is looked at yet, and between two sentences, where the first one's end is seen
// anyway. Where those places are follows from the limits of 9 and 82 bytes, so a listener that gathers more
// or fewer takes another road than its twin. The two speak in turn, so neither may disturb the other's
// groups.
#include <memory>
#include <vector>

#include "GpsLib/device/CGPSCOMDeviceImpl.h"
#include "GpsLib/device/CGPSStreamListener.h"
#include "GpsLib/device/GpsEvents.h"
#include "GpsLib/log/CGPSLogDeviceImpl.h"
#include "fuzz/CInput.h"
#include "fuzz/Require.h"
#include "layers/event/EventReceivers.h"

namespace
{

/// A log that goes nowhere: hostile text passes through the writer all the same.
GPS::CGPSLogDeviceImpl* LogToNowhere()
{
    static GPS::CGPSLogDeviceImpl log;
    Require(log.OpenLogFileForWrite("/dev/null"), "there is a log");
    return &log;
}

/// A device and its listener, with all that an application gets to see of them.
class Receiver
{
public:
    explicit Receiver(bool smoothing) : listener(&device, LogToNowhere())
    {
        if (smoothing) {
            device.OpenFilter();
        }
        listener.SetWriteLog(true);
    }

    /// The chunk goes over in a block of its exact size.
    void Take(std::string_view chunk)
    {
        const std::unique_ptr<char[]> bytes(new char[chunk.size()]);
        chunk.copy(bytes.get(), chunk.size());
        speaking = this;
        listener.onData(bytes.get(), static_cast<std::uint32_t>(chunk.size()));
    }

    const std::vector<unsigned char>& Journal() const noexcept { return journal; }

    static void Note(const event::CustomEvent& event) { speaking->NoteState(event.Id()); }

private:
    template <class RECORD>
    void Append(const RECORD& record)
    {
        const auto bytes = BytesOf(record);
        journal.insert(journal.end(), bytes.begin(), bytes.end());
    }

    void NoteState(std::uint16_t id)
    {
        _GPS_Data last;
        _GPS_Data now;
        device.GetLastValidData(last);
        Require(device.GetGPSData(now) == device.IsGPSValid(), "a valid fix is there to be read");
        Append(id);
        Append(last);
        Append(now);
        Append(device.GetVehicleCurrMoveState());
        Append(device.GetVehicleCurrHeadingState());
    }

    static Receiver* speaking;

    GPS::CGPSCOMDeviceImpl device;
    GPS::CGPSStreamListener listener;
    std::vector<unsigned char> journal;
};

Receiver* Receiver::speaking = nullptr;

/// Follows how many bytes a listener has gathered.
class Gathering
{
public:
    static constexpr int CHUNK_END = -1;

    /// next: the byte that follows in the chunk, or CHUNK_END.
    /// Result: true when the chunk may as well end behind this byte.
    bool TakeByte(int next) noexcept
    {
        ++count;
        if (count < 9) {
            return true;
        }
        const bool complete = next == CHUNK_END || next == '$';
        if (complete || count == 82) {
            count = 0;
        }
        return complete;
    }

private:
    int count = 0;
};

void TakeCutFurther(std::string_view chunk, unsigned cutMask, Gathering& gathering, Receiver& receiver)
{
    std::size_t start = 0;
    for (std::size_t i = 0; i < chunk.size(); ++i) {
        const bool last = i + 1 == chunk.size();
        const bool mayEnd =
            gathering.TakeByte(last ? Gathering::CHUNK_END : static_cast<unsigned char>(chunk[i + 1]));
        if (last || (mayEnd && (cutMask >> (i % 8) & 1U) != 0)) {
            receiver.Take(chunk.substr(start, i + 1 - start));
            receiver.Take({}); // says nothing, changes nothing
            start = i + 1;
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/)
{
    for (const std::uint16_t id :
         {GPS_EVENT_EPOCH, GPS_EVENT_MOVED, GPS_EVENT_FIX_TIMEOUT, GPS_EVENT_NO_FIX}) {
        event::RegisterReceiver(id, Receiver::Note);
    }
    return 0;
}

// The first bytes: smoothing, where the twin's chunks are cut further, lengths of the chunks in turn.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t LENGTHS = 4;
    CInput input(data, size);
    const bool smoothing = (input.Byte() & 1U) != 0;
    const unsigned cutMask = input.Byte();
    const std::string_view lengths = input.Bytes(LENGTHS);
    Receiver receiver(smoothing);
    Receiver twin(smoothing);
    Gathering gathering;
    for (std::size_t turn = 0; !input.Empty(); ++turn) {
        const auto length = static_cast<unsigned char>(lengths[turn % LENGTHS]);
        const std::string_view chunk = input.Bytes(length * 2U + 1U); // up to 511, as a port delivers
        receiver.Take(chunk);
        TakeCutFurther(chunk, cutMask, gathering, twin);
    }
    Require(receiver.Journal() == twin.Journal(), "a cut where a sentence ends anyway changes nothing");
    return 0;
}
