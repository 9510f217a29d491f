// AdaptDescriptor.h: sentences adapted from one descriptor to another.
#pragma once

#include "layers/adapter/AdaptLog.h"

namespace adapter
{

class CSentenceAdapter;

/// Adapts what one descriptor gives, to its end, into another. Neither is closed.
/// adapter: its counts go on.
/// Result: ADAPTLOG_DONE, _NOT_READ or _NOT_WRITTEN; errno then tells why.
ADAPTLOGRESULT AdaptDescriptor(int from, int to, CSentenceAdapter& adapter) noexcept;

} // namespace adapter
