#include "tests/support/MarkedText.h"

void GivenMarked(xTMemStorage& store, WStrView marked)
{
    store.reset();
    xTPos first = xTPos::none;
    xTPos behind = xTPos::none;
    xTPos caret;
    WString text;
    const auto storeLine = [&] {
        store.lines.Add(xTExtString(WStrView(text)));
        text.clear();
    };
    for (const WCHAR ch : marked) {
        const xTPos here(store.line_count(), static_cast<std::int32_t>(text.size()));
        switch (ch) {
        case _T('|'): caret = here; break;
        case _T('['): first = here; break;
        case _T(']'): behind = here; break;
        case _T('\n'): storeLine(); break;
        default: text += ch;
        }
    }
    storeLine();
    if (first != xTPos::none && behind != xTPos::none)
        store.select_range(first, behind);
    store.set_caret_raw(caret);
    store.comments_valid = false;
    store.rescan_comments();
}

WString Marked(const xTMemStorage& store)
{
    xTPos behind = xTPos::none;
    if (store.has_selection()) {
        behind = xTPos(store.last().line, store.last().col + 1);
        if (behind.col > store.line_length(behind.line))
            behind = xTPos(behind.line + 1, 0);
    }
    WString marked;
    const auto addMarks = [&](const xTPos& here) {
        if (here == behind)
            marked += _T(']');
        if (here == store.caret)
            marked += _T('|');
        if (store.has_selection() && here == store.first())
            marked += _T('[');
    };
    for (std::int32_t line = 0; line < store.line_count(); ++line) {
        const WStrView text = store.lines[line].m_text;
        for (std::size_t col = 0; col < text.size(); ++col) {
            addMarks(xTPos(line, static_cast<std::int32_t>(col)));
            marked += text[col];
        }
        addMarks(xTPos(line, static_cast<std::int32_t>(text.size())));
        if (line + 1 < store.line_count())
            marked += _T('\n');
    }
    return marked;
}
