#include "store/Needle.h"

#include "store/EightUnits.h"
#include "store/FoldCase.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace {

// Units of sources and, behind them, the letters of Russian words, the most frequent first. What is not here is rarer.
constexpr WStrView frequentUnits =
    _T(" etonsiradlc\t(),;hTu_:Empgfx\".CwSb{}0P/=ALvyRFWOkDNI&M1<H>X[]2B\\UGQ-3+*z#|'4K6V5!89?`7qYj@%Z~^$J")
    _T("\x43E\x435\x430\x438\x43D\x442\x441\x440\x432\x43B\x43A\x43C\x434\x43F\x443\x44F\x44B\x44C\x433\x437\x431\x447");
constexpr std::uint8_t rarest = 0xFF;

// The higher the rarer.
constexpr auto rarities = [] {
    std::array<std::uint8_t, 0x450> table{};
    table.fill(rarest);
    for (std::size_t i = 0; i < frequentUnits.size(); ++i)
        table[frequentUnits[i]] = static_cast<std::uint8_t>(i);
    return table;
}();

std::uint8_t Rarity(WCHAR unit) noexcept
{
    return unit < rarities.size() ? rarities[unit] : rarest;
}

// The place of the rarest unit that is not `taken`; the last place when there is no other.
std::size_t RarestPlace(WStrView text, const WCHAR* taken) noexcept
{
    std::size_t best = text.size() - 1;
    std::uint8_t rarity = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (taken && text[i] == *taken)
            continue;
        if (const std::uint8_t own = Rarity(text[i]); own >= rarity) {
            best = i;
            rarity = own;
        }
    }
    return best;
}

}  // namespace

xTNeedle::xTNeedle(const CString& text, bool match_case)
    : m_text(match_case ? text : FoldCase(text)), m_matchCase(match_case)
{
    if (m_text.IsEmpty())
        return;
    m_rarest = UnitAt(RarestPlace(m_text, nullptr));
    const WCHAR taken = m_text[static_cast<std::int32_t>(m_rarest.offset)];
    m_other = UnitAt(RarestPlace(m_text, &taken));
}

xTNeedle::xTUnit xTNeedle::UnitAt(std::size_t offset) const noexcept
{
    const WCHAR unit = m_text.view()[offset];
    const WCHAR bits = m_matchCase ? WCHAR{0xFFFF} : BitsOfAllCases(unit);
    return {offset, static_cast<WCHAR>(unit & bits), bits};
}

bool xTNeedle::IsAt(const WCHAR* place) const noexcept
{
    const WStrView text = m_text;
    if (m_matchCase)
        return std::memcmp(place, text.data(), text.size() * sizeof(WCHAR)) == 0;
    const WCHAR* const lower = FoldTable().data();
    return std::equal(text.begin(), text.end(), place,
                      [=](WCHAR wanted, WCHAR ch) { return wanted == lower[static_cast<std::uint16_t>(ch)]; });
}

namespace {

constexpr std::size_t groupUnits = 4 * eightUnits;
// So far ahead memory is asked for: the machine's own foresight ends with each page of 4 KB.
constexpr std::size_t unitsAhead = 1024;

// Which of eight places have a unit of the needle where a match would have it.
template <bool folds>
struct xTSpread {
    [[nodiscard]] xTEightHits operator()(std::size_t i) const noexcept
    {
        if constexpr (folds)
            return EightEqual(at + i, unit, bits);
        else
            return EightEqual(at + i, unit);
    }
    const WCHAR* at;
    xTEightUnits unit, bits;
};

}  // namespace

// A look through one text.
template <bool folds>
class xTNeedle::xTScan {
public:
    xTScan(const xTNeedle& needle, const WCHAR* text) noexcept
        : m_needle(needle), m_text(text), m_rarest(Spread(needle.m_rarest)), m_other(Spread(needle.m_other))
    {}

    // The first match that begins at or behind `from` and before `end`, which is behind the last place for one.
    [[nodiscard]] std::size_t Match(std::size_t from, std::size_t end) const noexcept
    {
        std::size_t i = from;
        while (i + groupUnits <= end && (i = GroupWithRarest(i, end)) + groupUnits <= end) {
            if (const std::size_t match = MatchInGroup(i); match != none)
                return match;
            i += groupUnits;
        }
        for (; i + eightUnits <= end; i += eightUnits) {
            if (const std::size_t match = MatchInEight(i); match != none)
                return match;
        }
        return MatchInRest(from, i, end);
    }

private:
    [[nodiscard]] xTSpread<folds> Spread(const xTUnit& sought) const noexcept
    {
        return {m_text + sought.offset, EightTimes(sought.unit), EightTimes(folds ? sought.bits : WCHAR{0})};
    }
    [[nodiscard]] xTEightHits Both(std::size_t i) const noexcept { return m_rarest(i) & m_other(i); }

    // Nearly all of a search that finds nothing is spent here. A function of its own, since what it works with stays in
    // registers only where nothing else is called.
    [[gnu::noinline]] [[nodiscard]] std::size_t GroupWithRarest(std::size_t from, std::size_t end) const noexcept
    {
        const xTSpread<folds> rarest = m_rarest;
        std::size_t i = from;
        for (; i + groupUnits <= end; i += groupUnits) {
            __builtin_prefetch(rarest.at + i + unitsAhead);
            const xTEightHits low = rarest(i) | rarest(i + eightUnits);
            const xTEightHits high = rarest(i + 2 * eightUnits) | rarest(i + 3 * eightUnits);
            if ((low | high).Any())
                break;
        }
        return i;
    }

    [[nodiscard]] std::size_t MatchInGroup(std::size_t i) const noexcept
    {
        const unsigned low = SixteenPlaces(Both(i), Both(i + eightUnits));
        const unsigned high = SixteenPlaces(Both(i + 2 * eightUnits), Both(i + 3 * eightUnits));
        return MatchAmong(i, low | high << (2 * eightUnits));
    }

    [[nodiscard]] std::size_t MatchInEight(std::size_t i) const noexcept { return MatchAmong(i, Both(i).Places()); }

    // `places` tells where behind `i` a match may begin.
    [[nodiscard]] std::size_t MatchAmong(std::size_t i, unsigned places) const noexcept
    {
        for (; places != 0; places &= places - 1) {
            const std::size_t place = i + static_cast<std::size_t>(std::countr_zero(places));
            if (m_needle.IsAt(m_text + place))
                return place;
        }
        return none;
    }

    // The last eight places reach back over some that were looked at already rather than leave them one by one.
    [[nodiscard]] std::size_t MatchInRest(std::size_t from, std::size_t i, std::size_t end) const noexcept
    {
        if (i < end && end - from >= eightUnits)
            return MatchInEight(end - eightUnits);
        for (; i < end; ++i) {
            if (m_needle.m_rarest.May(m_text + i) && m_needle.m_other.May(m_text + i) && m_needle.IsAt(m_text + i))
                return i;
        }
        return none;
    }

    const xTNeedle& m_needle;
    const WCHAR* m_text;
    xTSpread<folds> m_rarest;
    xTSpread<folds> m_other;
};

std::size_t xTNeedle::FindIn(WStrView text, std::size_t from) const noexcept
{
    if (m_text.IsEmpty() || text.size() < Length() || from > text.size() - Length())
        return none;
    const std::size_t end = text.size() - Length() + 1;
    return m_matchCase ? xTScan<false>(*this, text.data()).Match(from, end)
                       : xTScan<true>(*this, text.data()).Match(from, end);
}
