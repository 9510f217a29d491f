// LatencyBench.cpp: how late fixes come, and what gets lost, at the pace of a serial line.
//
// usage: kest_gps_latency SECONDS   for each row, once with the port as it is by itself and once prompt
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/Corpus.h"
#include "bench/PacedReceiver.h"
#include "layers/adapter/CSentenceAdapter.h"
#include "tools/files/WholeFile.h"

namespace
{

using std::chrono::milliseconds;

constexpr double JITTER = 2.0; // [ms] of a receiver's bursts, at most, either way

struct Line {
    double baudRate; // [bit/s]
    int rate;        // [Hz]
};

enum PLACE { FIRST, MIDDLE, LAST };
constexpr const char* PLACE_NAMES[] = {"first", "middle", "last"};

Burst MakeBurst(int second, PLACE place, std::vector<SENTENCE> order)
{
    const std::size_t before = place == FIRST ? 0 : place == MIDDLE ? order.size() / 2 : order.size();
    order.insert(order.begin() + static_cast<std::ptrdiff_t>(before), GGA);
    const std::vector<std::string> sentences = Epoch(second);
    Burst burst;
    for (const SENTENCE sentence : order) {
        burst.bytes += sentences[sentence];
        if (sentence == GGA) {
            burst.ggaEnd = burst.bytes.size();
        }
    }
    return burst;
}

/// Result: the longest burst that leaves the line a twentieth of its time; no bytes where none does.
Burst BurstFor(const Line& line, int second, PLACE place)
{
    for (const auto& others :
         {std::vector<SENTENCE>{RMC, VTG, GSA, GSV_1, GSV_2, GSV_3}, std::vector<SENTENCE>{RMC, VTG, GSA}}) {
        Burst burst = MakeBurst(second, place, others);
        if (static_cast<double>(burst.bytes.size()) * BITS_A_BYTE * line.rate < 0.95 * line.baudRate) {
            return burst;
        }
    }
    return {};
}

struct Finding {
    double median = 0.0;  // [ms]
    double longest = 0.0; // [ms]
    double share = 0.0;   // of a processor
};

Finding Measure(const Line& line, PLACE place, bool prompt, int seconds)
{
    platform::PortOptions options;
    options.prompt = prompt;
    PacedReceiver receiver(options);
    std::vector<Clock::time_point> sent{receiver.Play(BurstFor(line, 0, place), line.baudRate, Clock::now())};
    receiver.AwaitEpochs(1); // from here on everything has been made
    std::mt19937 random(1);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same bursts in both runs
    std::uniform_real_distribution<double> jitter(-JITTER, JITTER);
    const double before = receiver.ProcessorSeconds();
    const Clock::time_point begin = Clock::now() + milliseconds(300);
    for (int k = 0; k < seconds * line.rate; ++k) {
        const Milliseconds due(1000.0 * k / line.rate + jitter(random));
        sent.push_back(receiver.Play(BurstFor(line, k, place), line.baudRate,
                                     begin + std::chrono::duration_cast<Clock::duration>(due)));
    }
    receiver.AwaitEpochs(sent.size());
    const std::chrono::duration<double> passed = Clock::now() - begin;
    std::vector<double> delays;
    for (std::size_t k = 1; k < sent.size(); ++k) {
        delays.push_back(Milliseconds(receiver.Came()[k] - sent[k]).count());
    }
    std::sort(delays.begin(), delays.end());
    return {delays[delays.size() / 2], delays.back(),
            (receiver.ProcessorSeconds() - before) / passed.count()};
}

void PrintLatency(const Line& line, int seconds)
{
    for (const PLACE place : {FIRST, MIDDLE, LAST}) {
        const std::size_t bytes = BurstFor(line, 0, place).bytes.size();
        if (bytes == 0) {
            return;
        }
        const Finding plain = Measure(line, place, false, seconds);
        const Finding prompt = Measure(line, place, true, seconds);
        std::printf("| %6.0f | %2d | %3zu | %-6s | %3.0f | %3.0f | %4.1f | %4.1f | %.3f %% | %.2f |\n",
                    line.baudRate, line.rate, bytes, PLACE_NAMES[place], plain.median, plain.longest,
                    prompt.median, prompt.longest, plain.share * 100, prompt.share / plain.share);
        static_cast<void>(std::fflush(stdout));
    }
}

/// Prints how much the library takes of a line that never pauses, without options.
void PrintFlood(int seconds)
{
    PacedReceiver receiver({});
    const std::string bytes = MakeBurst(0, LAST, {RMC, VTG, GSA, GSV_1, GSV_2, GSV_3}).bytes;
    std::size_t taken = 0;
    const Clock::time_point filled = Clock::now() + std::chrono::seconds(1); // the kernel's queue
    for (std::size_t at = 0; Clock::now() < filled + std::chrono::seconds(seconds);) {
        const std::size_t written = receiver.Offer(bytes.substr(at));
        at = (at + written) % bytes.size();
        taken += Clock::now() >= filled ? written : 0;
        std::this_thread::sleep_for(milliseconds(1));
    }
    std::printf("a line that never pauses: %zu byte/s taken\n", taken / static_cast<std::size_t>(seconds));
}

/// What a receiver of four systems sends, in the manner of today. signals: of each system.
Burst FourSystems(int tenth, int signals)
{
    const std::vector<std::string> sentences = Epoch(tenth);
    const auto combined = [&](SENTENCE sentence) {
        return Sentence("GN" + sentences[sentence].substr(3, sentences[sentence].size() - 8));
    };
    Burst burst{combined(RMC) + combined(VTG) + combined(GGA)};
    burst.ggaEnd = burst.bytes.size();
    for (const char* system : {"1", "2", "3", "4"}) {
        burst.bytes += Sentence(std::string("GNGSA,A,3,05,12,20,31,,,,,,,,,1.8,0.9,1.5,") + system);
    }
    for (const std::string talker : {"GP", "GL", "GA", "GB"}) {
        for (int signal = 1; signal <= signals; ++signal) {
            for (const char* message : {"GSV,2,1,07,04,40,083,40,05,17,308,41,09,07,344,39,12,22,228,45,",
                                        "GSV,2,2,07,17,65,112,30,24,31,046,44,28,51,270,42,"}) {
                burst.bytes += Sentence(talker + message + std::to_string(signal));
            }
        }
    }
    burst.bytes += combined(GLL) + combined(ZDA);
    return burst;
}

class Gatherer final : public adapter::CSentenceSink
{
public:
    std::string sentences;

    void OnSentence(const char* sentence, std::size_t length) noexcept override
    {
        sentences.append(sentence, length);
    }
};

/// Prints what a fast receiver of four systems sends, and what of its adapted sentences the library logged.
void PrintLoad(double baudRate, int signals, int seconds)
{
    platform::PortOptions options;
    options.adapt = true;
    options.prompt = true;
    PacedReceiver receiver(options);
    std::string log = (std::filesystem::temp_directory_path() / "kest_gps_latency.nmea").string();
    std::filesystem::remove(log);
    if (!receiver.Device().StartWriteLog(log.data(), LOGTYPE_NMEA)) {
        throw std::runtime_error("can't log");
    }
    Gatherer expected;
    adapter::CSentenceAdapter adapter;
    std::size_t sent = 0;
    const Clock::time_point begin = Clock::now() + milliseconds(100);
    for (int tenth = 0; tenth < seconds * 10; ++tenth) {
        const Burst burst = FourSystems(tenth, signals);
        adapter.Take(burst.bytes.data(), burst.bytes.size(), expected);
        sent += burst.bytes.size();
        receiver.Play(burst, baudRate, begin + milliseconds(100 * tenth));
    }
    std::this_thread::sleep_for(std::chrono::seconds(1)); // until all has been read
    receiver.Device().StopWriteLog();
    const std::string logged = kestgps::ReadWholeFile(log);
    std::filesystem::remove(log);
    std::printf("four systems, 10 Hz, %.0f bit/s: %zu bytes sent; %zu pass the adapter, %zu logged: %s\n",
                baudRate, sent, expected.sentences.size(), logged.size(),
                logged == expected.sentences ? "the same" : "NOT the same");
}

int Run(int seconds)
{
    PrintFlood(seconds);
    PrintLoad(115200, 1, seconds);
    PrintLoad(460800, 7, seconds);
    std::printf("| bit/s | Hz | byte | GGA | median | most | prompt: median | most | processor | prompt: "
                "times that |\n"
                "| ---: | ---: | ---: | --- | ---: | ---: | ---: | ---: | ---: | ---: |\n");
    for (const double baudRate : {4800.0, 9600.0, 38400.0, 115200.0}) {
        for (const int rate : {1, 5, 10}) {
            PrintLatency({baudRate, rate}, seconds);
        }
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    const long seconds = argc == 2 ? std::strtol(argv[1], nullptr, 10) : 0;
    if (seconds <= 0 || seconds > 3600) {
        static_cast<void>(std::fprintf(stderr, "usage: kest_gps_latency SECONDS\n"));
        return 2;
    }
    try {
        return Run(static_cast<int>(seconds));
    } catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "kest_gps_latency: %s\n", error.what()));
        return 1;
    }
}
