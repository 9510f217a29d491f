// CSentenceFields.h: a sentence as its fields, to be changed and put together again.
#pragma once

#include <array>
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

/// Fields are numbered from 1; 0 is the address. Their texts are borrowed.
class CSentenceFields
{
public:
    /// Fields beyond this one are one field, commas included.
    static constexpr std::size_t MOST = 40;
    /// The longest sentence without its line end; a bare line feed counts as CR LF, since replay makes that
    /// of it.
    static constexpr std::size_t LONGEST = SentenceText::LONGEST - 2;

    /// body: what stands between "$" and "*".
    explicit CSentenceFields(std::string_view body) noexcept;

    /// Result: the number of the last field.
    std::size_t Last() const noexcept { return count - 1; }
    /// Result: the field; empty where there is none.
    std::string_view operator[](std::size_t number) const noexcept
    {
        return number < count ? fields[number] : std::string_view();
    }
    /// Nothing happens where there is no such field.
    void Set(std::size_t number, std::string_view text) noexcept;
    /// Puts a field behind the last; nothing happens behind field MOST - 1.
    void Add(std::string_view text) noexcept;
    /// Leaves out the fields behind this one.
    void CutBehind(std::size_t number) noexcept;

    /// Result: [byte] of the whole sentence without its line end.
    std::size_t Length() const noexcept;
    bool Fits() const noexcept { return Length() <= LONGEST; }
    /// Puts the sentence together, as talker GP, with a new checksum. It must fit.
    /// lineEnd: at most two bytes.
    void Compose(std::string_view lineEnd, SentenceText& sentence) const noexcept;

private:
    std::array<std::string_view, MOST> fields;
    std::size_t count = 0;
};

} // namespace adapter
