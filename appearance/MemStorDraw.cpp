#include "appearance/AttribTable.h"
#include "diagnostics/Guarded.h"
#include "framework/win/CDC.h"
#include "framework/win/CWnd.h"
#include "store/MemStor.h"

#include <algorithm>

// The operations of the store that draw and measure. The host's hook runs in the middle of them and may change the text
// or destroy the control: each works on copies and asks again for what it goes on with.

namespace {

// The pixels from one line down to another.
LONG LineTop(const xTAttribTable& table, std::int64_t lines) noexcept
{
    constexpr std::int64_t limit = 0x7FFFFFFF;
    return static_cast<LONG>(std::clamp(lines * table.m_charHeight, -limit, limit));
}

}  // namespace

void xTMemStorage::PaintLines(const xTHighlightHook& hook, std::int32_t topLine, int x, std::int32_t firstRow,
                              std::int32_t lastRow, CWnd* window, CDC* dc, xTAttribTable* table)
{
    Guarded([&] {
        if (!dc)
            return;
        rescan_comments();
        for (std::int64_t row = firstRow; row <= lastRow; ++row) {
            const std::int64_t line = topLine + row;
            if (line < 0 || line >= line_count())
                return;
            xTExtString copy;
            get_line(static_cast<std::int32_t>(line), copy);
            mark_selection(copy, static_cast<std::int32_t>(line));
            if (table)
                table->show_that_str(hook, dc, window, this, copy, {x, LineTop(*table, row)});
        }
    });
}

void xTMemStorage::caret_to_point(const xTHighlightHook& hook, std::int32_t topLine, CWnd* window, CDC* dc,
                                  xTAttribTable* table, std::int32_t row, int x)
{
    Guarded([&] {
        const std::int64_t lastLine = std::int64_t{line_count()} - 1;
        const auto target = static_cast<std::int32_t>(
            std::max<std::int64_t>(0, std::min(std::int64_t{topLine} + row, lastLine)));
        std::int32_t column = 0;
        if (table && window)
            table->MeasureLine(hook, {target, line_length(target)}, dc, window, this, &column, &x);
        // The hook may have put another text in place: the column is held to the line as it is now.
        set_caret_raw({std::min(target, std::max(0, line_count() - 1)), std::min(line_length(target), column)});
    });
}

POINT xTMemStorage::caret_pixel(const xTHighlightHook& hook, std::int32_t topLine, CWnd* window, CDC* dc,
                                xTAttribTable* table, int offset)
{
    return Guarded(POINT{0, 0}, [&] {
        if (!window || !window->GetSafeHwnd() || !dc || !table)
            return POINT{0, 0};
        const int width = table->MeasureLine(hook, caret, dc, window, this);
        return POINT{width + offset, LineTop(*table, std::int64_t{caret.line} - topLine)};
    });
}

POINT xTMemStorage::caret_pixel(const xTHighlightHook& hook, std::int32_t topLine, CWnd* window, xTAttribTable* table,
                                int offset, bool below)
{
    return Guarded(POINT{0, 0}, [&] {
        if (!window || !window->GetSafeHwnd() || !table)
            return POINT{0, 0};
        const xTClientDC client(window->GetSafeHwnd());
        CDC dc;
        if (!dc.Attach(client.get()))
            return POINT{0, 0};
        const int saved = ::SaveDC(client.get());
        table->ApplyAttr(ATTR_TEXT, window, &dc);  // the context is fresh; a line that nobody classes is plain text
        POINT point = caret_pixel(hook, topLine, window, &dc, table, offset);
        ::RestoreDC(client.get(), saved);
        if (below)
            point.y += table->m_charHeight;
        return point;
    });
}
