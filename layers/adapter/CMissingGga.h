// CMissingGga.h: finds out that a receiver sends no GGA, and from what one has to be made.
#pragma once

#include "layers/adapter/FieldText.h"

namespace adapter
{

/// A receiver that has shown a GGA keeps to it, however seldom it sends one: made ones in between would carry
/// another altitude. Only after a long time without does it count as another receiver.
class CMissingGga
{
public:
    /// So many different times have to come without a GGA; at the next one it is made.
    static constexpr int TIMES_WITHOUT = 10;
    /// So many different times of GNS or of RMC without a GGA, where there was one, mean another receiver.
    static constexpr int TIMES_FORGOTTEN = 100;

    enum USE { MAKE, WAIT, NO_NEED };

    /// What to do with a GNS: make a GGA of it, let it go out as it is to be counted, or nothing.
    USE TakeGns(const CTimeText& time) noexcept;
    /// Result: true when a GGA has to follow this RMC.
    bool TakeRmc(const CTimeText& time) noexcept;
    /// A GGA of the receiver's own has come, whatever becomes of it.
    void TakeGga() noexcept { making = FROM_NOTHING; }
    /// Result: true when the stream has GGA of its own.
    bool HasGga() const noexcept { return ggaSeen && making == FROM_NOTHING; }
    /// A GGA has gone out, the receiver's own or a made one.
    void NoteGga() noexcept;

private:
    enum MAKING { FROM_NOTHING, FROM_GNS, FROM_RMC };

    /// Counts times that differ from the one before.
    struct Times {
        CTimeText last;
        int count = 0;

        /// Result: true for a time unlike the one before.
        bool Take(const CTimeText& time) noexcept;
    };

    MAKING making = FROM_NOTHING;
    bool ggaSeen = false;
    Times ofGns; // since the last GGA
    Times ofRmc; // since the last GGA or GNS
};

} // namespace adapter
