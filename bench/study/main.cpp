// kest_gps_study: how good the smoothing is. Simulates drives with a known truth, and makes a page of what
// came out.
#include <cstdio>
#include <exception>

#include <CLI/CLI.hpp>

#include "bench/study/Ledger.h"
#include "bench/study/Report.h"
#include "bench/study/Sections.h"

namespace
{

/// Result: whether every promise is kept.
bool MakePage(const std::string& frame, const std::string& page, const std::string& data)
{
    study::Report report;
    study::Ledger ledger;
    study::StudyDrives(report, ledger);
    study::StudyReceivers(report, ledger);
    ledger.Tell(report);
    study::StudyOutliers(report);
    study::StudyManoeuvres(report);
    study::StudyWrongVelocities(report);
    study::StudyRandomDrives(report);
    study::DrawCity(report);
    report.Write(frame, page, data);
    return report.Judge();
}

} // namespace

int main(int argc, char** argv)
{
    try {
        CLI::App app("How good the smoothing is.");
        app.require_subcommand(1);
        std::string frame;
        std::string page;
        std::string data;
        std::string folder;
        CLI::App* const simulated = app.add_subcommand(
            "page", "Makes a page of simulated drives; ends with 1 when a promise isn't kept");
        simulated->add_option("FRAME", frame, "The page without its tables")->required();
        simulated->add_option("PAGE", page, "The file to be written")->required();
        simulated->add_option("DATA", data, "Folder for every figure, and for what pictures are drawn from")
            ->required();
        CLI::App* const real =
            app.add_subcommand("recordings", "Tells what the models make of the *.nmea files of a folder");
        real->add_option("FOLDER", folder)->required()->check(CLI::ExistingDirectory);
        real->add_option("COPIES", data, "Folder for adapted copies of them")->required();
        CLI11_PARSE(app, argc, argv);
        if (*simulated) {
            return MakePage(frame, page, data) ? 0 : 1;
        }
        study::TellRecordings(folder, data);
        return 0;
    } catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "kest_gps_study: %s\n", error.what()));
        return 2;
    }
}
