#include "layers/adapter/CFixEpochs.h"

namespace adapter
{

bool CFixEpochs::HasClosed(std::string_view talker, const CTimeText& time) noexcept
{
    const TALKER came = {talker[0], talker[1]};
    const bool first = lastTalker == TALKER{};
    const bool other = !first && came != lastTalker;
    const bool twice = came == cameTalker; // no GGA of the last talker came between
    cameTalker = came;
    if (time.Known()) {
        return time.SameAs(lastTime) && (other || lastMade);
    }
    return other && !twice;
}

bool CFixEpochs::IsRepeated(std::string_view gga, std::string_view quality) const noexcept
{
    return !quality.empty() && quality[0] != '0' && gga == last.View();
}

void CFixEpochs::Note(std::string_view talker, const CTimeText& time, std::string_view gga,
                      bool made) noexcept
{
    lastTalker = {talker[0], talker[1]};
    cameTalker = lastTalker;
    lastTime = time;
    lastMade = made;
    last.length = gga.copy(last.bytes, sizeof last.bytes);
}

} // namespace adapter
