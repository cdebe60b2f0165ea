#pragma once

#include "framework/base/WinTypes.h"

#include <exception>
#include <iosfwd>

class CException;

/// The log file: "scrivctl.log" beside the host's executable.
[[nodiscard]] WString LogPath();

/// Writes the local time as day.month.year, two blanks, hour:minute:second.milliseconds; no number is padded.
void LogStamp(std::ostream& stream);

/// Each writes one record to the log and never throws; a log that cannot be written is passed over in silence.
/// @param file, line where the fault was caught  @param message null or empty: an unknown error
void LogReport(const char* file, unsigned line, const WCHAR* message) noexcept;
void LogReportMfc(const char* file, unsigned line, const CException* e) noexcept;
void LogReportStd(const char* file, unsigned line, const std::exception* e) noexcept;
