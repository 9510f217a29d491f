// CTty.h: the descriptor of a serial device.
#pragma once

namespace platform
{

/// A terminal device that nobody else has open. Never blocks in a transfer and never becomes the controlling
/// terminal.
class CTty
{
public:
    CTty() = default;
    ~CTty() { Close(); }
    CTty(const CTty&) = delete;
    CTty& operator=(const CTty&) = delete;

    /// Called on a closed one.
    /// path: a link is followed.
    /// Result: false when there is no such terminal, or it is open here or in another process; it stays
    /// closed then.
    bool Open(const char* path) noexcept;
    void Close() noexcept;

    bool IsOpen() const noexcept { return descriptor >= 0; }
    /// Result: the descriptor, -1 while closed.
    int Get() const noexcept { return descriptor; }

private:
    int descriptor = -1; // owned
};

} // namespace platform
