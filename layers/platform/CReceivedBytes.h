// CReceivedBytes.h: what a port has received and nobody has read yet, and where a read may end in it.
#pragma once

#include <cstddef>
#include <memory>

#include "layers/adapter/CSentenceSink.h"

namespace platform
{

/// A buffer of fixed length that gives away whole lines where it can: a sentence cut by the end of a read
/// would be lost.
class CReceivedBytes final : public adapter::CSentenceSink
{
public:
    /// capacity: [byte].
    /// cutAtSentences: of the line feeds only those end a line that "$" follows, and one at the end of what
    /// is there behind a line with "$" in it.
    /// Throws std::bad_alloc.
    CReceivedBytes(std::size_t capacity, bool cutAtSentences);

    std::size_t Count() const noexcept { return count; }
    std::size_t Room() const noexcept { return capacity - count; }
    /// length: at most Room().
    void Add(const char* added, std::size_t length) noexcept;
    /// Without room for all of it the sentence is lost whole.
    void OnSentence(const char* sentence, std::size_t length) noexcept override;
    void Clear() noexcept { count = 0; }
    /// Drops the line that was still arriving.
    void DropTornLine() noexcept { count = WholeLines(count); }

    bool HoldsLine() const noexcept { return WholeLines(count) != 0; }
    /// Result: whether one of the whole lines is a sentence of type GGA, of any talker.
    bool HoldsGga() const noexcept;

    /// Moves bytes out, the oldest first, and keeps the rest.
    /// room: at most so many.
    /// torn: whether a line that isn't complete goes out too. Else the bytes end with a line, unless they
    /// fill the room without one: a line without end must not block.
    /// Result: the bytes moved.
    std::size_t MoveOut(char* buffer, std::size_t room, bool torn) noexcept;

private:
    /// Result: the length of the whole lines within the first `length` bytes.
    std::size_t WholeLines(std::size_t length) const noexcept;
    /// Result: the same, whatever follows the line feeds.
    std::size_t UpToLineFeed(std::size_t length) const noexcept;
    bool EndsSentence(std::size_t length) const noexcept;

    const std::size_t capacity;
    const bool cutAtSentences;
    const std::unique_ptr<char[]> bytes;
    std::size_t count = 0;
};

} // namespace platform
