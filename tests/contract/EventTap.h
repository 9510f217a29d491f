// EventTap.h: hears events by whatever way the surroundings have; the link chooses it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "GpsLib/contracts/KestEvent.h"

namespace contract
{

/// Calls `hear` with each event of one id while the result lives. One at a time.
std::shared_ptr<void> TapEvents(std::uint16_t id, std::function<void(const event::CustomEvent&)> hear);

} // namespace contract
