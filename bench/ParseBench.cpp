// Sentences through the parser and through the stream listener, beside their floors in the same run.
#include <algorithm>
#include <chrono>
#include <limits>

#include <benchmark/benchmark.h>

#include "GpsLib/device/CGPSCOMDeviceImpl.h"
#include "GpsLib/device/CGPSStreamListener.h"
#include "GpsLib/nmea/CNMEAParser.h"
#include "bench/Allocations.h"
#include "bench/Corpus.h"
#include "bench/Floors.h"

namespace
{

constexpr int EPOCHS = 60;

template <class WORK>
double SecondsOf(const WORK& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// Times the work over all sentences and, turn by turn with it, the floors. Of each the fastest turn counts:
/// what else runs on the machine can only add. Counters: [ns] a sentence, the work's time over each floor's,
/// blocks a sentence.
template <class WORK>
void Beside(benchmark::State& state, const std::vector<std::string>& sentences, const WORK& work)
{
    double own = std::numeric_limits<double>::infinity();
    double xorFloor = own;
    double fromCharsFloor = own;
    std::size_t blocks = 0;
    for ([[maybe_unused]] auto turn : state) {
        const std::size_t blocksBefore = Allocations();
        const double seconds = SecondsOf(work);
        blocks += Allocations() - blocksBefore;
        own = std::min(own, seconds);
        const double xorSeconds = SecondsOf([&sentences] {
            for (const std::string& sentence : sentences) {
                benchmark::DoNotOptimize(XorFloor(sentence));
            }
        });
        const double fromCharsSeconds = SecondsOf([&sentences] {
            for (const std::string& sentence : sentences) {
                benchmark::DoNotOptimize(FromCharsFloor(sentence));
            }
        });
        xorFloor = std::min(xorFloor, xorSeconds);
        fromCharsFloor = std::min(fromCharsFloor, fromCharsSeconds);
        state.SetIterationTime(seconds);
    }
    const auto count = static_cast<double>(sentences.size());
    state.counters["ns"] = own * 1e9 / count;
    state.counters["over_xor"] = own / xorFloor;
    state.counters["over_from_chars"] = own / fromCharsFloor;
    state.counters["blocks"] =
        static_cast<double>(blocks) / (count * static_cast<double>(state.iterations()));
}

void Parse(benchmark::State& state, const std::vector<std::string>& sentences)
{
    const GPS::CNMEAParser parser;
    _GPS_Data record;
    _GPS_Satellite accumulator;
    GPS::CNMEAParser::ResetAccumulator(accumulator);
    Beside(state, sentences, [&] {
        for (const std::string& sentence : sentences) {
            parser.Parse(sentence.c_str(), static_cast<std::int32_t>(sentence.size()), 0, record,
                         accumulator);
        }
        benchmark::DoNotOptimize(record);
    });
}

/// One kind of sentence, or with SENTENCES_A_EPOCH the mix.
void ParseKind(benchmark::State& state, SENTENCE kind)
{
    std::vector<std::string> sentences;
    for (int second = 0; second < EPOCHS; ++second) {
        const std::vector<std::string> epoch = Epoch(second);
        if (kind == SENTENCES_A_EPOCH) {
            sentences.insert(sentences.end(), epoch.begin(), epoch.end());
        } else {
            sentences.push_back(epoch[kind]);
        }
    }
    Parse(state, sentences);
}

void Listen(benchmark::State& state)
{
    const std::vector<std::string> sentences = Epochs(EPOCHS);
    const std::vector<std::string> chunks = Chunks(sentences);
    GPS::CGPSCOMDeviceImpl device;
    GPS::CGPSStreamListener listener(&device, nullptr);
    Beside(state, sentences, [&] {
        for (const std::string& chunk : chunks) {
            listener.onData(chunk.data(), static_cast<std::uint32_t>(chunk.size()));
        }
    });
}

BENCHMARK_CAPTURE(ParseKind, GGA, GGA)->UseManualTime();
BENCHMARK_CAPTURE(ParseKind, GLL, GLL)->UseManualTime();
BENCHMARK_CAPTURE(ParseKind, GSA, GSA)->UseManualTime();
BENCHMARK_CAPTURE(ParseKind, GSV, GSV_1)->UseManualTime();
BENCHMARK_CAPTURE(ParseKind, RMC, RMC)->UseManualTime();
BENCHMARK_CAPTURE(ParseKind, VTG, VTG)->UseManualTime();
BENCHMARK_CAPTURE(ParseKind, ZDA, ZDA)->UseManualTime();
BENCHMARK_CAPTURE(ParseKind, Mix, SENTENCES_A_EPOCH)->UseManualTime();
BENCHMARK(Listen)->UseManualTime();

} // namespace
