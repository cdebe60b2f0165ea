#include "store/MemStor.h"

#include "diagnostics/Guarded.h"

// Marks live on the line records alone: they move with their line and go with it, and edits do no work for them.

namespace {

constexpr bool Has(const xTExtString& line, std::uint16_t flag) noexcept { return (line.m_flags & flag) != 0; }

void Drop(xTExtString& line, std::uint16_t flag) noexcept
{
    line.m_flags = static_cast<std::uint16_t>(line.m_flags & ~flag);
}

}  // namespace

bool xTMemStorage::has_break_point(std::int32_t line) const
{
    return Guarded(false, [&] { return has_line(line) && Has(lines[line], xTExtString::flagBreakPoint); });
}

void xTMemStorage::remove_all_break_points()
{
    Guarded([&] {
        for (std::int32_t i = 0; i < line_count(); ++i)
            Drop(lines[i], xTExtString::flagBreakPoint);
    });
}

std::int32_t xTMemStorage::break_point_count() const
{
    std::int32_t count = 0;  // outside the guard: what was counted is the answer after a failure
    Guarded([&] {
        for (std::int32_t i = 0; i < line_count(); ++i)
            count += Has(lines[i], xTExtString::flagBreakPoint) ? 1 : 0;
    });
    return count;
}

std::int32_t xTMemStorage::break_point_line(std::int32_t index) const
{
    return Guarded(-1, [&] {
        std::int32_t seen = 0;
        for (std::int32_t i = 0; i < line_count(); ++i) {
            seen += Has(lines[i], xTExtString::flagBreakPoint) ? 1 : 0;
            if (seen > index)  // with a negative index at once: line 0 of any text
                return i;
        }
        return -1;
    });
}

bool xTMemStorage::set_exec_point(std::int32_t line)
{
    return Guarded(false, [&] {
        if (line >= line_count())
            return false;
        clear_exec_point();
        // A negative line gets as far as here and raises: it has cleared the old point and sets no new one.
        xTExtString copy;
        get_line(line, copy);
        copy.m_flags |= xTExtString::flagExecPoint;
        lines[line].copy_data(copy);
        exec_line = line;
        return true;
    });
}

void xTMemStorage::clear_exec_point()
{
    Guarded([&] {
        if (exec_line == -1)
            return;
        const bool stands = has_line(exec_line) && Has(lines[exec_line], xTExtString::flagExecPoint);
        if (stands) {
            Drop(lines[exec_line], xTExtString::flagExecPoint);
        } else {
            // Edits have moved the marked line away from the number, or removed it.
            for (std::int32_t i = 0; i < line_count(); ++i)
                Drop(lines[i], xTExtString::flagExecPoint);
        }
        exec_line = -1;
    });
}
