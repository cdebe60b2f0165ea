#pragma once

#include "framework/base/File.h"

#include <string>
#include <string_view>

namespace zsl {

/// New content for a file, which keeps its old content until `commit` and for good when anything fails.
///
/// The content is written to a temporary file beside the target, and that takes the target's place in one step. Where
/// the folder refuses new files, or the file may not lose its place, the content is kept in memory and `commit`
/// overwrites the target, a copy of the old bytes being on the disk meanwhile.
class replacing_file {
public:
    /// Not open afterwards when the target is a directory or a device, may not be written, or is locked.
    explicit replacing_file(const WString& path);
    replacing_file(const replacing_file&) = delete;
    replacing_file& operator=(const replacing_file&) = delete;
    ~replacing_file();  ///< takes the temporary file away; without a commit the target stays as it is

    [[nodiscard]] bool is_open() const noexcept { return m_open; }
    [[nodiscard]] bool write(std::string_view bytes);
    /// Puts the bytes written so far on the disk, beside the target; bytes kept in memory get there in `commit`.
    [[nodiscard]] bool flush();
    /// @return true when the target has the new content and all of it is on the disk; false when it has the old
    [[nodiscard]] bool commit();

private:
    [[nodiscard]] bool may_write() const;
    [[nodiscard]] bool replace();
    void drop_temporary();

    WString m_target;
    bool m_existed = false;
    bool m_open = false;
    bool m_inPlace = false;
    WString m_temporary;
    xTFile m_file;
    std::string m_bytes;  // of a target that is overwritten in place
};

}  // namespace zsl
