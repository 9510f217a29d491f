// CommPort.h: the port as the rest of the system sees it.
#pragma once

#include <atomic>
#include <cstdint>

class SerialCommPort;

/// Keeps the open flag and forwards to the platform's port. Virtual operations in slot order: destructor,
/// Open, Close, Read, Write; whatever is to stand in for a port overrides these.
///
/// Thread: Open and Close on one thread; Read and IsOpen on the reader thread.
class CommPort
{
public:
    /// A closed port. Without memory for the platform's port it never opens.
    CommPort() noexcept;
    /// Doesn't close the port: the owner closes first.
    virtual ~CommPort();
    CommPort(const CommPort&) = delete;
    CommPort& operator=(const CommPort&) = delete;

    /// Result: true on an open port, which keeps its settings; else that of SerialCommPort::Open.
    virtual bool Open(std::uint32_t portNumber, std::uint32_t baudRate, std::uint32_t parity,
                      std::uint32_t byteSize, std::uint32_t stopBits);

    /// Result: true on a closed port; false when the platform's port refused, and it then stays open.
    virtual bool Close();

    /// As SerialCommPort::Read; doesn't ask whether the port is open.
    virtual bool Read(char* buffer, std::uint32_t length, std::uint32_t* count);

    /// As SerialCommPort::Write; doesn't ask whether the port is open.
    virtual bool Write(const char* buffer, std::uint32_t length, std::uint32_t* count);

    /// Result: true from a successful Open to a successful Close. Thread: any.
    bool IsOpen() const noexcept;

private:
    SerialCommPort* impl; // owned; null when the allocation failed, and then nothing opens
    std::atomic<bool>
        opened; // set and cleared by the thread that opens and closes, polled by the reader thread
};
