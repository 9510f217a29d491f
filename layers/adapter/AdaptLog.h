// AdaptLog.h: a log that another program recorded, made ready for replay.
#pragma once

#include "GpsLib/contracts/KestApi.h"
#include "layers/adapter/AdapterCounts.h"
#include "layers/adapter/Talkers.h"

namespace adapter
{

enum ADAPTLOGRESULT {
    ADAPTLOG_DONE,
    ADAPTLOG_NOT_READ,    // the log can't be opened or read
    ADAPTLOG_SAME_FILE,   // the copy would take the log's own place
    ADAPTLOG_NOT_WRITTEN, // the copy can't be made, or the disk is full
};

struct AdaptedLog {
    ADAPTLOGRESULT result = ADAPTLOG_DONE;
    int error = 0; ///< errno of what failed; EISDIR or EEXIST where something else than a file is in the way
    AdapterCounts counts;
};

/// Writes an adapted copy of a log, of any size. The copy appears under its name when it is whole, in place
/// of a file that was there; until then, and after a failure, that one stays as it is. log: anything that can
/// be read to its end. copy: a file; a link to one is followed. Takes: as much memory as a page or two of
/// text, and as long as reading and writing takes. Thread: any, also several at once for different copies.
KEST_API AdaptedLog AdaptLog(const char* log, const char* copy, const Talkers& talkers = Talkers()) noexcept;

} // namespace adapter
