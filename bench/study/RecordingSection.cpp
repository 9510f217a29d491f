// What the models make of real receivers' recordings. Nobody knows the truth there.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "GpsLib/log/CGPSLogDevice.h"
#include "bench/study/Models.h"
#include "bench/study/Report.h"
#include "bench/study/Sections.h"
#include "bench/study/Units.h"
#include "layers/adapter/AdaptLog.h"

namespace study
{

namespace
{

constexpr double SLOW = 1.0;      // [km/h] slower than that it stands
constexpr double SWING = 5.0;     // [deg] a heading that jumps
constexpr double FOLLOWS = 100.0; // [m] a fix farther from the one before doesn't follow it

/// What can be told of a model without a truth.
class Traces
{
public:
    void Add(const _GPS_Data& raw, const _GPS_Data& told)
    {
        const double off = Length(Way(raw.lonLat, told.lonLat));
        apart += off * off;
        farthest = std::max(farthest, off);
        ++fixes;
        rows.push_back(told.lonLat);
        if (rows.size() >= 3) {
            AddUnrest();
        }
        if (raw.speed < SLOW) {
            swings += stands && std::fabs(Apart(told.heading, heading)) > SWING ? 1 : 0;
            standing += stands ? 1 : 0;
        }
        stands = raw.speed < SLOW;
        heading = told.heading;
    }

    /// The next fix doesn't follow.
    void Break() noexcept
    {
        rows.clear();
        stands = false;
    }

    double Distance() const noexcept { return std::sqrt(apart / std::max(1, fixes)); }
    double Farthest() const noexcept { return farthest; }
    /// [m] root mean square distance of a fix from the middle between its neighbours.
    double Unrest() const noexcept { return std::sqrt(unrest / std::max(1, middles)); }
    int Standing() const noexcept { return standing; }
    int Swings() const noexcept { return swings; }

private:
    void AddUnrest()
    {
        const tagLonLat& middle = rows[rows.size() - 2];
        const Metres back = Way(middle, rows[rows.size() - 3]);
        const Metres on = Way(middle, rows.back());
        if (Length(back) < FOLLOWS && Length(on) < FOLLOWS) {
            unrest += Square(0.5 * (back + on));
            ++middles;
        }
    }

    double apart = 0.0; // [m2]
    double farthest = 0.0;
    int fixes = 0;
    std::vector<tagLonLat> rows;
    double unrest = 0.0; // [m2]
    int middles = 0;
    bool stands = false;
    double heading = 0.0;
    int standing = 0;
    int swings = 0;
};

/// path: a log as the receiver sent it, of whatever talkers. copy: where to put what the replay takes of it.
void Tell(Table& table, const std::filesystem::path& path, const std::filesystem::path& copy)
{
    std::string file = copy.string();
    if (adapter::AdaptLog(path.string().c_str(), file.c_str()).result != adapter::ADAPTLOG_DONE) {
        throw std::runtime_error("can't copy " + path.string() + " to " + file);
    }
    GPS::CGPSLogDevice log;
    if (!log.OpenLogFileForRead(file.data())) {
        throw std::runtime_error("can't read " + file);
    }
    Smoothers smoothers;
    OfModels<Traces> traces;
    int fixes = 0;
    for (_GPS_Data fix; log.GetGPSData(fix);) {
        fixes += fix.valid;
        const OfModels<_GPS_Data> told = smoothers.Step(fix);
        for (std::size_t model = 0; model < MODELS; ++model) {
            if (fix.valid != 0) {
                traces[model].Add(fix, told[model]);
            } else {
                traces[model].Break();
            }
        }
    }
    std::vector<std::string> row{path.stem().string(), std::to_string(fixes)};
    for (const MODEL model : {ACCELERATION, VELOCITY}) {
        row.push_back(Number(traces[model].Distance(), 1) + ", " + Number(traces[model].Farthest(), 0));
    }
    row.push_back(Number(traces[RAW].Unrest(), 2) + " / " + Number(traces[ACCELERATION].Unrest(), 2) + " / " +
                  Number(traces[VELOCITY].Unrest(), 2));
    row.push_back(std::to_string(traces[RAW].Standing()));
    row.push_back(std::to_string(traces[RAW].Swings()) + " / " +
                  std::to_string(traces[ACCELERATION].Swings()) + " / " +
                  std::to_string(traces[VELOCITY].Swings()));
    table.Row(row);
}

} // namespace

void TellRecordings(const std::string& folder, const std::string& copies)
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".nmea") {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    Table table({"recording", "fixes", "acceleration from raw [m]", "velocity from raw [m]", "unrest [m]",
                 "epochs at rest", "of these the heading jumps"});
    std::filesystem::create_directories(copies);
    for (const std::filesystem::path& path : paths) {
        Tell(table, path, std::filesystem::path(copies) / path.filename());
    }
    std::printf("%s", table.Text().c_str());
}

} // namespace study
