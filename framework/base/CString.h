#pragma once

#include "framework/base/WinTypes.h"

#include <atomic>
#include <compare>

class xTStringSlabs;

/// A wide string with value semantics, one pointer wide. Copies share one counted buffer until one of them is changed;
/// a copy costs no allocation. Lengths and indexes are in characters (16-bit units). A terminator always follows the
/// text. Reading or writing an element outside the text raises CInvalidArgException; running out of memory raises
/// std::bad_alloc and leaves the string as it was.
class CString {
public:
    CString() noexcept : m_text(EmptyText()) {}
    CString(WStrView text);           // NOLINT(google-explicit-constructor): a text is a string
    CString(const WCHAR* text);       // NOLINT(google-explicit-constructor): null counts as empty
    CString(WCHAR ch, std::int32_t count);  ///< `count` times `ch`; below 1 gives the empty string
    CString(const CString& other) noexcept : m_text(other.m_text) { AddRef(); }
    CString(CString&& other) noexcept : m_text(other.m_text) { other.m_text = EmptyText(); }
    CString& operator=(const CString& other) noexcept;
    CString& operator=(CString&& other) noexcept;
    ~CString() { Release(); }

    [[nodiscard]] std::int32_t GetLength() const noexcept { return Header()->length; }
    [[nodiscard]] bool IsEmpty() const noexcept { return GetLength() == 0; }
    [[nodiscard]] const WCHAR* c_str() const noexcept { return m_text; }
    [[nodiscard]] WStrView view() const noexcept { return {m_text, static_cast<std::size_t>(GetLength())}; }
    operator WStrView() const noexcept { return view(); }  // NOLINT(google-explicit-constructor)
    [[nodiscard]] WCHAR GetAt(std::int32_t index) const;
    [[nodiscard]] WCHAR operator[](std::int32_t index) const { return GetAt(index); }

    void Empty() noexcept;
    void SetAt(std::int32_t index, WCHAR ch);
    CString& Append(WStrView text);
    CString& AppendChar(WCHAR ch);
    CString& operator+=(WStrView text) { return Append(text); }
    CString& operator+=(WCHAR ch) { return AppendChar(ch); }

    /// Inserts at `index`; below 0 counts as 0, past the end as the end.
    /// @return the new length
    std::int32_t Insert(std::int32_t index, WCHAR ch);
    std::int32_t Insert(std::int32_t index, WStrView text);

    /// Removes at most `count` characters from `index` on; an index outside the text or a count below 1 removes nothing.
    /// @return the new length
    std::int32_t Delete(std::int32_t index, std::int32_t count = 1);

    /// Replaces all occurrences from left to right.
    /// @return how many there were; an empty `old` has none
    std::int32_t Replace(WStrView old, WStrView replacement);

    /// @return the index of the first hit at or behind `start` (below 0 counts as 0), -1 when there is none
    [[nodiscard]] std::int32_t Find(WCHAR ch, std::int32_t start = 0) const noexcept;
    [[nodiscard]] std::int32_t Find(WStrView text, std::int32_t start = 0) const noexcept;
    [[nodiscard]] std::int32_t FindOneOf(WStrView set, std::int32_t start = 0) const noexcept;

    /// The part from `from` on, at most `count` characters; both are clipped to the text. The whole text shares the buffer.
    [[nodiscard]] CString Mid(std::int32_t from, std::int32_t count) const;
    [[nodiscard]] CString Mid(std::int32_t from) const { return Mid(from, GetLength()); }
    [[nodiscard]] CString Left(std::int32_t count) const { return Mid(0, count); }

    /// The characters for change in place; the buffer is this string's own afterwards. `GetLength()` of them may be
    /// written, the terminator behind them may not.
    [[nodiscard]] WCHAR* OwnBuffer();

    /// True when both strings share one buffer: for tests of what a copy costs.
    [[nodiscard]] bool SharesBufferWith(const CString& other) const noexcept { return m_text == other.m_text; }

    friend bool operator==(const CString& a, const CString& b) noexcept
    {
        return a.m_text == b.m_text || a.view() == b.view();
    }
    friend bool operator==(const CString& a, WStrView b) noexcept { return a.view() == b; }
    friend bool operator==(const CString& a, const WCHAR* b) noexcept { return a.view() == WStrView(b); }
    friend auto operator<=>(const CString& a, const CString& b) noexcept { return a.view() <=> b.view(); }

private:
    friend class xTStringSlabs;

    // Stands right before the characters. Twelve bytes, so that a loaded line of 33 characters costs 80 bytes in all.
    struct xTHeader {
        std::atomic<std::uint32_t> refs;
        std::int32_t length;
        std::int32_t capacity;  // room in characters without the terminator; inSlab for a buffer carved out of a slab
    };
    static constexpr std::int32_t inSlab = -1;

    struct xTEmpty {
        xTHeader header;
        WCHAR terminator;
    };
    static xTEmpty s_empty;  // never counted: all empty strings point here

    static WCHAR* EmptyText() noexcept { return &s_empty.terminator; }
    [[nodiscard]] xTHeader* Header() const noexcept { return reinterpret_cast<xTHeader*>(m_text) - 1; }

    explicit CString(WCHAR* adopted, int) noexcept : m_text(adopted) {}
    void AddRef() const noexcept
    {
        if (m_text != EmptyText())
            Header()->refs.fetch_add(1, std::memory_order_relaxed);
    }
    void Release() noexcept;
    static WCHAR* NewBuffer(std::int32_t length, std::int32_t capacity);
    static void FreeBuffer(WCHAR* text) noexcept;
    WCHAR* Prepare(std::int32_t newLength, std::int32_t keep);
    WCHAR* OpenGap(std::int32_t index, std::int32_t count);

    WCHAR* m_text;
};

/// Carves the buffers of many strings out of large blocks, so that a load makes no heap block per line. A block goes
/// when the last string in it has gone. A string that is changed gets a buffer of its own.
class xTStringSlabs {
public:
    xTStringSlabs() = default;
    xTStringSlabs(const xTStringSlabs&) = delete;
    xTStringSlabs& operator=(const xTStringSlabs&) = delete;
    ~xTStringSlabs();

    /// A string of `text`; a text too long for a block gets a buffer of its own.
    [[nodiscard]] CString Carve(WStrView text);

    /// Bytes of all blocks now alive in the process, for tests and figures.
    [[nodiscard]] static std::size_t LiveBytes() noexcept;

private:
    friend class CString;
    struct xTSlab;
    static void DropOne(xTSlab* slab) noexcept;
    static xTSlab* SlabOf(const void* place) noexcept;

    xTSlab* m_slab = nullptr;
    std::size_t m_used = 0;
};

/// `length` times `ch`, shared by all who ask for the same: the attribute words of untouched lines.
/// Lengths up to 512 are kept for the life of the process, longer ones are made at each call.
/// @param ch 0x0001 or 0x0005; any other character is served but not kept
[[nodiscard]] CString SharedRun(WCHAR ch, std::int32_t length);
