#include "diagnostics/comdefines.h"

#include "diagnostics/ExceptSettings.h"
#include "diagnostics/Guarded.h"
#include "framework/base/Exceptions.h"
#include "framework/base/Platform.h"
#include "zsl/text_encoding.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr WStrView logName = _T("scrivctl.log");

// A path of the log: room for the executable's path as the system gives it, and for the name.
using xTPathBuffer = std::array<WCHAR, 260 + logName.size() + 2>;

xTPathBuffer PathOfLog() noexcept
{
    constexpr std::int32_t pathRoom = 260;  // a longer path of the executable is cut there
    xTPathBuffer path{};
    const auto told = static_cast<std::size_t>(PlatformExecutablePath(path.data(), pathRoom));
    const auto cut = WStrView(path.data(), told).rfind(_T('\\'));
    auto* end = path.data() + (cut == WStrView::npos ? 0 : cut + 1);
    *std::copy(logName.begin(), logName.end(), end) = 0;
    return path;
}

// Writes one record. An empty message gives the record of an unknown error.
void WriteRecord(const char* file, unsigned line, std::string_view message) noexcept
{
    const xTPathBuffer path = PathOfLog();
    xTLogStream log(path.data());
    LogStamp(log);
    log << ": in " << (file ? file : "") << "(" << line << ")";
    if (message.empty())
        log << " unknown error.";
    else
        log << " error: " << message << ".";
    log << "\n";
}

// For a message that must be written when there is no memory to convert it: other than ASCII becomes '?'.
std::string_view Narrow(const WCHAR* message, std::span<char> buffer) noexcept
{
    std::size_t size = 0;
    for (; size < buffer.size() && message[size] != 0; ++size)
        buffer[size] = message[size] < 128 ? static_cast<char>(message[size]) : '?';
    return {buffer.data(), size};
}

}  // namespace

xTLogStream& xTLogStream::operator<<(std::string_view text) noexcept
{
    while (!text.empty()) {
        if (m_size == m_buffer.size())
            Flush();
        const std::size_t count = std::min(text.size(), m_buffer.size() - m_size);
        std::copy_n(text.begin(), count, m_buffer.begin() + static_cast<std::ptrdiff_t>(m_size));
        m_size += count;
        text.remove_prefix(count);
    }
    return *this;
}

xTLogStream& xTLogStream::operator<<(std::int64_t number) noexcept
{
    std::array<char, 24> digits;
    const auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return *this << std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

void xTLogStream::Flush() noexcept
{
    if (m_size > 0)
        PlatformAppendText(m_path, {m_buffer.data(), m_size});
    m_size = 0;
}

WString LogPath()
{
    return PathOfLog().data();
}

void LogStamp(xTLogStream& stream) noexcept
{
    const xTLocalTime now = PlatformLocalTime();
    stream << now.day << "." << now.month << "." << now.year << "  ";
    stream << now.hour << ":" << now.minute << ":" << now.second << "." << now.millisecond;
}

void LogReport(const char* file, unsigned line, const WCHAR* message) noexcept
{
    if (!message || *message == 0)
        return WriteRecord(file, line, {});
    try {
        std::string bytes;
        zsl::wide_to_char(message, bytes, zsl::text_encoding(0));
        WriteRecord(file, line, bytes);
    } catch (...) {  // no memory
        std::array<char, 512> buffer;
        WriteRecord(file, line, Narrow(message, buffer));
    }
}

void LogReportMfc(const char* file, unsigned line, const CException* e) noexcept
{
    static std::array<WCHAR, 512> text;  // one for the process: the reporter is called on the thread of the window
    if (!e || !e->GetErrorMessage(text.data(), static_cast<std::int32_t>(text.size())))
        text[0] = 0;
    LogReport(file, line, text.data());
}

void LogReportStd(const char* file, unsigned line, const std::exception* e) noexcept
{
    const char* what = e ? e->what() : "";
    try {
        WString wide;
        if (!PlatformToWide(xTCodePage::ansi, what, wide))
            wide.assign(what, what + std::string_view(what).size());
        LogReport(file, line, wide.c_str());
    } catch (...) {  // no memory
        WriteRecord(file, line, what);
    }
}

void ShowSettingsError(const xTExceptSettings& e) noexcept
{
    Guarded([&] {
        CString text = _T("\n Просьба сообщить разработчику!");
        text += _T("\n Что случилось:");
        text += e.message;
        text += _T("\n Где:");
        text += e.place;
        text += _T("\n При каких обстоятельствах?");
        text += _T("\n Большое спасибо.");
        PlatformMessageBox(text.c_str(), _T("Ошибка!"), xTBoxIcon::error);
    });
}
