// Fixes a kilometre off: how far they move the output, and how soon it is back.
#include <algorithm>

#include "bench/study/Drives.h"
#include "bench/study/Models.h"
#include "bench/study/Receiver.h"
#include "bench/study/Report.h"
#include "bench/study/Sections.h"

namespace study
{

namespace
{

constexpr double KILOMETRE = 1000.0; // [m]
constexpr double MOVED_MOST = 10.0;  // [m]
constexpr double BACK = 5.0;         // [m] closer than that the output is back
constexpr int INSTANTS = 10;         // for each drive
constexpr std::size_t FIRST_INSTANT = 60;
constexpr std::size_t LAST_INSTANT = 480;

struct Fault {
    const char* name;
    std::size_t fixes; // that are off; 0: from now on all of them
};

/// What a fault does to a model, at worst.
struct Effect {
    double moved = 0.0; // [m]
    double back = 0.0;  // [s] behind the last fix off, or behind the jump
};

std::vector<OfModels<tagLonLat>> Smoothed(const std::vector<Epoch>& epochs)
{
    Smoothers smoothers;
    std::vector<OfModels<tagLonLat>> positions;
    for (const Epoch& epoch : epochs) {
        const OfModels<_GPS_Data> told = smoothers.Step(epoch.fix);
        positions.push_back({told[RAW].lonLat, told[ACCELERATION].lonLat, told[VELOCITY].lonLat});
    }
    return positions;
}

void Try(const std::vector<Epoch>& epochs, const Fault& fault, Dice& dice, OfModels<Effect>& worst)
{
    const auto from = static_cast<std::size_t>(
        dice.Between(static_cast<double>(FIRST_INSTANT), static_cast<double>(LAST_INSTANT)));
    const std::size_t to = fault.fixes == 0 ? epochs.size() : from + fault.fixes;
    const Metres far = KILOMETRE * Towards(dice.Between(0.0, 360.0));
    std::vector<Epoch> faulty = epochs;
    std::for_each(faulty.begin() + static_cast<std::ptrdiff_t>(from),
                  faulty.begin() + static_cast<std::ptrdiff_t>(to),
                  [far](Epoch& epoch) { epoch.fix.lonLat = Moved(epoch.fix.lonLat, far); });

    const std::vector<OfModels<tagLonLat>> without = Smoothed(epochs);
    const std::vector<OfModels<tagLonLat>> with = Smoothed(faulty);
    const std::size_t over =
        fault.fixes == 0 ? from : to; // from here on the output should be where the fixes are
    for (std::size_t model = 0; model < MODELS; ++model) {
        for (std::size_t i = from; i < epochs.size(); ++i) {
            const Metres moved = Way(without[i][model], with[i][model]);
            worst[model].moved = std::max(worst[model].moved, Length(moved));
            const Metres left = fault.fixes == 0 ? moved - far : moved;
            if (i >= over && Length(left) > BACK) {
                worst[model].back = std::max(worst[model].back, static_cast<double>(i + 1 - over));
            }
        }
    }
}

OfModels<Effect> WorstOf(const Fault& fault)
{
    OfModels<Effect> worst;
    for (const Drive& drive : Drives()) {
        for (int instant = 0; instant < INSTANTS; ++instant) {
            Dice dice(std::string(fault.name) + "/" + drive.name + "/" + std::to_string(instant));
            const Traits usual; // one fix a second
            Try(Received(TrackOf(drive), usual, dice), fault, dice, worst);
        }
    }
    return worst;
}

} // namespace

void StudyOutliers(Report& report)
{
    static constexpr Fault ONE{"one fix 1 km off", 1};
    Table table(
        {"fault", "acceleration moved [m]", "back after [s]", "velocity moved [m]", "back after [s]"});
    double movedByOne = 0.0;
    for (const Fault& fault :
         {ONE, Fault{"ten fixes in a row 1 km off", 10}, Fault{"a jump of 1 km for good", 0}}) {
        const OfModels<Effect> worst = WorstOf(fault);
        std::vector<std::string> row{fault.name};
        for (const MODEL model : {ACCELERATION, VELOCITY}) {
            row.push_back(fault.fixes == 0 ? "-" : Number(worst[model].moved, 1)); // it is to move for good
            row.push_back(Number(worst[model].back, 0));
        }
        table.Row(row);
        if (fault.fixes == ONE.fixes) {
            movedByOne = worst[VELOCITY].moved;
        }
    }
    report.Put("outliers", table);
    report.Promise("a fix 1 km off moves the output by less than 10 m",
                   "at most " + Number(movedByOne, 1) + " m", movedByOne < MOVED_MOST);
}

} // namespace study
