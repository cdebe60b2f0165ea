#include "store/MemStor.h"

#include "diagnostics/Guarded.h"
#include "store/LineCutter.h"
#include "store/WideScan.h"
#include "zsl/text_file_stream.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

// The most characters that a text may grow to when its tabs become spaces.
constexpr std::size_t expansionLimit = std::size_t{1} << 30;

WString ExpandTabs(WStrView text, std::int32_t spaces, std::size_t limit)
{
    const auto width = static_cast<std::size_t>(spaces);
    const auto tabs = static_cast<std::size_t>(std::count(text.begin(), text.end(), _T('\t')));
    const std::size_t length = text.size() - tabs + tabs * width;
    if (length > limit)
        throw std::bad_alloc();
    WString expanded(length, _T(' '));
    auto to = expanded.begin();
    for (const WCHAR ch : text) {
        if (ch == _T('\t'))
            to += static_cast<std::ptrdiff_t>(width);
        else
            *to++ = ch;
    }
    return expanded;
}

}  // namespace

void xTMemStorage::reset()
{
    lines.RemoveAll();
    selection = {};
    caret = {0, 0};
    stale = {};
    m_hadLongLine = false;
}

bool xTMemStorage::load_text(const WCHAR* text, std::int32_t length)
{
    return Guarded(false, [&] {
        reset();
        if (!text || length == 0)
            return true;
        const xTTextFacts facts = SurveyText(text, loadLimit);
        const WStrView source(text, facts.length);
        // Before the lines come: those of a load that fails half way must not count as marked.
        comments_valid = false;
        xTStringSlabs slabs;
        if (facts.hasTab && attribs && !attribs->m_keepTabs) {
            const WString expanded = ExpandTabs(source, attribs->TabSpaces(), expansionLimit);
            lines.Reserve(SurveyText(expanded.c_str(), loadLimit).lines);
            cut_lines(expanded, slabs);
        } else {
            lines.Reserve(facts.lines);
            cut_lines(source, slabs);
        }
        finish_load(facts.hasStar);
        return true;
    });
}

bool xTMemStorage::load_text(zsl::text_file_stream& file)
{
    return Guarded(false, [&] {
        reset();
        comments_valid = false;
        lines.Reserve(static_cast<std::int64_t>(file.feeds()) + 1);
        xTStringSlabs slabs;
        std::size_t left = expansionLimit;
        bool hasStar = false;
        for (WStrView piece = file.read_piece(); !piece.empty(); piece = file.read_piece()) {
            hasStar = hasStar || FindUnit(piece, _T('*'), 0) < piece.size();
            if (attribs && !attribs->m_keepTabs && FindUnit(piece, _T('\t'), 0) < piece.size()) {
                const WString expanded = ExpandTabs(piece, attribs->TabSpaces(), left);
                left -= expanded.size();
                cut_lines(expanded, slabs);
            } else {
                left -= std::min(left, piece.size());
                cut_lines(piece, slabs);
            }
        }
        finish_load(hasStar);
        return true;
    });
}

// Appends the lines of a text.
void xTMemStorage::cut_lines(WStrView text, xTStringSlabs& slabs)
{
    xTLineCutter cutter(text, loadLimit);
    for (WStrView piece; cutter.Next(piece);) {
        // A load has made room for a line to each line feed. Of long runs there are more.
        if (lines.GetSize() == lines.GetCapacity()) [[unlikely]]
            lines.Reserve(lines.GetSize() + lines.GetSize() / 4 + 1);
        lines.Add(xTExtString(slabs.Carve(piece, text.size() - static_cast<std::size_t>(piece.data() - text.data()))));
    }
}

void xTMemStorage::finish_load(bool hasStar)
{
    if (hasStar)
        rescan_comments();
    else
        finish_rescan(true);  // new lines hold no marks, and without a star there is no comment to find
}

bool xTMemStorage::save_file(const WCHAR* path, std::uint32_t encoding)
{
    return save_file(path, zsl::encoding_of_code(encoding));
}

bool xTMemStorage::save_file(const WCHAR* path, const zsl::text_encoding& encoding)
{
    return Guarded(false, [&] {
        if (!path)
            return false;
        zsl::text_file_stream file(path, zsl::file_stream_mode::write, encoding);
        if (!file.is_open())
            return false;
        for (std::int32_t line = 0; line < line_count(); ++line) {
            if (line > 0)
                file.write_char(_T('\n'));  // between lines: none follows the last one
            file.write(lines[line].m_text);
        }
        // Only the close puts the new file in the place of the old one; a failure before it leaves that as it was.
        return file.flush() && file.close();
    });
}

void xTMemStorage::copy_from(const xTMemStorage& other)
{
    Guarded([&] {
        if (this == &other)
            return;
        set_caret_raw(other.caret);
        lines.RemoveAll();
        comments_valid = other.comments_valid;
        exec_line = other.exec_line;
        stale = {};
        lines.Reserve(other.lines.GetSize());
        for (std::int32_t i = 0; i < other.line_count(); ++i)
            lines.Add(other.lines[i]);
        stale = other.stale;
        m_hadLongLine = other.m_hadLongLine;
    });
}

void xTMemStorage::drop_selection()
{
    if (has_selection() && wnd)
        wnd->Invalidate();
    selection = {};
}

void xTMemStorage::drop_anchor()
{
    drop_selection();
    selection.anchor = caret;
}

std::int32_t xTMemStorage::selected_text(CString& text)
{
    return get_text(selection.first, selection.last, text);
}

void xTMemStorage::select_range(const xTPos& a, const xTPos& b)
{
    // Copies first: an argument may be a bound of this very selection.
    const bool inOrder = a < b;
    const xTPos start = inOrder ? a : b;
    const xTPos behind = inOrder ? b : a;
    selection.first = start;
    selection.last = xTPos(behind.line, behind.col - 1);  // behind column 0 stands -1: the break before it is the last
}

void xTMemStorage::clear_selection()
{
    if (!has_selection())
        return;
    selection.first = xTPos::none;
    selection.last = xTPos::none;
    if (wnd)
        wnd->Invalidate();
}

void xTMemStorage::mark_selection(xTExtString& copy, std::int32_t line)
{
    const bool within = first().line <= line && line <= last().line;
    if (copy.m_text.IsEmpty()) {
        if (within && !has_selection())
            selection.first = selection.last = xTPos::none;
        else if (within)
            copy.m_flags = 0;
        return;
    }
    if (!within || !has_selection())
        return;
    const std::int32_t from = first().line == line ? first().col : 0;
    const std::int32_t to = last().line == line ? last().col + 1 : copy.GetLength();
    copy.MarkSelectedRun(from, to);
}
