// Ledger.h: the figures of every drive with every receiver.
#pragma once

#include <string>
#include <vector>

#include "bench/study/Score.h"

namespace study
{

class Report;

OfModels<Figures> Results(const OfModels<Score>& scores);

/// Result: the share of the raw fixes' position error that is gone with the velocity model.
double Gain(const OfModels<Figures>& figures) noexcept;

class Ledger
{
public:
    void Add(const std::string& receiver, const char* drive, const OfModels<Figures>& figures);

    /// Puts all of it into a file of data, and into a table where the velocity model is worse than the raw
    /// fixes.
    void Tell(Report& report) const;

private:
    struct Entry {
        std::string receiver;
        std::string drive;
        OfModels<Figures> figures;
    };

    std::string List() const;

    std::vector<Entry> entries; // those of a receiver in a row
};

} // namespace study
