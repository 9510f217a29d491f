// CFixEpochs.h: one fix closes one epoch: tells a GGA of a new fix from one more of the same.
#pragma once

#include <array>
#include <string_view>

#include "layers/adapter/CSentenceFields.h"
#include "layers/adapter/FieldText.h"

namespace adapter
{

/// Remembers the last GGA that went out. One that didn't leaves no trace but its talker, so the stream that
/// comes out, put in again, is judged alike.
class CFixEpochs
{
public:
    /// Judges a GGA before it goes out.
    /// talker: two letters, as it came.
    /// Result: true when its fix has closed an epoch: one of another talker at the last one's time; one
    /// without time of another talker than the last, unless that talker is alone by now; any at the time of a
    /// GGA that was made from an RMC.
    bool HasClosed(std::string_view talker, const CTimeText& time) noexcept;
    /// Result: true for the very text of the last GGA with a fix.
    bool IsRepeated(std::string_view gga, std::string_view quality) const noexcept;

    /// A GGA has gone out. made: from an RMC.
    void Note(std::string_view talker, const CTimeText& time, std::string_view gga, bool made) noexcept;

private:
    using TALKER = std::array<char, 2>;

    TALKER lastTalker{}; // of the GGA that went out
    TALKER cameTalker{}; // of the GGA that came before this one, gone out or not
    CTimeText lastTime;
    bool lastMade = false;
    SentenceText last;
};

} // namespace adapter
