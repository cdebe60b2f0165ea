#include "framework/base/CString.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace {

void CopyText(WCHAR* to, const WCHAR* from, std::int32_t count) noexcept
{
    if (count > 0)
        std::memcpy(to, from, static_cast<std::size_t>(count) * sizeof(WCHAR));
}

void MoveText(WCHAR* to, const WCHAR* from, std::int32_t count) noexcept
{
    if (count > 0)
        std::memmove(to, from, static_cast<std::size_t>(count) * sizeof(WCHAR));
}

// Some room is left below the largest number, for the header's sake and for that of sums.
constexpr std::int64_t longestText = std::numeric_limits<std::int32_t>::max() - 64;

std::int32_t CheckedLength(std::int64_t length)
{
    if (length < 0 || length > longestText)
        throw std::bad_alloc();
    return static_cast<std::int32_t>(length);
}

std::int32_t LengthOf(WStrView text)
{
    return CheckedLength(static_cast<std::int64_t>(std::min(text.size(), static_cast<std::size_t>(longestText) + 1)));
}

// The room of a text that grows in its own buffer. A quarter more than asked for, so that appending character by
// character stays linear; a text that is changed for the first time gets its exact room instead.
std::int32_t GrownRoom(std::int32_t length) noexcept
{
    return static_cast<std::int32_t>(std::min<std::int64_t>(longestText, length + std::max<std::int64_t>(8, length / 4)));
}

}  // namespace

constinit CString::xTEmpty CString::s_empty{{{1}, 0, CString::forever}, 0};

CString::CString(WStrView text) : m_text(EmptyText())
{
    if (text.empty())
        return;
    const std::int32_t length = LengthOf(text);
    m_text = NewBuffer(length, length);
    CopyText(m_text, text.data(), length);
}

CString::CString(const WCHAR* text) : CString(text ? WStrView(text) : WStrView()) {}

CString::CString(WCHAR ch, std::int32_t count) : m_text(EmptyText())
{
    if (count < 1)
        return;
    m_text = NewBuffer(CheckedLength(count), count);
    std::fill_n(m_text, count, ch);
}

CString CString::Unwritten(std::int32_t length, std::int32_t room)
{
    return {NewBuffer(length, CheckedLength(std::int64_t{length} + room)), xTAdopt{}};
}

void CString::ReleaseCounted(WCHAR* text) noexcept
{
    // Sole owners, the common case, need no locked instruction.
    auto& refs = HeaderOf(text)->refs;
    if (refs.load(std::memory_order_acquire) == 1 || refs.fetch_sub(1, std::memory_order_acq_rel) == 1)
        FreeBuffer(text);
}

WCHAR* CString::NewBuffer(std::int32_t length, std::int32_t capacity)
{
    const auto bytes = sizeof(xTHeader) + (static_cast<std::size_t>(capacity) + 1) * sizeof(WCHAR);
    auto* header = new (::operator new(bytes)) xTHeader{{1}, length, capacity};
    auto* text = reinterpret_cast<WCHAR*>(header + 1);
    text[length] = 0;
    return text;
}

void CString::FreeBuffer(WCHAR* text) noexcept
{
    auto* header = HeaderOf(text);
    if (header->capacity == inSlab)
        xTStringSlabs::DropFrom(xTStringSlabs::SlabOf(header), 1);
    else
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): buffers that live for ever never come here.
        ::operator delete(header);
}

// True when `text` lies in this very buffer, which a change would move away under it.
bool CString::HoldsText(WStrView text) const noexcept
{
    const auto place = reinterpret_cast<std::uintptr_t>(text.data());
    const auto begin = reinterpret_cast<std::uintptr_t>(m_text);
    return place >= begin && place <= reinterpret_cast<std::uintptr_t>(m_text + GetLength());
}

// The one way in which a text changes: `removed` characters at `index`, which must lie in the text, give way to room
// for `added` others, in a buffer that is this string's own.
// Returns the place of the room, whose characters are for the caller to write.
WCHAR* CString::Splice(std::int32_t index, std::int32_t removed, std::int32_t added)
{
    const std::int32_t oldLength = GetLength();
    const std::int32_t length = CheckedLength(static_cast<std::int64_t>(oldLength) - removed + added);
    const std::int32_t tail = oldLength - index - removed;
    if (length == 0) {
        Empty();
        return m_text;
    }
    const std::int32_t capacity = Header()->capacity;
    const bool own = capacity >= 0 && Header()->refs.load(std::memory_order_acquire) == 1;
    if (own && capacity >= length) {
        MoveText(m_text + index + added, m_text + index + removed, tail);
        Header()->length = length;
        m_text[length] = 0;
        return m_text + index;
    }
    WCHAR* text = NewBuffer(length, own ? GrownRoom(length) : length);
    CopyText(text, m_text, index);
    CopyText(text + index + added, m_text + index + removed, tail);
    Release();
    m_text = text;
    return m_text + index;
}

std::int32_t CString::Insert(std::int32_t index, WCHAR ch)
{
    *Splice(std::clamp(index, 0, GetLength()), 0, 1) = ch;
    return GetLength();
}

std::int32_t CString::Insert(std::int32_t index, WStrView text)
{
    return text.empty() ? GetLength() : Exchange(index, 0, text);
}

std::int32_t CString::Exchange(std::int32_t index, std::int32_t count, WStrView text)
{
    const std::int32_t at = std::clamp(index, 0, GetLength());
    const std::int32_t removed = std::clamp(count, 0, GetLength() - at);
    const std::int32_t added = LengthOf(text);
    const CString source = HoldsText(text) ? *this : CString();  // keeps `text` where it is
    CopyText(Splice(at, removed, added), text.data(), added);
    return GetLength();
}

std::int32_t CString::Delete(std::int32_t index, std::int32_t count)
{
    if (index >= 0 && index < GetLength() && count > 0)
        Splice(index, std::min(count, GetLength() - index), 0);
    return GetLength();
}

std::int32_t CString::Replace(WStrView old, WStrView replacement)
{
    if (old.empty())
        return 0;
    std::int64_t hits = 0;
    for (auto at = view().find(old); at != WStrView::npos; at = view().find(old, at + old.size()))
        ++hits;
    if (hits == 0)
        return 0;
    const std::int32_t oldLength = LengthOf(old);
    const std::int32_t newLength = LengthOf(replacement);
    CString result;
    WCHAR* to = result.Splice(0, 0, CheckedLength(GetLength() + hits * (std::int64_t{newLength} - oldLength)));
    std::int32_t from = 0;
    for (std::int32_t at = Find(old); at >= 0; at = Find(old, from)) {
        CopyText(to, m_text + from, at - from);
        CopyText(to + (at - from), replacement.data(), newLength);
        to += at - from + newLength;
        from = at + oldLength;
    }
    CopyText(to, m_text + from, GetLength() - from);
    std::swap(m_text, result.m_text);
    return static_cast<std::int32_t>(hits);
}

std::int32_t CString::Find(WCHAR ch, std::int32_t start) const noexcept
{
    return static_cast<std::int32_t>(view().find(ch, static_cast<std::size_t>(std::max(start, 0))));
}

std::int32_t CString::Find(WStrView text, std::int32_t start) const noexcept
{
    return static_cast<std::int32_t>(view().find(text, static_cast<std::size_t>(std::max(start, 0))));
}

CString CString::Mid(std::int32_t from, std::int32_t count) const
{
    const std::int32_t begin = std::clamp(from, 0, GetLength());
    const std::int32_t length = std::clamp(count, 0, GetLength() - begin);
    if (length == GetLength())
        return *this;
    return view().substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(length));
}

