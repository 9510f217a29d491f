// Row.h: the rows of tables of cases; a row names its test after its field `rule`.
#pragma once

#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace support
{

/// The plainest row: what is given, and what is expected of it.
template <class GIVEN, class EXPECTED>
struct Row {
    const char* rule;
    GIVEN given;
    EXPECTED expected;
};

/// Prints a row by its rule; found through `using support::operator<<` beside the row's type.
template <class ROW>
auto operator<<(std::ostream& out, const ROW& row) -> decltype(out << row.rule)
{
    return out << row.rule;
}

struct RuleName {
    template <class ROW>
    std::string operator()(const testing::TestParamInfo<ROW>& row) const
    {
        return row.param.rule;
    }
};

} // namespace support
