// CSentenceCutter.h: cuts a stream of bytes into sentences, however it comes in pieces.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace adapter
{

/// A sentence begins with "$" and ends with a line feed, or before the next "$".
class CSentenceCutter
{
public:
    /// The longest sentence that is kept; a longer one has no form that would fit 82 characters.
    static constexpr std::size_t LONGEST = 250; // [byte] with its line end

    /// Takes bytes up to the end of a sentence at most.
    /// Result: the bytes taken. None are when the first byte begins the next sentence and so ends this one.
    std::size_t Take(const char* bytes, std::size_t length) noexcept;

    /// Result: true when a sentence has ended; the next Take() begins a new one.
    bool Ended() const noexcept { return state == ENDED; }
    /// Result: false for a sentence longer than LONGEST; its text is then cut.
    bool Kept() const noexcept { return kept; }
    /// Result: the sentence so far, line end included. Valid until the next Take().
    std::string_view Text() const noexcept { return {text, count}; }
    /// Puts CR LF behind a sentence that has no line feed.
    void EndLine() noexcept;
    /// The stream has ended. Result: true when it ended inside a sentence, which then counts as ended.
    bool End() noexcept;
    /// The stream has broken off: a sentence that it broke counts as stray.
    void DropTorn() noexcept;

    /// [byte] that belonged to no sentence, since the cutter was made.
    std::uint64_t StrayBytes() const noexcept { return strayBytes; }

private:
    enum STATE { OUTSIDE, INSIDE, ENDED };

    std::size_t SkipStray(const char* bytes, std::size_t length) noexcept;
    void Append(const char* bytes, std::size_t length) noexcept;

    char text[LONGEST + 2]; // room for CR LF
    std::size_t count = 0;
    STATE state = OUTSIDE;
    bool kept = true;
    std::uint64_t strayBytes = 0;
};

} // namespace adapter
