// WalkFields.h: the walk over a sentence whose last needed field decides its success.
#pragma once

#include <cstddef>

#include "GpsLib/nmea/CFieldCursor.h"

/// Takes one present field into a parser's locals. It may move the cursor on, within the field or past its
/// end.
template <class Locals>
using FieldTaker = void (*)(CFieldCursor& field, Locals& locals) noexcept;

/// Takes the present fields in order, each by takers[number - 1]; null means not read.
/// Result: true as soon as field LAST is present; false when the sentence ends without it.
template <class Locals, std::size_t LAST>
bool WalkFields(const char* sentence, const FieldTaker<Locals> (&takers)[LAST], Locals& locals) noexcept
{
    CFieldCursor field(sentence);
    while (field.Next()) {
        const std::size_t number = field.Number();
        if (field.Empty() || number > LAST) {
            continue; // counted all the same: later fields keep their numbers
        }
        if (takers[number - 1] != nullptr) {
            takers[number - 1](field, locals);
        }
        if (number == LAST) {
            return true;
        }
    }
    return false;
}
