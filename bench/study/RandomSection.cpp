// Drives and receivers thought out by dice: is any of them worse with the velocity model than without?
#include <algorithm>
#include <cmath>

#include "bench/study/Drives.h"
#include "bench/study/Report.h"
#include "bench/study/Score.h"
#include "bench/study/Sections.h"

namespace study
{

namespace
{

constexpr int DRIVES = 500;
constexpr double SECONDS = 600.0;
constexpr double WORSE = 1.02; // times the raw fixes' error
constexpr int REPEATS = 20;    // of a drive that came out worse, with fresh noise

/// A receiver without faults.
Traits RandomNoise(Dice& dice)
{
    static constexpr double RATES[] = {0.5, 1.0, 1.0, 1.0, 2.0, 5.0, 10.0}; // [Hz]
    Traits traits;
    traits.rate = RATES[static_cast<std::size_t>(dice.Between(0.0, 7.0))];
    traits.white = dice.Scale(0.3, 10.0);
    traits.velocity = dice.Scale(0.03, 1.0);
    if (dice.Once(0.5)) {
        traits.drift = dice.Scale(0.5, 6.0);
        traits.driftTime = dice.Scale(10.0, 200.0);
    }
    if (dice.Once(0.5)) {
        traits.latency = dice.Between(0.0, 1.0);
    }
    if (dice.Once(0.3)) {
        traits.minuteStep = dice.Once(0.5) ? 1e-3 : 1e-4;
        traits.speedStep = 0.1852; // a tenth of a knot
        traits.headingStep = 0.1;
    }
    return traits;
}

/// One with a fault.
Traits RandomFault(Dice& dice)
{
    Traits traits = RandomNoise(dice);
    const double fault = dice.Uniform();
    if (fault < 0.2) {
        traits.burstEvery = 60.0;
    } else if (fault < 0.4) {
        traits.tunnelEvery = 200.0;
    } else if (fault < 0.6) {
        traits.missing = 0.1;
    } else if (fault < 0.8) {
        traits.invalid = 0.1;
    } else {
        traits.torn = 0.1;
    }
    return traits;
}

struct Batch {
    const char* name;
    Traits (*receiver)(Dice& dice);
};

/// One of the five hundred: the same way and the same receiver, with other noise each time.
class RandomDrive
{
public:
    RandomDrive(const Batch& batch, int number) : name(batch.name + (" " + std::to_string(number)))
    {
        Dice dice(name);
        traits = batch.receiver(dice);
        driver = RandomDriver(dice, SECONDS);
    }

    OfModels<Score> Once(int repeat) const
    {
        Dice noise(name + "/" + std::to_string(repeat));
        return Ride(Track(driver, 0.0, SECONDS), traits, noise);
    }

    /// Result: what is known of the drive, as a line of fields.
    std::string Told() const
    {
        std::string told = name;
        for (const double trait : {traits.rate, traits.white, traits.drift, traits.driftTime, traits.velocity,
                                   traits.latency, traits.minuteStep, traits.burstEvery, traits.tunnelEvery,
                                   traits.missing, traits.invalid, traits.torn}) {
            told += ";" + Number(trait, 4);
        }
        return told;
    }

private:
    std::string name;
    Traits traits;
    Driver driver;
};

/// Result: a model's error, for each of the raw fixes'.
double Ratio(const OfModels<Score>& scores, MODEL model)
{
    return scores[model].Result().rms / scores[RAW].Result().rms;
}

/// Result: the velocity model's over many repeats with fresh noise.
double FreshRatio(const RandomDrive& drive)
{
    OfModels<Score> all;
    for (int repeat = 1; repeat <= REPEATS; ++repeat) {
        const OfModels<Score> one = drive.Once(repeat);
        for (std::size_t model = 0; model < MODELS; ++model) {
            all[model].Add(one[model]);
        }
    }
    return Ratio(all, VELOCITY);
}

struct Outcome {
    OfModels<std::vector<double>> ratios; // sorted
    int suspects = 0;                     // drives that came out worse with the velocity model
    int worse = 0;                        // of these, with fresh noise again
};

Outcome Try(const Batch& batch, Report& report)
{
    Outcome outcome;
    for (int number = 0; number < DRIVES; ++number) {
        const RandomDrive drive(batch, number);
        const OfModels<Score> scores = drive.Once(0);
        for (const MODEL model : {ACCELERATION, VELOCITY}) {
            outcome.ratios[model].push_back(Ratio(scores, model));
        }
        const double first = outcome.ratios[VELOCITY].back();
        if (first > WORSE) {
            const double fresh = FreshRatio(drive);
            ++outcome.suspects;
            outcome.worse += fresh > WORSE ? 1 : 0;
            report.Data("suspects.csv",
                        drive.Told() + ";" + Number(first, 3) + ";" + Number(fresh, 3) + "\n");
        }
    }
    for (std::vector<double>& ratios : outcome.ratios) {
        std::sort(ratios.begin(), ratios.end());
    }
    return outcome;
}

void Rows(Table& table, const Batch& batch, const Outcome& outcome)
{
    for (const MODEL model : {ACCELERATION, VELOCITY}) {
        const std::vector<double>& sorted = outcome.ratios[model];
        std::vector<std::string> row{std::string(batch.name) +
                                     (model == ACCELERATION ? ", acceleration" : ", velocity")};
        for (const double share : {0.0, 0.1, 0.5, 0.9, 1.0}) {
            row.push_back(Number(sorted[static_cast<std::size_t>(share * (DRIVES - 1))], 2));
        }
        row.push_back(std::to_string(sorted.end() - std::upper_bound(sorted.begin(), sorted.end(), WORSE)));
        row.push_back(model == ACCELERATION ? "-" : std::to_string(outcome.worse));
        table.Row(row);
    }
}

} // namespace

void StudyRandomDrives(Report& report)
{
    static constexpr Batch NOISE{"noise of every kind", RandomNoise};
    static constexpr Batch FAULTS{"and a fault", RandomFault};
    Table table({"500 drives", "least", "a tenth below", "half below", "nine tenths below", "largest",
                 "above 1.02", "with fresh noise too"});
    report.Data("suspects.csv", "drive;rate;white;drift;over;velocity;latency;digits;bursts;tunnels;missing;"
                                "invalid;torn;ratio;with fresh noise\n");
    const Outcome noise = Try(NOISE, report);
    Rows(table, NOISE, noise);
    Rows(table, FAULTS, Try(FAULTS, report));
    report.Put("random", table);
    for (std::size_t drive = 0; drive < DRIVES; ++drive) {
        report.Data("random.dat", std::to_string(drive + 1) + " " +
                                      Number(noise.ratios[ACCELERATION][drive], 4) + " " +
                                      Number(noise.ratios[VELOCITY][drive], 4) + "\n");
    }
    report.Promise("none of 500 random drives more than 2 % worse than raw beyond chance",
                   std::to_string(noise.suspects) + " at first, " + std::to_string(noise.worse) +
                       " of them over " + std::to_string(REPEATS) + " repeats with fresh noise",
                   noise.worse == 0);
}

} // namespace study
