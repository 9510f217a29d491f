// CFieldCursor.h: steps through the fields of a sentence; the one place that knows what a field is.
#pragma once

#include <array>
#include <cstddef>

#include "GpsLib/nmea/FieldConversions.h"

/// A field starts behind a comma and ends at the next one; the search for the next comma goes on to the
/// sentence's terminator, past the asterisk. The field is empty when its first character is a comma; any
/// other field is present, also the last one of a sentence, which then begins with the asterisk. Fields are
/// counted from 1.
class CFieldCursor
{
public:
    /// sentence: borrowed, zero-terminated.
    explicit CFieldCursor(const char* sentence) noexcept : at(sentence) {}

    /// Steps behind the next comma.
    /// Result: false when the sentence has none left.
    bool Next() noexcept
    {
        for (; *at != ','; ++at) {
            if (*at == '\0') {
                return false;
            }
        }
        ++at;
        ++number;
        return true;
    }

    /// Result: the field's number; 0 before the first.
    std::size_t Number() const noexcept { return number; }
    bool Empty() const noexcept { return *at == ','; }
    const char* Text() const noexcept { return at; }
    char First() const noexcept { return *at; }

    /// Characters from the field's first on, whatever they are, commas included. Behind the terminator they
    /// read as zero, so a field cut short takes nobody past the sentence.
    template <std::size_t COUNT>
    std::array<unsigned char, COUNT> Lead() const noexcept
    {
        std::array<unsigned char, COUNT> lead{};
        for (std::size_t i = 0; i < COUNT && at[i] != '\0'; ++i) {
            lead[i] = static_cast<unsigned char>(at[i]);
        }
        return lead;
    }

    /// Reads a number, in which no comma stands; the search for the next comma resumes behind it.
    double TakeDouble() noexcept { return ::TakeDouble(at); }
    int TakeInt() noexcept { return ::TakeInt(at); }

    /// Moves on within the sentence; the search for the next comma resumes there. Stops at the terminator.
    void Skip(std::size_t count) noexcept
    {
        for (; count > 0 && *at != '\0'; --count) {
            ++at;
        }
    }

private:
    const char* at; // borrowed; within the sentence or on its terminator
    std::size_t number = 0;
};
