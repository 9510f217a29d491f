#include "GpsLib/device/CGPSCOMDeviceImpl.h"

#include <new>

#include "GpsLib/comm/CommPort.h"
#include "GpsLib/comm/CommReader.h"
#include "GpsLib/comm/LockGuard.h"
#include "GpsLib/device/CGPSStreamListener.h"
#include "GpsLib/log/CGPSLogDeviceImpl.h"

namespace
{
constexpr std::uint32_t DEFAULT_PORT = 1;
}

namespace GPS
{

using KestThread::LockGuard;

CGPSCOMDeviceImpl::CGPSCOMDeviceImpl() noexcept
    : reader(nullptr),
      port(nullptr),
      listener(nullptr),
      logWriter(new (std::nothrow) CGPSLogDeviceImpl),
      history1{},
      history2{},
      lossSeconds(0),
      portNumber(DEFAULT_PORT),
      baudRate(0),
      parity(0),
      byteSize(0),
      stopBits(0),
      opened(false)
{
    ClearRecord(current); // not the default record: the first fix away from 0, 0 counts as a move
}

CGPSCOMDeviceImpl::~CGPSCOMDeviceImpl()
{
    delete logWriter;
    logWriter = nullptr;
}

void CGPSCOMDeviceImpl::SetGPSCOMParam(std::uint32_t portNumber, std::uint32_t baudRate, std::uint32_t parity,
                                       std::uint32_t byteSize, std::uint32_t stopBits) noexcept
{
    this->portNumber = portNumber;
    this->baudRate = baudRate;
    this->parity = parity;
    this->byteSize = byteSize;
    this->stopBits = stopBits;
}

bool CGPSCOMDeviceImpl::OpenGPS()
{
    if (opened) {
        return true;
    }
    if (!MakeParts()) {
        return false; // what was made stays until CloseGPS, or until the next try
    }
    reader->subscribe(listener);
    if (!reader->isSubscribed(listener) ||
        !reader->OpenPort(portNumber, baudRate, parity, byteSize, stopBits)) {
        CloseGPS();
        return false;
    }
    return StartReader();
}

bool CGPSCOMDeviceImpl::MakeParts()
{
    DeleteParts(); // of an opening that failed half-way
    port = new (std::nothrow) CommPort;
    if (port == nullptr) {
        return false;
    }
    listener = new (std::nothrow) CGPSStreamListener(this, logWriter);
    if (listener == nullptr || !listener->CanParse()) {
        return false;
    }
    reader = new (std::nothrow) CommReader(port);
    return reader != nullptr;
}

bool CGPSCOMDeviceImpl::StartReader()
{
    smoothing.BeginDrive(); // no reader thread works it yet
    try {
        const KestThread::Thread thread(reader); // goes on without this object
        opened = true;
    } catch (...) {
        port->Close(); // not through Stop, which would wait for the thread that there isn't
        DeleteParts();
    }
    return opened;
}

bool CGPSCOMDeviceImpl::CloseGPS()
{
    if (reader != nullptr && !reader->Stop()) {
        return false;
    }
    DeleteParts();
    opened = false;
    return true;
}

/// Reader, port, listener: the thread has ended before what it uses goes.
void CGPSCOMDeviceImpl::DeleteParts()
{
    delete reader;
    reader = nullptr;
    delete port;
    port = nullptr;
    delete listener;
    listener = nullptr;
}

bool CGPSCOMDeviceImpl::GetGPSData(_GPS_Data& data)
{
    const LockGuard guard(recordsLock);
    if (current.valid == 0) {
        return false;
    }
    data = current;
    return true;
}

bool CGPSCOMDeviceImpl::GetGPSDataWithoutSate(_GPS_Data_Without_Sate& data)
{
    const LockGuard guard(recordsLock);
    if (current.valid == 0) {
        return false;
    }
    CopyToWithoutSate(current, data);
    return true;
}

bool CGPSCOMDeviceImpl::GetWholeSate(_GPS_Satellite& satellite)
{
    const LockGuard guard(recordsLock);
    if (current.valid == 0) {
        return false;
    }
    satellite = current.satellite;
    return true;
}

bool CGPSCOMDeviceImpl::IsGPSValid()
{
    const LockGuard guard(recordsLock);
    return current.valid != 0;
}

bool CGPSCOMDeviceImpl::GetLastValidData(_GPS_Data& data)
{
    const LockGuard guard(recordsLock);
    data = lastValid;
    return true;
}

bool CGPSCOMDeviceImpl::StartWriteLog(const char* path, LOGTYPE type)
{
    if (listener == nullptr || logWriter == nullptr) {
        return false;
    }
    logWriter->SetLogType(type);
    const bool opened = logWriter->OpenLogFileForWrite(path);
    listener->SetWriteLog(true); // also without a file: each write then fails by itself
    return opened;
}

bool CGPSCOMDeviceImpl::StopWriteLog()
{
    if (listener != nullptr) {
        listener->SetWriteLog(false);
    }
    return logWriter != nullptr && logWriter->CloseLogFile(); // on a closed device too
}

} // namespace GPS
