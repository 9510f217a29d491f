// ReplayCommand.h: "kestgps replay", the fixes of a recorded drive.
#pragma once

#include <cstdint>
#include <string>

#include "tools/commands/Command.h"

namespace CLI
{
class App;
}
namespace GPS
{
class CGPSLogDevice;
}

namespace kestgps
{

class AdaptedLog;

/// Prints one line an epoch of a log, as `live` does of a receiver.
class ReplayCommand final : public Command
{
public:
    /// app: borrowed.
    explicit ReplayCommand(CLI::App& app);
    bool Chosen() const override;
    int Run() override;

private:
    /// adapted: null where the sentences are left as they are.
    void Replay(const std::string& path, const AdaptedLog* adapted) const;
    /// Result: the epochs of the log, as far as it was read.
    std::uint64_t PrintEpochs(GPS::CGPSLogDevice& log, const AdaptedLog* adapted) const;
    void RefuseOtherFiles(const AdaptedLog* adapted) const;
    void TellFileFromModel();

    const CLI::App* command; // borrowed
    std::string file;
    bool asIs = false;  // leave the sentences alone
    std::string smooth; // model; empty is none
    double rate = 0.0;  // [1/s] epochs; 0 for as fast as it goes
};

} // namespace kestgps
