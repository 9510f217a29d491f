#include "tools/adapting/AdapterText.h"

#include <cstdint>
#include <numeric>

namespace kestgps
{

namespace
{

using adapter::AdapterCounts;

constexpr const char* CHANGE_WORDS[adapter::CHANGES] = {
    "talker", "quality", "system", "signal", "satellite numbers", "length", "checksum digits"};
constexpr const char* DROP_WORDS[adapter::DROPS] = {
    "other talkers and types", "proprietary",   "bad checksum",  "second of a fix",
    "GNS beside GGA",          "other systems", "other signals", "too long or too short"};

std::uint64_t CameOf(const AdapterCounts& counts, adapter::TALKERKIND kind)
{
    return std::accumulate(counts.came[kind], counts.came[kind] + adapter::SENTENCETYPES, std::uint64_t{0});
}

/// Result: how often this talker told where it is.
std::uint64_t FixesOf(const AdapterCounts& counts, adapter::TALKERKIND kind)
{
    const std::uint64_t* const came = counts.came[kind];
    return came[adapter::TYPE_GGA] + came[adapter::TYPE_GNS] + came[adapter::TYPE_RMC] +
           came[adapter::TYPE_GLL];
}

std::uint64_t DroppedBy(const AdapterCounts& counts)
{
    return std::accumulate(counts.dropped, counts.dropped + adapter::DROPS, std::uint64_t{0});
}

/// Counts with their words, those that are 0 left out: " (talker 58, signal 87)".
std::string InBrackets(const std::uint64_t* numbers, const char* const* words, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        if (numbers[i] != 0) {
            text += (text.empty() ? " (" : ", ") + std::string(words[i]) + " " + std::to_string(numbers[i]);
        }
    }
    return text.empty() ? text : text + ")";
}

} // namespace

bool HasReceiver(const AdapterCounts& counts)
{
    return CameOf(counts, adapter::TALKER_GP) + CameOf(counts, adapter::TALKER_GN) +
               CameOf(counts, adapter::TALKER_SYSTEM) !=
           0;
}

bool DidAnything(const AdapterCounts& counts)
{
    return counts.rewritten + counts.madeFromGns + counts.madeFromRmc + DroppedBy(counts) != 0;
}

std::string ReceiverText(const AdapterCounts& counts)
{
    std::string text = "receiver: talker GP";
    if (FixesOf(counts, adapter::TALKER_GN) != 0) {
        text = "receiver: several systems, talker GN";
    } else if (FixesOf(counts, adapter::TALKER_GP) == 0 && FixesOf(counts, adapter::TALKER_SYSTEM) != 0) {
        text = "receiver: another system than GPS";
    }
    const struct {
        bool holds;
        const char* words;
    } traits[] = {
        {counts.changed[adapter::CHANGE_SYSTEM] != 0, "system numbers"},
        {counts.changed[adapter::CHANGE_SIGNAL] != 0, "signal numbers"},
        {counts.changed[adapter::CHANGE_LENGTH] != 0, "more than 82 characters"},
        {counts.madeFromGns != 0, "GNS for GGA"},
        {counts.madeFromRmc != 0, "no GGA, so no altitude"},
        {counts.dropped[adapter::DROP_FOREIGN] != 0 && CameOf(counts, adapter::TALKER_FOREIGN) != 0,
         "other instruments on the line"},
    };
    for (const auto& trait : traits) {
        text += trait.holds ? ", " + std::string(trait.words) : "";
    }
    const bool older = counts.rewritten + counts.madeFromGns + counts.madeFromRmc == 0;
    return older ? text + ", in the older form" : text;
}

std::string SentencesText(const AdapterCounts& counts)
{
    std::uint64_t came = 0;
    for (int kind = 0; kind < adapter::TALKERKINDS; ++kind) {
        came += CameOf(counts, static_cast<adapter::TALKERKIND>(kind));
    }
    return "sentences: " + std::to_string(came) + " came, " + std::to_string(counts.rewritten) +
           " rewritten" + InBrackets(counts.changed, CHANGE_WORDS, adapter::CHANGES) + ", " +
           std::to_string(counts.madeFromGns + counts.madeFromRmc) + " GGA made, " +
           std::to_string(DroppedBy(counts)) + " left out" +
           InBrackets(counts.dropped, DROP_WORDS, adapter::DROPS);
}

} // namespace kestgps
