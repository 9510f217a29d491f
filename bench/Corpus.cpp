#include "bench/Corpus.h"

#include <algorithm>

#include "GpsLib/comm/CommReader.h"
#include "GpsLib/nmea/CNMEAParser.h"

namespace
{

std::string Digits(int value, std::size_t width)
{
    const std::string digits = std::to_string(value);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

/// value: in tenths.
std::string Tenths(int value)
{
    return Digits(value / 10, 3) + "." + Digits(value % 10, 1);
}

/// Degrees and minutes. tenThousandths: of a minute.
std::string Angle(const char* degrees, int tenThousandths)
{
    return degrees + Digits(tenThousandths / 10000, 2) + "." + Digits(tenThousandths % 10000, 4);
}

} // namespace

std::string Sentence(const std::string& body)
{
    char digits[2] = {};
    GPS::CNMEAParser().ComputeChecksum(body.c_str(), digits);
    return "$" + body + "*" + digits[0] + digits[1] + "\r\n";
}

std::vector<std::string> Epoch(int second)
{
    const std::string clock = Digits(101500 + second / 60 * 100 + second % 60, 6) + ".00";
    const std::string place =
        Angle("31", 142500 + second * 37 % 5000) + ",N," + Angle("121", 294990 + second * 53 % 5000) + ",E";
    const std::string course = Tenths(800 + second % 90 * 7);
    const std::string snr = Digits(30 + second % 19, 2);
    const int knots = 200 + second % 17 * 10; // in tenths
    return {
        Sentence("GPGGA," + clock + "," + place + ",1,08,0.9," + Tenths(125 + second % 7) + ",M,7.9,M,,"),
        Sentence("GPGLL," + place + "," + clock + ",A,A"),
        Sentence("GPGSA,A,3,04,05,09,12,17,24,28,31,,,,,1.8,0.9,1.5"),
        Sentence("GPGSV,3,1,11,04,40,083," + snr + ",05,17,308,41,09,07,344,39,12,22,228,45"),
        Sentence("GPGSV,3,2,11,17,65,112," + snr + ",24,31,046,44,28,51,270,42,31,12,190,33"),
        Sentence("GPGSV,3,3,11,02,05,021,,10,03,155,,20,09,077," + snr),
        Sentence("GPRMC," + clock + ",A," + place + "," + Tenths(knots) + "," + course + ",230326,,,A"),
        Sentence("GPVTG," + course + ",T,,M," + Tenths(knots) + ",N," + Tenths(knots * 1852 / 1000) + ",K,A"),
        Sentence("GPZDA," + clock + ",23,03,2026,00,00"),
    };
}

std::vector<std::string> EpochOfToday(int second)
{
    const std::string clock = Digits(101500 + second / 60 * 100 + second % 60, 6) + ".000";
    const std::string place = Angle("31", 142500 + second * 37 % 5000) + "123,N," +
                              Angle("121", 294990 + second * 53 % 5000) + "456,E";
    const std::string snr = Digits(30 + second % 19, 2);
    const std::string dops = "1.05,0.64,0.83,";
    return {
        Sentence("GNRMC," + clock + ",A," + place + ",020.0,080.0,230326,,,D,V"),
        Sentence("GNVTG,080.0,T,,M,020.0,N,037.0,K,D"),
        Sentence("GNGGA," + clock + "," + place + ",5,24,0.64," + Tenths(125 + second % 7) +
                 "12,M,7.910,M,1.0,0120"),
        Sentence("GNGSA,A,3,04,05,09,12,17,24,28,31,,,,," + dops + "1"),
        Sentence("GNGSA,A,3,65,66,72,81,82,88,,,,,,," + dops + "2"),
        Sentence("GNGSA,A,3,02,07,12,18,26,33,,,,,,," + dops + "3"),
        Sentence("GNGSA,A,3,08,12,13,19,21,22,,,,,,," + dops + "4"),
        Sentence("GPGSV,3,1,11,04,40,083," + snr + ",05,17,308,41,09,07,344,39,12,22,228,45,1"),
        Sentence("GPGSV,3,2,11,17,65,112," + snr + ",24,31,046,44,28,51,270,42,31,12,190,33,1"),
        Sentence("GPGSV,3,3,11,02,05,021,,10,03,155,,20,09,077," + snr + ",1"),
        Sentence("GPGSV,2,1,06,04,40,083," + snr + ",09,07,344,39,24,31,046,44,28,51,270,42,8"),
        Sentence("GPGSV,2,2,06,10,03,155,,30,09,077," + snr + ",8"),
        Sentence("GLGSV,2,1,08,65,53,144,,66,58,305,32,72,09,137,,81,64,223," + snr + ",1"),
        Sentence("GLGSV,2,2,08,73,06,174,,74,05,132,,82,13,214,33,88,62,024,,1"),
        Sentence("GAGSV,2,1,08,02,21,179,,07,11,134,11,12,61,237," + snr + ",18,50,265,32,7"),
        Sentence("GAGSV,2,2,08,19,63,342,,26,11,044,,33,62,034,08,11,09,227,,7"),
        Sentence("GBGSV,3,1,10,01,29,321,,03,12,292,,04,37,345,,08,49,229," + snr + ",1"),
        Sentence("GBGSV,3,2,10,10,21,282,,12,66,330,23,13,23,233,17,19,28,123,16,1"),
        Sentence("GBGSV,3,3,10,21,41,301,35,22,82,135,17,1"),
        Sentence("GNGLL," + place + "," + clock + ",A,D"),
        Sentence("GNGST," + clock + ",23,1.2,0.8,45.0,2.3,3.5,4.0"),
        Sentence("GNZDA," + clock + ",23,03,2026,00,00"),
        Sentence("GNGBS," + clock + ",2.3,3.5,4.0,,,,,,"),
    };
}

std::vector<std::string> Epochs(int count)
{
    std::vector<std::string> sentences;
    for (int second = 0; second < count; ++second) {
        for (std::string& sentence : Epoch(second)) {
            sentences.push_back(std::move(sentence));
        }
    }
    return sentences;
}

std::vector<std::string> Chunks(const std::vector<std::string>& sentences)
{
    std::vector<std::string> chunks(1);
    for (const std::string& sentence : sentences) {
        if (chunks.back().size() + sentence.size() > CommReader::CHUNK_MAX) {
            chunks.emplace_back();
        }
        chunks.back() += sentence;
    }
    return chunks;
}
