#include "layers/adapter/CSatellitesInView.h"

#include "layers/adapter/CFieldPlaces.h"
#include "layers/adapter/FieldText.h"

namespace adapter
{

namespace
{

constexpr std::size_t HEAD = 3;  // total, number, satellites in view
constexpr std::size_t ENTRY = 4; // number, elevation, azimuth, signal-to-noise ratio
constexpr std::size_t ENTRIES_MOST = 4;

/// How many of the entries are what.
struct Entries {
    int empty = 0;     // without a number
    int placeless = 0; // with one that has no place in a record
};

/// last: the number of the last field of an entry.
Entries Look(const CFieldPlaces& fields, std::size_t last) noexcept
{
    Entries entries;
    for (std::size_t number = HEAD + 1; number <= last; number += ENTRY) {
        if (fields[number].empty()) {
            ++entries.empty;
        } else if (!IsSatellite(fields[number])) {
            ++entries.placeless;
        }
    }
    return entries;
}

} // namespace

void DropEntries(CSentenceFields& fields) noexcept
{
    std::size_t kept = HEAD;
    for (std::size_t number = HEAD + 1; number + ENTRY - 1 <= fields.Last(); number += ENTRY) {
        if (!IsSatellite(fields[number])) {
            continue;
        }
        for (std::size_t i = 0; i < ENTRY; ++i) {
            fields.Set(++kept, fields[number + i]);
        }
    }
    fields.CutBehind(kept);
}

ViewVerdict CSatellitesInView::Judge(std::string_view& body) noexcept
{
    ViewVerdict verdict;
    const CFieldPlaces fields(body);
    const std::size_t behind = fields.Last() - HEAD;
    const bool today = behind % ENTRY == 1 && fields[fields.Last()].size() <= 1;
    if (fields.Last() < HEAD || behind / ENTRY > ENTRIES_MOST || (behind % ENTRY != 0 && !today)) {
        return verdict; // no form that is known: the parser may see
    }
    const std::string_view signal = today ? fields[fields.Last()] : std::string_view();
    const USE use = signal.empty() ? ALL : Use(signal[0], NumberOf(fields[1]), NumberOf(fields[2]));
    if (use == NOTHING) {
        verdict.goesOut = false;
        return verdict;
    }
    const std::size_t last = fields.Last() - (today ? 1 : 0);
    const Entries entries = Look(fields, last);
    verdict.changed = today || entries.placeless > 0;
    verdict.why = entries.placeless > 0 ? CHANGE_SATELLITES : CHANGE_SIGNAL;
    verdict.dropsEntries = use == ALL && verdict.changed && entries.empty + entries.placeless > 0;
    if (today) {
        body = fields.UpTo(use == NO_ENTRIES ? HEAD : last);
    }
    return verdict;
}

CSatellitesInView::USE CSatellitesInView::Use(char signal, int total, int number) noexcept
{
    const bool begins = number <= 1;
    const bool alone = begins && signal == lastBegun;
    if (begins) {
        lastBegun = signal;
    }
    if (chosen == 0 || signal == '1' || alone) {
        chosen = signal;
    }
    const bool spans = !begins && total == openTotal && number == openNumber + 1;
    if (signal != chosen && !spans) {
        openTotal = 0; // what follows of this group belongs to it
        return NOTHING;
    }
    openTotal = total;
    openNumber = number;
    return signal == chosen ? ALL : NO_ENTRIES;
}

} // namespace adapter
