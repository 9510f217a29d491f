// AdapterText.h: what an adapter met and did, in words.
#pragma once

#include <cstdint>
#include <string>

#include "layers/adapter/AdapterCounts.h"

namespace kestgps
{

/// After so many the kind of receiver shows: it sends each of its sentences in a cycle or two.
constexpr std::uint64_t EPOCHS_TO_KNOW = 3;

/// Result: true when a satellite receiver has spoken.
bool HasReceiver(const adapter::AdapterCounts& counts);

/// Result: true when not every sentence went out as it came.
bool DidAnything(const adapter::AdapterCounts& counts);

/// Result: one line on what kind of receiver this is, as far as its sentences have shown.
std::string ReceiverText(const adapter::AdapterCounts& counts);

/// Result: one line on how many sentences came, were rewritten and left out, by reason.
std::string SentencesText(const adapter::AdapterCounts& counts);

} // namespace kestgps
