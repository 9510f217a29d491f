// Streams of today's receivers to the sentence adapter: whatever comes, sentences come out.
#include <memory>
#include <string>
#include <vector>

#include "fuzz/CInput.h"
#include "fuzz/Require.h"
#include "layers/adapter/CReceivedSentence.h"
#include "layers/adapter/CSentenceAdapter.h"

namespace
{

constexpr std::string_view TALKERS[] = {"GP", "GN", "GP", "GL", "GA", "BD", "AP", "P"};

/// Sentences as receivers send them, but for the time, written "t", and a digit that varies, "d".
constexpr std::string_view BODIES[] = {
    "GGA,t,3114.2500,N,12129.5000,E,d,08,0.9,12.5,M,7.9,M,,",
    "GGA,t,3114.2500123,N,12129.5000456,E,d,08,0.9,1102.512,M,-20.300,M,1.2,0000",
    "GGA,,,,,,0,,,,,,,,",
    "GGA,,3114.2500,N,12129.5000,E,d,08,0.9,12.5,M,7.9,M,,",
    "GNS,t,3114.2500,N,12129.5000,E,ANd,08,0.9,12.5,7.9,,,V",
    "GNS,,,,,,NN,,,,,,,V",
    "GNS,t,3114.250012345,N,12129.500012345,E,RRRRRd,08,0.9,1102.512345,-20.300,1.2,0000,V",
    "RMC,t,A,3114.2500,N,12129.5000,E,022.4,084.4,23030d,,,A",
    "RMC,t,V,3114.2500123,N,12129.5000456,E,022.4123,084.4123,230306,18.3,E,A,V",
    "RMC,,V,,,,,,,,,,N",
    "GLL,3114.2500,N,12129.5000,E,t,A,A",
    "ZDA,t,23,03,2026,08,00",
    "VTG,084.4,T,080.1,M,022.4,N,041.5,K",
    "GSA,A,3,03,07,12,17,1d,,,,,,,,2.1,1.2,1.7",
    "GSA,A,3,03,07,12,17,1d,,,,,,,,2.1,1.2,1.7,1",
    "GSA,A,3,03,07,12,17,65,,,,,,,,2.1,1.2,1.7,d",
    "GSA,A,3,01,02,03,04,05,06,07,08,09,10,11,12,2.1,1.2,1.7,1",
    "GSA,A,3,13,14,15,16,1d,18,19,20,21,22,23,24,2.1,1.2,1.7,1",
    "GSA,A,3,13,2d,65,,,,,,,,,,2.1,1.2,1.7,",
    "GSA,A,3,13,2d,2.1,1.2,1",
    "GSV,2,1,07,03,40,083,46,07,17,308,41,193,07,344,39,17,22,228,45,d",
    "GSV,2,2,07,19,61,120,47,24,05,200,30,64,80,359,99,d",
    "GSV,2,d,07,03,40,083,46,,,,",
    "TXT,d",
};

/// A "$", the body and its checksum. ending: what stands behind, and in what digits.
std::string Sentence(std::string_view body, unsigned ending)
{
    constexpr const char* ENDS[] = {"\r\n", "\n", "\r\n", "\n", "\r", "", " \r\n", "\r\r\n"};
    const char* const digits = ending % 16 == 2 ? "0123456789abcdef" : "0123456789ABCDEF";
    const unsigned sum = adapter::ChecksumOf(body);
    return "$" + std::string(body) + '*' + digits[sum / 16] + digits[sum % 16] + ENDS[ending % 8];
}

std::string Composed(std::uint8_t body, std::uint8_t who, std::uint8_t time)
{
    std::string text(TALKERS[who % std::size(TALKERS)]);
    for (const char letter : BODIES[body % std::size(BODIES)]) {
        if (letter == 't') {
            text += std::to_string(101500 + time / 2).append(time % 2 == 0 ? ".00" : ".0");
        } else if (letter == 'd') {
            text += static_cast<char>('0' + who / 8 % 10);
        } else {
            text += letter;
        }
    }
    return text;
}

/// The stream that an input writes down: composed sentences, bodies that get a checksum, bytes as they are.
std::string StreamOf(CInput& input)
{
    std::string stream;
    while (!input.Empty()) {
        const std::uint8_t kind = input.Byte();
        if (kind < 0x80) {
            const std::uint8_t who = input.Byte();
            stream += Sentence(Composed(kind, who, input.Byte()), kind / 32U * 2U);
        } else if (kind < 0xC0) {
            stream += Sentence(input.UpTo('\n'), kind % 16U);
        } else {
            stream += input.Bytes(kind % 64U);
        }
    }
    return stream;
}

class Sentences final : public adapter::CSentenceSink
{
public:
    void OnSentence(const char* sentence, std::size_t length) noexcept override
    {
        each.emplace_back(sentence, length);
        all += each.back();
    }

    std::vector<std::string> each;
    std::string all;
};

/// lengths: of the pieces, in turn.
void Adapt(std::string_view stream, std::string_view lengths, adapter::CSentenceAdapter& adapter,
           Sentences& sentences)
{
    for (std::size_t turn = 0; !stream.empty(); ++turn) {
        const std::size_t length =
            lengths.empty() ? stream.size() : static_cast<unsigned char>(lengths[turn % lengths.size()]);
        const std::string_view piece = stream.substr(0, length);
        const std::unique_ptr<char[]> bytes(new char[piece.size()]); // of its exact size
        piece.copy(bytes.get(), piece.size());
        adapter.Take(bytes.get(), piece.size(), sentences);
        stream.remove_prefix(piece.size());
        if (length == 0) {
            lengths = {}; // no end of pieces of nothing
        }
    }
    adapter.End(sentences);
}

void RequireWhole(const std::string& sentence, std::string_view stream, bool last)
{
    const bool ends = sentence.back() == '\n';
    Require(ends || last, "a sentence has its line end");
    Require(sentence.find('\n') >= sentence.size() - 1, "and no other");
    Require(sentence.rfind('$') == 0 && sentence.compare(0, 3, "$GP") == 0, "it begins as a sentence of GP");
    const bool bare = sentence[sentence.size() - 2] != '\r' || !ends;
    Require(sentence.size() + (bare && ends ? 1 : 0) <= 82 && sentence.size() >= 9,
            "it has a sentence's length");
    const std::string_view text(sentence.data(), sentence.find_last_not_of("\r\n") + 1);
    const adapter::Talkers none;
    const bool right = !adapter::CReceivedSentence(sentence, none).Body().empty();
    Require(right || stream.find(text) != std::string_view::npos, "changed, it has a right checksum");
}

std::uint64_t Sum(const std::uint64_t* first, std::size_t count)
{
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < count; ++i) {
        sum += first[i];
    }
    return sum;
}

} // namespace

// The first bytes: lengths of the pieces in turn.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CInput input(data, size);
    const std::string_view lengths = input.Bytes(3);
    const std::string stream = StreamOf(input);
    adapter::CSentenceAdapter adapter;
    Sentences once;
    Adapt(stream, {}, adapter, once);
    for (const std::string& sentence : once.each) {
        RequireWhole(sentence, stream, &sentence == &once.each.back());
    }
    const adapter::AdapterCounts counts = adapter.Counts();
    Require(Sum(counts.came[0], sizeof counts.came / sizeof counts.came[0][0]) ==
                counts.passed + counts.rewritten + counts.madeFromGns + Sum(counts.dropped, adapter::DROPS),
            "each sentence that came has one fate");
    Require(once.each.size() == counts.passed + counts.rewritten + counts.madeFromGns + counts.madeFromRmc,
            "each that went out is counted");

    adapter.Reset();
    Sentences cut;
    Adapt(stream, lengths, adapter, cut);
    Require(cut.all == once.all, "cuts change nothing");
    Require(BytesOf(adapter.Counts()) == BytesOf(counts), "not even in the counts");

    adapter::CSentenceAdapter next;
    Sentences twice;
    Adapt(once.all, {}, next, twice);
    Require(twice.all == once.all, "twice is once");
    return 0;
}
