// WinTypes.h: the basic types of the platform's services, by the platform's own names.
#pragma once

#if defined(_WIN32)

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#else

#include <cstdint>

using BOOL = int; // nonzero is success
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LPDWORD = DWORD*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPCWSTR = const wchar_t*;
using HANDLE = void*;

#endif
