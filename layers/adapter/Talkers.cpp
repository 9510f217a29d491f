#include "layers/adapter/Talkers.h"

namespace adapter
{

namespace
{

bool IsNamePart(char letter) noexcept
{
    return (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
}

} // namespace

Talkers::Talkers() noexcept
{
    for (const char* talker : {"GN", "GL", "GA", "GB", "BD", "GQ", "QZ", "GI"}) {
        Add(talker);
    }
}

bool Talkers::Add(std::string_view talker) noexcept
{
    if (talker.size() != 2 || !IsNamePart(talker[0]) || !IsNamePart(talker[1])) {
        return false;
    }
    if (Has(talker)) {
        return true;
    }
    if (count == MOST) {
        return false;
    }
    names[count++] = {talker[0], talker[1]};
    return true;
}

bool Talkers::Has(std::string_view talker) const noexcept
{
    if (talker.size() != 2) {
        return false;
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (talker[0] == names[i][0] && talker[1] == names[i][1]) {
            return true;
        }
    }
    return false;
}

} // namespace adapter
