// Shorten.h: makes a sentence of today's receivers fit 82 characters.
#pragma once

#include "layers/adapter/AdapterCounts.h"

namespace adapter
{

class CSentenceFields;

/// Cuts only as much as it takes, and first what nobody reads: of a GGA or GNS station and age, the decimals
/// of the separation, zeros of the second; of an RMC status behind the mode, variation, zeros of the second.
/// Then decimals of the altitude. Then the last decimals of the minutes, never below five, which are 18 mm;
/// they are cut, not rounded, since a carry could make sixty minutes.
/// Result: false when it still doesn't fit.
bool Shorten(SENTENCETYPE type, CSentenceFields& fields) noexcept;

} // namespace adapter
