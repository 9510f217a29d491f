// Floors.h: the least that any parser does with a sentence and any replay with a log, for times to be
// measured against.
#pragma once

#include <string>

/// The checksum alone.
unsigned XorFloor(const std::string& sentence) noexcept;

/// The checksum, and std::from_chars on every field that begins with a digit: to double where it holds a
/// point, else to int. Result: something that depends on all of it.
double FromCharsFloor(const std::string& sentence) noexcept;

/// Every line of a file read, and its bytes summed. Result: the sum.
unsigned long LinesFloor(const std::string& path);
