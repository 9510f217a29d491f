// Sentences that end anywhere, in heap blocks of their exact size: nothing is read past the terminator.
#include <algorithm>
#include <random>

#include "tests/unit/nmea/ParserFeed.h"

namespace
{

const struct {
    std::string body;
    std::ptrdiff_t commasNeeded; // a prefix with its last needed field, even an empty one, parses
} SENTENCES[] = {{GGA, 9}, {GLL, 6}, {RMC, 9}, {VTG, 7}, {ZDA, 4}, {GSA, 2}};

TEST(Prefix, ParsesFromItsLastNeededFieldOn)
{
    for (const auto& [body, commasNeeded] : SENTENCES) {
        for (std::size_t length = 5; length <= body.size(); ++length) {
            const std::string sentence = Sentence(body.substr(0, length));
            const std::size_t asterisk = sentence.find('*');
            const bool reaches = std::count(sentence.begin(), sentence.end(), ',') >= commasNeeded;
            for (std::size_t kept = asterisk; kept <= sentence.size(); ++kept) {
                ParserFeed feed;
                feed.Mark();
                EXPECT_EQ(feed.TakeRaw(sentence.substr(0, kept)), reaches && kept > asterisk + 2) << sentence;
            }
        }
    }
}

TEST(HostileSentence, FieldsBehindTheChecksumCount)
{
    ParserFeed feed;
    EXPECT_FALSE(feed.TakeRaw("$GPGGA*56,,4,"));
    EXPECT_TRUE(feed.TakeRaw("$GPGGA*56,,,,,,,,,7.5")); // altitude, but no position to store it with
    EXPECT_EQ(feed.record.mask, GPS_MASK_ALTITUDE);
    EXPECT_EQ(feed.record.altitude, 0.0);
    EXPECT_TRUE(feed.TakeRaw("$GPZDA*48,,,,2"));           // "2" and what reads as zero behind the terminator
    EXPECT_EQ(feed.record.date.year, 65536 - 3328 - 2000); // ((2 * 10 - 48) * 10 - 48) * 10 - 48
}

TEST(HostileSentence, AnyBytesWithARightChecksumKeepTheLimits)
{
    std::mt19937 random(20240229); // NOLINT(cert-msc32-c,cert-msc51-cpp): a run that can be repeated
    const auto below = [&random](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    ParserFeed feed;
    int taken = 0;
    for (int i = 0; i < 4000; ++i) {
        std::string body = i % 7 == 0 ? "GPGSV,2,2,8,03,10,100,30,04,20,200,40" : SENTENCES[i % 6].body;
        for (std::size_t changes = below(4); changes > 0; --changes) {
            const std::string_view bytes(",,,,*-.0169eAW$\x01\x7F\x80\xFF", 19);
            body[5 + below(body.size() - 5)] = bytes[below(bytes.size())];
        }
        taken += feed.Take(body.substr(0, 5 + below(body.size()))) ? 1 : 0;
        ASSERT_LE(feed.record.valid, 1);
        ASSERT_LE(feed.record.satellite.viewCount, 64);
        ASSERT_EQ(feed.record.mask & ~0x7FFU, 0U);
        for (std::size_t slot = 0; slot < GPS_SATELLITE_SLOTS; ++slot) {
            const int prn = feed.record.satellite.prn[slot];
            ASSERT_TRUE(prn == 0 || prn == 255 || prn == static_cast<int>(slot) + 1);
            ASSERT_LE(feed.record.satellite.used[slot], 1);
        }
    }
    EXPECT_GT(taken, 400); // else the run would have tested the checksum alone
}

} // namespace
