#pragma once

#include "framework/base/WinTypes.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// A folder of its own for one test, gone with all that is in it when the test ends.
class xTTestFolder {
public:
    xTTestFolder();
    xTTestFolder(const xTTestFolder&) = delete;
    xTTestFolder& operator=(const xTTestFolder&) = delete;
    ~xTTestFolder();

    [[nodiscard]] const std::filesystem::path& path() const noexcept { return m_path; }
    [[nodiscard]] WString file(const std::filesystem::path& name) const;  ///< the full path, as the engine takes it
    void put(const std::filesystem::path& name, std::string_view bytes) const;
    [[nodiscard]] std::string bytes(const std::filesystem::path& name) const;  ///< empty for a missing file too
    [[nodiscard]] std::vector<std::string> names() const;                      ///< of all that is in it, sorted

private:
    std::filesystem::path m_path;
};
