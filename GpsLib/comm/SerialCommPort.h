// SerialCommPort.h: owns the platform's handle of a serial port and makes every platform call.
#pragma once

#include <atomic>
#include <cstdint>

#include "GpsLib/contracts/WinSerial.h"

/// A serial port of the platform. Virtual operations in slot order: destructor, Open, Close, Read, Write.
///
/// Thread: Open and Close on one thread, Read and Write on another; Close may overlap a Read that waits,
/// which the platform then ends.
class SerialCommPort
{
public:
    /// Asked of the driver for its queues; the reader's chunks are as long. [byte]
    static constexpr std::uint32_t QUEUE_SIZE = 512;

    /// A closed port.
    SerialCommPort() noexcept;
    /// Makes no platform call: the owner closes first.
    virtual ~SerialCommPort();
    SerialCommPort(const SerialCommPort&) = delete;
    SerialCommPort& operator=(const SerialCommPort&) = delete;

    /// Opens "COMn:" for exclusive use and applies settings and time-outs: a read returns at a gap of 100 ms
    /// between bytes, or 100 ms and 1 ms for each byte asked for after it began, or when full.
    /// portNumber: one decimal digit; the port's name has room for no more.
    /// baudRate: [bit/s].
    /// parity, byteSize, stopBits: the platform's DCB values; 8 bits of each count.
    /// Result: false when the name doesn't fit, there is no such port, it is in use, or it refuses a setting;
    /// the port is then closed.
    virtual bool Open(std::uint32_t portNumber, std::uint32_t baudRate, std::uint32_t parity,
                      std::uint32_t byteSize, std::uint32_t stopBits);

    /// Result: true; it has no failing path. A closed port stays closed.
    virtual bool Close();

    /// Zero-fills the whole buffer, then reads into it.
    /// buffer: `length` bytes. count: the bytes received, 0 when the time-outs ran out with nothing received.
    /// Result: false for a port that is closed, was closed during the read, or failed; the next read may
    /// succeed.
    virtual bool Read(char* buffer, std::uint32_t length, std::uint32_t* count);

    /// Writes without a time-out.
    /// Result: false for a port that is closed or failed.
    virtual bool Write(const char* buffer, std::uint32_t length, std::uint32_t* count);

private:
    bool ApplySettings(std::uint32_t baudRate, std::uint32_t parity, std::uint32_t byteSize,
                       std::uint32_t stopBits);
    bool ApplyTimeouts();
    void ClearError();

    // INVALID_HANDLE_VALUE alone is closed. Written by the thread that opens and closes, read by the reader
    // thread.
    std::atomic<HANDLE> handle;
};
