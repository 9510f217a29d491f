// Program.h: the built program, run from outside.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>
#include <sys/wait.h>

/// A run of kestgps with its arguments and redirections as a shell reads them.
class Program
{
public:
    explicit Program(const std::string& arguments)
    {
        const std::string command = "echo $$; exec " KESTGPS_PROGRAM " " + arguments;
        output = popen(command.c_str(), "re"); // NOLINT(cert-env33-c): the tests' own commands
        id = static_cast<pid_t>(std::strtol(Line().c_str(), nullptr, 10));
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() { Status(); }

    pid_t Id() const { return id; }

    std::string Line()
    {
        char line[512] = "";
        return std::fgets(line, sizeof line, output) != nullptr ? line : "";
    }
    std::vector<std::string> Lines()
    {
        std::vector<std::string> lines;
        for (std::string line = Line(); !line.empty(); line = Line()) {
            lines.push_back(line);
        }
        return lines;
    }
    /// Result: the last line that is still to come; empty when there is none.
    std::string LastLine()
    {
        const auto lines = Lines();
        return lines.empty() ? "" : lines.back();
    }
    /// Waits for its end. Result: its exit status; -1 when it had none or at a second call.
    int Status()
    {
        std::FILE* const ended = std::exchange(output, nullptr);
        const int status = ended != nullptr ? pclose(ended) : -1;
        return status >= 0 && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    std::FILE* output = nullptr; // owned
    pid_t id = -1;
};
