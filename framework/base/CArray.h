#pragma once

#include "framework/base/Exceptions.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

/// A growable array of whole records that are relocated as raw bytes, never copied, when they move. Its free room is
/// kept as a gap at the place of the last insertion or removal, so that work at one place of a long array moves only
/// what lies between that place and the last one.
///
/// A record type must be relocatable: its bytes may be moved by memcpy, the old place then counting as never built.
/// Sizes and indexes are signed 64 bits; a bad index raises CInvalidArgException; running out of memory raises
/// std::bad_alloc; both change nothing.
template <typename TYPE, typename ARG_TYPE = const TYPE&>
class CArray {
    static_assert(std::is_nothrow_default_constructible_v<TYPE> && std::is_nothrow_destructible_v<TYPE>);
    static_assert(std::is_nothrow_move_assignable_v<TYPE> && std::is_nothrow_move_constructible_v<TYPE>);
    static_assert(alignof(TYPE) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);

public:
    using index = std::int64_t;

    CArray() noexcept = default;
    CArray(const CArray&) = delete;
    CArray& operator=(const CArray&) = delete;
    ~CArray() { RemoveAll(); }

    [[nodiscard]] index GetSize() const noexcept { return m_size; }
    [[nodiscard]] index GetCapacity() const noexcept { return m_capacity; }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_size == 0; }

    [[nodiscard]] TYPE& operator[](index i) { return *At(i); }
    [[nodiscard]] const TYPE& operator[](index i) const { return *At(i); }

    /// The records from `at` (0 to the size) on that stand in one block: those up to the free room, or up to the end.
    [[nodiscard]] std::span<const TYPE> BlockFrom(index at) const
    {
        CheckRun(at, 0);
        if (at < m_gap)
            return {m_data + at, static_cast<std::size_t>(m_gap - at)};
        return {BehindGap() + (at - m_gap), static_cast<std::size_t>(m_size - at)};
    }

    void Add(ARG_TYPE record)
    {
        TYPE copy(record);  // first: it may fail, and `record` may stand in this array
        *InsertAt(m_size) = std::move(copy);
    }

    /// @param record stands in no array
    void Add(TYPE&& record)
    {
        Reserve(SizeWith(1));
        MoveGapTo(m_size);
        ::new (static_cast<void*>(m_data + m_size)) TYPE(std::move(record));
        m_gap = ++m_size;
    }

    /// Makes room for `total` records in all by the growth rule, so that the insertions that follow allocate nothing.
    void Reserve(index total)
    {
        if (total > m_capacity)
            Grow(total);
    }

    /// Inserts `count` default-built records before `at` (0 to the size).
    /// @return the first of them; they stand in one block
    TYPE* InsertAt(index at, index count = 1)
    {
        if (at < 0 || at > m_size || count < 0)
            ThrowInvalidArgException();
        Reserve(SizeWith(count));
        MoveGapTo(at);
        TYPE* first = m_data + at;
        std::uninitialized_value_construct_n(first, count);
        m_gap = at + count;
        m_size += count;
        return first;
    }

    void RemoveAt(index at, index count = 1)
    {
        CheckRun(at, count);
        const index before = GatherAtGap(at, count);
        std::destroy_n(m_data + m_gap - before, before);
        std::destroy_n(BehindGap(), count - before);
        m_gap -= before;
        m_size -= count;
    }

    /// Makes the room in `to`, an empty array, that TakeOut needs for a run of `count` records.
    void ReserveForTakeOut(index count, CArray& to) const { to.Reserve(std::min(count, m_size - count)); }

    /// Moves a run of records into `to`, an empty array that ReserveForTakeOut has made ready. The larger part, be it
    /// the run or the rest, stays in the block that it is in, and only the other one moves out of it.
    void TakeOut(index at, index count, CArray& to)
    {
        CheckRun(at, count);
        const index rest = m_size - count;
        if (to.m_size != 0 || to.m_capacity < std::min(count, rest))
            ThrowInvalidArgException();
        if (at == 0 && count > rest) {
            KeepFirst(count, to);
            return;
        }
        MoveGapTo(at + count);
        if (count <= rest) {
            Relocate(to.m_data, m_data + at, count);
            to.m_size = to.m_gap = count;
            m_size = rest;
            m_gap = at;
            return;
        }
        const index tail = rest - at;
        Relocate(to.m_data, m_data, at);
        Relocate(to.m_data + to.m_capacity - tail, BehindGap(), tail);
        Relocate(m_data, m_data + at, count);
        to.m_size = rest;
        to.m_gap = at;
        m_size = m_gap = count;
        Swap(to);
    }

    void Swap(CArray& other) noexcept
    {
        std::swap(m_data, other.m_data);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
        std::swap(m_gap, other.m_gap);
    }

    void RemoveAll() noexcept
    {
        std::destroy_n(m_data, m_gap);
        std::destroy_n(BehindGap(), m_size - m_gap);
        ::operator delete(m_data);
        m_data = nullptr;
        m_size = m_capacity = m_gap = 0;
    }

private:
    static constexpr index largestSize = std::numeric_limits<std::ptrdiff_t>::max() / static_cast<index>(sizeof(TYPE));

    [[nodiscard]] index GapLength() const noexcept { return m_capacity - m_size; }
    [[nodiscard]] TYPE* BehindGap() const noexcept { return m_data + m_gap + GapLength(); }

    [[nodiscard]] TYPE* At(index i) const
    {
        if (i < 0 || i >= m_size) [[unlikely]]
            ThrowInvalidArgException();
        return m_data + (i < m_gap ? i : i + GapLength());
    }

    void CheckRun(index at, index count) const
    {
        if (at < 0 || count < 0 || count > m_size - at)
            ThrowInvalidArgException();
    }

    [[nodiscard]] index SizeWith(index added) const
    {
        if (added > largestSize - m_size)
            throw std::bad_alloc();
        return m_size + added;
    }

    static void Relocate(TYPE* to, const TYPE* from, index count) noexcept
    {
        if (count > 0)
            std::memmove(static_cast<void*>(to), static_cast<const void*>(from),
                         static_cast<std::size_t>(count) * sizeof(TYPE));
    }

    void MoveGapTo(index at) noexcept
    {
        if (at < m_gap)
            Relocate(m_data + at + GapLength(), m_data + at, m_gap - at);
        else if (at > m_gap)
            Relocate(m_data + m_gap, BehindGap(), at - m_gap);
        m_gap = at;
    }

    // The records behind the first `count` stand at the end of the block: it ends before them from now on, and nothing
    // else moves. They are all that stays in this array; the block is that of `to`.
    void KeepFirst(index count, CArray& to) noexcept
    {
        const index rest = m_size - count;
        MoveGapTo(std::min(m_gap, count));
        m_capacity -= rest;
        m_size = count;
        Relocate(to.m_data, m_data + m_capacity, rest);
        to.m_size = to.m_gap = rest;
        Swap(to);
    }

    // Moves the gap as little as may be so that a run lies around it.
    // Returns how many records of the run then stand before the gap.
    index GatherAtGap(index at, index count) noexcept
    {
        MoveGapTo(std::clamp(m_gap, at, at + count));
        return m_gap - at;
    }

    // The growth is fixed: an eighth of the size, at least 4 and at most 1024 records; the first block is exact.
    void Grow(index wanted)
    {
        const index step = std::clamp<index>(m_size / 8, 4, 1024);
        const index capacity = m_capacity == 0 ? wanted : std::max(wanted, m_capacity + step);
        if (capacity > largestSize)
            throw std::bad_alloc();
        auto* data = static_cast<TYPE*>(::operator new(static_cast<std::size_t>(capacity) * sizeof(TYPE)));
        const index tail = m_size - m_gap;
        Relocate(data, m_data, m_gap);
        Relocate(data + capacity - tail, BehindGap(), tail);
        ::operator delete(m_data);
        m_data = data;
        m_capacity = capacity;
    }

    TYPE* m_data = nullptr;
    index m_size = 0;
    index m_capacity = 0;
    index m_gap = 0;  // the free room stands before the record of this index
};
