// CNMEAParser.h: turns NMEA 0183 sentences into changes of a working record.
#pragma once

#include <cstdint>

#include "GpsLib/records/GPSRecords.h"

namespace GPS
{

/// The parser of GGA, GLL, GSA, GSV, RMC, VTG and ZDA of the talker "GP".
///
/// It has no data of its own: the record and, for GSV, the accumulator come in through the arguments. Nothing
/// here allocates, throws or reads past a sentence's terminator.
/// Thread: any number at once, as long as no two share a record or an accumulator.
class CNMEAParser
{
public:
    /// Sentences outside these lengths are refused; the longer bound is the standard's, line end included.
    static constexpr std::int32_t LENGTH_MIN = 8;
    static constexpr std::int32_t LENGTH_MAX = 82;

    /// Where a GSV group gathers until its last message. This one serves callers that name none; a feed that
    /// hands in its own keeps its groups apart from every other feed's.
    static _GPS_Satellite gsvAccumulator;

    /// Brings an accumulator to the state in which a group may begin: all zero, but 255 in `prn`.
    static void ResetAccumulator(_GPS_Satellite& accumulator) noexcept;

    /// Offers a sentence to the parsers; the one way in.
    /// sentence: zero-terminated, or null.
    /// length: as the caller counts it [byte].
    /// format: 0, the only one there is.
    /// record: updated in place by a sentence that parses, else untouched.
    /// accumulator: survives between calls and epochs; clearing the record doesn't touch it.
    /// Result: false for a foreign sentence, a wrong length or format. True says no more than that a "GP"
    /// sentence of acceptable length was offered: not that its type is known, its checksum right or a field
    /// stored.
    bool Parse(const char* sentence, std::int32_t length, std::int32_t format, _GPS_Data& record,
               _GPS_Satellite& accumulator = gsvAccumulator) const noexcept;

    /// The gate on length and talker; Parse without its format.
    bool Accept(const char* sentence, std::int32_t length, _GPS_Data& record,
                _GPS_Satellite& accumulator = gsvAccumulator) const noexcept;

    /// Picks the parser by the characters at 3, 4 and 5 alone.
    /// Result: that parser's; false for an unknown type.
    bool Dispatch(const char* sentence, _GPS_Data& record,
                  _GPS_Satellite& accumulator = gsvAccumulator) const noexcept;

    /// Result: true when the sentence starts with "$GP".
    bool IsGPSentence(const char* sentence) const noexcept;

    /// XOR over a text, as two upper-case hexadecimal digits.
    /// Result: false for a null or empty text or a null place, which then stays as it was.
    bool ComputeChecksum(const char* text, char* digits) const noexcept;

    /// Tests the two digits behind the first asterisk against the sum from behind the dollar sign up to it.
    /// Result: false also for a sentence without an asterisk and for lower-case digits.
    bool VerifyChecksum(const char* sentence) const noexcept;

    // The parsers. Each tests talker and checksum itself, reads into locals and touches the record only on
    // success. Result: true when the sentence reached its last needed field.

    /// Time, position, quality, satellites in use, altitude. Decides `valid` whatever earlier sentences said.
    bool ParseGGA(const char* sentence, _GPS_Data& record) const noexcept;
    /// Position, time, status.
    bool ParseGLL(const char* sentence, _GPS_Data& record) const noexcept;
    /// Fix mode, satellites in use and the dilutions, which are the last three fields wherever they stand.
    bool ParseGSA(const char* sentence, _GPS_Data& record) const noexcept;
    /// Satellites in view, in groups of messages; the record changes only with the last message of a group.
    bool ParseGSV(const char* sentence, _GPS_Data& record,
                  _GPS_Satellite& accumulator = gsvAccumulator) const noexcept;
    /// Time, status, position, speed, course, date. Yields to a status that stands in the record with the
    /// same time.
    bool ParseRMC(const char* sentence, _GPS_Data& record) const noexcept;
    /// Course and speed.
    bool ParseVTG(const char* sentence, _GPS_Data& record) const noexcept;
    /// Time and date.
    bool ParseZDA(const char* sentence, _GPS_Data& record) const noexcept;

private:
    bool PassesFrame(const char* sentence) const noexcept;
};

} // namespace GPS
