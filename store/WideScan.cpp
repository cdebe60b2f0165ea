#include "store/WideScan.h"

#include "store/EightUnits.h"

#include <algorithm>
#include <bit>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

constexpr std::size_t blockUnits = 16;
constexpr unsigned fullMask = 0xFFFF;

// The three questions put to a block of sixteen units; bit i of an answer stands for unit i.
#ifdef __SSE2__

struct xTBlock {
    __m128i low, high;
};

inline xTBlock BlockAt(const WCHAR* at) noexcept
{
    const auto* place = reinterpret_cast<const __m128i*>(at);
    return {_mm_loadu_si128(place), _mm_loadu_si128(place + 1)};
}

inline unsigned MaskOf(const xTBlock& block, WCHAR ch) noexcept
{
    const __m128i wanted = _mm_set1_epi16(static_cast<short>(ch));
    return static_cast<unsigned>(_mm_movemask_epi8(
        _mm_packs_epi16(_mm_cmpeq_epi16(block.low, wanted), _mm_cmpeq_epi16(block.high, wanted))));
}

inline bool AnyBit(const xTBlock& block, WCHAR bits) noexcept
{
    const __m128i found = _mm_and_si128(_mm_or_si128(block.low, block.high), _mm_set1_epi16(static_cast<short>(bits)));
    return _mm_movemask_epi8(_mm_cmpeq_epi16(found, _mm_setzero_si128())) != static_cast<int>(fullMask);
}

#else

struct xTBlock {
    const WCHAR* at;
};

inline xTBlock BlockAt(const WCHAR* at) noexcept { return {at}; }

inline unsigned MaskOf(const xTBlock& block, WCHAR ch) noexcept
{
    unsigned mask = 0;
    for (std::size_t i = 0; i < blockUnits; ++i)
        mask |= static_cast<unsigned>(block.at[i] == ch) << i;
    return mask;
}

inline bool AnyBit(const xTBlock& block, WCHAR bits) noexcept
{
    unsigned found = 0;
    for (std::size_t i = 0; i < blockUnits; ++i)
        found |= block.at[i] & bits;
    return found != 0;
}

#endif

inline std::size_t FirstBit(unsigned mask) noexcept { return static_cast<std::size_t>(std::countr_zero(mask)); }

// The length of a zero-terminated text, at most `limit`. It looks at whole aligned blocks and so past the terminator,
// though never into another page; the address sanitizer, which minds that, is told to look away in this one function.
[[gnu::no_sanitize_address]] std::size_t LengthUpTo(const WCHAR* text, std::size_t limit) noexcept
{
    constexpr std::uintptr_t blockBytes = blockUnits * sizeof(WCHAR);
    std::size_t i = 0;
    for (; i < limit && reinterpret_cast<std::uintptr_t>(text + i) % blockBytes != 0; ++i) {
        if (text[i] == 0)
            return i;
    }
#ifdef __SSE2__
    for (const __m128i zero = _mm_setzero_si128(); i < limit; i += blockUnits) {
        const auto* place = reinterpret_cast<const __m128i*>(text + i);
        const __m128i low = _mm_cmpeq_epi16(_mm_load_si128(place), zero);
        const __m128i high = _mm_cmpeq_epi16(_mm_load_si128(place + 1), zero);
        if (const int mask = _mm_movemask_epi8(_mm_packs_epi16(low, high)))
            return std::min(limit, i + FirstBit(static_cast<unsigned>(mask)));
    }
#endif
    for (; i < limit; ++i) {
        if (text[i] == 0)
            return i;
    }
    return limit;
}

// Collects the facts of a text piece by piece.
class xTSurvey {
public:
    explicit xTSurvey(std::size_t limit) noexcept : m_limit(limit) {}

    void Take(WStrView piece) noexcept
    {
        std::size_t i = 0;
        for (; i + blockUnits <= piece.size(); i += blockUnits) {
            const xTBlock block = BlockAt(piece.data() + i);
            m_tabs |= MaskOf(block, _T('\t'));
            m_stars |= MaskOf(block, _T('*'));
            for (unsigned feeds = MaskOf(block, _T('\n')); feeds != 0; feeds &= feeds - 1)
                EndRun(m_length + i + FirstBit(feeds));
        }
        for (; i < piece.size(); ++i) {
            m_tabs |= static_cast<unsigned>(piece[i] == _T('\t'));
            m_stars |= static_cast<unsigned>(piece[i] == _T('*'));
            if (piece[i] == _T('\n'))
                EndRun(m_length + i);
        }
        m_length += piece.size();
    }

    [[nodiscard]] xTTextFacts Finish() noexcept
    {
        if (m_runStart < m_length)
            EndRun(m_length);
        return {m_length, m_lines, m_tabs != 0, m_stars != 0};
    }

private:
    void EndRun(std::size_t end) noexcept
    {
        const std::size_t run = end - m_runStart;
        m_lines += run <= m_limit ? 1 : static_cast<std::int64_t>((run + m_limit - 1) / m_limit);
        m_runStart = end + 1;
    }

    std::size_t m_limit;
    std::size_t m_length = 0;
    std::size_t m_runStart = 0;
    std::int64_t m_lines = 0;
    unsigned m_tabs = 0;
    unsigned m_stars = 0;
};

}  // namespace

xTTextFacts SurveyText(const WCHAR* text, std::size_t limit) noexcept
{
    // In pieces that stay in the nearest cache between the search for the end and the survey.
    constexpr std::size_t pieceUnits = 4096;
    xTSurvey survey(limit);
    for (std::size_t taken = pieceUnits; taken == pieceUnits; text += taken) {
        taken = LengthUpTo(text, pieceUnits);
        survey.Take({text, taken});
    }
    return survey.Finish();
}

namespace {

// The first place from `from` on, below `end`, that has what is looked for, or `end`. `hits` tells it of the sixteen
// places from one on, `isHit` of a single one. The last block reaches back over places that were looked at already
// rather than leave up to fifteen to be asked one by one: most lines are short.
template <typename Hits, typename IsHit>
inline std::size_t FirstHit(std::size_t from, std::size_t end, Hits hits, IsHit isHit) noexcept
{
    std::size_t i = from;
    for (; i + blockUnits <= end; i += blockUnits) {
        if (const unsigned found = hits(i))
            return i + FirstBit(found);
    }
    if (i >= end)
        return end;
    if (end - from >= blockUnits) {
        const unsigned found = hits(end - blockUnits);
        return found ? end - blockUnits + FirstBit(found) : end;
    }
    while (i < end && !isHit(i))
        ++i;
    return i;
}

template <typename Units>
inline unsigned MaskOfAny(const xTBlock& block, const Units& units) noexcept
{
    unsigned hits = 0;
    for (const WCHAR unit : units)
        hits |= MaskOf(block, unit);
    return hits;
}

inline bool IsAny(WCHAR ch, std::span<const WCHAR> units) noexcept
{
    return std::ranges::find(units, ch) != units.end();
}

}  // namespace

std::size_t FindUnit(WStrView text, WCHAR ch, std::size_t from) noexcept
{
    if (from >= text.size())
        return text.size();
    const WCHAR* const units = text.data();
    return FirstHit(from, text.size(), [=](std::size_t i) { return MaskOf(BlockAt(units + i), ch); },
                    [=](std::size_t i) { return units[i] == ch; });
}

std::size_t FindAnyUnit(WStrView text, std::span<const WCHAR> wanted, std::size_t from) noexcept
{
    if (from >= text.size())
        return text.size();
    const WCHAR* const units = text.data();
    return FirstHit(from, text.size(), [=](std::size_t i) { return MaskOfAny(BlockAt(units + i), wanted); },
                    [=](std::size_t i) { return IsAny(units[i], wanted); });
}

std::size_t CountUnit(WStrView text, WCHAR ch) noexcept
{
    std::size_t count = 0;
    std::size_t i = 0;
    for (; i + blockUnits <= text.size(); i += blockUnits)
        count += static_cast<std::size_t>(std::popcount(MaskOf(BlockAt(text.data() + i), ch)));
    return count + static_cast<std::size_t>(std::ranges::count(text.substr(i), ch));
}

std::int32_t FindPair(WStrView text, WCHAR a, WCHAR b, std::int32_t from) noexcept
{
    const auto begin = static_cast<std::size_t>(std::max(from, 0));
    if (begin + 1 >= text.size())
        return -1;
    const WCHAR* const units = text.data();
    const std::size_t end = text.size() - 1;
    const auto isPair = [=](std::size_t i) { return units[i] == a && units[i + 1] == b; };
    // Most lines are short and have none. A long text is not looked through beforehand: it may be asked for pair by
    // pair.
    constexpr std::size_t shortText = 64;
    const xTEightUnits first = EightTimes(a);
    const xTEightUnits second = EightTimes(b);
    if (end - begin <= shortText &&
        !HasHit(
            begin, end,
            [=](std::size_t i) { return EightEqual(units + i, first) & EightEqual(units + i + 1, second); }, isPair))
        return -1;
    const std::size_t hit = FirstHit(
        begin, end, [=](std::size_t i) { return MaskOf(BlockAt(units + i), a) & MaskOf(BlockAt(units + i + 1), b); },
        isPair);
    return hit < end ? static_cast<std::int32_t>(hit) : -1;
}

bool AllUnitsAre(WStrView text, WCHAR word) noexcept
{
    std::size_t i = 0;
    for (; i + blockUnits <= text.size(); i += blockUnits) {
        if (MaskOf(BlockAt(text.data() + i), word) != fullMask)
            return false;
    }
    const WStrView rest = text.substr(i);
    return std::all_of(rest.begin(), rest.end(), [=](WCHAR ch) { return ch == word; });
}

bool AnyUnitUpTo(WStrView text, WCHAR limit) noexcept
{
    const WCHAR* const units = text.data();
    return HasHit(
        0, text.size(), [=](std::size_t i) { return EightUpTo(units + i, limit); },
        [=](std::size_t i) { return units[i] <= limit; });
}

bool AnyUnitHas(WStrView text, WCHAR bits) noexcept
{
    std::size_t i = 0;
    for (; i + blockUnits <= text.size(); i += blockUnits) {
        if (AnyBit(BlockAt(text.data() + i), bits))
            return true;
    }
    const WStrView rest = text.substr(i);
    return std::any_of(rest.begin(), rest.end(), [=](WCHAR ch) { return (ch & bits) != 0; });
}
