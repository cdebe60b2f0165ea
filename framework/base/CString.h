#pragma once

#include "framework/base/Exceptions.h"
#include "framework/base/WinTypes.h"

#include <atomic>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <utility>

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
    CString(WCHAR ch, std::int32_t count);  ///< `count` times `ch`; a count below 1 gives the empty string
    /// A string of `length` characters, at least 1, that the caller has to write through OwnBuffer before any is read.
    /// @param room so many more can be appended without another buffer
    [[nodiscard]] static CString Unwritten(std::int32_t length, std::int32_t room);
    CString(const CString& other) noexcept : m_text(other.m_text) { AddRef(); }
    CString(CString&& other) noexcept : m_text(other.m_text) { other.m_text = EmptyText(); }
    CString& operator=(const CString& other) noexcept
    {
        other.AddRef();
        Release();
        m_text = other.m_text;
        return *this;
    }
    CString& operator=(CString&& other) noexcept  // the old text dies with `other`
    {
        std::swap(m_text, other.m_text);
        return *this;
    }
    ~CString() { Release(); }

    [[nodiscard]] std::int32_t GetLength() const noexcept { return Header()->length; }
    [[nodiscard]] bool IsEmpty() const noexcept { return GetLength() == 0; }
    [[nodiscard]] const WCHAR* c_str() const noexcept { return m_text; }
    [[nodiscard]] WStrView view() const noexcept { return {m_text, static_cast<std::size_t>(GetLength())}; }
    operator WStrView() const noexcept { return view(); }  // NOLINT(google-explicit-constructor)
    [[nodiscard]] WCHAR GetAt(std::int32_t index) const
    {
        CheckIndex(index);
        return m_text[index];
    }
    [[nodiscard]] WCHAR operator[](std::int32_t index) const { return GetAt(index); }

    void Empty() noexcept
    {
        Release();
        m_text = EmptyText();
    }
    void SetAt(std::int32_t index, WCHAR ch)
    {
        CheckIndex(index);
        OwnBuffer()[index] = ch;
    }
    CString& Append(WStrView text)
    {
        Insert(GetLength(), text);
        return *this;
    }
    CString& AppendChar(WCHAR ch)
    {
        *Splice(GetLength(), 0, 1) = ch;
        return *this;
    }
    CString& operator+=(WStrView text) { return Append(text); }
    CString& operator+=(WCHAR ch) { return AppendChar(ch); }

    /// Inserts at `index`; below 0 counts as 0, past the end as the end.
    /// @return the new length
    std::int32_t Insert(std::int32_t index, WCHAR ch);
    std::int32_t Insert(std::int32_t index, WStrView text);

    /// Puts `text` in the place of `count` characters from `index` on; both are clipped to the text.
    /// @return the new length
    std::int32_t Exchange(std::int32_t index, std::int32_t count, WStrView text);

    /// Removes at most `count` characters from `index` on; an index outside the text or a count below 1 removes nothing.
    /// @return the new length
    std::int32_t Delete(std::int32_t index, std::int32_t count = 1);

    /// Replaces all occurrences from left to right.
    /// @return how many there were; an empty `old` has none
    std::int32_t Replace(WStrView old, WStrView replacement);

    /// @return the index of the first hit at or behind `start` (below 0 counts as 0), -1 when there is none
    [[nodiscard]] std::int32_t Find(WCHAR ch, std::int32_t start = 0) const noexcept;
    [[nodiscard]] std::int32_t Find(WStrView text, std::int32_t start = 0) const noexcept;

    /// The part from `from` on, at most `count` characters; both are clipped to the text. The whole text shares the buffer.
    [[nodiscard]] CString Mid(std::int32_t from, std::int32_t count) const;
    [[nodiscard]] CString Mid(std::int32_t from) const { return Mid(from, GetLength()); }
    [[nodiscard]] CString Left(std::int32_t count) const { return Mid(0, count); }

    /// The characters for change in place; the buffer is this string's own afterwards. `GetLength()` of them may be
    /// written, the terminator behind them may not.
    [[nodiscard]] WCHAR* OwnBuffer() { return Splice(0, 0, 0); }

    /// One more owner of the text, as a copy is, for a string that no other thread reads meanwhile: a sole owner needs
    /// no locked instruction then to become one of two.
    [[nodiscard]] CString Share() noexcept
    {
        auto& refs = Header()->refs;
        if (Header()->capacity == forever || refs.load(std::memory_order_relaxed) != 1)
            return *this;
        refs.store(2, std::memory_order_relaxed);
        return {m_text, xTAdopt{}};
    }

    /// True when both strings share one buffer: for tests of what a copy costs.
    [[nodiscard]] bool SharesBufferWith(const CString& other) const noexcept { return m_text == other.m_text; }

    friend bool operator==(const CString& a, const CString& b) noexcept
    {
        return a.m_text == b.m_text || a.view() == b.view();
    }
    friend bool operator==(const CString& a, WStrView b) noexcept { return a.view() == b; }
    friend bool operator==(const CString& a, const WCHAR* b) noexcept { return b ? a.view() == b : a.IsEmpty(); }
    friend auto operator<=>(const CString& a, const CString& b) noexcept { return a.view() <=> b.view(); }

private:
    friend class xTStringSlabs;
    friend class xTSharedRuns;

    // Stands right before the characters. Twelve bytes, so that a loaded line of 33 characters costs 80 bytes in all.
    struct xTHeader {
        std::atomic<std::uint32_t> refs;
        std::int32_t length;
        std::int32_t capacity;  // room in characters without the terminator, or one of the two below
    };
    static constexpr std::int32_t inSlab = -1;   // carved out of a slab
    static constexpr std::int32_t forever = -2;  // never counted: the empty text and the shared runs

    struct xTEmpty {
        xTHeader header;
        WCHAR terminator;
    };
    static xTEmpty s_empty;  // all empty strings point here

    static WCHAR* EmptyText() noexcept { return &s_empty.terminator; }
    static xTHeader* HeaderOf(WCHAR* text) noexcept { return reinterpret_cast<xTHeader*>(text) - 1; }
    [[nodiscard]] xTHeader* Header() const noexcept { return HeaderOf(m_text); }

    // Around a buffer that counts one owner already, or that is never counted.
    struct xTAdopt {};
    CString(WCHAR* text, xTAdopt) noexcept : m_text(text) {}

    void CheckIndex(std::int32_t index) const
    {
        if (index < 0 || index >= GetLength()) [[unlikely]]
            ThrowInvalidArgException();
    }
    void AddRef() const noexcept
    {
        if (Header()->capacity != forever)
            Header()->refs.fetch_add(1, std::memory_order_relaxed);
    }
    void Release() noexcept
    {
        if (Header()->capacity != forever)
            ReleaseCounted(m_text);
    }
    static void ReleaseCounted(WCHAR* text) noexcept;
    static WCHAR* NewBuffer(std::int32_t length, std::int32_t capacity);
    static void FreeBuffer(WCHAR* text) noexcept;
    [[nodiscard]] bool HoldsText(WStrView text) const noexcept;
    WCHAR* Splice(std::int32_t index, std::int32_t removed, std::int32_t added);

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
    [[nodiscard]] CString Carve(WStrView text) { return Carve(text, text.size()); }
    /// @param readable so many units may be read from the place of `text`, which is a part of something larger
    [[nodiscard]] CString Carve(WStrView text, std::size_t readable);
    /// The same for a text that is told in three pieces.
    [[nodiscard]] CString Carve(WStrView head, WStrView middle, WStrView tail);

    /// A block's size and its alignment: a buffer finds its block by its address.
    static constexpr std::size_t blockBytes = 64 * 1024;

    /// Where the block begins that the string was carved out of; 0 for any other string. All of it may be read as long as
    /// the string lives: it holds the texts of other strings, none overlapping another, and what stands between them.
    [[nodiscard]] static std::uintptr_t BlockOf(const CString& text) noexcept
    {
        const bool carved = text.Header()->capacity == CString::inSlab;
        return carved ? reinterpret_cast<std::uintptr_t>(text.m_text) & ~(blockBytes - 1) : 0;
    }

    /// Bytes of all blocks now alive in the process, for tests and figures.
    [[nodiscard]] static std::size_t LiveBytes() noexcept;

private:
    friend class CString;
    struct xTSlab;
    static void DropFrom(xTSlab* slab, std::uint32_t count) noexcept;
    static xTSlab* SlabOf(const void* place) noexcept;

    [[nodiscard]] WCHAR* Room(std::size_t length);
    void StartSlab();
    void FinishSlab() noexcept;

    xTSlab* m_slab = nullptr;      // the block that is being filled
    std::size_t m_used = 0;        // bytes of it
    std::uint32_t m_carved = 0;    // strings in it
};

/// `length` times `ch`, shared by all who ask for the same: the attribute words of untouched lines.
/// Lengths up to 512 are kept for the life of the process, longer ones are made at each call. No string of a kept run
/// may outlive the static objects of the process.
/// @param ch 0x0001 or 0x0005; any other character is served but not kept
[[nodiscard]] CString SharedRun(WCHAR ch, std::int32_t length);

/// True when the string is one of the kept runs of `ch`; one of another buffer with the same characters is not.
[[nodiscard]] bool IsSharedRun(const CString& run, WCHAR ch) noexcept;

/// Makes a kept run of `from` the kept one of `to` of its length, without a look at the characters.
/// @return false, and changes nothing, when the string is no kept run of `from` or the runs of `to` are not kept
bool TurnSharedRun(CString& run, WCHAR from, WCHAR to);
