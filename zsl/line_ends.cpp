#include "zsl/line_ends.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace zsl {
namespace {

constexpr char feed = 10;
constexpr char carriageReturn = 13;

constexpr std::size_t step = 64;

}  // namespace

void line_ends::count_one(WCHAR ch) noexcept
{
    m_zeros += ch == 0;
    m_feeds += ch == feed;
    m_returns += ch == carriageReturn;
    m_pairs += ch == feed && m_last == carriageReturn;
    m_last = ch;
}

// The character before `p` belongs to the text too. Without a branch and with counters as wide as the characters, so
// that it becomes wide instructions.
template <typename Unit>
void line_ends::count_step(const Unit* p) noexcept
{
    using counter = std::make_unsigned_t<Unit>;
    static_assert(step <= std::numeric_limits<counter>::max());
    const Unit* const before = p - 1;
    counter zeros = 0, feeds = 0, returns = 0, pairs = 0;
    for (std::size_t i = 0; i < step; ++i) {
        const counter isFeed = p[i] == Unit{feed};
        const counter behindReturn = before[i] == Unit{carriageReturn};
        zeros = static_cast<counter>(zeros + (p[i] == 0));
        feeds = static_cast<counter>(feeds + isFeed);
        returns = static_cast<counter>(returns + (p[i] == Unit{carriageReturn}));
        pairs = static_cast<counter>(pairs + (isFeed & behindReturn));
    }
    m_zeros += zeros;
    m_feeds += feeds;
    m_returns += returns;
    m_pairs += pairs;
    m_last = static_cast<WCHAR>(p[step - 1]);
}

template <typename Unit>
void line_ends::count_units(std::basic_string_view<Unit> piece) noexcept
{
    if (piece.empty())
        return;
    count_one(static_cast<WCHAR>(piece[0]));  // the steps look at the character before them too
    piece.remove_prefix(1);
    for (; piece.size() >= step; piece.remove_prefix(step))
        count_step(piece.data());
    for (const Unit ch : piece)
        count_one(static_cast<WCHAR>(ch));
}

template void line_ends::count_units(WStrView piece) noexcept;
template void line_ends::count_units(std::string_view piece) noexcept;

std::size_t drop_returns(WCHAR* text, std::size_t length) noexcept
{
    return static_cast<std::size_t>(std::remove(text, text + length, WCHAR{carriageReturn}) - text);
}

void append_crlf(WStrView text, WString& out)
{
    for (;;) {
        const std::size_t end = text.find(feed);
        out.append(text.substr(0, end));
        if (end == text.npos)
            return;
        out.push_back(carriageReturn);
        out.push_back(feed);
        text.remove_prefix(end + 1);
    }
}

}  // namespace zsl
