#include "zsl/replacing_file.h"

#include "zsl/overwrite.h"
#include "zsl/temporary_name.h"

namespace zsl {

replacing_file::replacing_file(const WString& path)
{
    if (path.empty() || path.find(WCHAR{}) != path.npos)
        return;
    m_target = FileBehindLinks(path);
    const xTFileKind kind = FileKind(m_target);
    m_existed = kind == xTFileKind::file;
    if (kind == xTFileKind::other || (m_existed && !may_write()))
        return;
    if (!m_existed || FileMayBeReplaced(m_target))
        m_temporary = create_temporary(FileFolder(m_target), m_file);
    m_inPlace = m_temporary.empty();
    m_open = m_existed || !m_inPlace;
}

replacing_file::~replacing_file()
{
    drop_temporary();
}

bool replacing_file::may_write() const
{
    xTFile probe;
    return probe.OpenToOverwrite(m_target);
}

void replacing_file::drop_temporary()
{
    m_file.Close();
    if (!m_temporary.empty())
        FileRemove(m_temporary);
    m_temporary.clear();
}

bool replacing_file::write(std::string_view bytes)
{
    if (!m_open)
        return false;
    if (!m_inPlace)
        return m_file.Write(bytes.data(), bytes.size());
    m_bytes += bytes;
    return true;
}

bool replacing_file::flush()
{
    return m_open && (m_inPlace || m_file.Sync());
}

bool replacing_file::commit()
{
    if (!m_open)
        return false;
    m_open = false;
    if (m_inPlace)
        return overwrite_file(m_target, m_bytes);
    return m_file.Sync() && m_file.Close() && replace();
}

bool replacing_file::replace()
{
    const bool done = FileReplace(m_temporary, m_target);
    // A system that fails half-way may have taken the old file away. The new one is then all there is: it stays, and so
    // it does when the question whether the old one is there finds no memory.
    WString temporary;
    temporary.swap(m_temporary);
    if (!done && !(m_existed && FileKind(m_target) == xTFileKind::missing))
        m_temporary.swap(temporary);
    return done;
}

}  // namespace zsl
