// CSentenceFields.h: a sentence as its fields, to be changed and put together again.
#pragma once

#include <cstddef>
#include <string_view>

namespace adapter
{

/// A sentence put together, with its line end.
struct SentenceText {
    static constexpr std::size_t LONGEST = 82; // [byte] with CR LF
    char bytes[LONGEST];
    std::size_t length = 0;

    std::string_view View() const noexcept { return {bytes, length}; }
};

/// Makes the sentence of talker GP that has this between "$" and "*", with a new checksum. It must fit.
/// lineEnd: at most two bytes.
void Compose(std::string_view body, std::string_view lineEnd, SentenceText& sentence) noexcept;

/// Fields are numbered from 1; 0 is the address. Their texts are borrowed.
class CSentenceFields
{
public:
    /// Fields beyond this one are one field, commas included.
    static constexpr std::size_t MOST = 40;
    /// The longest sentence without its line end; a bare line feed counts as CR LF, since replay makes that
    /// of it.
    static constexpr std::size_t LONGEST = SentenceText::LONGEST - 2;

    /// No field at all, until Part().
    CSentenceFields() noexcept = default;
    explicit CSentenceFields(std::string_view body) noexcept { Part(body); }
    /// body: what stands between "$" and "*". The byte behind it is looked at too: an asterisk, a comma or
    /// NUL.
    void Part(std::string_view body) noexcept;

    /// Result: the number of the last field.
    std::size_t Last() const noexcept { return count - 1; }
    /// Result: the field; empty where there is none.
    std::string_view operator[](std::size_t number) const noexcept
    {
        return number < count ? std::string_view(fields[number].text, fields[number].length)
                              : std::string_view();
    }
    /// Nothing happens where there is no such field.
    void Set(std::size_t number, std::string_view text) noexcept;
    /// Puts a field behind the last; nothing happens behind field MOST - 1.
    void Add(std::string_view text) noexcept;
    /// Leaves out the fields behind this one.
    void CutBehind(std::size_t number) noexcept;

    /// Result: [byte] of the whole sentence without its line end.
    std::size_t Length() const noexcept { return length; }
    bool Fits() const noexcept { return Length() <= LONGEST; }
    /// Puts the sentence together, as talker GP, with a new checksum. It must fit.
    /// lineEnd: at most two bytes.
    void Compose(std::string_view lineEnd, SentenceText& sentence) const noexcept;

private:
    struct Field {        // without a value at first: most of them aren't used
        const char* text; // a byte can be read behind it
        std::size_t length;
    };

    Field fields[MOST];
    std::size_t count = 0;
    std::size_t length = 3; // [byte] of "*" and two digits, and of each field with what stands before it
};

} // namespace adapter
