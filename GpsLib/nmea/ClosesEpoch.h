// ClosesEpoch.h: which sentence ends an epoch, for the live receiver and for replay alike.
#pragma once

#include <cstddef>

/// Of the sentences that are parsed, GGA alone has "G" as its fifth character. Nothing else is asked: neither
/// whether the checksum held nor whether a field was stored, so a receiver without a fix has epochs too.
/// sentence: one that the parser accepted, so at least "$GP" long.
inline bool ClosesEpoch(const char* sentence) noexcept
{
    constexpr std::size_t LETTER_AT = 4;
    return sentence[LETTER_AT - 1] != '\0' && sentence[LETTER_AT] == 'G';
}
