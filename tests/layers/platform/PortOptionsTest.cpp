// What a port does with its bytes when it is asked to.
#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

#include "tests/layers/platform/SerialLayer.h"
#include "tests/support/Row.h"
#include "tests/support/Sentence.h"

namespace
{

using KestThread::Thread;
using platform::PortOptions;
using support::Sentence;
using support::operator<<; // how a failing row is printed

constexpr COMMTIMEOUTS AS_THE_SYSTEM{100, 1, 100, 0, 0};
constexpr COMMTIMEOUTS FOREVER{0, 0, 0, 0, 0};

const PortOptions PROMPT = [] {
    PortOptions options;
    options.prompt = true;
    return options;
}();
const PortOptions AT_SENTENCES = [] {
    PortOptions options;
    options.cutAtSentences = true;
    return options;
}();
const PortOptions ADAPTED = [] {
    PortOptions options;
    options.adapt = true;
    return options;
}();

const std::string GN_RMC = Sentence("GNRMC,101500,A,3114.250,N,12129.500,E,10.0,90.0,221126,,");
const std::string GP_RMC = Sentence("GPRMC,101500,A,3114.250,N,12129.500,E,10.0,90.0,221126,,");

/// COM7 with options, opened anew.
class PortOptionsRead : public live::SerialTransfer
{
protected:
    void Reopen(const PortOptions& options)
    {
        CloseHandle(port);
        platform::AssignPort(7, device.Path(), options);
        port = live::OpenNamed(L"COM7:");
        Limit(FOREVER);
    }
};

struct OptionCase {
    const char* rule;
    PortOptions options;
    COMMTIMEOUTS limits;
    std::vector<live::Exchange> exchanges;
};

const OptionCase OPTION_CASES[] = {
    {"PromptGivesAllWholeLinesAndKeepsTheTornOne",
     PROMPT,
     FOREVER,
     {{"$GPVTG\r\n$GPGGA,1\r\n$GP", 512, "$GPVTG\r\n$GPGGA,1\r\n"}, {"GLL\r\nxy", 512, "$GPGLL\r\n"}}},
    {"PromptWithoutALineEndsAsItEverDid", PROMPT, AS_THE_SYSTEM, {{"torn", 512, "torn"}, {"", 512, ""}}},
    {"LineFeedInsideABinaryFrameEndsNoChunk",
     AT_SENTENCES,
     FOREVER,
     {{"$GPA\r\n$GPB\r\n\x01\n\x02$GPC\r\n", 17, "$GPA\r\n"}, {"", 15, "$GPB\r\n\x01\n\x02$GPC\r\n"}}},
    {"WithoutAnySentenceAnyLineFeedDoes",
     AT_SENTENCES,
     FOREVER,
     {{"\x01\x02\n\x03\x04", 4, "\x01\x02\n"}, {"", 2, "\x03\x04"}}},
};

class PortOptionsRule : public PortOptionsRead, public testing::WithParamInterface<OptionCase>
{
};

INSTANTIATE_TEST_SUITE_P(Rules, PortOptionsRule, testing::ValuesIn(OPTION_CASES), support::RuleName());

TEST_P(PortOptionsRule, Brings)
{
    Reopen(GetParam().options);
    Limit(GetParam().limits);
    ExpectExchanges(GetParam().exchanges);
}

TEST_F(PortOptionsRead, PromptReadEndsWithTheGgaThoughTheReceiverGoesOn)
{
    Reopen(PROMPT);
    std::atomic<bool> going{true};
    std::thread writer([&] {
        device.Write("$GPGGA,1\r\n");
        while (going) {
            device.Write("x\n");
            Thread::sleep(2);
        }
    });
    const std::string read = Read().value_or("failed");
    going = false;
    writer.join();
    EXPECT_EQ(read.substr(0, 10), "$GPGGA,1\r\n");
    EXPECT_LT(read.size(), 512U) << "only a full read ended it";
}

TEST_F(PortOptionsRead, ReadEndsInTimeThoughWhatTheAdapterDropsNeverPauses)
{
    constexpr int ENDLESS = 3000; // what the read would wait for
    const std::string dropped = Sentence("GLGSV,1,1,01,70,10,100,30");
    int pieces = 0;
    PortOptions options = ADAPTED;
    options.tap = [&](const char*, std::size_t) {
        if (++pieces < ENDLESS) {
            device.Write(dropped);
            Thread::sleep(1); // so that it is there at the next look
        }
    };
    Reopen(options);
    Limit({100, 0, 50, 0, 0});
    device.Write(dropped);
    EXPECT_EQ(Read(), "");
    EXPECT_LT(pieces, ENDLESS);
}

TEST_F(PortOptionsRead, TapGetsEveryByteAsItCameWhateverItThrowsAndTheAdapterTakes)
{
    std::string tapped;
    PortOptions options = ADAPTED;
    options.tap = [&tapped](const char* bytes, std::size_t length) {
        tapped.append(bytes, length);
        throw std::runtime_error("disk full");
    };
    Reopen(options);
    const std::string sent = "\xB5\x62\n" + GN_RMC + Sentence("GLGSV,1,1,01,70,10,100,30");
    SendAndAwait(sent);
    EXPECT_EQ(Read(static_cast<DWORD>(GP_RMC.size())), GP_RMC);
    SendAndAwait(GN_RMC);
    EXPECT_EQ(Read(static_cast<DWORD>(GP_RMC.size())), GP_RMC);
    EXPECT_EQ(tapped, sent + GN_RMC);
}

TEST_F(PortOptionsRead, CountsAreThoseOfTheOpenPort)
{
    adapter::AdapterCounts counts;
    Reopen(PROMPT);
    EXPECT_FALSE(platform::PortCounts(7, counts)) << "no adapter";
    Reopen(ADAPTED);
    SendAndAwait(GN_RMC);
    Read(static_cast<DWORD>(GP_RMC.size()));
    EXPECT_TRUE(platform::PortCounts(7, counts));
    EXPECT_EQ(counts.rewritten, 1U);
    EXPECT_FALSE(platform::PortCounts(8, counts));
    platform::AssignPort(7, device.Path()); // takes the options off, from the next open on
    EXPECT_TRUE(platform::PortCounts(7, counts));
    CloseHandle(port);
    EXPECT_FALSE(platform::PortCounts(7, counts));
    port = live::OpenNamed(L"COM7:");
    EXPECT_FALSE(platform::PortCounts(7, counts));
}

TEST_F(PortOptionsRead, MuchIsKeptAndNothingLostWhenItIsMore)
{
    for (const PortOptions& options : {PROMPT, ADAPTED}) {
        Reopen(options);
        Limit(AS_THE_SYSTEM);
        std::string all;
        for (int i = 0; i < 700; ++i) { // some 40 KB
            all += Sentence("GPRMC,101500,A,3114.250,N,12129.500,E,10.0,90.0,221126,," + std::to_string(i));
        }
        std::thread writer([&] { device.Write(all); });
        std::string got;
        while (got.size() < all.size()) {
            got += Read(200).value_or("failed");
            Thread::sleep(1);
        }
        writer.join();
        EXPECT_EQ(got, all);
    }
}

TEST_F(PortOptionsRead, WhatOneReadTookFromTheKernelOutlivesTheDevice)
{
    Reopen(PROMPT);
    SendAndAwait("$GPGGA,1\r\n$GPGGA,2\r\n$GPGGA,3\r\ntorn");
    EXPECT_EQ(Read(10), "$GPGGA,1\r\n");
    device.HangUp();
    EXPECT_EQ(Read(), "$GPGGA,2\r\n$GPGGA,3\r\n");
}

TEST_F(PortOptionsRead, SentenceThatBrokeOffInTheAdapterIsNotJoinedToWhatComesLater)
{
    Reopen(ADAPTED);
    for (const bool purged : {true, false}) {
        Limit({0, 0, 100, 0, 0});
        SendAndAwait("$GPGGA,10");
        EXPECT_EQ(Read(), ""); // the adapter has it
        if (purged) {
            PurgeComm(port, PURGE_RXCLEAR);
        } else {
            device.HangUp();
            EXPECT_EQ(Read(), std::nullopt);
            device.Replug();
        }
        Limit(FOREVER);
        device.Write("1500,,*00\r\n" + GN_RMC);
        EXPECT_EQ(Read(static_cast<DWORD>(GP_RMC.size())), GP_RMC);
    }
}

} // namespace
