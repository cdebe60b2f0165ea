#pragma once

#include <string>
#include <vector>

/// A log of its own for a test: while it lives, the host's executable stands in a new folder, so that the log goes there.
class xTLogFile {
public:
    xTLogFile();
    xTLogFile(const xTLogFile&) = delete;
    xTLogFile& operator=(const xTLogFile&) = delete;
    ~xTLogFile();

    [[nodiscard]] const std::string& Folder() const noexcept { return m_folder; }

    /// The file as it stands, byte for byte; empty when there is none.
    [[nodiscard]] std::string Bytes() const;

    /// The records without their line ends.
    [[nodiscard]] std::vector<std::string> Records() const;

private:
    std::string m_folder;
};
