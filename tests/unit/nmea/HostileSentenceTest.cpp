// Sentences that end anywhere, in heap blocks of their exact size: nothing is read past the terminator.
#include <algorithm>

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

} // namespace
