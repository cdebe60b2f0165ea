#include "framework/base/File.h"
#include "tests/support/native/FileFaults.h"
#include "zsl/utf8.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <optional>

// Rights are read from the mode bits and not asked of the system: tests run as the superuser too, whom it refuses
// nothing.

xTFileFaults& FileFaults() noexcept
{
    static xTFileFaults faults;
    return faults;
}

namespace {

constexpr mode_t anyoneWrites = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t anyoneReads = S_IRUSR | S_IRGRP | S_IROTH;

// Counts a call. True when it is to fail.
bool Fails() noexcept
{
    xTFileFaults& faults = FileFaults();
    ++faults.calls;
    return faults.failCall != 0
        && (faults.calls == faults.failCall || (faults.failRest && faults.calls > faults.failCall));
}

std::string Narrow(const WString& path)
{
    std::string name;
    zsl::append_utf8(path, name);
    return name;
}

WString Wide(std::string_view name)
{
    WString path;
    if (zsl::look_at_utf8(name).valid)
        zsl::append_wide_of_utf8(name, path);
    return path;
}

std::optional<struct stat> Stat(const std::string& name) noexcept
{
    struct stat facts;
    return ::stat(name.c_str(), &facts) == 0 ? std::optional(facts) : std::nullopt;
}

std::intptr_t OpenExisting(const WString& path, int flags, mode_t right)
{
    if (Fails())
        return -1;
    const std::string name = Narrow(path);
    const auto facts = Stat(name);
    if (!facts || !S_ISREG(facts->st_mode) || !(facts->st_mode & right))
        return -1;
    return ::open(name.c_str(), flags | O_CLOEXEC | O_NONBLOCK);
}

int Descriptor(std::intptr_t handle) noexcept
{
    return static_cast<int>(handle);
}

bool WriteAll(int file, const char* from, std::size_t size) noexcept
{
    while (size != 0) {
        const ssize_t put = ::write(file, from, size);
        if (put <= 0)
            return false;
        from += put;
        size -= static_cast<std::size_t>(put);
    }
    return true;
}

// How many of the bytes still find room; takes it.
std::size_t TakeRoom(int file, std::size_t size) noexcept
{
    xTFileFaults& faults = FileFaults();
    if (faults.room < 0)
        return size;
    struct stat facts {};
    ::fstat(file, &facts);
    const std::int64_t place = ::lseek(file, 0, SEEK_CUR);
    const std::int64_t over = std::max<std::int64_t>(facts.st_size - place, 0);  // written over, not added
    const std::int64_t growth = std::max<std::int64_t>(static_cast<std::int64_t>(size) - over, 0);
    const std::int64_t granted = std::min(growth, faults.room);
    faults.room -= granted;
    return size - static_cast<std::size_t>(growth - granted);
}

}  // namespace

bool xTFile::OpenToRead(const WString& path)
{
    Close();
    m_handle = OpenExisting(path, O_RDONLY, anyoneReads);
    return m_handle != closed;
}

bool xTFile::CreateNew(const WString& path)
{
    Close();
    if (Fails())
        return false;
    const std::string name = Narrow(path);
    const std::string folder = name.substr(0, name.rfind('/') + 1);
    const auto facts = Stat(folder.empty() ? "." : folder);
    if (!facts || !(facts->st_mode & anyoneWrites))
        return false;
    m_handle = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    return m_handle != closed;
}

bool xTFile::OpenToOverwrite(const WString& path)
{
    Close();
    m_handle = OpenExisting(path, O_RDWR, anyoneWrites);
    return m_handle != closed;
}

std::int64_t xTFile::Size() const noexcept
{
    struct stat facts;
    return !Fails() && ::fstat(Descriptor(m_handle), &facts) == 0 ? facts.st_size : -1;
}

bool xTFile::Seek(std::int64_t place) noexcept
{
    return !Fails() && ::lseek(Descriptor(m_handle), place, SEEK_SET) == place;
}

std::int64_t xTFile::Read(void* to, std::size_t size) noexcept
{
    if (Fails())
        return -1;
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got = ::read(Descriptor(m_handle), static_cast<char*>(to) + done, size - done);
        if (got < 0)
            return -1;
        if (got == 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    return static_cast<std::int64_t>(done);
}

bool xTFile::Write(const void* from, std::size_t size) noexcept
{
    const int file = Descriptor(m_handle);
    const std::size_t wanted = Fails() ? size / 2 : size;
    const std::size_t granted = TakeRoom(file, wanted);
    return WriteAll(file, static_cast<const char*>(from), granted) && granted == size && wanted == size;
}

bool xTFile::Truncate(std::int64_t size) noexcept
{
    return !Fails() && ::ftruncate(Descriptor(m_handle), size) == 0;
}

bool xTFile::Sync() noexcept
{
    return !Fails() && ::fsync(Descriptor(m_handle)) == 0;
}

bool xTFile::Close() noexcept
{
    if (m_handle == closed)
        return true;
    const bool failed = Fails();
    const bool done = ::close(Descriptor(m_handle)) == 0;
    m_handle = closed;
    return done && !failed;
}

xTFileKind FileKind(const WString& path)
{
    const auto facts = Stat(Narrow(path));
    if (!facts)
        return xTFileKind::missing;
    return S_ISREG(facts->st_mode) ? xTFileKind::file : xTFileKind::other;
}

WString FileBehindLinks(const WString& path)
{
    constexpr int mostLinks = 40;
    std::string name = Narrow(path);
    for (int i = 0; i < mostLinks; ++i) {
        char target[PATH_MAX];
        const ssize_t length = ::readlink(name.c_str(), target, sizeof target);
        if (length <= 0)
            return i == 0 ? path : Wide(name);
        const std::string_view next(target, static_cast<std::size_t>(length));
        name = next.front() == '/' ? std::string(next) : name.substr(0, name.rfind('/') + 1).append(next);
    }
    return path;
}

bool FileMayBeReplaced(const WString& path)
{
    const auto facts = Stat(Narrow(path));
    return facts && facts->st_nlink == 1;
}

bool FileReplace(const WString& newer, const WString& target)
{
    const std::string from = Narrow(newer);
    const std::string to = Narrow(target);
    if (Fails()) {
        if (FileFaults().targetGone)
            ::unlink(to.c_str());
        return false;
    }
    if (const auto facts = Stat(to)) {
        // The owner first: giving a file away takes some of its mode bits.
        if (::chown(from.c_str(), facts->st_uid, facts->st_gid) != 0 || ::chmod(from.c_str(), facts->st_mode) != 0)
            return false;
    }
    return ::rename(from.c_str(), to.c_str()) == 0;
}

bool FileRemove(const WString& path) noexcept
{
    try {
        return !Fails() && ::unlink(Narrow(path).c_str()) == 0;
    } catch (...) {
        return false;
    }
}

WString FileFolder(const WString& path)
{
    return path.substr(0, path.rfind(_T('/')) + 1);
}

WString FileTempFolder()
{
    const char* folder = std::getenv("TMPDIR");
    return Wide(folder && *folder ? folder : "/tmp") + _T('/');
}
