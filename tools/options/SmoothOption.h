// SmoothOption.h: the option --smooth, which takes the name of a smoothing model or none.
#pragma once

#include <string>

#include "GpsLib/Kest_GPS.h"

namespace CLI
{
class App;
}

namespace kestgps
{

/// What --smooth means without a name.
constexpr char DEFAULT_MODEL[] = "velocity";

/// model: borrowed; becomes what stands behind --smooth, whatever it is, and stays empty without the option.
void AddSmoothOption(CLI::App& command, std::string& model);

bool IsModel(const std::string& name) noexcept;

/// Throws CLI::ValidationError for a name that is no model's, unless the command line lacks the option.
/// command: parsed. name: what AddSmoothOption's `model` became.
void CheckModel(const CLI::App& command, const std::string& name);

/// name: a model's, or empty for no smoothing.
template <class DEVICE>
void SwitchSmoothing(DEVICE& device, const std::string& name)
{
    if (!name.empty()) {
        device.SetFilterModel(name == DEFAULT_MODEL ? FILTERMODEL_VELOCITY : FILTERMODEL_ACCELERATION);
        device.OpenFilter();
    }
}

} // namespace kestgps
