// Cases.h: the receivers that every drive is made with.
#pragma once

#include <string>
#include <vector>

#include "bench/study/Drives.h"
#include "bench/study/Receiver.h"
#include "bench/study/Score.h"

namespace study
{

class Ledger;

struct Case {
    std::string name;
    Traits traits;
    int runs = 3; ///< with noise of their own, of every drive
};

/// 5 m of white noise, 0.2 m/s of velocity noise, one fix a second.
Case UsualCase();
/// The usual one with another noise, or rate.
std::vector<Case> NoiseCases();
std::vector<Case> RateCases();
/// Receivers with weaknesses and faults.
std::vector<Case> WeakCases();
/// Fixes 20 to 100 m off for some seconds, once a minute; many runs, for most of the error lies in few
/// bursts.
std::vector<Case> BurstCases();

/// A drive with a case, all runs together; its figures go into the ledger.
OfModels<Score> Rides(const Drive& drive, const Case& of, Ledger& ledger);

} // namespace study
