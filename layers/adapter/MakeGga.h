// MakeGga.h: a GGA where the receiver sends none, and the qualities that the older form knows.
#pragma once

#include "layers/adapter/CSentenceFields.h"

namespace adapter
{

/// Result: a GGA with all that the GNS tells; its quality is that of the best mode letter.
CSentenceFields GgaFromGns(const CSentenceFields& gns) noexcept;

/// Result: a GGA at the RMC's time and place, of quality 1 for status A, else 0. It has an altitude of 0.0,
/// which is none: without one a parser would refuse it. satellites: 0 to 64.
CSentenceFields GgaFromRmc(const CSentenceFields& rmc, int satellites) noexcept;

/// Result: 1, 2, 2 for the qualities 3 (precise), 5 (float), 9 (augmented), which the older form doesn't
/// know; nothing for any other.
std::string_view OlderQuality(std::string_view quality) noexcept;

} // namespace adapter
