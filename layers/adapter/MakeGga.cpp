#include "layers/adapter/MakeGga.h"

#include "layers/adapter/FieldText.h"

namespace adapter
{

namespace
{

/// modes: a letter for each system.
std::string_view QualityOf(std::string_view modes) noexcept
{
    struct Mode {
        char letter;
        const char* quality;
    };
    constexpr Mode BEST_FIRST[] = {{'R', "4"}, {'F', "5"}, {'D', "2"}, {'P', "3"},
                                   {'A', "1"}, {'E', "6"}, {'M', "7"}, {'S', "8"}};
    for (const Mode& mode : BEST_FIRST) {
        if (modes.find(mode.letter) != std::string_view::npos) {
            return mode.quality;
        }
    }
    return "0";
}

} // namespace

CSentenceFields GgaFromGns(const CSentenceFields& gns) noexcept
{
    CSentenceFields gga("GPGGA");
    for (std::size_t number = 1; number <= 5; ++number) {
        gga.Add(gns[number]); // time and place
    }
    gga.Add(QualityOf(gns[6]));
    for (const std::string_view text :
         {gns[7], gns[8], gns[9], std::string_view("M"), gns[10], std::string_view("M"), gns[11], gns[12]}) {
        gga.Add(text); // satellites, dilution, altitude, separation, age, station
    }
    return gga;
}

CSentenceFields GgaFromRmc(const CSentenceFields& rmc, int satellites) noexcept
{
    CSentenceFields gga("GPGGA");
    for (const std::size_t number : {1U, 3U, 4U, 5U, 6U}) {
        gga.Add(rmc[number]);
    }
    gga.Add(rmc[2].substr(0, 1) == "A" ? "1" : "0");
    for (const std::string_view text :
         {TwoDigits(satellites), std::string_view(), std::string_view("0.0"), std::string_view("M"),
          std::string_view(), std::string_view("M"), std::string_view(), std::string_view()}) {
        gga.Add(text);
    }
    return gga;
}

std::string_view OlderQuality(std::string_view quality) noexcept
{
    switch (quality.empty() ? '\0' : quality[0]) {
    case '3':
        return "1";
    case '5':
    case '9':
        return "2";
    default:
        return {};
    }
}

} // namespace adapter
