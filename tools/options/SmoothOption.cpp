#include "tools/options/SmoothOption.h"

#include <CLI/CLI.hpp>

namespace kestgps
{

namespace
{

constexpr char OTHER_MODEL[] = "acceleration";

} // namespace

void AddSmoothOption(CLI::App& command, std::string& model)
{
    command.add_option("--smooth", model, "Smooth fixes, by the model velocity (default) or acceleration")
        ->expected(0, 1)
        ->type_name("[MODEL]")
        ->default_str(DEFAULT_MODEL);
}

bool IsModel(const std::string& name) noexcept
{
    return name == DEFAULT_MODEL || name == OTHER_MODEL;
}

void CheckModel(const std::string& name)
{
    if (!name.empty() && !IsModel(name)) {
        throw CLI::ValidationError("--smooth", name + " is no model; velocity and acceleration are");
    }
}

} // namespace kestgps
