// FieldConversions.h: the one place where the text of a sentence becomes numbers.
//
// Alike under every locale, and whether `char` is signed or not: characters count as unsigned bytes.
#pragma once

#include <cstdint>

/// Decimal text as `atof` reads it in the "C" locale: white space, sign, digits, point, exponent; rounded to
/// nearest. It stops at the first character that can't belong to a number. No hexadecimal, no infinity, no
/// NaN.
/// Result: 0.0 where there is no number; an infinity beyond the range of double.
double ToDouble(const char* text) noexcept;
/// The same; moves `text` on to where it stopped.
double TakeDouble(const char*& text) noexcept;

/// Decimal text as `atoi` reads it: white space, sign, digits.
/// Result: 0 where there is no number; the nearest int beyond int's range.
int ToInt(const char* text) noexcept;
/// The same; moves `text` on to where it stopped.
int TakeInt(const char*& text) noexcept;

/// The number that a character stands for when it is a digit; any other character gives its distance from
/// '0'.
constexpr int DigitValue(unsigned char character) noexcept
{
    return character - '0';
}

/// Two characters as a number, with no test that they are digits; the caller cuts it to the width of its
/// field.
constexpr int TwoDigits(unsigned char tens, unsigned char ones) noexcept
{
    return DigitValue(tens) * 10 + DigitValue(ones);
}
