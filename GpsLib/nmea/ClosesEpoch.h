// ClosesEpoch.h: which sentence ends an epoch, for the live receiver and for replay alike.
#pragma once

#include <cstddef>

/// Of the sentences that are parsed, GGA alone has "G" as its fifth character. Nothing else is asked: neither
/// whether the checksum held nor whether a field was stored, so a receiver without a fix has epochs too.
/// sentence: one that the parser accepted, in a buffer of at least 5 bytes; what stands behind a NUL counts
/// too.
inline bool ClosesEpoch(const char* sentence) noexcept
{
    constexpr std::size_t LETTER_AT = 4;
    return sentence[LETTER_AT] == 'G';
}
