// CommReader.h: the loop on the reader thread; one reader serves one opening of the port.
#pragma once

#include <cstdint>

#include "GpsLib/comm/CommListener.h"
#include "GpsLib/comm/Observable.h"
#include "GpsLib/contracts/KestThread.h"

class CommPort;

/// Reads the port and hands each chunk to the listeners, until Stop.
class CommReader : public KestThread::Runnable, public KestThread::Observable<CommListener, KestThread::Mutex>
{
public:
    /// Bytes asked for in one read, and so the longest chunk that a listener gets.
    static constexpr std::uint32_t CHUNK_MAX = 512;

    /// port: borrowed; the caller deletes it after this object.
    explicit CommReader(CommPort* port);
    ~CommReader() override;
    CommReader(const CommReader&) = delete;
    CommReader& operator=(const CommReader&) = delete;

    /// Opens the port; before the thread starts.
    /// Result: that of CommPort::Open.
    bool OpenPort(std::uint32_t portNumber, std::uint32_t baudRate, std::uint32_t parity,
                  std::uint32_t byteSize, std::uint32_t stopBits);

    /// The thread's body. A failed read doesn't end it; a listener that throws loses that chunk alone.
    void run() override;

    /// Closes the port and waits until run() has left its loop.
    /// Result: true when the reader may be deleted; at once when the port was not open. False when the port
    /// refused to close, or on the reader thread, which can't wait for itself: nothing has then changed and
    /// the thread goes on.
    /// Thread: the one that called OpenPort.
    /// Takes: at most a read time-out and 70 ms.
    bool Stop();

private:
    void HandOut(std::uint32_t length);

    CommPort* port;                   // borrowed
    char buffer[CHUNK_MAX];           // reader thread only
    KestThread::FastMutex stopLock;   // held by Stop from before the close until it waits
    KestThread::Condition stopSignal; // bound to stopLock
};
