#include "layers/adapter/CSatellitesUsed.h"

#include <algorithm>

#include "layers/adapter/FieldText.h"

namespace adapter
{

namespace
{

constexpr std::size_t FIRST_SATELLITE = 3; // behind the two modes
constexpr std::size_t PLACES = 12;
constexpr std::size_t LAST_SATELLITE = FIRST_SATELLITE + PLACES - 1;
constexpr std::size_t LAST = LAST_SATELLITE + 3; // behind the dilutions; the system number follows
constexpr int GPS_MOST = 32;

bool ListsGps(const CSentenceFields& fields) noexcept
{
    for (std::size_t number = FIRST_SATELLITE; number <= LAST_SATELLITE; ++number) {
        const int satellite = NumberOf(fields[number]);
        if (satellite >= 1 && satellite <= GPS_MOST) {
            return true;
        }
    }
    return false;
}

bool IsGps(TALKERKIND kind, const CSentenceFields& fields) noexcept
{
    const std::string_view system = fields[LAST + 1];
    if (kind == TALKER_SYSTEM || !system.empty()) {
        return kind != TALKER_SYSTEM && system == "1";
    }
    return kind == TALKER_GP || ListsGps(fields);
}

/// Result: true when something was there.
bool Empty(std::size_t number, CSentenceFields& fields) noexcept
{
    const bool present = !fields[number].empty();
    fields.Set(number, {});
    return present;
}

} // namespace

void CSatellitesUsed::Satellites::Add(int number) noexcept
{
    const auto end = numbers.begin() + static_cast<std::ptrdiff_t>(count);
    if (count < numbers.size() && std::find(numbers.begin(), end, number) == end) {
        numbers[count++] = static_cast<std::uint8_t>(number);
    }
}

SatelliteVerdict CSatellitesUsed::Judge(TALKERKIND kind, CSentenceFields& fields) noexcept
{
    const bool today = fields.Last() == LAST + 1 && fields[LAST + 1].size() <= 1;
    if (fields.Last() != LAST && !today) {
        return JudgeOddForm(kind, fields);
    }
    const bool gps = IsGps(kind, fields);
    fields.CutBehind(LAST);
    SatelliteVerdict verdict = gps ? JudgeGps(fields) : JudgeOtherSystem(fields);
    if (today && !verdict.changed) {
        verdict.changed = true;
        verdict.why = CHANGE_SYSTEM;
    }
    return verdict;
}

SatelliteVerdict CSatellitesUsed::JudgeGps(CSentenceFields& fields) noexcept
{
    SatelliteVerdict verdict;
    verdict.why = CHANGE_SATELLITES;
    gpsCame = true;
    listed = 0;
    std::size_t taken = 0;
    for (std::size_t number = FIRST_SATELLITE; number <= LAST_SATELLITE; ++number) {
        if (fields[number].empty()) {
            continue;
        }
        ++taken;
        if (IsSatellite(fields[number])) {
            ++listed;
        } else {
            fields.Set(number, {});
            verdict.changed = true;
        }
    }
    const bool fills = taken == PLACES;
    if (fills || full.count > 0) {
        verdict.changed |= Join(fields);
    }
    if (!fills && listed != PLACES) {
        EndRow();
    }
    return verdict;
}

/// Adds the sentence's satellites to those of the row so far, and lists them all.
/// Result: false when that is what it does already.
bool CSatellitesUsed::Join(CSentenceFields& fields) noexcept
{
    const std::size_t before = full.count;
    std::size_t own = 0;
    for (std::size_t number = FIRST_SATELLITE; number <= LAST_SATELLITE; ++number) {
        if (!fields[number].empty()) {
            full.Add(NumberOf(fields[number]));
            ++own;
        }
    }
    if (before == 0 || (full.count == before && own == before)) {
        return false;
    }
    ListAll(fields);
    return true;
}

/// As far as 82 characters go.
void CSatellitesUsed::ListAll(CSentenceFields& fields) noexcept
{
    constexpr std::size_t PLACE_LENGTH = 3; // a comma and two digits
    for (std::size_t number = FIRST_SATELLITE; number <= LAST_SATELLITE; ++number) {
        fields.Set(number, {});
    }
    const std::size_t length = std::min(fields.Length() - PLACES, CSentenceFields::LONGEST);
    std::size_t places = std::min(full.count, (CSentenceFields::LONGEST - length) / PLACE_LENGTH);
    listed = places;
    CSentenceFields joined(fields[0]);
    joined.Add(fields[1]);
    joined.Add(fields[2]);
    for (std::size_t i = 0; i < places; ++i) {
        joined.Add(TwoDigits(full.numbers[i]));
    }
    for (; places < PLACES || places == PLACES + 1; ++places) { // 18 fields would end in a system number
        joined.Add({});
    }
    for (std::size_t number = LAST_SATELLITE + 1; number <= LAST; ++number) {
        joined.Add(fields[number]);
    }
    fields = joined;
}

/// Mode and dilutions are those of the whole fix, so they may serve where GPS hasn't told them.
SatelliteVerdict CSatellitesUsed::JudgeOtherSystem(CSentenceFields& fields) noexcept
{
    SatelliteVerdict verdict;
    if (gpsCame) {
        verdict.goesOut = false;
        return verdict;
    }
    verdict.why = CHANGE_SYSTEM;
    listed = 0;
    for (std::size_t number = FIRST_SATELLITE; number <= LAST_SATELLITE; ++number) {
        verdict.changed |= Empty(number, fields);
    }
    return verdict;
}

/// Of talker GP a parser reads it all the same: the dilutions last, satellites before them.
SatelliteVerdict CSatellitesUsed::JudgeOddForm(TALKERKIND kind, const CSentenceFields& fields) noexcept
{
    SatelliteVerdict verdict;
    if (kind != TALKER_GP) {
        verdict.goesOut = false;
        return verdict;
    }
    gpsCame = true;
    full.count = 0;
    listed = 0;
    for (std::size_t number = FIRST_SATELLITE; number + 3 <= fields.Last(); ++number) {
        listed += IsSatellite(fields[number]) ? 1U : 0U;
    }
    return verdict;
}

void CSatellitesUsed::NoteGga() noexcept
{
    gpsCame = false;
    listed = 0;
    EndRow();
}

} // namespace adapter
