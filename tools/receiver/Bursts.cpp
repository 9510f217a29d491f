#include "tools/receiver/Bursts.h"

#include <algorithm>
#include <map>

namespace kestgps
{

namespace
{

constexpr std::size_t ADDRESS_LENGTH = 6; // "$GPGGA"

/// Result: field `number` of a line, from 1; empty when it has none.
std::string_view Field(std::string_view line, int number)
{
    for (; number > 0; --number) {
        const std::size_t comma = line.find(',');
        if (comma == std::string_view::npos) {
            return {};
        }
        line.remove_prefix(comma + 1);
    }
    return line.substr(0, line.find_first_of(",*\r\n"));
}

/// Result: which field of the line is its time; 0 for a line without one.
int TimeField(std::string_view line)
{
    if (line.size() < ADDRESS_LENGTH || line.front() != '$') {
        return 0;
    }
    const std::string_view type = line.substr(3, 3);
    if (type == "GLL") {
        return 5;
    }
    return type == "GGA" || type == "RMC" || type == "ZDA" ? 1 : 0;
}

/// The timed sentences of the current burst.
class CurrentBurst
{
public:
    /// Takes a line in. Result: true when it begins a new burst.
    bool Take(std::string_view line)
    {
        const int timeField = TimeField(line);
        if (timeField == 0) {
            return false;
        }
        const std::string_view time = Field(line, timeField);
        const auto address = line.substr(0, ADDRESS_LENGTH);
        const auto before = times.find(address);
        const bool begins = before != times.end() && (before->second != time || time.empty());
        if (begins) {
            times.clear();
        }
        times[address] = time;
        return begins;
    }

private:
    std::map<std::string_view, std::string_view> times; // by address
};

} // namespace

std::vector<std::string_view> SplitBursts(std::string_view text)
{
    std::vector<std::string_view> bursts;
    CurrentBurst burst;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
        if (burst.Take(text.substr(at, end - at))) {
            bursts.push_back(text.substr(begin, at - begin));
            begin = at;
        }
        at = end;
    }
    if (begin < text.size()) {
        bursts.push_back(text.substr(begin));
    }
    return bursts;
}

} // namespace kestgps
