#include "bench/study/Ledger.h"

#include <cstddef>

#include "bench/study/Report.h"

namespace study
{

namespace
{

constexpr double WORSE = 1.02; // times the raw fixes' error

const char* const MODEL_NAMES[] = {"raw", "acceleration", "velocity"};

/// How often, and how much, a figure is worse than that of the raw fixes.
class Harm
{
public:
    explicit Harm(double Figures::*figure) : figure(figure) {}

    void Add(const OfModels<Figures>& figures, const std::string& drive)
    {
        const double raw = figures[RAW].*figure;
        const double ratio = raw > 0.0 ? figures[VELOCITY].*figure / raw : 1.0;
        if (ratio > WORSE) {
            ++count;
        }
        if (ratio > most) {
            most = ratio;
            mostIn = drive;
        }
    }

    int Count() const noexcept { return count; }
    std::string Most() const { return count == 0 ? "" : "+" + Percent(most - 1.0) + " " + mostIn; }

private:
    double Figures::*figure;
    int count = 0;
    double most = WORSE;
    std::string mostIn;
};

} // namespace

OfModels<Figures> Results(const OfModels<Score>& scores)
{
    return {scores[RAW].Result(), scores[ACCELERATION].Result(), scores[VELOCITY].Result()};
}

double Gain(const OfModels<Figures>& figures) noexcept
{
    return 1.0 - figures[VELOCITY].rms / figures[RAW].rms;
}

void Ledger::Add(const std::string& receiver, const char* drive, const OfModels<Figures>& figures)
{
    entries.push_back({receiver, drive, figures});
}

void Ledger::Tell(Report& report) const
{
    report.Data("all.csv", List());
    Table table({"receiver", "position worse in drives", "at most", "heading worse in drives", "at most"});
    Harm allPositions(&Figures::rms);
    Harm allHeadings(&Figures::heading);
    for (std::size_t i = 0; i < entries.size();) {
        const std::string& receiver = entries[i].receiver;
        Harm positions(&Figures::rms);
        Harm headings(&Figures::heading);
        for (; i < entries.size() && entries[i].receiver == receiver; ++i) {
            for (Harm* const harm : {&positions, &allPositions}) {
                harm->Add(entries[i].figures, entries[i].drive);
            }
            for (Harm* const harm : {&headings, &allHeadings}) {
                harm->Add(entries[i].figures, entries[i].drive);
            }
        }
        if (positions.Count() + headings.Count() > 0) {
            table.Row({receiver, std::to_string(positions.Count()), positions.Most(),
                       std::to_string(headings.Count()), headings.Most()});
        }
    }
    table.Row({"all " + std::to_string(entries.size()) + " pairs", std::to_string(allPositions.Count()), "",
               std::to_string(allHeadings.Count()), ""});
    report.Put("worse", table);
}

std::string Ledger::List() const
{
    std::string list = "receiver;drive;model;rms;95 %;largest;jitter;speed;heading;behind\n";
    for (const Entry& entry : entries) {
        for (std::size_t model = 0; model < MODELS; ++model) {
            const Figures& f = entry.figures[model];
            list += entry.receiver + ";" + entry.drive + ";" + MODEL_NAMES[model];
            for (const double value : {f.rms, f.most95, f.largest, f.jitter, f.speed, f.heading, f.behind}) {
                list += ";" + Number(value, 3);
            }
            list += "\n";
        }
    }
    return list;
}

} // namespace study
