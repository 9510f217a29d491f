// SentenceText.h: one NMEA 0183 sentence, field by field.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kestgps
{

/// Gathers the fields of a sentence and frames them. Numbers are held to the width that their field has, so
/// that no value makes a sentence too long.
class SentenceText
{
public:
    /// address: talker and type, such as "GPGGA".
    explicit SentenceText(std::string_view address) : body(address) {}

    SentenceText& Text(std::string_view field);
    SentenceText& Empty(int count = 1);
    /// A whole number with leading zeros; below 0 counts as 0, above `digits` nines as those.
    SentenceText& Whole(int value, int digits);
    /// value: held to the range from `least` to `most`; what is no number leaves the field empty.
    SentenceText& Decimal(double value, double least, double most, int decimals);

    /// Result: the sentence from dollar sign to CR LF, with its checksum in upper-case hexadecimal digits.
    std::string Finish() const;

private:
    std::string body; // between the dollar sign and the asterisk
};

} // namespace kestgps
