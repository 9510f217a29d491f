// TermiosSettings.h: a DCB's speed and frame as the kernel's terminal settings, and back.
#pragma once

#include "GpsLib/contracts/WinSerial.h"

namespace platform
{

/// Makes a terminal a plain line of bytes with the speed and frame of `settings`, without flow control: any
/// speed that the driver makes within 3 %, any size and parity and one or two stop bits, if it has them.
/// Result: false for what doesn't exist or the driver won't have; the terminal is then as it was.
bool ApplySettings(int tty, const DCB& settings) noexcept;

/// Fills in speed, size, parity and stop bits; the other fields stay.
/// Result: false when the terminal doesn't answer; nothing has then changed.
bool ReadSettings(int tty, DCB& settings) noexcept;

} // namespace platform
