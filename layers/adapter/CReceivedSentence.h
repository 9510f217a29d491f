// CReceivedSentence.h: a sentence as it came: who speaks, of what, and whether its checksum is right.
#pragma once

#include <cstddef>
#include <string_view>

#include "layers/adapter/AdapterCounts.h"

namespace adapter
{

class Talkers;

/// Result: the exclusive or of the bytes, as a sentence carries it of what stands between "$" and "*".
unsigned char ChecksumOf(std::string_view bytes) noexcept;

/// Looks at the same places as a parser does: positions 1 and 2 for the talker, 3 to 5 for the type.
class CReceivedSentence
{
public:
    /// text: borrowed; begins with "$".
    CReceivedSentence(std::string_view text, const Talkers& talkers) noexcept;

    std::string_view Text() const noexcept { return text; }
    /// Result: what stands between "$" and "*"; nothing where the checksum isn't right, in capital digits or
    /// not. One with a NUL inside isn't right: to a parser it ends there.
    std::string_view Body() const noexcept;
    /// Result: true when the digits behind such a body aren't capital, as a parser wants them.
    bool SmallDigits(std::string_view body) const noexcept;
    std::string_view Talker() const noexcept { return text.substr(1, 2); }
    /// Result: CR LF, a line feed, or nothing.
    std::string_view LineEnd() const noexcept;

    TALKERKIND Kind() const noexcept { return kind; }
    SENTENCETYPE Type() const noexcept { return type; }

private:
    TALKERKIND KindOf(const Talkers& talkers) const noexcept;
    SENTENCETYPE TypeOf() const noexcept;

    std::string_view text;
    TALKERKIND kind;
    SENTENCETYPE type;
};

} // namespace adapter
