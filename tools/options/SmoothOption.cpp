#include "tools/options/SmoothOption.h"

#include <CLI/CLI.hpp>

namespace kestgps
{

namespace
{

constexpr char OPTION[] = "--smooth";
constexpr char OTHER_MODEL[] = "acceleration";

} // namespace

void AddSmoothOption(CLI::App& command, std::string& model)
{
    command.add_option(OPTION, model, "Smooth fixes, by the model velocity (default) or acceleration")
        ->expected(0, 1)
        ->type_name("[MODEL]")
        ->default_str(DEFAULT_MODEL);
}

bool IsModel(const std::string& name) noexcept
{
    return name == DEFAULT_MODEL || name == OTHER_MODEL;
}

void CheckModel(const CLI::App& command, const std::string& name)
{
    if (name.empty() && command.count(OPTION) > 0) { // a check of the option isn't asked about an empty value
        throw CLI::ValidationError(OPTION, "the name is empty");
    }
    if (!name.empty() && !IsModel(name)) {
        throw CLI::ValidationError(OPTION, name + " is no model; velocity and acceleration are");
    }
}

} // namespace kestgps
