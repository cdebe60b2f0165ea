#include "tests/support/LogFile.h"

#include "tests/support/native/PlatformNative.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

// The first folder of this name that is not there yet.
std::filesystem::path NewFolder()
{
    for (int number = 0;; ++number) {
        const auto folder = std::filesystem::absolute("log-of-a-test-" + std::to_string(number));
        if (std::filesystem::create_directory(folder))
            return folder;
    }
}

}  // namespace

xTLogFile::xTLogFile() : m_folder(NewFolder().string())
{
    std::string executable = m_folder + "\\host.exe";
    std::replace(executable.begin(), executable.end(), '/', '\\');
    NativePlatform().executablePath.assign(executable.begin(), executable.end());
}

xTLogFile::~xTLogFile()
{
    NativePlatform().executablePath.clear();
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::string xTLogFile::Bytes() const
{
    std::ifstream file(m_folder + "/scrivctl.log", std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::vector<std::string> xTLogFile::Records() const
{
    std::istringstream lines(Bytes());
    std::vector<std::string> records;
    for (std::string line; std::getline(lines, line); records.push_back(line))
        if (line.ends_with('\r'))
            line.pop_back();
    return records;
}
