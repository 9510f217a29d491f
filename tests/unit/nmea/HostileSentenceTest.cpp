// Sentences that end anywhere, in heap blocks of their exact size: nothing is read past the terminator.
#include <algorithm>
#include <random>

#include "tests/unit/nmea/ParserFeed.h"

namespace
{

struct WholeSentence {
    const char* rule;
    const char* body;
    std::ptrdiff_t commasNeeded; // a prefix with its last needed field, even an empty one, parses
};

void PrintTo(const WholeSentence& whole, std::ostream* out)
{
    *out << whole.body;
}

class Prefix : public testing::TestWithParam<WholeSentence>
{
};

TEST_P(Prefix, ParsesFromItsLastNeededFieldOn)
{
    const std::string body = GetParam().body;
    for (std::size_t length = 5; length <= body.size(); ++length) {
        const std::string prefix = body.substr(0, length);
        const bool reaches = std::count(prefix.begin(), prefix.end(), ',') >= GetParam().commasNeeded;
        std::string sentence = Sentence(prefix);
        for (int cut = 0; cut <= 2; cut += 2) { // with and without the line end
            ParserFeed feed;
            feed.Mark();
            EXPECT_EQ(feed.TakeRaw(sentence.substr(0, sentence.size() - static_cast<std::size_t>(cut))),
                      reaches)
                << sentence;
        }
        for (std::size_t kept = sentence.find('*'); kept <= sentence.find('*') + 2; ++kept) {
            ParserFeed feed;
            EXPECT_FALSE(feed.TakeRaw(sentence.substr(0, kept))); // asterisk or digits missing
        }
    }
}

const WholeSentence WHOLE_SENTENCES[] = {
    {"Gga", "GPGGA,101519.75,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,", 9},
    {"Gll", "GPGLL,4807.038,N,01131.000,E,101519.75,A,D", 6},
    {"Rmc", "GPRMC,101519.75,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W", 9},
    {"Vtg", "GPVTG,054.7,T,034.4,M,005.5,N,010.2,K", 7},
    {"Zda", "GPZDA,201530.00,04,07,2002,00,00", 4},
    {"Gsa", "GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1", 2},
};
INSTANTIATE_TEST_SUITE_P(Of, Prefix, testing::ValuesIn(WHOLE_SENTENCES), RuleName<WholeSentence>);

TEST(Prefix, OfAGroupMessageNeedsANumberAndWholeEntries)
{
    const std::string body = "GPGSV,1,1,2,03,10,100,30,04,20,200,40";
    // Refused: ",1," reads message 0, and each comma before a satellite number reads satellite 0; so does a
    // number of which "0" alone is left.
    for (std::size_t length = 5; length <= body.size(); ++length) {
        const std::string prefix = body.substr(0, length);
        const std::string tail = prefix.substr(prefix.rfind(',') + 1);
        const auto commas = std::count(prefix.begin(), prefix.end(), ',');
        const bool number = commas == 2 || commas == 4 || commas == 8;
        ParserFeed feed;
        EXPECT_EQ(feed.Take(prefix), commas == 0 || !(number && (tail.empty() || tail == "0"))) << prefix;
    }
}

TEST(HostileSentence, FieldsBehindTheChecksumCount)
{
    ParserFeed feed;
    EXPECT_FALSE(feed.TakeRaw("$GPGGA*56,"));
    EXPECT_FALSE(feed.TakeRaw("$GPGGA*56,1"));
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
        std::string body = i % 7 == 0 ? "GPGSV,2,2,8,03,10,100,30,04,20,200,40" : WHOLE_SENTENCES[i % 6].body;
        for (std::size_t changes = below(4); changes > 0; --changes) {
            const std::string_view bytes(",,,,*-.0169eAW$\x01\x7F\x80\xFF", 19);
            body[5 + below(body.size() - 5)] = bytes[below(bytes.size())];
        }
        const std::string sentence = Sentence(body.substr(0, 5 + below(body.size())));
        taken += feed.TakeRaw(sentence) ? 1 : 0;
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
