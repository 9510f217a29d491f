// CSatellitesInView.h: GSV of GPS: one signal's groups, and satellites that have a place in a record.
#pragma once

#include <string_view>

#include "layers/adapter/CSatellitesUsed.h"

namespace adapter
{

/// What is to become of a sentence of satellites in view, beside what its body is cut to.
struct ViewVerdict : SatelliteVerdict {
    bool dropsEntries = false; ///< DropEntries() is to be called
};

/// Leaves in the entries that have a place in a record. fields: of a body that a verdict was told of.
void DropEntries(CSentenceFields& fields) noexcept;

/// Receivers of several signals send a group for each. Signal 1 is taken as soon as there is one, else the
/// first that came; when one of the others comes twice running, it is the only one by now.
class CSatellitesInView
{
public:
    /// body: is cut to what stays of it.
    ViewVerdict Judge(std::string_view& body) noexcept;

private:
    enum USE { ALL, NO_ENTRIES, NOTHING };

    USE Use(char signal, int total, int number) noexcept;

    char chosen = 0;    // the signal that is taken; 0 is none yet
    char lastBegun = 0; // the signal of the group that began last
    int openTotal = 0;  // of the group that goes out; 0 is none
    int openNumber = 0; // of the message of it that went out last
};

} // namespace adapter
