#include "store/MyStr.h"

#include "diagnostics/comdefines.h"
#include "framework/base/Exceptions.h"
#include "framework/base/Platform.h"
#include "store/WideScan.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

constexpr WCHAR attrInside = xTExtString::attrComment;  // a character typed inside a comment lacks the base bit

WString Decimal(std::int32_t number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

// Sets and clears bits of the words from `from` up to `to`, which lie in the string.
void ChangeBits(CString& attrs, std::int32_t from, std::int32_t to, WCHAR set, WCHAR clear)
{
    WCHAR* words = attrs.OwnBuffer();
    for (std::int32_t i = from; i < to; ++i)
        words[i] = static_cast<WCHAR>((words[i] & ~clear) | set);
}

// True when each word is `word`. Most lines share their words with all others of their length: those are told at a glance.
bool IsRun(const CString& attrs, WCHAR word)
{
    return IsSharedRun(attrs, word) || AllUnitsAre(attrs, word);
}

// Does the box and swallows the exception in flight: a line that could not grow must not end the typing.
void ShowInsertFailure(const WCHAR* text) noexcept
{
    try {
        throw;
    } catch (CException* e) {
        e->Delete();
    } catch (...) {
        // Nothing is known of it and nothing is logged: the box is the report.
    }
    PlatformMessageBox(text, _T("Memory exception"), xTBoxIcon::error);
}

}  // namespace

xTExtString::xTExtString(CString text) : m_text(std::move(text)), m_attrs(SharedRun(attrBase, m_text.GetLength())) {}

void xTExtString::copy_data(const xTExtString& other) noexcept
{
    if (this == &other)
        return;
    // The counted strings of today cannot fail here; what is promised for a string type that can is kept all the same.
    try {
        m_text = other.m_text;
        m_attrs = other.m_attrs;
        m_flags = other.m_flags;
        m_beganInside = other.m_beganInside;
        m_snapshotLine = other.m_snapshotLine;
    } catch (...) {
        ReportCopyFailure();
    }
}

void xTExtString::ReportCopyFailure() noexcept
{
    try {
        throw;
    } catch (CException* e) {
        constexpr std::int32_t room = 1024;
        WCHAR text[room] = {};
        if (!e->GetErrorMessage(text, room))
            text[0] = 0;
        e->Delete();
        try {
            const WString message = _T("CException*(") + WString(text) + _T(") in xTExtString::copy_data()");
            LogReport(__FILE__, __LINE__, message.c_str());
        } catch (...) {
            LogReport(__FILE__, __LINE__, nullptr);
        }
    } catch (...) {
        LogReport(__FILE__, __LINE__, _T("... in xTExtString::copy_data()"));
    }
}

void xTExtString::Clear() noexcept
{
    m_flags = 0;
    m_beganInside = false;
    m_text.Empty();
    m_attrs.Empty();
    m_snapshotLine = noSnapshot;
}

WCHAR xTExtString::GetAt(std::int32_t ind) const
{
    if (ind < 0 || ind >= GetLength())
        return 0;
    try {
        return m_text.GetAt(ind);
    } catch (...) {
        ReportReadFailure(ind, GetLength());
        throw;
    }
}

void xTExtString::ReportReadFailure(std::int32_t ind, std::int32_t length) noexcept
{
    try {
        const WString message =
            _T("... in xTExtString::GetAt(ind = ") + Decimal(ind) + _T("), len = ") + Decimal(length);
        LogReport(__FILE__, __LINE__, message.c_str());
    } catch (...) {
        LogReport(__FILE__, __LINE__, nullptr);
    }
}

void xTExtString::SetAt(std::int32_t ind, WCHAR ch)
{
    if (ch == 0 || ind < 0 || ind > GetLength())
        return;
    if (ind == GetLength())
        AppendChar(ch);
    else
        m_text.SetAt(ind, ch);
}

xTExtString& xTExtString::AppendChar(WCHAR ch)
{
    m_text.AppendChar(ch);
    m_attrs.AppendChar(attrBase);
    return *this;
}

xTExtString& xTExtString::Append(const xTExtString& other)
{
    m_text.Append(other.m_text);
    m_attrs.Append(other.m_attrs);
    return *this;
}

void xTExtString::InsertChar(std::int32_t pos, WCHAR ch)
{
    if (ch == _T('\n') || ch == 0)
        return;
    const std::int32_t at = std::max(pos, 0);
    try {
        const bool inside = IsInComment(at);
        m_text.Insert(at, ch);
        m_attrs.Insert(at, inside ? attrInside : attrBase);
    } catch (...) {
        ShowInsertFailure(_T("CString::Insert"));
    }
}

void xTExtString::InsertSubString(std::int32_t pos, const xTExtString& sub)
{
    try {
        const bool inside = IsInComment(pos);
        const std::int32_t added = sub.GetLength();  // taken first: `sub` may be this line itself
        m_text.Insert(pos, sub.m_text);
        m_attrs.Insert(pos, sub.m_attrs);
        if (!inside)
            return;
        ChangeBits(m_attrs, pos, std::min(m_attrs.GetLength(), pos + added), attrComment, 0);
        m_flags = static_cast<std::uint16_t>((m_flags | flagHasComment) & ~flagStartsInside);
    } catch (...) {
        ShowInsertFailure(_T("Это очень плохо! xTExtString::InsertSubString. Сообщите разработчикам."));
    }
}

std::int32_t xTExtString::DeleteSubString(std::int32_t pos, std::int32_t count) noexcept
{
    try {
        // A delete aimed at the very end takes from the start of the line: required, and callers avoid it.
        const std::int32_t from = pos < 0 || pos >= GetLength() ? 0 : pos;
        const std::int32_t removed = count == -1 ? GetLength() - from : count;
        m_attrs.Delete(from, removed);
        return m_text.Delete(from, removed);
    } catch (CException* e) {
        e->Delete();
    } catch (...) {
        // Swallowed without a report: the length 0 is the answer.
    }
    return 0;
}

void xTExtString::ReplaceRun(std::int32_t pos, std::int32_t count, CString& text)
{
    const std::int32_t length = text.GetLength();
    if (IsRun(m_attrs, attrBase)) {
        m_attrs = SharedRun(attrBase, length);
    } else {
        const std::int32_t removed = std::clamp(count, 0, GetLength() - pos);
        m_attrs.Exchange(pos, removed, CString(attrBase, length - GetLength() + removed));
    }
    std::swap(m_text, text);
}

std::int32_t xTExtString::ReplaceTabs(WStrView spaces)
{
    if (spaces.find(_T('\t')) != WStrView::npos)
        return 0;  // each replacement would bring a new tab
    const xTExtString piece{spaces};
    // Without memory for all of them the tabs stay: one that is gone with nothing in its place could not be counted.
    xTExtString expanded = *this;
    std::int32_t count = 0;
    std::int32_t length = GetLength();
    // One by one, each asking anew whether it stands in a comment: a tab inside one becomes comment characters.
    for (std::int32_t at = m_text.Find(_T('\t')); at >= 0; at = expanded.m_text.Find(_T('\t'), at)) {
        expanded.DeleteSubString(at, 1);
        expanded.InsertSubString(at, piece);
        length += piece.GetLength() - 1;
        if (expanded.GetLength() != length)
            return 0;
        ++count;
    }
    if (count > 0)
        *this = std::move(expanded);
    return count;
}

xTExtString xTExtString::LeftPart(std::int32_t count) const
{
    xTExtString part;
    part.m_text = m_text.Left(count);
    part.m_attrs = m_attrs.Left(count);
    part.m_flags = m_flags;
    return part;
}

xTExtString xTExtString::RightPart(std::int32_t from) const
{
    xTExtString part;
    part.m_flags = m_flags & flagHasComment;
    part.m_text = m_text.Mid(from);
    part.m_attrs = m_attrs.Mid(from);
    return part;
}

bool xTExtString::IsCommentAt(std::int32_t ind) const
{
    return ind >= 0 && ind < m_attrs.GetLength() && (m_attrs.c_str()[ind] & attrComment) != 0;
}

bool xTExtString::IsInComment(std::int32_t pos) const
{
    const std::int32_t length = GetLength();
    if ((m_flags & flagHasComment) == 0 || pos < 0 || pos > length)
        return false;
    if (length == 0)
        return true;
    const WStrView text = m_text;
    if (pos == 0)
        return length > 1 && IsCommentAt(0) && !text.starts_with(_T("/*"));
    if (pos == length - 1)
        return IsCommentAt(pos - 1);
    if (pos < length)
        return IsCommentAt(pos - 1) && IsCommentAt(pos + 1);
    // At the end: a closing mark is looked for only above column 2.
    return IsCommentAt(pos - 1) && !(pos > 2 && text.ends_with(_T("*/")));
}

void xTExtString::MarkSelected(std::int32_t ind)
{
    if (ind >= 0 && ind < m_attrs.GetLength())
        ChangeBits(m_attrs, ind, ind + 1, attrSelected, 0);
}

void xTExtString::MarkSelectedRun(std::int32_t from, std::int32_t to)
{
    const std::int32_t begin = std::max(from, 0);
    const std::int32_t end = std::min(to, m_attrs.GetLength());
    if (begin < end)
        ChangeBits(m_attrs, begin, end, attrSelected, 0);
}

void xTExtString::UnmarkSelected(std::int32_t ind)
{
    if (IsSelected(ind))
        ChangeBits(m_attrs, ind, ind + 1, 0, attrSelected);
}

bool xTExtString::IsSelected(std::int32_t ind) const
{
    return ind >= 0 && ind < m_attrs.GetLength() && (m_attrs.c_str()[ind] & attrSelected) != 0;
}

void xTExtString::UnmarkAllSelected()
{
    if (AnyUnitHas(m_attrs, attrSelected))
        ChangeBits(m_attrs, 0, m_attrs.GetLength(), 0, attrSelected);
}

void xTExtString::MarkAllComment()
{
    MarkCommentRun(0, GetLength(), true);
}

void xTExtString::UnmarkAllComment()
{
    m_beganInside = false;
    // The words are looked at whatever the flags say, since a join brings marked characters into a line without them.
    if (TurnSharedRun(m_attrs, attrBase | attrComment, attrBase) || IsSharedRun(m_attrs, attrBase) ||
        !AnyUnitHas(m_attrs, attrComment)) {
        // Most lines share their words with others of their length, or hold no mark: a glance is all they cost.
    } else if (IsRun(m_attrs, attrBase | attrComment)) {
        m_attrs = SharedRun(attrBase, m_attrs.GetLength());
    } else {
        ChangeBits(m_attrs, 0, m_attrs.GetLength(), 0, attrComment);
    }
    m_flags = static_cast<std::uint16_t>(m_flags & ~commentFlags);
}

void xTExtString::MarkCommentRun(std::int32_t from, std::int32_t to, bool startsInside)
{
    const std::int32_t begin = std::max(from, 0);
    const std::int32_t end = std::min(to, m_attrs.GetLength());
    const bool whole = begin == 0 && end == m_attrs.GetLength();
    if (whole && TurnSharedRun(m_attrs, attrBase, attrBase | attrComment)) {
        // Nearly every line of a long comment.
    } else if (whole && IsRun(m_attrs, attrBase)) {
        m_attrs = SharedRun(attrBase | attrComment, end);  // a line wholly in a comment owns no words
    } else if (begin < end) {
        ChangeBits(m_attrs, begin, end, attrComment, 0);
    }
    const int own = m_flags & ~flagStartsInside;
    m_flags = static_cast<std::uint16_t>(own | flagHasComment | (startsInside ? flagStartsInside : 0));
    m_beganInside = m_beganInside || startsInside;
}

bool xTExtString::CommentMask(std::uint32_t* mask, std::int32_t count) const
{
    constexpr std::uint32_t commentClass = 16;
    const std::int32_t reach = std::min(count, GetLength());
    if (!mask || reach < 1 || !AnyUnitHas(m_attrs, attrComment))
        return false;
    bool any = false;
    for (std::int32_t i = 0; i < reach; ++i) {
        if (IsCommentAt(i)) {
            mask[i] |= commentClass;
            any = true;
        }
    }
    return any;
}
