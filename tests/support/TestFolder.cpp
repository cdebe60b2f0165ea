#include "tests/support/TestFolder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

xTTestFolder::xTTestFolder()
    : m_path(std::filesystem::temp_directory_path() / ("scriv" + std::to_string(std::random_device{}())))
{
    std::filesystem::create_directories(m_path);
}

xTTestFolder::~xTTestFolder()
{
    using std::filesystem::perm_options, std::filesystem::perms;
    std::error_code ignored;
    std::filesystem::permissions(m_path, perms::owner_all, perm_options::add, ignored);
    std::filesystem::remove_all(m_path, ignored);
}

WString xTTestFolder::file(const std::filesystem::path& name) const
{
#ifdef _WIN32
    return (m_path / name).wstring();
#else
    return (m_path / name).u16string();
#endif
}

void xTTestFolder::put(const std::filesystem::path& name, std::string_view bytes) const
{
    std::ofstream(m_path / name, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string xTTestFolder::bytes(const std::filesystem::path& name) const
{
    std::ifstream stream(m_path / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> xTTestFolder::names() const
{
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(m_path))
        found.push_back(entry.path().filename().string());
    std::sort(found.begin(), found.end());
    return found;
}
