#include "store/MemStor.h"

// The number travels on the line record: no comparison of texts and no log of edits stands behind the mapping.

void xTMemStorage::take_snapshot()
{
    for (std::int32_t i = 0; i < line_count(); ++i)
        lines[i].m_snapshotLine = i;
}

std::int32_t xTMemStorage::snapshot_new_line(std::int32_t old) const
{
    for (std::int32_t i = 0; i < line_count(); ++i) {
        if (lines[i].m_snapshotLine == old)  // -1 finds the first line that came into being since
            return i;
    }
    return -1;
}

std::int32_t xTMemStorage::snapshot_old_line(std::int32_t line) const
{
    return has_line(line) ? lines[line].m_snapshotLine : xTExtString::noSnapshot;
}
