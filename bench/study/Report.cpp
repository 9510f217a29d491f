#include "bench/study/Report.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "tools/files/WholeFile.h"
#include "tools/text/DecimalText.h"

namespace study
{

namespace
{

std::string Line(const std::vector<std::string>& cells)
{
    std::string line = "|";
    for (const std::string& cell : cells) {
        line += " " + cell + " |";
    }
    return line + "\n";
}

void WriteFile(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) {
        throw std::runtime_error("can't write " + path.string());
    }
}

} // namespace

Table::Table(const std::vector<std::string>& heads) : text(Line(heads))
{
    std::vector<std::string> rule(heads.size(), "---:");
    rule.front() = "---";
    Row(rule);
}

void Table::Row(const std::vector<std::string>& cells)
{
    text += Line(cells);
}

std::string Number(double value, int decimals)
{
    return kestgps::DecimalText(value, decimals);
}

std::string Percent(double share)
{
    return Number(100.0 * share, 0) + " %";
}

void Report::Promise(const std::string& what, const std::string& found, bool kept)
{
    promises.push_back({what, found, kept});
}

std::string Report::Promises() const
{
    Table table({"promise", "what came out", "kept"});
    for (const Kept& promise : promises) {
        table.Row({promise.what, promise.found, promise.kept ? "yes" : "**no**"});
    }
    return table.Text();
}

void Report::Write(const std::string& frame, const std::string& page, const std::string& folder) const
{
    std::map<std::string, std::string> parts = tables;
    parts["promises"] = Promises();
    std::istringstream lines(kestgps::ReadWholeFile(frame));
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        const bool isPart = line.size() > 4 && line.compare(0, 2, "{{") == 0;
        text += isPart ? parts.at(line.substr(2, line.size() - 4)) : line + "\n";
    }
    std::filesystem::create_directories(folder);
    WriteFile(page, text);
    for (const auto& [name, content] : data) {
        WriteFile(std::filesystem::path(folder) / name, content);
    }
}

bool Report::Judge() const
{
    bool all = true;
    for (const Kept& promise : promises) {
        std::printf("%s: %s: %s\n", promise.kept ? "kept" : "NOT KEPT", promise.what.c_str(),
                    promise.found.c_str());
        all = all && promise.kept;
    }
    return all;
}

} // namespace study
