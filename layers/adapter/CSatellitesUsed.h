// CSatellitesUsed.h: GSA: of which system it tells, and what of it the older form holds.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "layers/adapter/AdapterCounts.h"
#include "layers/adapter/CSentenceFields.h"

namespace adapter
{

/// What is to become of a satellite sentence.
struct SatelliteVerdict {
    bool goesOut = true;
    bool changed = false;
    CHANGE why = CHANGES; // where it is changed
};

/// A sentence is read as the older form where it has 17 fields, as today's where it has the system number
/// behind them; with another count it stays as it came, or isn't taken for GP.
class CSatellitesUsed
{
public:
    SatelliteVerdict Judge(TALKERKIND kind, CSentenceFields& fields) noexcept;
    /// A GGA has gone out: the next cycle begins.
    void NoteGga() noexcept;
    /// A sentence with a time has gone out: the row of GSA that belong together has ended.
    void EndRow() noexcept { full.count = 0; }
    /// Result: how many satellites the last GSA lists that went out since the last GGA.
    int Listed() const noexcept { return static_cast<int>(listed); }

private:
    struct Satellites {
        std::array<std::uint8_t, 32> numbers{};
        std::size_t count = 0;

        void Add(int number) noexcept; // once
    };

    SatelliteVerdict JudgeGps(CSentenceFields& fields) noexcept;
    SatelliteVerdict JudgeOtherSystem(CSentenceFields& fields) noexcept;
    SatelliteVerdict JudgeOddForm(TALKERKIND kind, const CSentenceFields& fields) noexcept;
    bool Join(CSentenceFields& fields) noexcept;
    void ListAll(CSentenceFields& fields) noexcept;

    bool gpsCame = false; // since the last GGA
    std::size_t listed = 0;
    Satellites full; // of the GSA of GPS before this one, where all twelve places were taken
};

} // namespace adapter
