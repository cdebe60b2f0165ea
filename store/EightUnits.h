#pragma once

#include "framework/base/WinTypes.h"

#include <cstddef>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// Eight places of a text at once, for short texts: a block of sixteen would look at many places of them twice. An
// answer stays in a register until it is asked for, so that the questions about a whole line cost one branch.

inline constexpr std::size_t eightUnits = 8;

#ifdef __SSE2__

/// Of each of eight places, whether it has what is looked for.
struct xTEightHits {
    __m128i hits = _mm_setzero_si128();

    [[nodiscard]] bool Any() const noexcept { return _mm_movemask_epi8(hits) != 0; }
    /// Bit i stands for place i.
    [[nodiscard]] unsigned Places() const noexcept
    {
        return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(hits, _mm_setzero_si128())));
    }
    friend xTEightHits operator&(xTEightHits a, xTEightHits b) noexcept { return {_mm_and_si128(a.hits, b.hits)}; }
    friend xTEightHits operator|(xTEightHits a, xTEightHits b) noexcept { return {_mm_or_si128(a.hits, b.hits)}; }
};

/// Of sixteen places, bit i standing for place i.
inline unsigned SixteenPlaces(xTEightHits low, xTEightHits high) noexcept
{
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(low.hits, high.hits)));
}

/// A unit, eight times over: spread once for many questions.
using xTEightUnits = __m128i;

inline xTEightUnits EightTimes(WCHAR ch) noexcept { return _mm_set1_epi16(static_cast<short>(ch)); }

inline xTEightHits EightEqual(const WCHAR* at, xTEightUnits wanted) noexcept
{
    return {_mm_cmpeq_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at)), wanted)};
}

/// Equal in `bits`, what is wanted having no other ones.
inline xTEightHits EightEqual(const WCHAR* at, xTEightUnits wanted, xTEightUnits bits) noexcept
{
    const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    return {_mm_cmpeq_epi16(_mm_and_si128(units, bits), wanted)};
}

inline xTEightHits EightUpTo(const WCHAR* at, WCHAR limit) noexcept
{
    const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i above = _mm_subs_epu16(units, _mm_set1_epi16(static_cast<short>(limit)));  // 0 for what is not above
    return {_mm_cmpeq_epi16(above, _mm_setzero_si128())};
}

#else

/// Of each of eight places, whether it has what is looked for.
struct xTEightHits {
    unsigned hits = 0;

    [[nodiscard]] bool Any() const noexcept { return hits != 0; }
    /// Bit i stands for place i.
    [[nodiscard]] unsigned Places() const noexcept { return hits; }
    friend xTEightHits operator&(xTEightHits a, xTEightHits b) noexcept { return {a.hits & b.hits}; }
    friend xTEightHits operator|(xTEightHits a, xTEightHits b) noexcept { return {a.hits | b.hits}; }
};

/// Of sixteen places, bit i standing for place i.
inline unsigned SixteenPlaces(xTEightHits low, xTEightHits high) noexcept { return low.hits | high.hits << eightUnits; }

/// A unit, eight times over: spread once for many questions.
struct xTEightUnits {
    WCHAR unit;
};

inline xTEightUnits EightTimes(WCHAR ch) noexcept { return {ch}; }

inline xTEightHits EightEqual(const WCHAR* at, xTEightUnits wanted) noexcept
{
    unsigned hits = 0;
    for (std::size_t i = 0; i < eightUnits; ++i)
        hits |= static_cast<unsigned>(at[i] == wanted.unit) << i;
    return {hits};
}

/// Equal in `bits`, what is wanted having no other ones.
inline xTEightHits EightEqual(const WCHAR* at, xTEightUnits wanted, xTEightUnits bits) noexcept
{
    unsigned hits = 0;
    for (std::size_t i = 0; i < eightUnits; ++i)
        hits |= static_cast<unsigned>((at[i] & bits.unit) == wanted.unit) << i;
    return {hits};
}

inline xTEightHits EightUpTo(const WCHAR* at, WCHAR limit) noexcept
{
    unsigned hits = 0;
    for (std::size_t i = 0; i < eightUnits; ++i)
        hits |= static_cast<unsigned>(at[i] <= limit) << i;
    return {hits};
}

#endif

inline xTEightHits EightEqual(const WCHAR* at, WCHAR ch) noexcept { return EightEqual(at, EightTimes(ch)); }

/// Has one of the places from `from` up to, not including, `end` what is looked for? `hits` tells it of the eight
/// places from one on, `isHit` of a single one. All are looked at, the first hit ends nothing: for texts that mostly
/// have none.
template <typename Hits, typename IsHit>
[[nodiscard]] inline bool HasHit(std::size_t from, std::size_t end, Hits hits, IsHit isHit) noexcept
{
    std::size_t i = from;
    if (end >= from + eightUnits) {
        const std::size_t last = end - eightUnits;
        xTEightHits found = hits(last);
        for (; i < last; i += eightUnits)
            found = found | hits(i);
        return found.Any();
    }
    while (i < end && !isHit(i))
        ++i;
    return i < end;
}
