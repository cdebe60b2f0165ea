#include "editing/KeyConversion.h"
#include "framework/base/Exceptions.h"
#include "framework/base/Platform.h"
#include "store/MemStor.h"

#include <algorithm>
#include <utility>

// Changes of every line of the selection, or of the characters of a range, in place.

// Without an attribute table the settings are those that a table starts with.
const xTTabSettings& xTMemStorage::tabs() const noexcept
{
    static constexpr xTTabSettings atStart;
    return attribs ? *attribs : atStart;
}

// The frame of the line operations: changes each line of the selection and selects those lines as a whole.
template <typename Change>
void xTMemStorage::change_block(Change change)
{
    const std::int32_t top = first().line;
    const std::int32_t bottom = last().line;
    if (!has_line(top) || !has_line(bottom))
        return;
    for (std::int32_t i = top; i <= bottom; ++i) {
        xTExtString line = lines[i];
        change(line);
        lines[i].copy_data(line);
    }
    note_change(top, bottom);
    const std::int32_t length = line_length(bottom);
    if (top < bottom || (top == bottom && length > 0)) {
        selection.first = {top, 0};
        selection.last = {bottom, length - 1};
    } else {
        selection.last = {top, -1};
        selection.first = {top, length};
    }
    comments_valid = false;
    if (wnd)
        wnd->Invalidate();
    rescan_comments();
}

void xTMemStorage::indent_block()
{
    const bool keepTabs = tabs().m_keepTabs;
    const std::int32_t blanks = keepTabs ? 1 : tabs().TabSpaces();
    change_block([=](xTExtString& line) {
        for (std::int32_t i = 0; i < blanks; ++i)
            line.InsertChar(0, keepTabs ? _T('\t') : _T(' '));
    });
}

void xTMemStorage::unindent_block()
{
    const std::int32_t most = tabs().m_tabSize;
    change_block([=](xTExtString& line) {
        std::int32_t blanks = 0;
        bool tab = false;
        while (blanks < most && !tab && (line.GetAt(blanks) == _T(' ') || line.GetAt(blanks) == _T('\t')))
            tab = line.GetAt(blanks++) == _T('\t');  // a tab behind some spaces goes too and ends it
        line.DeleteSubString(0, blanks);
    });
}

void xTMemStorage::comment_block(bool remove)
{
    change_block([=](xTExtString& line) {
        if (!remove) {
            line.InsertChar(0, _T('/'));  // blank lines get the mark too
            line.InsertChar(0, _T('/'));
        } else if (const std::int32_t at = line.FindLeadingLineComment(); at >= 0) {
            line.DeleteSubString(at, 2);
        }
    });
}

namespace {

// Converts the characters from `start` up to `end`, both brought into the line. The new ones have base attributes.
// Returns false when the line has lost them: it must not be put back.
template <typename Convert>
[[nodiscard]] bool ConvertPart(xTExtString& line, std::int32_t start, std::int32_t end, Convert convert)
{
    const std::int32_t length = line.GetLength();
    const std::int32_t from = std::clamp(start, 0, length);
    const std::int32_t count = std::clamp(end, from, length) - from;
    CString part = line.m_text.Mid(from, count);
    convert(part);
    line.DeleteSubString(from, count);
    if (count > 0 && line.GetLength() == length)
        ThrowMemoryException();  // the line is a copy: the one in the text stays as it is
    // At the column as it was given: one outside the line goes to its end or start, but lies in no comment.
    line.InsertSubString(start, xTExtString(std::move(part)));
    return line.GetLength() == length;  // where there was no room for it, the user has been told
}

void ConvertToCase(CString& text, bool upper)
{
    (upper ? PlatformUpperCase : PlatformLowerCase)(text.OwnBuffer(), text.GetLength());
}

}  // namespace

void xTMemStorage::change_case(bool upper, const xTPos& from, const xTPos& to)
{
    const xTPosRange range{from, to};  // copies: the arguments may be the bounds of the selection
    for (std::int32_t i = range.first.line; i <= range.last.line; ++i) {
        xTExtString line = lines[i];
        const std::int32_t start = i == range.first.line ? range.first.col : 0;
        const std::int32_t end = i == range.last.line ? range.last.col + 1 : line.GetLength();
        if (ConvertPart(line, start, end, [=](CString& part) { ConvertToCase(part, upper); }))
            lines[i].copy_data(line);
        note_change(i, i);
    }
    if (wnd)
        wnd->NotifyHost(true, 0);
}

void xTMemStorage::switch_layout(const xTPos& from, const xTPos& to)
{
    const xTPosRange range{from, to};
    const xTKeyLayout source = PlatformKeyLayout();
    // The next layout stays in use: after mending the text the user goes on typing on the right one.
    PlatformNextKeyLayout();
    const xTKeyLayout target = PlatformKeyLayout();
    const auto retype = [=](CString& part) {
        WCHAR* text = part.OwnBuffer();
        std::transform(text, text + part.GetLength(), text, [=](WCHAR ch) { return convert_key_char(ch, source, target); });
    };
    for (std::int32_t i = range.first.line; i <= range.last.line; ++i) {
        xTExtString line = lines[i];
        const std::int32_t length = line.GetLength();
        const std::int32_t start = i == range.first.line && range.first.col <= length ? range.first.col : 0;
        const std::int32_t end = i == range.last.line && range.last.col < length ? range.last.col + 1 : length;
        if (ConvertPart(line, start, end, retype))
            lines[i].copy_data(line);
        note_change(i, i);
    }
    if (wnd)
        wnd->NotifyHost(true, 0);
}
