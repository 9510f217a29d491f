#include "bench/Floors.h"

#include <charconv>

#include "GpsLib/log/CStdioFile.h"

unsigned XorFloor(const std::string& sentence) noexcept
{
    unsigned sum = 0;
    for (const char* at = sentence.data() + 1; *at != '*' && *at != '\0'; ++at) {
        sum ^= static_cast<unsigned char>(*at);
    }
    return sum;
}

double FromCharsFloor(const std::string& sentence) noexcept
{
    double result = XorFloor(sentence);
    const char* const end = sentence.data() + sentence.size();
    for (const char* at = sentence.data(); at != end; ++at) {
        if (*at != ',' || at[1] < '0' || at[1] > '9') {
            continue;
        }
        int whole = 0;
        const char* const stop = std::from_chars(at + 1, end, whole).ptr;
        double real = whole;
        if (*stop == '.') {
            std::from_chars(at + 1, end, real);
        }
        result += real;
    }
    return result;
}

unsigned long LinesFloor(const std::string& path)
{
    const CStdioFile file(std::fopen(path.c_str(), "rb"));
    unsigned long sum = 0;
    for (char line[256]; file != nullptr && std::fgets(line, sizeof line, file.get()) != nullptr;) {
        for (const char* at = line; *at != '\0'; ++at) {
            sum += static_cast<unsigned char>(*at);
        }
    }
    return sum;
}
