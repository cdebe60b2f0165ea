#pragma once

#include "framework/base/WinTypes.h"

#include <cstdint>

// The files of the system as the engine needs them. Chosen at link time as Platform.h is: framework/win answers with
// the system itself, tests/support with one that can be told to fail. Paths are of any length. Only ordinary files
// are opened, never a directory, a device or a pipe. Nothing here raises anything but std::bad_alloc for a path.

/// Owner of an open file. An operation that fails says so by false and closes nothing.
class xTFile {
public:
    xTFile() noexcept = default;
    xTFile(const xTFile&) = delete;
    xTFile& operator=(const xTFile&) = delete;
    ~xTFile() { Close(); }

    /// Opens for reading; others stay free to read, write, rename and remove the file.
    [[nodiscard]] bool OpenToRead(const WString& path);
    /// Makes a new file for writing; fails when there is one of that name.
    [[nodiscard]] bool CreateNew(const WString& path);
    /// Opens a file that exists for reading and writing, its bytes untouched.
    [[nodiscard]] bool OpenToOverwrite(const WString& path);

    [[nodiscard]] std::int64_t Size() const noexcept;  ///< in bytes; -1 when the system does not tell
    /// Moves the place of the next read or write.
    [[nodiscard]] bool Seek(std::int64_t place) noexcept;
    /// Reads up to `size` bytes, fewer only at the end of the file. @return the number, -1 for a failure
    [[nodiscard]] std::int64_t Read(void* to, std::size_t size) noexcept;
    [[nodiscard]] bool Write(const void* from, std::size_t size) noexcept;  ///< all bytes, or false
    [[nodiscard]] bool Truncate(std::int64_t size) noexcept;
    [[nodiscard]] bool Sync() noexcept;  ///< true when all that was written is on the disk
    bool Close() noexcept;               ///< true also when nothing is open

private:
    std::intptr_t m_handle = closed;
    static constexpr std::intptr_t closed = -1;
};

/// What stands under a name.
enum class xTFileKind { missing, file, other };
[[nodiscard]] xTFileKind FileKind(const WString& path);

/// The file that a link leads to; the path as it is when it names no link.
[[nodiscard]] WString FileBehindLinks(const WString& path);

/// False when the file must be overwritten in place, since taking its name away is refused or would part it from other
/// names that it has.
[[nodiscard]] bool FileMayBeReplaced(const WString& path);

/// Puts `newer` in the place of `target` in one step, with the target's attributes and rights if there was one.
/// @return false when both are as they were
[[nodiscard]] bool FileReplace(const WString& newer, const WString& target);

bool FileRemove(const WString& path) noexcept;

/// The folder of the file with its separator at the end; empty for a bare name.
[[nodiscard]] WString FileFolder(const WString& path);

/// The folder for temporary files, with its separator at the end.
[[nodiscard]] WString FileTempFolder();
