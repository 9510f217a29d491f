// CSentenceAdapter.h: today's receivers for a library that takes talker GP in the older form.
#pragma once

#include <cstddef>
#include <cstdint>

#include "GpsLib/contracts/KestApi.h"
#include "layers/adapter/AdapterCounts.h"
#include "layers/adapter/CFixEpochs.h"
#include "layers/adapter/CMissingGga.h"
#include "layers/adapter/CSatellitesInView.h"
#include "layers/adapter/CSatellitesUsed.h"
#include "layers/adapter/CSentenceCutter.h"
#include "layers/adapter/CSentenceSink.h"
#include "layers/adapter/Talkers.h"

namespace adapter
{

class CReceivedSentence;

/// Bytes in, whole sentences out, each as soon as its last byte, the line feed, is there. The result doesn't
/// depend on how the bytes are cut, and putting it in again changes nothing. A stream that is already of
/// talker GP in the older form, with GGA, comes out byte for byte.
///
/// A sentence is changed, or taken for GP, only when its checksum is right. One of talker GP that fails goes
/// out as it came, since the library closes an epoch at such a GGA too. What the library would refuse, and so
/// lose what an epoch has gathered, goes nowhere: other talkers, proprietary sentences, bytes between
/// sentences.
///
/// A sentence that another one's "$" has ended gets CR LF. Takes no memory and throws nothing.
/// Thread: one at a time.
class KEST_API CSentenceAdapter
{
public:
    explicit CSentenceAdapter(const Talkers& talkers = Talkers()) noexcept : talkers(talkers) {}

    /// sink: gets the sentences before this returns.
    void Take(const char* bytes, std::size_t length, CSentenceSink& sink) noexcept;
    /// The stream has ended: a sentence that still waits for its line end goes out without.
    void End(CSentenceSink& sink) noexcept;
    /// The stream has broken off: the rest of a sentence that has begun won't come, and it goes nowhere.
    void DropTorn() noexcept { cutter.DropTorn(); }
    /// As made anew, for another receiver or after a gap; the talkers stay.
    void Reset() noexcept { *this = CSentenceAdapter(talkers); }

    /// Since construction or Reset().
    const AdapterCounts& Counts() const noexcept { return counts; }

private:
    struct Draft;

    void TakeSentence(CSentenceSink& sink) noexcept;
    void TakeRight(Draft& draft) noexcept;
    void TakeBad(const CReceivedSentence& received, CSentenceSink& sink) noexcept;
    void TakeGga(Draft& draft) noexcept;
    void TakeGns(Draft& draft) noexcept;
    void TakeRmc(Draft& draft) noexcept;
    void TakeGsa(Draft& draft) noexcept;
    void TakeGsv(Draft& draft) noexcept;
    bool Send(Draft& draft) noexcept;
    void SendGga(Draft& draft) noexcept;
    void Count(const Draft& draft) noexcept;
    void Drop(DROP why) noexcept { ++counts.dropped[why]; }

    Talkers talkers;
    CSentenceCutter cutter;
    CFixEpochs epochs;
    CMissingGga missing;
    CSatellitesUsed used;
    CSatellitesInView inView;
    AdapterCounts counts;
};

static_assert(sizeof(CSentenceAdapter) < 2048, "a port has one beside its buffers");

} // namespace adapter
