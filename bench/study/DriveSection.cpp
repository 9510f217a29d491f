// Every drive with the usual receiver, with more and less noise, and at other rates.
#include <algorithm>

#include "bench/study/Cases.h"
#include "bench/study/Ledger.h"
#include "bench/study/Report.h"
#include "bench/study/Sections.h"

namespace study
{

namespace
{

constexpr double GONE = 0.70;

std::string Position(const Figures& f)
{
    return Number(f.rms, 1) + ", " + Number(f.most95, 1) + ", " + Number(f.largest, 0);
}

/// A figure of each model.
std::string Three(const OfModels<Figures>& of, double Figures::*figure, int decimals)
{
    return Number(of[RAW].*figure, decimals) + " / " + Number(of[ACCELERATION].*figure, decimals) + " / " +
           Number(of[VELOCITY].*figure, decimals);
}

void EveryDrive(Report& report, Ledger& ledger)
{
    Table position({"drive", "raw", "acceleration", "velocity", "gone"});
    Table motion({"drive", "speed [km/h]", "heading [deg]", "behind [m]", "jitter [m]"});
    double least = 1.0;
    for (const Drive& drive : Drives()) {
        const OfModels<Figures> f = Results(Rides(drive, UsualCase(), ledger));
        const double gain = Gain(f);
        least = std::min(least, gain);
        position.Row(
            {drive.name, Position(f[RAW]), Position(f[ACCELERATION]), Position(f[VELOCITY]), Percent(gain)});
        motion.Row({drive.name, Three(f, &Figures::speed, 1), Three(f, &Figures::heading, 1),
                    Three(f, &Figures::behind, 1), Three(f, &Figures::jitter, 1)});
    }
    report.Put("position", position);
    report.Put("motion", motion);
    report.Promise("of 5 m of white noise, at least 70 % of the position error gone in each drive",
                   "at least " + Percent(least), least >= GONE);
}

/// Every drive with each case: root mean square position errors.
void Matrix(Report& report, Ledger& ledger, const std::string& name, const std::vector<Case>& cases)
{
    std::vector<std::string> heads{"drive"};
    for (const Case& of : cases) {
        heads.push_back(of.name);
    }
    Table table(heads);
    for (const Drive& drive : Drives()) {
        std::vector<std::string> row{drive.name};
        for (const Case& of : cases) {
            row.push_back(Three(Results(Rides(drive, of, ledger)), &Figures::rms, 1));
        }
        table.Row(row);
    }
    report.Put(name, table);
}

} // namespace

void StudyDrives(Report& report, Ledger& ledger)
{
    EveryDrive(report, ledger);
    Matrix(report, ledger, "noise", NoiseCases());
    Matrix(report, ledger, "rates", RateCases());
}

} // namespace study
