// CSentenceSink.h: takes the sentences that come out of an adapter.
#pragma once

#include <cstddef>

namespace adapter
{

class CSentenceSink
{
public:
    /// A whole sentence with its line end, at most 82 bytes, with no NUL behind it.
    /// sentence: valid during the call.
    virtual void OnSentence(const char* sentence, std::size_t length) noexcept = 0;

protected:
    ~CSentenceSink() = default;
};

} // namespace adapter
