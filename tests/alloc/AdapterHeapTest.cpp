// The sentence adapter takes nothing from the heap.
#include <string>

#include <gtest/gtest.h>

#include "layers/adapter/CSentenceAdapter.h"
#include "tests/alloc/CountedHeap.h"
#include "tests/support/Sentence.h"

namespace
{

class Nowhere final : public adapter::CSentenceSink
{
public:
    void OnSentence(const char* /*sentence*/, std::size_t length) noexcept override { bytes += length; }

    std::size_t bytes = 0;
};

TEST(AdapterHeap, IsLeftAlone)
{
    std::string stream = "$GPTXT,no checksum\r\n";
    for (const char* const body :
         {"GNGSA,A,3,01,02,03,04,05,06,07,08,09,10,11,12,2.1,1.2,1.7,1",
          "GNGSA,A,3,13,14,,,,,,,,,,,2.1,1.2,1.7,1", "GPGSV,1,1,02,03,40,083,46,193,40,083,46,1",
          "GNGNS,101500,3114.25,N,12129.5,E,AN,08,0.9,12.5,7.9,,,V",
          "GNGGA,101500.000,3114.2500123,N,12129.5000456,E,5,08,0.9,1102.512,M,-20.300,M,1.2,0000"}) {
        stream += support::Sentence(body);
    }
    const std::uint64_t before = heap::Allocations();
    adapter::CSentenceAdapter adapter;
    Nowhere sink;
    adapter.Take(stream.data(), stream.size(), sink);
    adapter.End(sink);
    EXPECT_EQ(heap::Allocations(), before);
    EXPECT_EQ(adapter.Counts().rewritten, 5U);
    EXPECT_GT(sink.bytes, 0U);
}

} // namespace
