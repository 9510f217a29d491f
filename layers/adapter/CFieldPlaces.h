// CFieldPlaces.h: where the fields of a sentence stand, to read them; quicker found than CSentenceFields,
// which can be changed.
#pragma once

#include <cstddef>
#include <string_view>

#include "layers/adapter/CSentenceFields.h"
#include "layers/adapter/Commas.h"

namespace adapter
{

/// Fields are numbered as in CSentenceFields, and those beyond its MOST are one field here too.
class CFieldPlaces
{
public:
    /// body: what stands between "$" and "*"; borrowed.
    explicit CFieldPlaces(std::string_view body) noexcept
    {
        const char** next = begins;
        *next++ = body.data();
        ForEachComma(body, [&next, this](const char* comma) {
            if (next != begins + CSentenceFields::MOST) {
                *next++ = comma + 1;
            }
        });
        last = static_cast<std::size_t>(next - begins) - 1;
        *next = body.data() + body.size() + 1;
    }

    /// Result: the number of the last field.
    std::size_t Last() const noexcept { return last; }
    /// number: at most Last().
    std::string_view operator[](std::size_t number) const noexcept
    {
        return {begins[number], static_cast<std::size_t>(begins[number + 1] - begins[number]) - 1};
    }
    /// Result: the body without the fields behind this one, which is there.
    std::string_view UpTo(std::size_t number) const noexcept
    {
        return {begins[0], static_cast<std::size_t>(begins[number + 1] - begins[0]) - 1};
    }

private:
    const char* begins[CSentenceFields::MOST + 1]; // and behind the last: where one more would begin
    std::size_t last;
};

} // namespace adapter
