#include "layers/adapter/Shorten.h"

#include <algorithm>

#include "layers/adapter/CSentenceFields.h"
#include "layers/adapter/FieldText.h"

namespace adapter
{

namespace
{

constexpr std::size_t NONE = CSentenceFields::MOST; // no such field
constexpr std::size_t MINUTES_DECIMALS = 5;         // 1e-5 of a minute of latitude are 18 mm

/// Where a type has what can be cut.
struct ShortForm {
    std::size_t last; // needed, even empty; what stands behind it goes
    std::size_t unread[2];
    std::size_t separation;
    std::size_t time;
    std::size_t altitude;
    std::size_t latitude;
    std::size_t longitude;
};

constexpr ShortForm GGA_FORM = {14, {14, 13}, 11, 1, 9, 2, 4};
constexpr ShortForm GNS_FORM = {12, {12, 11}, 10, 1, 9, 2, 4};
constexpr ShortForm RMC_FORM = {12, {11, 10}, NONE, 1, NONE, 3, 5};
constexpr ShortForm GLL_FORM = {NONE, {NONE, NONE}, NONE, 5, NONE, 1, 3};
constexpr ShortForm OTHER_FORM = {NONE, {NONE, NONE}, NONE, NONE, NONE, NONE, NONE};

const ShortForm& FormOf(SENTENCETYPE type) noexcept
{
    switch (type) {
    case TYPE_GGA:
        return GGA_FORM;
    case TYPE_GNS:
        return GNS_FORM;
    case TYPE_RMC:
        return RMC_FORM;
    case TYPE_GLL:
        return GLL_FORM;
    default:
        return OTHER_FORM;
    }
}

void DropUnread(const ShortForm& form, CSentenceFields& fields) noexcept
{
    fields.CutBehind(form.last);
    for (const std::size_t number : form.unread) {
        if (!fields.Fits()) {
            fields.Set(number, {});
        }
    }
    if (!fields.Fits()) {
        fields.Set(form.separation, WithoutDecimals(fields[form.separation]));
    }
    if (!fields.Fits()) {
        fields.Set(form.time, WithoutLastZeros(fields[form.time]));
    }
}

void DropLastDecimal(std::size_t number, CSentenceFields& fields) noexcept
{
    const std::string_view text = fields[number];
    fields.Set(number, Decimals(text) > 1 ? text.substr(0, text.size() - 1) : WithoutDecimals(text));
}

void DropDecimals(const ShortForm& form, CSentenceFields& fields) noexcept
{
    while (!fields.Fits() && Decimals(fields[form.altitude]) > 0) {
        DropLastDecimal(form.altitude, fields);
    }
    while (!fields.Fits()) {
        const std::size_t latitude = Decimals(fields[form.latitude]);
        const std::size_t longitude = Decimals(fields[form.longitude]);
        if (std::max(latitude, longitude) <= MINUTES_DECIMALS) {
            return;
        }
        DropLastDecimal(latitude > longitude ? form.latitude : form.longitude, fields);
    }
}

} // namespace

bool Shorten(SENTENCETYPE type, CSentenceFields& fields) noexcept
{
    if (!fields.Fits()) {
        DropUnread(FormOf(type), fields);
        DropDecimals(FormOf(type), fields);
    }
    return fields.Fits();
}

} // namespace adapter
