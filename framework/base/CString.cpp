#include "framework/base/CString.h"

#include "framework/base/Exceptions.h"
#include "framework/base/Platform.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <memory>
#include <new>

namespace {

constexpr std::size_t slabBytes = 64 * 1024;  // a block's size and its alignment: a buffer finds its block by its address

std::atomic<std::size_t> liveSlabs{0};

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

std::int32_t LengthOf(WStrView text)
{
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()) / 4)
        throw std::bad_alloc();
    return static_cast<std::int32_t>(text.size());
}

}  // namespace

constinit CString::xTEmpty CString::s_empty{{{1}, 0, 0}, 0};

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
    m_text = NewBuffer(count, count);
    std::fill_n(m_text, count, ch);
}

CString& CString::operator=(const CString& other) noexcept
{
    other.AddRef();
    Release();
    m_text = other.m_text;
    return *this;
}

CString& CString::operator=(CString&& other) noexcept
{
    std::swap(m_text, other.m_text);
    return *this;
}

void CString::Release() noexcept
{
    if (m_text == EmptyText())
        return;
    // Sole owners, the common case, need no locked instruction.
    auto& refs = Header()->refs;
    if (refs.load(std::memory_order_acquire) == 1 || refs.fetch_sub(1, std::memory_order_acq_rel) == 1)
        FreeBuffer(m_text);
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
    auto* header = reinterpret_cast<xTHeader*>(text) - 1;
    if (header->capacity == inSlab)
        xTStringSlabs::DropOne(xTStringSlabs::SlabOf(header));
    else
        ::operator delete(header);
}

// Makes the buffer this string's own with room for `newLength` characters, the first `keep` of them kept, and sets the
// length. Room grows by a quarter, so that appending character by character stays linear.
WCHAR* CString::Prepare(std::int32_t newLength, std::int32_t keep)
{
    if (newLength == 0) {
        Empty();
        return m_text;
    }
    if (m_text != EmptyText() && Header()->refs.load(std::memory_order_acquire) == 1 && Header()->capacity >= newLength) {
        Header()->length = newLength;
        m_text[newLength] = 0;
        return m_text;
    }
    const std::int32_t capacity = newLength > GetLength() && !IsEmpty() ? newLength + newLength / 4 : newLength;
    WCHAR* text = NewBuffer(newLength, capacity);
    CopyText(text, m_text, keep);
    Release();
    m_text = text;
    return m_text;
}

// Makes room for `count` characters before `index`, which must lie in the text.
WCHAR* CString::OpenGap(std::int32_t index, std::int32_t count)
{
    const std::int32_t length = GetLength();
    if (count > std::numeric_limits<std::int32_t>::max() / 4 - length)
        throw std::bad_alloc();
    Prepare(length + count, length);
    MoveText(m_text + index + count, m_text + index, length - index);
    return m_text + index;
}

WCHAR CString::GetAt(std::int32_t index) const
{
    if (index < 0 || index >= GetLength()) [[unlikely]]
        ThrowInvalidArgException();
    return m_text[index];
}

void CString::Empty() noexcept
{
    Release();
    m_text = EmptyText();
}

void CString::SetAt(std::int32_t index, WCHAR ch)
{
    if (index < 0 || index >= GetLength()) [[unlikely]]
        ThrowInvalidArgException();
    OwnBuffer()[index] = ch;
}

WCHAR* CString::OwnBuffer()
{
    return Prepare(GetLength(), GetLength());
}

CString& CString::Append(WStrView text)
{
    Insert(GetLength(), text);
    return *this;
}

CString& CString::AppendChar(WCHAR ch)
{
    *OpenGap(GetLength(), 1) = ch;
    return *this;
}

std::int32_t CString::Insert(std::int32_t index, WCHAR ch)
{
    *OpenGap(std::clamp(index, 0, GetLength()), 1) = ch;
    return GetLength();
}

std::int32_t CString::Insert(std::int32_t index, WStrView text)
{
    const CString source = *this;  // `text` may lie in this very buffer
    const std::int32_t count = LengthOf(text);
    if (count > 0)
        CopyText(OpenGap(std::clamp(index, 0, GetLength()), count), text.data(), count);
    return GetLength();
}

std::int32_t CString::Delete(std::int32_t index, std::int32_t count)
{
    const std::int32_t length = GetLength();
    if (index < 0 || index >= length || count < 1)
        return length;
    const std::int32_t removed = std::min(count, length - index);
    Prepare(length, length);
    MoveText(m_text + index, m_text + index + removed, length - index - removed);
    Prepare(length - removed, length - removed);
    return GetLength();
}

std::int32_t CString::Replace(WStrView old, WStrView replacement)
{
    if (old.empty())
        return 0;
    const std::int32_t oldLength = LengthOf(old);
    std::int32_t hits = 0;
    for (std::int32_t at = Find(old); at >= 0; at = Find(old, at + oldLength))
        ++hits;
    if (hits == 0)
        return 0;
    const std::int64_t length = GetLength() + hits * (static_cast<std::int64_t>(replacement.size()) - oldLength);
    if (length > std::numeric_limits<std::int32_t>::max() / 4)
        throw std::bad_alloc();
    CString result;
    WCHAR* to = result.Prepare(static_cast<std::int32_t>(length), 0);
    std::int32_t from = 0;
    for (std::int32_t at = Find(old); at >= 0; at = Find(old, from)) {
        CopyText(to, m_text + from, at - from);
        CopyText(to + (at - from), replacement.data(), LengthOf(replacement));
        to += at - from + LengthOf(replacement);
        from = at + oldLength;
    }
    CopyText(to, m_text + from, GetLength() - from);
    std::swap(m_text, result.m_text);
    return hits;
}

std::int32_t CString::Find(WCHAR ch, std::int32_t start) const noexcept
{
    return static_cast<std::int32_t>(view().find(ch, static_cast<std::size_t>(std::max(start, 0))));
}

std::int32_t CString::Find(WStrView text, std::int32_t start) const noexcept
{
    return static_cast<std::int32_t>(view().find(text, static_cast<std::size_t>(std::max(start, 0))));
}

std::int32_t CString::FindOneOf(WStrView set, std::int32_t start) const noexcept
{
    return static_cast<std::int32_t>(view().find_first_of(set, static_cast<std::size_t>(std::max(start, 0))));
}

CString CString::Mid(std::int32_t from, std::int32_t count) const
{
    const std::int32_t begin = std::clamp(from, 0, GetLength());
    const std::int32_t length = std::clamp(count, 0, GetLength() - begin);
    if (length == GetLength())
        return *this;
    return CString(view().substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(length)));
}

// The head of a block; the buffers follow it.
struct xTStringSlabs::xTSlab {
    std::atomic<std::uint32_t> live;  // buffers in use, plus one while the block is being filled
};

xTStringSlabs::xTSlab* xTStringSlabs::SlabOf(const void* place) noexcept
{
    return reinterpret_cast<xTSlab*>(reinterpret_cast<std::uintptr_t>(place) & ~(slabBytes - 1));
}

xTStringSlabs::~xTStringSlabs()
{
    if (m_slab)
        DropOne(m_slab);
}

void xTStringSlabs::DropOne(xTSlab* slab) noexcept
{
    if (slab->live.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    liveSlabs.fetch_sub(1, std::memory_order_relaxed);
    PlatformFreePages(slab, slabBytes);
}

CString xTStringSlabs::Carve(WStrView text)
{
    if (text.empty())
        return {};
    const auto wanted = sizeof(CString::xTHeader) + (text.size() + 1) * sizeof(WCHAR);
    const auto bytes = (wanted + alignof(CString::xTHeader) - 1) & ~(alignof(CString::xTHeader) - 1);
    if (bytes > slabBytes / 8)
        return CString(text);
    if (!m_slab || bytes > slabBytes - m_used) {
        void* pages = PlatformAllocPages(slabBytes);
        liveSlabs.fetch_add(1, std::memory_order_relaxed);
        if (m_slab)
            DropOne(m_slab);
        m_slab = new (pages) xTSlab{{1}};
        m_used = sizeof(xTSlab);
    }
    auto* header = new (reinterpret_cast<std::byte*>(m_slab) + m_used)
        CString::xTHeader{{1}, static_cast<std::int32_t>(text.size()), CString::inSlab};
    m_slab->live.fetch_add(1, std::memory_order_relaxed);
    m_used += bytes;
    auto* characters = reinterpret_cast<WCHAR*>(header + 1);
    CopyText(characters, text.data(), header->length);
    characters[header->length] = 0;
    return CString(characters, 0);
}

std::size_t xTStringSlabs::LiveBytes() noexcept
{
    return liveSlabs.load(std::memory_order_relaxed) * slabBytes;
}

namespace {

// The shared runs of one character, made when first asked for. Reading one takes no lock: controls may live on several
// threads, and a load asks once a line.
class xTRuns {
public:
    static constexpr std::int32_t longest = 512;

    constexpr explicit xTRuns(WCHAR ch) noexcept : m_ch(ch) {}
    xTRuns(const xTRuns&) = delete;
    xTRuns& operator=(const xTRuns&) = delete;
    ~xTRuns()
    {
        for (auto& run : m_runs)
            delete run.load(std::memory_order_relaxed);
    }

    const CString& Get(std::int32_t length)
    {
        auto& run = m_runs[static_cast<std::size_t>(length)];
        if (const CString* made = run.load(std::memory_order_acquire))
            return *made;
        auto fresh = std::make_unique<CString>(m_ch, length);
        CString* expected = nullptr;
        if (run.compare_exchange_strong(expected, fresh.get(), std::memory_order_acq_rel))
            return *fresh.release();
        return *expected;
    }

private:
    WCHAR m_ch;
    std::array<std::atomic<CString*>, longest + 1> m_runs{};
};

constinit xTRuns plainRuns{0x0001};
constinit xTRuns commentRuns{0x0005};

}  // namespace

CString SharedRun(WCHAR ch, std::int32_t length)
{
    if (length < 1 || length > xTRuns::longest || (ch != 0x0001 && ch != 0x0005))
        return {ch, length};
    return (ch == 0x0001 ? plainRuns : commentRuns).Get(length);
}
