#include "framework/base/File.h"

#include <windows.h>

#include <algorithm>
#include <new>

namespace {

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD mostAtOnce = 16u << 20;  // bytes; a network refuses much larger ones

HANDLE HandleOf(std::intptr_t handle) noexcept
{
    return reinterpret_cast<HANDLE>(handle);  // -1 is INVALID_HANDLE_VALUE
}

class xTScopedHandle {
public:
    explicit xTScopedHandle(HANDLE handle) noexcept : m_handle(handle) {}
    xTScopedHandle(const xTScopedHandle&) = delete;
    xTScopedHandle& operator=(const xTScopedHandle&) = delete;
    ~xTScopedHandle()
    {
        if (IsOpen())
            ::CloseHandle(m_handle);
    }
    [[nodiscard]] bool IsOpen() const noexcept { return m_handle != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE Get() const noexcept { return m_handle; }

private:
    HANDLE m_handle;
};

// The path as the system takes it at any length; empty for the name of a device. The system itself tells which names
// are devices (CON, NUL.txt on older versions, \\.\X): it puts them into the device namespace.
WString SystemPath(const WString& path)
{
    constexpr std::size_t longPath = 248;  // the shortest that some function refuses without the prefix
    if (path.starts_with(L"\\\\?\\"))
        return path;
    const DWORD room = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    WString full(room, 0);
    const DWORD length = room ? ::GetFullPathNameW(path.c_str(), room, full.data(), nullptr) : 0;
    if (length == 0 || length >= room)
        return {};
    full.resize(length);
    if (full.starts_with(L"\\\\.\\"))
        return {};
    if (full.size() < longPath)
        return full;
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

bool FileFacts(HANDLE file, BY_HANDLE_FILE_INFORMATION& facts) noexcept
{
    return ::GetFileType(file) == FILE_TYPE_DISK && ::GetFileInformationByHandle(file, &facts)
        && !(facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

// -1 when there is no such file, it is none, or it may not be written as asked. The read-only attribute is looked at
// here too, since a superuser under a system that only stands in for Windows is refused nothing.
std::intptr_t Open(const WString& path, DWORD access, DWORD share, DWORD creation)
{
    const WString name = SystemPath(path);
    if (name.empty())
        return -1;
    const HANDLE file = ::CreateFileW(name.c_str(), access, share, nullptr, creation,
                                      FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    BY_HANDLE_FILE_INFORMATION facts;
    if (file == INVALID_HANDLE_VALUE)
        return -1;
    const bool overwrites = creation == OPEN_EXISTING && (access & GENERIC_WRITE);
    if (!FileFacts(file, facts) || (overwrites && (facts.dwFileAttributes & FILE_ATTRIBUTE_READONLY))) {
        ::CloseHandle(file);
        if (creation == CREATE_NEW)
            ::DeleteFileW(name.c_str());  // it was not there before
        return -1;
    }
    return reinterpret_cast<std::intptr_t>(file);
}

}  // namespace

bool xTFile::OpenToRead(const WString& path)
{
    Close();
    m_handle = Open(path, GENERIC_READ, shareAll, OPEN_EXISTING);
    return m_handle != closed;
}

bool xTFile::CreateNew(const WString& path)
{
    Close();
    m_handle = Open(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_NEW);
    return m_handle != closed;
}

bool xTFile::OpenToOverwrite(const WString& path)
{
    Close();
    m_handle = Open(path, GENERIC_READ | GENERIC_WRITE, shareAll, OPEN_EXISTING);
    return m_handle != closed;
}

std::int64_t xTFile::Size() const noexcept
{
    LARGE_INTEGER size;
    return ::GetFileSizeEx(HandleOf(m_handle), &size) ? size.QuadPart : -1;
}

bool xTFile::Seek(std::int64_t place) noexcept
{
    LARGE_INTEGER distance;
    distance.QuadPart = place;
    return ::SetFilePointerEx(HandleOf(m_handle), distance, nullptr, FILE_BEGIN);
}

std::int64_t xTFile::Read(void* to, std::size_t size) noexcept
{
    std::size_t done = 0;
    while (done < size) {
        const DWORD piece = static_cast<DWORD>(std::min<std::size_t>(size - done, mostAtOnce));
        DWORD got = 0;
        if (!::ReadFile(HandleOf(m_handle), static_cast<char*>(to) + done, piece, &got, nullptr))
            return -1;
        if (got == 0)
            break;
        done += got;
    }
    return static_cast<std::int64_t>(done);
}

bool xTFile::Write(const void* from, std::size_t size) noexcept
{
    std::size_t done = 0;
    while (done < size) {
        const DWORD piece = static_cast<DWORD>(std::min<std::size_t>(size - done, mostAtOnce));
        DWORD put = 0;
        if (!::WriteFile(HandleOf(m_handle), static_cast<const char*>(from) + done, piece, &put, nullptr) || put == 0)
            return false;
        done += put;
    }
    return true;
}

bool xTFile::Truncate(std::int64_t size) noexcept
{
    return Seek(size) && ::SetEndOfFile(HandleOf(m_handle));
}

bool xTFile::Sync() noexcept
{
    return ::FlushFileBuffers(HandleOf(m_handle));
}

bool xTFile::Close() noexcept
{
    if (m_handle == closed)
        return true;
    const bool done = ::CloseHandle(HandleOf(m_handle));
    m_handle = closed;
    return done;
}

xTFileKind FileKind(const WString& path)
{
    const WString name = SystemPath(path);
    if (name.empty())
        return xTFileKind::other;
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES)
        return attributes & FILE_ATTRIBUTE_DIRECTORY ? xTFileKind::other : xTFileKind::file;
    const DWORD error = ::GetLastError();
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ? xTFileKind::missing : xTFileKind::other;
}

WString FileBehindLinks(const WString& path)
{
    const WString name = SystemPath(path);
    const DWORD attributes = name.empty() ? INVALID_FILE_ATTRIBUTES : ::GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return path;
    const xTScopedHandle file(
        ::CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES, shareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file.IsOpen())
        return path;
    const DWORD room = ::GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED);
    WString behind(room, 0);
    const DWORD length = room ? ::GetFinalPathNameByHandleW(file.Get(), behind.data(), room, FILE_NAME_NORMALIZED) : 0;
    if (length == 0 || length >= room)
        return path;
    behind.resize(length);
    return behind;
}

bool FileMayBeReplaced(const WString& path)
{
    const WString name = SystemPath(path);
    // Who holds the file open without leave to remove it lets it be written, but not replaced.
    const xTScopedHandle file(
        ::CreateFileW(name.c_str(), DELETE | FILE_READ_ATTRIBUTES, shareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    BY_HANDLE_FILE_INFORMATION facts;
    return file.IsOpen() && FileFacts(file.Get(), facts) && facts.nNumberOfLinks == 1;
}

bool FileReplace(const WString& newer, const WString& target)
{
    const WString from = SystemPath(newer);
    const WString to = SystemPath(target);
    constexpr DWORD moveFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    const DWORD attributes = ::GetFileAttributesW(to.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return ::MoveFileExW(from.c_str(), to.c_str(), moveFlags);
    // Before the step, so that the file never stands there without them.
    ::SetFileAttributesW(from.c_str(), attributes);
    constexpr DWORD replaceFlags = REPLACEFILE_IGNORE_MERGE_ERRORS;
    // A file system that cannot replace, or that fails half-way with the target gone, can still move.
    return ::ReplaceFileW(to.c_str(), from.c_str(), nullptr, replaceFlags, nullptr, nullptr)
        || ::MoveFileExW(from.c_str(), to.c_str(), moveFlags);
}

// Also when the system, or the memory, is at its end: what all but the longest paths are for the system needs neither.
bool FileRemove(const WString& path) noexcept
{
    if (::DeleteFileW(path.c_str()))
        return true;
    try {
        return ::DeleteFileW(SystemPath(path).c_str());
    } catch (const std::bad_alloc&) {
        return false;
    }
}

WString FileFolder(const WString& path)
{
    const std::size_t end = path.find_last_of(L"\\/:");
    return end == path.npos ? WString() : path.substr(0, end + 1);
}

WString FileTempFolder()
{
    WCHAR folder[MAX_PATH + 2];
    const DWORD length = ::GetTempPathW(MAX_PATH + 1, folder);
    return length <= MAX_PATH + 1 ? WString(folder, length) : WString();
}
