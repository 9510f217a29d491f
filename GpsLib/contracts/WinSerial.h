// WinSerial.h: the platform's serial services, with the platform's own names, types and constants.
//
// On Windows they are the platform's. Elsewhere a layer defines the functions declared here, and what it
// promises beyond their names stands beside them.
#pragma once

#include "GpsLib/contracts/KestApi.h"
#include "GpsLib/contracts/WinTypes.h"

#if !defined(_WIN32)

#include <cstdint>

// Closed. NOLINTNEXTLINE(performance-no-int-to-ptr): the platform's own value, no address
inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-1));

constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD OPEN_EXISTING = 3;

constexpr DWORD EV_RXCHAR = 0x0001;

constexpr DWORD SETRTS = 3;
constexpr DWORD CLRRTS = 4;
constexpr DWORD SETDTR = 5;
constexpr DWORD CLRDTR = 6;

constexpr DWORD PURGE_TXABORT = 0x0001;
constexpr DWORD PURGE_RXABORT = 0x0002;
constexpr DWORD PURGE_TXCLEAR = 0x0004;
constexpr DWORD PURGE_RXCLEAR = 0x0008;

constexpr BYTE NOPARITY = 0;
constexpr BYTE ODDPARITY = 1;
constexpr BYTE EVENPARITY = 2;
constexpr BYTE MARKPARITY = 3;
constexpr BYTE SPACEPARITY = 4;

constexpr BYTE ONESTOPBIT = 0;
constexpr BYTE ONE5STOPBITS = 1;
constexpr BYTE TWOSTOPBITS = 2;

constexpr DWORD DTR_CONTROL_ENABLE = 1;
constexpr DWORD RTS_CONTROL_ENABLE = 1;

constexpr DWORD MAXDWORD = 0xFFFFFFFF;

/// Settings of a port.
struct DCB {
    DWORD DCBlength;
    DWORD BaudRate; ///< [bit/s]
    DWORD fBinary : 1;
    DWORD fParity : 1;
    DWORD fOutxCtsFlow : 1;
    DWORD fOutxDsrFlow : 1;
    DWORD fDtrControl : 2;
    DWORD fDsrSensitivity : 1;
    DWORD fTXContinueOnXoff : 1;
    DWORD fOutX : 1;
    DWORD fInX : 1;
    DWORD fErrorChar : 1;
    DWORD fNull : 1;
    DWORD fRtsControl : 2;
    DWORD fAbortOnError : 1;
    DWORD fDummy2 : 17;
    WORD wReserved;
    WORD XonLim;
    WORD XoffLim;
    BYTE ByteSize; ///< 5 to 8
    BYTE Parity;   ///< NOPARITY to SPACEPARITY
    BYTE StopBits; ///< ONESTOPBIT to TWOSTOPBITS
    char XonChar;
    char XoffChar;
    char ErrorChar;
    char EofChar;
    char EvtChar;
    WORD wReserved1;
};
static_assert(sizeof(DCB) == 28);
using LPDCB = DCB*;

/// Time-outs of a port, all in [ms]; 0 means none.
struct COMMTIMEOUTS {
    DWORD ReadIntervalTimeout;         ///< longest gap between two bytes
    DWORD ReadTotalTimeoutMultiplier;  ///< for each byte asked for
    DWORD ReadTotalTimeoutConstant;    ///< added once
    DWORD WriteTotalTimeoutMultiplier; ///< for each byte to write
    DWORD WriteTotalTimeoutConstant;   ///< added once
};
using LPCOMMTIMEOUTS = COMMTIMEOUTS*;

/// State of a port's queues.
struct COMSTAT {
    DWORD fCtsHold : 1;
    DWORD fDsrHold : 1;
    DWORD fRlsdHold : 1;
    DWORD fXoffHold : 1;
    DWORD fXoffSent : 1;
    DWORD fEof : 1;
    DWORD fTxim : 1;
    DWORD fReserved : 25;
    DWORD cbInQue;  ///< bytes received and not yet read
    DWORD cbOutQue; ///< bytes written and not yet sent
};
using LPCOMSTAT = COMSTAT*;

struct _SECURITY_ATTRIBUTES; // never given
struct _OVERLAPPED;          // never given
using LPSECURITY_ATTRIBUTES = _SECURITY_ATTRIBUTES*;
using LPOVERLAPPED = _OVERLAPPED*;

// All of these: nonzero is success; a handle that is not open gives 0 and does nothing. Thread: any.
extern "C" {

/// Opens the port named "COMn:" for exclusive use, from this process and from others.
/// Result: a handle, or INVALID_HANDLE_VALUE when there is no such port or someone has it open.
KEST_API HANDLE CreateFileW(LPCWSTR name, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                            DWORD disposition, DWORD flags, HANDLE pattern);

/// Says which events of the port somebody waits for; nobody here does.
KEST_API BOOL SetCommMask(HANDLE port, DWORD events);
/// Recommends the lengths of the driver's queues. [byte]
KEST_API BOOL SetupComm(HANDLE port, DWORD inputQueue, DWORD outputQueue);
/// Fills in the port's present settings.
KEST_API BOOL GetCommState(HANDLE port, LPDCB settings);

/// Result: 0 when the driver won't have one of the settings.
KEST_API BOOL SetCommState(HANDLE port, LPDCB settings);

/// Fills in the port's present time-outs.
KEST_API BOOL GetCommTimeouts(HANDLE port, LPCOMMTIMEOUTS timeouts);
/// They count from the next read or write on.
KEST_API BOOL SetCommTimeouts(HANDLE port, LPCOMMTIMEOUTS timeouts);
/// Raises or lowers a line of the port: SETDTR, CLRDTR, SETRTS, CLRRTS.
KEST_API BOOL EscapeCommFunction(HANDLE port, DWORD function);
/// Empties queues: PURGE_ bits.
KEST_API BOOL PurgeComm(HANDLE port, DWORD queues);
/// Clears the error state, so that the next transfer can run, and tells it and the queues. Either place may
/// be null.
KEST_API BOOL ClearCommError(HANDLE port, LPDWORD errors, LPCOMSTAT state);

/// Reads until `length` bytes are there or a time-out ends the wait. A read that ends for want of room or
/// total time while a line is still arriving delivers only whole lines and keeps the rest for the next read;
/// a gap delivers everything.
/// Result: nonzero with 0 bytes when a time-out ended it with nothing to deliver; 0 when the port is closed,
/// also from another thread during the read, or has been gone for a whole time-out.
KEST_API BOOL ReadFile(HANDLE port, LPVOID buffer, DWORD length, LPDWORD count, LPOVERLAPPED overlapped);

/// Writes until everything is with the driver or the time-out has run out. count: set to the bytes written.
KEST_API BOOL WriteFile(HANDLE port, LPCVOID buffer, DWORD length, LPDWORD count, LPOVERLAPPED overlapped);

/// Wakes whoever waits in ReadFile or WriteFile, waits until they have left, and closes the port.
KEST_API BOOL CloseHandle(HANDLE port);

} // extern "C"

#endif
