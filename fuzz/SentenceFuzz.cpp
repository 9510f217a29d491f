// Sentences whose talker, type and checksum are right, so that the fields are what is tried.
#include "fuzz/CInput.h"
#include "fuzz/ParseByRules.h"
#include "fuzz/Require.h"

namespace
{

constexpr const char* TYPES[] = {"GGA", "GLL", "GSA", "GSV", "RMC", "VTG", "ZDA"};
constexpr std::size_t BODY_MAX = 82 - sizeof("$GPGGA*00"); // so that most pass the gate; longer ones are cut

/// Result: the sentence of a type, given as any number, with the fields and the checksum of both.
std::string Sentence(std::size_t type, std::string_view fields)
{
    std::string sentence = std::string("$GP") + TYPES[type % std::size(TYPES)];
    sentence += fields;
    char digits[2];
    const GPS::CNMEAParser parser;
    Require(parser.ComputeChecksum(sentence.c_str() + 1, digits), "a text has a sum");
    return sentence.append("*").append(digits, sizeof digits);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CInput input(data, size);
    Feed feed;
    while (!input.Empty()) {
        const std::uint8_t type = input.Byte();
        const std::string sentence = Sentence(type, input.UpTo('\n').substr(0, BODY_MAX));
        ParseByRules(sentence, static_cast<std::int32_t>(sentence.size()), feed);
    }
    return 0;
}
