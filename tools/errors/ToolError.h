// ToolError.h: what ends a command early.
#pragma once

#include <stdexcept>
#include <string>
#include <system_error>

namespace kestgps
{

/// Its text is one line that tells the user what is wrong and, where that helps, what to do.
class ToolError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Result: the platform's word for an error number, such as "Permission denied".
inline std::string ErrorText(int number)
{
    return std::generic_category().message(number);
}

} // namespace kestgps
