// Report.h: what the study found: tables for the page, data for the plots, promises kept or not.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace study
{

/// A table in Markdown; the first column leans left, the others right.
class Table
{
public:
    explicit Table(const std::vector<std::string>& heads);
    void Row(const std::vector<std::string>& cells);
    const std::string& Text() const noexcept { return text; }

private:
    std::string text;
};

/// Result: a number with so many decimals.
std::string Number(double value, int decimals);
/// Result: a share as a whole number of percent.
std::string Percent(double share);

class Report
{
public:
    /// Goes where the page has a line "{{name}}".
    void Put(const std::string& name, const Table& table) { tables[name] = table.Text(); }
    /// Adds lines to a file of data, which is begun by the first of them.
    void Data(const std::string& file, const std::string& lines) { data[file] += lines; }
    /// what: the promise. found: what came out.
    void Promise(const std::string& what, const std::string& found, bool kept);

    /// Writes the page made from a frame, and the data into a folder, which is made.
    /// Throws: std::runtime_error.
    void Write(const std::string& frame, const std::string& page, const std::string& folder) const;
    /// Tells the promises on standard output.
    /// Result: whether all are kept.
    bool Judge() const;

private:
    struct Kept {
        std::string what;
        std::string found;
        bool kept;
    };

    std::string Promises() const;

    std::map<std::string, std::string> tables;
    std::map<std::string, std::string> data;
    std::vector<Kept> promises;
};

} // namespace study
