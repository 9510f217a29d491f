// Adapted.h: what an adapter makes of a stream; for tests.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "layers/adapter/CSentenceAdapter.h"
#include "tests/support/Sentence.h"

namespace support
{

class KeptSentences final : public adapter::CSentenceSink
{
public:
    void OnSentence(const char* sentence, std::size_t length) noexcept override
    {
        text.append(sentence, length);
    }

    std::string text;
};

/// The stream in pieces of a length, then its end.
inline std::string AdaptedInPieces(const std::string& stream, std::size_t length,
                                   const adapter::Talkers& talkers)
{
    adapter::CSentenceAdapter adapter(talkers);
    KeptSentences kept;
    for (std::size_t at = 0; at < stream.size(); at += length) {
        const std::string piece = stream.substr(at, length);
        adapter.Take(ExactCopy(piece).get(), piece.size(), kept);
    }
    adapter.End(kept);
    return kept.text;
}

/// Result: the whole stream adapted; cut anywhere and adapted again it has to be the same.
inline std::string Adapted(const std::string& stream, const adapter::Talkers& talkers = adapter::Talkers())
{
    std::string adapted = AdaptedInPieces(stream, std::max<std::size_t>(stream.size(), 1), talkers);
    EXPECT_EQ(AdaptedInPieces(stream, 1, talkers), adapted) << "byte by byte";
    EXPECT_EQ(AdaptedInPieces(adapted, 7, talkers), adapted) << "twice";
    return adapted;
}

/// bodies: what stands between "$" and "*". Result: the sentences, one after the other.
inline std::string Sentences(const std::vector<std::string>& bodies)
{
    std::string stream;
    for (const std::string& body : bodies) {
        stream += Sentence(body);
    }
    return stream;
}

} // namespace support
