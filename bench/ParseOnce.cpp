// Sends epochs through the parser, the stream listener, the sentence adapter or the smoothing step, for
// instructions.sh to count.
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>

#include "GpsLib/device/CGPSCOMDeviceImpl.h"
#include "GpsLib/device/CGPSStreamListener.h"
#include "GpsLib/filter/CGPSFilter.h"
#include "GpsLib/nmea/CNMEAParser.h"
#include "bench/Corpus.h"
#include "layers/adapter/CSentenceAdapter.h"

namespace
{

constexpr int EPOCHS = 50; // the same ones over and over, whatever the count, so that making them cancels out

void Parse(long rounds)
{
    const std::vector<std::string> sentences = Epochs(EPOCHS);
    const GPS::CNMEAParser parser;
    _GPS_Data record;
    for (; rounds > 0; --rounds) {
        for (const std::string& sentence : sentences) {
            parser.Parse(sentence.c_str(), static_cast<std::int32_t>(sentence.size()), 0, record);
        }
    }
}

void Listen(long rounds)
{
    const std::vector<std::string> chunks = Chunks(Epochs(EPOCHS));
    GPS::CGPSCOMDeviceImpl device;
    GPS::CGPSStreamListener listener(&device, nullptr);
    for (; rounds > 0; --rounds) {
        for (const std::string& chunk : chunks) {
            listener.onData(chunk.data(), static_cast<std::uint32_t>(chunk.size()));
        }
    }
}

void Smooth(long rounds)
{
    const std::unique_ptr<GPS::CGPSFilter> filter(GPS::CGPSFilter::Make());
    for (long step = 0; step < rounds * EPOCHS; ++step) {
        _GPS_Filter_Data data{
            {121.0 + static_cast<double>(step % 100) * 1e-4, 31.0}, 36.0, 90.0, 1e-5, 9e-6, true};
        filter->Filter(data);
    }
}

/// Counts what comes out of an adapter.
class Counter final : public adapter::CSentenceSink
{
public:
    void OnSentence(const char* /*sentence*/, std::size_t /*length*/) noexcept override { ++sentences; }

    long sentences = 0;
};

void Adapt(long rounds, std::vector<std::string> (*epoch)(int))
{
    std::vector<std::string> sentences;
    for (int second = 0; second < EPOCHS; ++second) {
        const std::vector<std::string> next = epoch(second);
        sentences.insert(sentences.end(), next.begin(), next.end());
    }
    const std::vector<std::string> chunks = Chunks(sentences);
    adapter::CSentenceAdapter adapter;
    Counter counter;
    for (; rounds > 0; --rounds) {
        for (const std::string& chunk : chunks) {
            adapter.Take(chunk.data(), chunk.size(), counter);
        }
    }
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 3) {
        std::cerr << "usage: " << arguments[0] << " parse|listen|adapt|adapt-older|smooth ROUNDS\n";
        return 2;
    }
    const long rounds = std::strtol(arguments[2], nullptr, 10);
    if (std::strcmp(arguments[1], "parse") == 0) {
        Parse(rounds);
    } else if (std::strcmp(arguments[1], "listen") == 0) {
        Listen(rounds);
    } else if (std::strcmp(arguments[1], "adapt") == 0) {
        Adapt(rounds, EpochOfToday);
    } else if (std::strcmp(arguments[1], "adapt-older") == 0) {
        Adapt(rounds, Epoch);
    } else {
        Smooth(rounds);
    }
    return 0;
}
