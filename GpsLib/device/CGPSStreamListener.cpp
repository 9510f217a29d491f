#include "GpsLib/device/CGPSStreamListener.h"

#include <cstring>
#include <new>

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
    for (std::uint32_t i = 0; i < length; ++i) {
        sentence[index] = data[i];
        ++index;
        if (index < SENTENCE_MIN) {
            continue;
        }
        const bool complete = i == length - 1 || data[i + 1] == SENTENCE_START;
        if (complete) {
            TakeSentence();
            DropSentence();
        } else if (index == SENTENCE_MAX) {
            DropSentence();
        }
    }
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

void CGPSStreamListener::DropSentence() noexcept
{
    index = 0;
    std::memset(sentence, 0, sizeof sentence);
}

} // namespace GPS
