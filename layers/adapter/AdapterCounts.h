// AdapterCounts.h: what came to an adapter and what it did with it, by reason.
#pragma once

#include <cstddef>
#include <cstdint>

namespace adapter
{

enum TALKERKIND {
    TALKER_GP,
    TALKER_GN,      // the fix of several systems together
    TALKER_SYSTEM,  // another of the set: a system's own
    TALKER_FOREIGN, // outside the set: another instrument
    TALKER_PROPRIETARY,
    TALKERKINDS,
};

enum SENTENCETYPE {
    TYPE_GGA,
    TYPE_GLL,
    TYPE_GNS,
    TYPE_GSA,
    TYPE_GSV,
    TYPE_RMC,
    TYPE_VTG,
    TYPE_ZDA,
    TYPE_OTHER,
    SENTENCETYPES
};

/// Why a sentence went out otherwise than it came. One can have several of these reasons.
enum CHANGE {
    CHANGE_TALKER,     // of another talker of the set, now GP
    CHANGE_QUALITY,    // a GGA of a quality that the older form doesn't know
    CHANGE_SYSTEM,     // a GSA's system number is cut off, or another system's satellites are left out
    CHANGE_SIGNAL,     // a GSV's signal number is cut off, or another signal's entries are left out
    CHANGE_SATELLITES, // numbers outside 1 to 64 are left out, or a second GSA lists the first one's too
    CHANGE_LENGTH,     // shortened to 82 characters
    CHANGE_DIGITS,     // the checksum was right, in lower-case digits
    CHANGES,
};

/// Why a sentence didn't go out.
enum DROP {
    DROP_FOREIGN, // a talker outside the set, or a type that is read of talker GP alone
    DROP_PROPRIETARY,
    DROP_CHECKSUM,   // wrong or missing, of another talker than GP
    DROP_SECOND_FIX, // a GGA or GNS of a fix that has closed its epoch
    DROP_NO_NEED,    // a GNS where GGA comes
    DROP_SYSTEM,     // GSA or GSV of another system
    DROP_SIGNAL,     // GSV of another signal
    DROP_LENGTH,     // too long even when shortened, or too short for a sentence
    DROPS,
};

/// Sentences, but for `strayBytes`.
struct AdapterCounts {
    std::uint64_t came[TALKERKINDS][SENTENCETYPES] = {};
    std::uint64_t passed = 0;            ///< as they came
    std::uint64_t rewritten = 0;         ///< changed, for one reason or more
    std::uint64_t changed[CHANGES] = {}; ///< of `rewritten`, by reason
    std::uint64_t madeFromGns = 0;       ///< GGA in place of a GNS
    std::uint64_t madeFromRmc = 0;       ///< GGA behind an RMC
    std::uint64_t dropped[DROPS] = {};
    std::uint64_t strayBytes = 0; ///< [byte] that belong to no sentence
};

} // namespace adapter
