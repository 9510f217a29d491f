// Raw bytes, a line each, as sentences of one feed.
#include "fuzz/CInput.h"
#include "fuzz/ParseByRules.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CInput input(data, size);
    Feed feed;
    while (!input.Empty()) {
        const std::string line(input.UpTo('\n'));
        ParseByRules(line, static_cast<std::int32_t>(line.size()), feed);
    }
    return 0;
}
