// TemporaryFolder.h: a folder of its own for a test, gone with it.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace support
{

class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "kest_gps_XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        folder = name;
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Result: the path of a file in the folder, which needn't exist.
    std::string Path(const std::string& name) const { return (folder / name).string(); }

    /// Result: the path of a file that holds these bytes.
    std::string File(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(Path(name), std::ios::binary) << bytes;
        return Path(name);
    }

    /// Result: the bytes of a file.
    std::string Content(const std::string& name) const
    {
        std::ostringstream bytes;
        bytes << std::ifstream(Path(name), std::ios::binary).rdbuf();
        return bytes.str();
    }

private:
    std::filesystem::path folder;
};

} // namespace support
