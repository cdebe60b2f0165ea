#include "zsl/overwrite.h"

#include "zsl/temporary_name.h"
#include "zsl/whole_file.h"

namespace zsl {
namespace {

bool write_at(xTFile& file, std::size_t place, std::string_view bytes)
{
    return file.Seek(static_cast<std::int64_t>(place)) && file.Write(bytes.data(), bytes.size());
}

// Only the first step needs room on the disk, and it touches none of the old bytes.
bool put_new(xTFile& file, std::string_view bytes, std::size_t oldSize)
{
    if (bytes.size() > oldSize && !(write_at(file, oldSize, bytes.substr(oldSize)) && file.Sync()))
        return false;
    return write_at(file, 0, bytes.substr(0, oldSize)) && file.Truncate(static_cast<std::int64_t>(bytes.size()))
        && file.Sync();
}

bool put_back(xTFile& file, std::string_view bytes)
{
    return write_at(file, 0, bytes) && file.Truncate(static_cast<std::int64_t>(bytes.size())) && file.Sync();
}

// A copy of the old bytes on the disk.
class rescue_copy {
public:
    explicit rescue_copy(std::string_view bytes)
    {
        xTFile file;
        m_path = create_temporary(FileTempFolder(), file);
        m_whole = !m_path.empty() && file.Write(bytes.data(), bytes.size()) && file.Sync() && file.Close();
    }
    rescue_copy(const rescue_copy&) = delete;
    rescue_copy& operator=(const rescue_copy&) = delete;
    ~rescue_copy()
    {
        if (!m_path.empty() && !m_needed)
            FileRemove(m_path);
    }
    [[nodiscard]] bool is_whole() const noexcept { return m_whole; }
    void keep() noexcept { m_needed = true; }

private:
    WString m_path;
    bool m_whole = false;
    bool m_needed = false;
};

}  // namespace

bool overwrite_file(const WString& path, std::string_view bytes)
{
    xTFile file;
    if (!file.OpenToOverwrite(path))
        return false;
    const whole_file old = read_whole(file);
    if (!old.read)
        return false;
    rescue_copy rescue(old.bytes());
    if (!rescue.is_whole())
        return false;
    if (put_new(file, bytes, old.bytes().size()))
        return true;
    if (!put_back(file, old.bytes()))
        rescue.keep();
    return false;
}

}  // namespace zsl
