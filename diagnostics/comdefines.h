#pragma once

#include "framework/base/WinTypes.h"

#include <array>
#include <exception>

class CException;
struct xTExceptSettings;

/// What a record is written to: the log file, opened for each write and closed after it. It gathers a record in a
/// buffer of its own and asks for no memory, so that a lack of memory can be put on record. A file that cannot be
/// written is passed over in silence.
class xTLogStream {
public:
    explicit xTLogStream(const WCHAR* path) noexcept : m_path(path) {}
    xTLogStream(const xTLogStream&) = delete;
    xTLogStream& operator=(const xTLogStream&) = delete;
    ~xTLogStream() { Flush(); }

    xTLogStream& operator<<(std::string_view text) noexcept;
    xTLogStream& operator<<(std::int64_t number) noexcept;  ///< decimal, no padding
    void Flush() noexcept;

private:
    const WCHAR* m_path;
    std::size_t m_size = 0;
    std::array<char, 1000> m_buffer;
};

/// The log file: "scrivctl.log" beside the host's executable, a bare name where the system does not tell that.
[[nodiscard]] WString LogPath();

/// Writes the local time as day.month.year, two blanks, hour:minute:second.milliseconds; no number is padded.
void LogStamp(xTLogStream& stream) noexcept;

/// Each writes one record to the log and never throws; a log that cannot be written is passed over in silence.
/// @param file, line where the fault was caught  @param message null or empty: an unknown error
void LogReport(const char* file, unsigned line, const WCHAR* message) noexcept;
void LogReportMfc(const char* file, unsigned line, const CException* e) noexcept;
void LogReportStd(const char* file, unsigned line, const std::exception* e) noexcept;

/// Shows a lost font to the user in a message box without an owner.
void ShowSettingsError(const xTExceptSettings& e) noexcept;
