#include "GpsLib/comm/CommReader.h"

#include "GpsLib/comm/CommPort.h"
#include "GpsLib/comm/LockGuard.h"

namespace
{

constexpr unsigned long REST_BETWEEN_READS = 50; // [ms]
constexpr unsigned long REST_BEFORE_END = 20;    // [ms]

// The reader whose run() is on this thread's stack.
thread_local const CommReader* runningReader = nullptr;

} // namespace

CommReader::CommReader(CommPort* port) : port(port), buffer(), stopSignal(stopLock) {}

CommReader::~CommReader() = default;

bool CommReader::OpenPort(std::uint32_t portNumber, std::uint32_t baudRate, std::uint32_t parity,
                          std::uint32_t byteSize, std::uint32_t stopBits)
{
    return port->Open(portNumber, baudRate, parity, byteSize, stopBits);
}

void CommReader::run()
{
    runningReader = this;
    while (port->IsOpen()) {
        std::uint32_t count = 0;
        if (!port->Read(buffer, CHUNK_MAX, &count)) {
            continue; // paced by the platform's time-outs
        }
        if (count != 0) {
            HandOut(count);
        }
        KestThread::Thread::sleep(REST_BETWEEN_READS);
    }
    KestThread::Thread::sleep(REST_BEFORE_END);
    runningReader = nullptr;
    const KestThread::LockGuard guard(stopLock);
    stopSignal
        .signal(); // Stop holds the lock from before its close until it waits, so this can't come too early
}

void CommReader::HandOut(std::uint32_t length)
{
    try {
        notify(buffer, length);
    } catch (...) { // NOLINT(bugprone-empty-catch): nothing may end the thread; the chunk alone is lost
    }
}

bool CommReader::Stop()
{
    if (runningReader == this) {
        return false;
    }
    if (!port->IsOpen()) {
        return true;
    }
    const KestThread::LockGuard guard(stopLock);
    const bool closed = port->Close();
    if (closed) {
        stopSignal.wait();
    }
    return closed;
}
