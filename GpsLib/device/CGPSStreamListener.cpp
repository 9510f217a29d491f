#include "GpsLib/device/CGPSStreamListener.h"

#include <new>
#include <string_view>

#include "GpsLib/comm/LockGuard.h"
#include "GpsLib/device/CGPSCOMDeviceImpl.h"
#include "GpsLib/device/GpsEvents.h"
#include "GpsLib/device/SendGpsEvent.h"
#include "GpsLib/log/CGPSLogDeviceImpl.h"
#include "GpsLib/nmea/CNMEAParser.h"
#include "GpsLib/nmea/ClosesEpoch.h"

namespace
{

constexpr std::int32_t SENTENCE_MIN =
    9; // bytes before a sentence can count as complete; below, nothing is looked at
constexpr char SENTENCE_START = '$';
constexpr std::int32_t FORMAT = 0;

} // namespace

namespace GPS
{

CGPSStreamListener::CGPSStreamListener(CGPSCOMDeviceImpl* device, CGPSLogDeviceImpl* logWriter) noexcept
    : parser(nullptr),
      device(device),
      logWriter(logWriter),
      noFix(true),
      index(0),
      sentence(),
      writeLogFlag(false)
{
    ClearRecord(record);
    CNMEAParser::ResetAccumulator(accumulator);
    parser = new (std::nothrow) CNMEAParser;
}

CGPSStreamListener::~CGPSStreamListener()
{
    delete parser;
}

void CGPSStreamListener::onData(const char* data, const std::uint32_t& length)
{
    if (length == 0) {
        noFix = true;
        return;
    }
    if (parser == nullptr) {
        return;
    }
    for (std::string_view rest(data, length); !rest.empty();) {
        rest.remove_prefix(Gather(rest));
        if (index < SENTENCE_MIN) {
            return; // the chunk is at its end, and the next one goes on
        }
        sentence[index] = '\0';
        index = 0;
        if (rest.empty() || rest.front() == SENTENCE_START) {
            TakeSentence();
        }
    }
}

/// Adds the bytes up to the "$" of the next sentence, or all that fit where there is none.
/// Result: how many.
std::size_t CGPSStreamListener::Gather(std::string_view chunk) noexcept
{
    const std::string_view fitting = chunk.substr(0, static_cast<std::size_t>(SENTENCE_MAX - index));
    const std::size_t next = fitting.find(SENTENCE_START, static_cast<std::size_t>(SENTENCE_MIN - index));
    const std::size_t count = fitting.copy(sentence + index, next); // all, when there is no next
    index += static_cast<std::int32_t>(count);
    return count;
}

void CGPSStreamListener::TakeSentence()
{
    // 82, not the true length: assembly never passes it, and the talker alone counts here.
    if (!parser->Parse(sentence, SENTENCE_MAX, FORMAT, record, accumulator)) {
        ClearRecord(record);
        return;
    }
    if (writeLogFlag && logWriter != nullptr) {
        logWriter->WriteLog(sentence);
    }
    if (ClosesEpoch(sentence)) {
        CloseEpoch();
    }
}

void CGPSStreamListener::CloseEpoch()
{
    noFix = record.valid == 0;
    if (noFix) {
        SendGpsEvent(GPS_EVENT_NO_FIX);
    }
    {
        const KestThread::LockGuard guard(lock);
        device->TakeFix(record);
    }
    SendGpsEvent(GPS_EVENT_EPOCH);
    ClearRecord(record);
}

} // namespace GPS
