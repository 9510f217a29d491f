// Every drive with receivers that have weaknesses and faults.
#include <algorithm>

#include "bench/study/Cases.h"
#include "bench/study/Ledger.h"
#include "bench/study/Report.h"
#include "bench/study/Sections.h"

namespace study
{

namespace
{

constexpr double GONE_OF_BURSTS = 0.50;

/// One case with every drive.
struct OverDrives {
    OfModels<Figures> figures; // of all together
    double least = 1.0;        // gain of the drive with the least one
    const char* leastIn = "";
};

OverDrives Over(const Case& of, Ledger& ledger)
{
    OverDrives over;
    OfModels<Score> all;
    for (const Drive& drive : Drives()) {
        const OfModels<Score> scores = Rides(drive, of, ledger);
        const double gain = Gain(Results(scores));
        if (gain < over.least) {
            over.least = gain;
            over.leastIn = drive.name;
        }
        for (std::size_t model = 0; model < MODELS; ++model) {
            all[model].Add(scores[model]);
        }
    }
    over.figures = Results(all);
    return over;
}

void Row(Table& table, const Case& of, const OverDrives& over)
{
    const OfModels<Figures>& f = over.figures;
    table.Row({of.name, Number(f[RAW].rms, 1), Number(f[ACCELERATION].rms, 1), Number(f[VELOCITY].rms, 1),
               Number(f[RAW].largest, 0) + " / " + Number(f[VELOCITY].largest, 0), Percent(Gain(f)),
               Percent(over.least) + " " + over.leastIn,
               Number(f[RAW].heading, 1) + " / " + Number(f[VELOCITY].heading, 1)});
}

} // namespace

void StudyReceivers(Report& report, Ledger& ledger)
{
    Table table({"receiver", "raw", "acceleration", "velocity", "largest raw / velocity", "gone",
                 "least gone", "heading raw / velocity"});
    double least = 1.0;
    for (const Case& of : BurstCases()) {
        const OverDrives over = Over(of, ledger);
        least = std::min(least, over.least);
        Row(table, of, over);
    }
    for (const Case& of : WeakCases()) {
        Row(table, of, Over(of, ledger));
    }
    report.Put("receivers", table);
    report.Promise("of bursts of outliers, at least 50 % of the position error gone in each drive",
                   "at least " + Percent(least), least >= GONE_OF_BURSTS);
}

} // namespace study
