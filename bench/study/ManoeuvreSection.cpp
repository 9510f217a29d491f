// How long a manoeuvre is felt: the error over time, averaged over many runs of the same way.
#include <algorithm>
#include <cmath>

#include "bench/study/Drives.h"
#include "bench/study/Models.h"
#include "bench/study/Receiver.h"
#include "bench/study/Report.h"
#include "bench/study/Sections.h"

namespace study
{

namespace
{

constexpr int RUNS = 200;
constexpr std::size_t LEAD = 150;   // [s] straight on before it
constexpr std::size_t STEADY = 60;  // [s] the last ones of these tell the usual error
constexpr std::size_t BEHIND = 180; // [s] straight on behind it
constexpr std::size_t DRAWN = 1;    // the stop at a light
constexpr double BACK = 1.25;       // times the usual error

/// Root mean square position error at each second.
using Course = std::vector<OfModels<double>>;

Track WayOf(const Manoeuvre& manoeuvre)
{
    const auto lead = static_cast<double>(LEAD);
    const Driver driver = [&manoeuvre, lead](double time, double speed) -> Demand {
        return time < lead ? Demand{speed, 0.0, 0.0} : manoeuvre.driver(time - lead, speed);
    };
    return {driver, manoeuvre.speed, lead + manoeuvre.takes + static_cast<double>(BEHIND)};
}

Course CourseOf(const Manoeuvre& manoeuvre)
{
    const Track way = WayOf(manoeuvre);
    Course course;
    for (int run = 0; run < RUNS; ++run) {
        Dice dice(std::string(manoeuvre.name) + "/" + std::to_string(run));
        Smoothers smoothers;
        const std::vector<Epoch> epochs = Received(way, {}, dice);
        course.resize(epochs.size());
        for (std::size_t second = 0; second < epochs.size(); ++second) {
            const OfModels<_GPS_Data> told = smoothers.Step(epochs[second].fix);
            for (std::size_t model = 0; model < MODELS; ++model) {
                course[second][model] += Square(Way(epochs[second].truth.at, told[model].lonLat)) / RUNS;
            }
        }
    }
    for (OfModels<double>& errors : course) {
        std::transform(errors.begin(), errors.end(), errors.begin(),
                       [](double square) { return std::sqrt(square); });
    }
    return course;
}

/// Result: the root mean square of a model's errors before the manoeuvre.
double Usual(const Course& course, MODEL model)
{
    double squares = 0.0;
    for (std::size_t second = LEAD - STEADY; second < LEAD; ++second) {
        squares += course[second][model] * course[second][model];
    }
    return std::sqrt(squares / static_cast<double>(STEADY));
}

/// Result: [s] from the manoeuvre's end until a model's error is back below a limit and stays there.
std::string BackBelow(const Course& course, MODEL model, double limit, std::size_t end)
{
    std::size_t back = course.size();
    while (back > end && course[back - 1][model] <= limit) {
        --back;
    }
    return back == course.size() ? "above " + std::to_string(back - end) : std::to_string(back - end);
}

/// [s] since the manoeuvre began, and the errors.
void Plot(Report& report, const Course& course)
{
    for (std::size_t second = LEAD - 10; second < course.size(); ++second) {
        std::string line = std::to_string(static_cast<int>(second) - static_cast<int>(LEAD));
        for (const double error : course[second]) {
            line += " " + Number(error, 2);
        }
        report.Data("stop.dat", line + "\n");
    }
}

double Largest(const Course& course, MODEL model)
{
    double largest = 0.0;
    for (std::size_t second = LEAD; second < course.size(); ++second) {
        largest = std::max(largest, course[second][model]);
    }
    return largest;
}

} // namespace

void StudyManoeuvres(Report& report)
{
    Table table({"manoeuvre", "acceleration: usual, largest [m]", "below raw after [s]", "usual after [s]",
                 "velocity: usual, largest [m]", "below raw after [s]", "usual after [s]"});
    for (const Manoeuvre& manoeuvre : Manoeuvres()) {
        const Course course = CourseOf(manoeuvre);
        const std::size_t end = LEAD + static_cast<std::size_t>(manoeuvre.takes);
        const double raw = Usual(course, RAW);
        std::vector<std::string> row{manoeuvre.name};
        for (const MODEL model : {ACCELERATION, VELOCITY}) {
            const double usual = Usual(course, model);
            row.push_back(Number(usual, 1) + ", " + Number(Largest(course, model), 1));
            row.push_back(BackBelow(course, model, raw, end));
            row.push_back(BackBelow(course, model, BACK * usual, end));
        }
        table.Row(row);
        if (&manoeuvre == &Manoeuvres()[DRAWN]) {
            Plot(report, course);
        }
    }
    report.Put("manoeuvres", table);
}

} // namespace study
